// Questions that are answered in a separate program: what is laid out, started and read.
#include "run/simulators.h"

#include "question_test.h"

namespace practice {
namespace {

using Calls = std::vector<std::string>;

class Simulators : public QuestionTest {
 protected:
  void SetUp() override {
    QuestionTest::SetUp();
    options().show_answer_when_right = 0;
    options().show_answer_when_wrong = 0;
    robot.world.shell.program = [](const std::string&) {};
  }

  bool there(const char* path) { return robot.world.files.exists(path); }
  void leave(const char* path, std::string_view content = "[Answer]\r\nresult=Success\r\n") {
    robot.world.files.write(path, content);
  }
  void launch() { robot.click("quest", "cmd_buttons", 2); }
};

// ---- Before the question is shown

TEST_F(Simulators, DragAndDropBeginsWithoutAnOldResult) {
  leave("out.ini");
  show(exercise("xxxdnd"));
  EXPECT_FALSE(there("out.ini"));
}

// The file that is looked for and the file that goes are two; the old dialogue result stays until
// it is read.
TEST_F(Simulators, ADialogueSimulatorTakesTheOtherResultAway) {
  for (const char* marker : {"xxxmssim", "xxxmssim2"}) {
    leave("out.ini");
    show(exercise(marker));
    EXPECT_TRUE(there("out.ini")) << "nothing in the other folder";
    leave("\\program\\Sims\\OUT.ini");
    show(exercise(marker));
    EXPECT_FALSE(there("out.ini"));
    EXPECT_TRUE(there("\\program\\Sims\\OUT.ini"));
    robot.world.files.remove("\\program\\Sims\\OUT.ini");
  }
}

TEST_F(Simulators, AnAbandonedResultCountsAtTheNextNext) {
  leave("\\program\\Sims\\OUT.ini");
  show(exercise("xxxmssim"));
  next();
  EXPECT_EQ(row(1).result_state, 1);
  EXPECT_FALSE(there("\\program\\Sims\\OUT.ini"));
}

TEST_F(Simulators, BackDoesNotReadTheResult) {
  show(exercise("xxxdnd"), 2);
  leave("out.ini");
  back();
  EXPECT_TRUE(there("out.ini"));
  EXPECT_EQ(row(2).result_state, 0);
}

TEST_F(Simulators, ADeviceSimulatorGetsItsTaskAndItsTranscript) {
  leave("sim.txt", "an old and much longer task that does not survive");
  leave("sim_showme.txt", "old");
  Question question = exercise("xxsim");
  question.question_text = "Create <b>VLAN 2</b>.";
  question.clue = "conf t\r\nvlan 2";
  show(question);
  EXPECT_EQ(file("sim.txt"), "Create <b>VLAN 2</b>.\r\n");
  EXPECT_EQ(file("sim_showme.txt"), "conf t\r\nvlan 2\r\n");
}

TEST_F(Simulators, OtherQuestionsWriteNoTask) {
  for (const char* marker : {"", "xxxdnd", "xxxmssim", "xxxmssim2"}) show(exercise(marker));
  EXPECT_FALSE(there("sim.txt"));
  EXPECT_FALSE(there("sim_showme.txt"));
}

TEST_F(Simulators, TheTaskLiesInTheWorkingFolder) {
  robot.world.files.working_folder = "\\home\\student";
  show(exercise("xxsim"));
  EXPECT_TRUE(there("\\home\\student\\sim.txt"));
  EXPECT_TRUE(there("\\home\\student\\sim_showme.txt"));
}

TEST_F(Simulators, AConfigurationStaysUntilTheNextDeviceSimulator) {
  Question question = exercise("xxsim", "a=b");
  show(question);
  leave("out.ini", "[general]\na=b\n");
  next();
  EXPECT_EQ(row(1).result_state, 1);
  EXPECT_TRUE(there("out.ini"));
  show(question, 2);
  EXPECT_FALSE(there("out.ini"));
}

TEST_F(Simulators, ATaskThatCanNotBeWrittenCostsOneLineOfTheLogAndNotTheQuestion) {
  robot.world.files.remove("error.log");
  robot.world.files.protect("sim.txt");
  Question question = exercise("xxsim");
  question.clue = "shown";
  show(question);
  EXPECT_EQ(file("error.log"), robot.world.clock.date_and_time() +
                                   " - show_quest() - quest370 - Permission denied - \r\n");
  EXPECT_EQ(file("sim_showme.txt"), "shown\r\n");
  EXPECT_TRUE(quest().cmd_buttons[2].visible);
  EXPECT_TRUE(page_has("Complete the Task Using the Simulator"));
}

// ---- Starting

TEST_F(Simulators, EachKindStartsItsProgramWithTheExercise) {
  show(exercise("xxxdnd", "12"));
  robot.click("quest", "cmd_buttons", 3);
  show(exercise("xxxmssim", "3"));
  launch();
  show(exercise("xxxmssim2", "4 "));
  launch();
  EXPECT_EQ(robot.world.shell.calls, (Calls{"start \\program\\bwDragnDrop.exe  46000Q12",
                                            "start \\program\\Sims\\dlgsim.exe  46000Q3",
                                            "start \\program\\Sims\\dnd5.exe  46000Q4"}));
}

TEST_F(Simulators, TheExerciseKeepsItsInnerBlanks) {
  show(exercise("xxxdnd", " 1 2"));
  EXPECT_EQ(lab_key(robot.program()), "46000Q 1 2");
}

TEST_F(Simulators, ADeviceSimulatorIsStartedWithItsLab) {
  Question question = exercise("xxsim");
  question.exhibits[2] = "  basic frame ";
  show(question);
  launch();
  EXPECT_EQ(robot.world.shell.calls, Calls{"start \\program\\testsim.exe basic frame"});
}

TEST_F(Simulators, TheProgramsFolderMayEndInASeparator) {
  robot.world.platform.program_folder = "\\program\\";
  Question question = exercise("xxsim", "a=b");
  question.exhibits[2] = "3550";
  show(question);
  leave("out.ini", "[general]\na=b\n");
  launch();
  EXPECT_EQ(robot.world.shell.calls, Calls{"start \\program\\testsim.exe 3550"});
  EXPECT_EQ(read_out_ini(robot.program(), "general", "a"), "b");
}

TEST_F(Simulators, ATextExhibitInPlaceOfALabStartsNothing) {
  for (const char* name : {"q31.txt", "Q31.TXT"}) {
    Question question = exercise("xxsim");
    question.exhibits[2] = name;
    show(question);
    launch();
  }
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(Simulators, ASecondPressStartsASecondCopy) {
  show(exercise("xxxdnd", "12"));
  robot.click("quest", "cmd_buttons", 3);
  robot.click("quest", "cmd_buttons", 3);
  EXPECT_EQ(robot.world.shell.calls.size(), 2u);
}

TEST_F(Simulators, AProgramThatCanNotBeStartedLeavesALineInTheLogAndTheRunAsItWas) {
  robot.world.shell.program = nullptr;
  const std::pair<const char*, const char*> cases[] = {
      {"xxxdnd", "launch_dnd()"}, {"xxxmssim", "launch_MSsim()"}, {"xxxmssim2", "launch_MSsim()"}};
  for (const auto& [marker, routine] : cases) {
    show(exercise(marker));
    robot.world.files.write("error.log", "");
    robot.click("quest", "cmd_buttons", marker == std::string_view("xxxdnd") ? 3 : 2);
    EXPECT_EQ(file("error.log"), robot.world.clock.date_and_time() + " - " + routine +
                                     " - quest353 - File not found - \r\n");
    EXPECT_TRUE(robot.world.messages.shown.empty());
    EXPECT_EQ(run().question_position, 1);
  }
}

TEST_F(Simulators, ADeviceSimulatorThatCanNotBeStartedLeavesNoLine) {
  robot.world.shell.program = nullptr;
  Question question = exercise("xxsim");
  question.exhibits[2] = "3550";
  show(question);
  robot.world.files.write("error.log", "");
  launch();
  EXPECT_EQ(file("error.log"), "");
  EXPECT_EQ(run().question_position, 1);
}

TEST_F(Simulators, AStudentLaunchesWorksAndIsRight) {
  robot.world.shell.program = [&](const std::string&) { leave("\\program\\OUT.INI"); };
  show(exercise("xxxdnd"));
  robot.click("quest", "cmd_buttons", 3);
  next();
  EXPECT_EQ(row(1).result_state, 1);
  EXPECT_FALSE(there("out.ini"));
}

TEST_F(Simulators, NextWithoutLaunchingIsWrong) {
  for (const char* marker : {"xxxdnd", "xxxmssim", "xxxmssim2", "xxsim"}) {
    show(exercise(marker, "hostname=SW1"));
    next();
    EXPECT_EQ(row(1).result_state, 2) << marker;
    EXPECT_TRUE(robot.world.messages.shown.empty());
  }
}

TEST_F(Simulators, ASuccessLeftByAnAbandonedQuestionGoesAtTheNextPreparation) {
  show(exercise("xxxdnd"), 2);
  leave("OUT.ini");
  back();
  EXPECT_TRUE(there("OUT.ini"));
  show(exercise("xxxdnd"), 3);
  EXPECT_FALSE(there("OUT.ini"));
  next();
  EXPECT_EQ(row(3).result_state, 2);
}

TEST_F(Simulators, AResultThatComesLateMeetsTheNextCheck) {
  show(exercise("xxxdnd"), 2);
  next();
  EXPECT_EQ(row(2).result_state, 2);
  show(exercise("xxxmssim"), 2);
  leave("\\program\\Sims\\out.ini");
  next();
  EXPECT_EQ(row(2).result_state, 1);
}

TEST_F(Simulators, AResultThatIsNoResultIsWrongAndTheTestGoesOn) {
  const std::string huge(2'000'000, '[');
  std::string bytes = "[Answer]\n";
  for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(i * 37);
  const std::pair<const char*, std::string> results[] = {
      {"empty", ""},
      {"binary", bytes},
      {"huge", huge},
      {"huge in front of the answer", huge + "\n[Answer]\nresult=Success\n"},
      {"without the section", "result=Success\n"},
      {"in another section", "[general]\nresult=Success\n"},
      {"without the key", "[Answer]\nverdict=Success\n"},
      {"another word", "[Answer]\nresult=Perhaps\n"},
      {"the word in another case", "[Answer]\nresult=success\n"},
      {"a word that goes on", "[Answer]\nresult=Success" + std::string(100'000, '!') + "\n"},
      {"a long key", "[Answer]\n" + std::string(100'000, 'k') + "=Success\n"},
      {"quoted with a blank behind", "[Answer]\nresult=\"Success \"\n"}};
  for (const auto& [what, content] : results) {
    show(exercise("xxxdnd"));
    leave("OUT.ini", content);
    next();
    EXPECT_EQ(row(1).result_state, 2) << what;
    EXPECT_EQ(run().question_position, 2) << what;
    EXPECT_FALSE(there("OUT.ini")) << what;
  }
}

// ---- Reading

TEST_F(Simulators, AMissingKeyReadsAsTheNameOfTheFile) {
  EXPECT_EQ(read_out_ini(robot.program(), "general", "a"), "\\program\\out.ini");
  leave("out.ini", "[general]\na=\nb= x \n");
  EXPECT_EQ(read_out_ini(robot.program(), "general", "c"), "\\program\\out.ini");
  EXPECT_EQ(read_out_ini(robot.program(), "general", "a"), "");
  EXPECT_EQ(read_out_ini(robot.program(), "GENERAL", "B"), "x");
  leave("\\x\\y.ini", "[general]\na=1\n");
  EXPECT_EQ(read_ini_value(robot.program(), "general", "a", "\\x\\y.ini"), "1");
  EXPECT_EQ(read_ini_value(robot.program(), "general", "z", "\\x\\y.ini"), "\\x\\y.ini");
}

TEST_F(Simulators, AValueIsCutAt59Characters) {
  const std::string long_value(70, 'v');
  leave("out.ini", "[general]\na=" + long_value + "\nb=" + long_value.substr(0, 59) + "\n");
  EXPECT_EQ(read_out_ini(robot.program(), "general", "a"), std::string(59, 'v'));
  EXPECT_EQ(read_out_ini(robot.program(), "general", "b"), std::string(59, 'v'));
  const std::string deep = "\\" + std::string(80, 'd') + ".ini";
  EXPECT_EQ(read_ini_value(robot.program(), "general", "a", deep), deep.substr(0, 59));
}

TEST_F(Simulators, AValueEndsAtItsFirstNull) {
  leave("out.ini", std::string("[general]\na=x\0y\0z\n", 18));
  EXPECT_EQ(read_out_ini(robot.program(), "general", "a"), "x");
}

}  // namespace
}  // namespace practice
