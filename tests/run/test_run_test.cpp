// A test run as a student goes through it: Next, Back, and what each question brings.
#include <ostream>

#include "question_test.h"

namespace practice {
namespace {

class TestRunTest : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }
};

using RunningTest = QuestionTest;

TEST_F(TestRunTest, TheFirstQuestionComesUpWithItsNumberAndItsId) {
  start_test();
  EXPECT_EQ(quest().caption, "Practice Test for Brightwater JASPER FALCO - Question  1 of 50");
  EXPECT_EQ(quest().question_number.caption, " 1");
  EXPECT_EQ(quest().qid.caption, " 1");
  EXPECT_TRUE(quest().visible);
  EXPECT_FALSE(pick_a_quiz().visible);
}

TEST_F(TestRunTest, BackOnTheFirstQuestionShowsItAgainWithItsMarks) {
  start_test();
  robot.choose("radio1", 2);
  back();
  EXPECT_EQ(quest().question_number.caption, " 1");
  EXPECT_TRUE(robot.page().input("radio1", 1)->checked);
  EXPECT_FALSE(robot.page().input("radio1", 0)->checked);
}

TEST_F(TestRunTest, APermutedQuestionShowsTheSameOrderWhenItIsMetAgain) {
  start_test(1, true);
  const auto order = robot.program().current_question.answers;
  const auto correct = robot.program().current_question.answer_correct;
  next();
  back();
  EXPECT_EQ(robot.program().current_question.answers, order);
  EXPECT_EQ(robot.program().current_question.answer_correct, correct);
}

// The row of the second question lies outside the table: several steps of showing it fail, each on
// its own, and the steps behind them still run.
TEST_F(TestRunTest, TwoFaultsInShowingAQuestionLeaveTwoLinesAndTheRoutineReachesItsEnd) {
  start_test();
  robot.world.files.remove("error.log");
  robot.run().question_order[2] = 5000;
  quest().set_focus("WebBrowser1");
  next();
  const std::string log = file("error.log");
  std::size_t lines = 0;
  for (std::size_t place = 0; (place = log.find("\r\n", place)) != std::string::npos; ++place) {
    ++lines;
  }
  EXPECT_GE(lines, 2u);
  const std::string line = robot.world.clock.date_and_time().substr(0, 8);
  EXPECT_TRUE(log.starts_with(line));
  EXPECT_NE(log.find(" - show_quest() - quest39 - Subscript out of range - \r\n"),
            std::string::npos);
  EXPECT_EQ(quest().caption, "Practice Test for Brightwater JASPER FALCO - Question  2 of 50");
  EXPECT_EQ(quest().focus().first, "cmd_buttons");
}

TEST_F(TestRunTest, AWholeTestEndsAtItsScoreAndLeavesItsResults) {
  start_test();
  for (int i = 1; i <= 50; ++i) {
    answer_rightly();
    next();
  }
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().loaded);
  EXPECT_EQ(finalscore().per.caption, "100%");
  EXPECT_TRUE(file("46000.STUDENT.results").starts_with("0,1\r\n0,2\r\n"));
}

// ---- What each question brings

struct KindCase {
  const char* story;
  const char* type;
  const char* marker;
  int correct;
  bool radio_for_single;
  const char* kind;
  bool simulator_button;
  bool drag_drop_button;
  bool diagram_button;

  friend std::ostream& operator<<(std::ostream& out, const KindCase& c) { return out << c.story; }
};

class KindOfQuestion : public QuestionTest, public testing::WithParamInterface<KindCase> {};

TEST_P(KindOfQuestion, DecidesTheInputAndTheButtons) {
  const KindCase& c = GetParam();
  options().radio_for_single = c.radio_for_single;
  Question question = choice({});
  question.question_type = c.type;
  question.diagrams[1] = c.marker;
  for (int i = 1; i <= c.correct; ++i) question.answer_correct[i] = 1;
  show(question);
  EXPECT_EQ(run().question_kind, c.kind);
  EXPECT_EQ(quest().cmd_buttons[2].visible, c.simulator_button);
  EXPECT_EQ(quest().cmd_buttons[3].visible, c.drag_drop_button);
  EXPECT_EQ(quest().diagrambutton[0].visible, c.diagram_button);
  const std::string kind = c.kind;
  EXPECT_EQ(robot.page().input("radio1") != nullptr, kind == "Radio_Button");
  EXPECT_EQ(robot.page().input("ans1") != nullptr, kind == "Check_Box");
  EXPECT_EQ(robot.page().input("txt_fill") != nullptr, kind == "Fill_In");
}

INSTANTIATE_TEST_SUITE_P(
    AllKinds, KindOfQuestion,
    testing::Values(
        KindCase{"one correct answer", "single_answer", "", 1, true, "Radio_Button", false, false,
                 false},
        KindCase{"no correct answer at all", "single_answer", "", 0, true, "Radio_Button", false,
                 false, false},
        KindCase{"the flags count and not the type", "single_answer", "", 2, true, "Check_Box",
                 false, false, false},
        KindCase{"a multiple choice with one flag", "multi_answer", "", 1, true, "Radio_Button",
                 false, false, false},
        KindCase{"two correct answers", "multi_answer", "", 2, true, "Check_Box", false, false,
                 false},
        KindCase{"boxes are wanted for one correct answer too", "single_answer", "", 1, false,
                 "Check_Box", false, false, false},
        KindCase{"fill in", "fill_in_the_blank", "", 0, true, "Fill_In", false, false, false},
        KindCase{"fill in, told otherwise", "Fill", "", 2, false, "Fill_In", false, false, false},
        KindCase{"a picture", "single_answer", "q16.jpg", 1, true, "Radio_Button", false, false,
                 true},
        KindCase{"drag and drop", "single_answer", "xxxdnd", 0, true, "Drag_Drop", false, true,
                 false},
        KindCase{"a marker wins over the type", "fill_in_the_blank", "xxxdnd", 0, true, "Drag_Drop",
                 false, true, false},
        KindCase{"dialogue simulator, whose diagram button stands", "single_answer", "xxxmssim", 0,
                 true, "MS_Sim", true, false, true},
        KindCase{"second dialogue simulator, likewise", "single_answer", "xxxmssim2", 0, true,
                 "MS_Sim2", true, false, true},
        KindCase{"device simulator", "single_answer", "xxsim", 0, true, "Sim", true, false, false},
        KindCase{"two x only, no marker", "single_answer", "xxmssim", 1, true, "Radio_Button",
                 false, false, false},
        KindCase{"two x only, the second", "single_answer", "xxmssim2", 1, true, "Radio_Button",
                 false, false, false},
        KindCase{"markers regard case", "single_answer", "XXSIM", 1, true, "Radio_Button", false,
                 false, true}));

TEST_F(RunningTest, TheButtonsOfOneQuestionAreGoneAtTheNext) {
  Question question = exercise("xxsim");
  question.exhibits[1] = "q31.txt";
  question.diagrams[2] = "a.jpg";
  question.diagrams[3] = "b.jpg";
  show(question);
  ASSERT_TRUE(quest().exhibitbutton[0].visible);
  ASSERT_TRUE(quest().diagrambutton[1].visible);
  ASSERT_TRUE(quest().diagrambutton[2].visible);
  ASSERT_TRUE(quest().cmd_buttons[2].visible);
  show(choice({1}), 2);
  EXPECT_FALSE(quest().exhibitbutton[0].visible);
  EXPECT_FALSE(quest().diagrambutton[1].visible);
  EXPECT_FALSE(quest().diagrambutton[2].visible);
  EXPECT_FALSE(quest().cmd_buttons[2].visible);
}

TEST_F(RunningTest, OnlyTheFirstExhibitEverHasAButton) {
  Question question = choice({1});
  for (int i = 1; i <= 3; ++i) question.exhibits[i] = "q31.txt";
  show(question);
  EXPECT_TRUE(quest().exhibitbutton[0].visible);
  EXPECT_FALSE(quest().exhibitbutton[1].visible);
  EXPECT_FALSE(quest().exhibitbutton[2].visible);
  question.exhibits[1] = "  ";
  show(question);
  EXPECT_FALSE(quest().exhibitbutton[0].visible);
}

TEST_F(RunningTest, ADeviceModelInTheSecondDiagramIsNoDiagram) {
  for (const char* model : {"1900", "2950"}) {
    Question question = exercise("xxsim");
    question.diagrams[2] = model;
    show(question);
    EXPECT_FALSE(quest().diagrambutton[1].visible) << model;
  }
  Question question = choice({1});
  question.diagrams[2] = "3550";
  question.diagrams[3] = "2950";
  show(question);
  EXPECT_TRUE(quest().diagrambutton[1].visible);
  EXPECT_TRUE(quest().diagrambutton[2].visible);
}

TEST_F(RunningTest, NeitherClueNorTutorHasAButton) {
  Question question = choice({1});
  question.clue = "Think.";
  question.tutor_file = "vlan.wmv";
  show(question);
  EXPECT_FALSE(quest().cluebutton.visible);
  EXPECT_FALSE(quest().cmdtutor.visible);
  EXPECT_ROBOT_REFUSES(robot.click("quest", "cmdtutor"));
}

TEST_F(RunningTest, TheBookButtonStandsForAReferenceWithAPage) {
  const std::pair<const char*, bool> cases[] = {
      {"55##Distribution Layer", true}, {"205##", true}, {"see the book", false}, {"  ", false}};
  for (const auto& [reference, shown] : cases) {
    Question question = choice({1});
    question.book_reference = reference;
    show(question);
    EXPECT_EQ(quest().Command1.visible, shown) << reference;
  }
}

TEST_F(TestRunTest, ATestInTestModeOffersNoBook) {
  robot.click("Welcome", "Image4", 0);
  robot.click("pick_a_quiz", "Command2");
  robot.click("pick_a_quiz", "Command1");
  ASSERT_TRUE(robot.program().options.test_mode_on);
  for (int i = 1; i <= 5; ++i) {
    robot.program().current_question.book_reference = "55##Distribution Layer";
    row(robot.run().question_order[robot.run().question_position + 1]).book_reference = "55##Here";
    next();
    EXPECT_EQ(robot.program().current_question.book_reference, "55##Here");
    EXPECT_FALSE(quest().Command1.visible);
  }
}

TEST_F(TestRunTest, WithoutRadioButtonsEveryChoiceHasBoxes) {
  robot.click("Welcome", "Image4", 0);
  robot.click("pick_a_quiz", "chkRadio");
  robot.click("pick_a_quiz", "Command1");
  int single = 0;
  for (int i = 1; i <= 20; ++i) {
    EXPECT_EQ(robot.page().input("radio1"), nullptr);
    if (robot.run().correct_count == 1) ++single;
    next();
  }
  EXPECT_GT(single, 0);
}

TEST_F(RunningTest, TheScorePanelIsShownAsTheOptionsAsk) {
  const auto panel = [&] {
    return std::vector<bool>{quest().Gauge1.visible, quest().the_gauge.visible,
                             quest().Percent_Right.visible, quest().score.visible,
                             quest().Label2.visible};
  };
  options().show_running_score = 0;
  show(choice({1}));
  EXPECT_EQ(panel(), std::vector<bool>(5, false));
  EXPECT_TRUE(quest().question_number.visible);
  EXPECT_TRUE(quest().qid.visible);
  options().show_running_score = 1;
  show(choice({1}));
  EXPECT_EQ(panel(), std::vector<bool>(5, true));
}

TEST_F(RunningTest, AQuestionTakesTheBackButtonAwayAndNeverBringsItBack) {
  options().back_button_on = 1;
  show(choice({1}));
  EXPECT_TRUE(quest().cmd_buttons[1].visible);
  options().back_button_on = 0;
  show(choice({1}));
  EXPECT_FALSE(quest().cmd_buttons[1].visible);
  options().back_button_on = 1;
  show(choice({1}));
  EXPECT_FALSE(quest().cmd_buttons[1].visible);
}

TEST_F(RunningTest, NextHasTheFocusAndIsPressableAtEachQuestion) {
  quest().cmd_buttons[0].enabled = false;
  quest().set_focus("WebBrowser1");
  run().next_pressed = true;
  show(choice({1}));
  EXPECT_TRUE(quest().cmd_buttons[0].enabled);
  EXPECT_EQ(quest().focus(), std::make_pair(std::string("cmd_buttons"), 0));
  EXPECT_FALSE(run().next_pressed);
}

// ---- The order of the answers

// Four draws just below 1 swap each answer in turn with the last one: DBCA, DACB, DABC, DABC.
TEST_F(RunningTest, TheAnswersAreSwappedByOneDrawEach) {
  options().shuffle_answers = 1;
  robot.world.random.draws = {0.99f, 0.99f, 0.99f, 0.99f};
  show(choice({1, 4}));
  const Question& question = row(1);
  EXPECT_EQ(question.answers[1], "four");
  EXPECT_EQ(question.answers[2], "one");
  EXPECT_EQ(question.answers[3], "two");
  EXPECT_EQ(question.answers[4], "three");
  EXPECT_EQ(question.answer_correct[1], 1);
  EXPECT_EQ(question.answer_correct[2], 1);
  EXPECT_EQ(question.answer_correct[3], 0);
  EXPECT_EQ(question.answer_correct[4], 0);
  EXPECT_EQ(question.answers_shuffled, 1);
  EXPECT_TRUE(robot.world.random.draws.empty());
}

TEST_F(RunningTest, ASecondVisitDrawsNumbersAndThrowsThemAway) {
  options().shuffle_answers = 1;
  robot.world.random.draws = {0.99f, 0.99f, 0.99f, 0.99f};
  show(choice({1}));
  robot.choose("radio1", 2);
  const auto order = row(1).answers;
  const int seeds = robot.world.random.seeds;
  robot.world.random.draws = {0, 0, 0, 0, 0.5f};
  back();
  EXPECT_EQ(row(1).answers, order);
  EXPECT_EQ(robot.program().current_question.answers, order);
  EXPECT_EQ(robot.world.random.draws.size(), 1u);
  EXPECT_EQ(robot.world.random.seeds, seeds + 1);
  EXPECT_EQ(row(1).answer_chosen[2], 1);
  EXPECT_TRUE(robot.page().input("radio1", 1)->checked);
}

TEST_F(RunningTest, SomeQuestionsKeepTheirOrderAndCountAsShuffledAllTheSame) {
  options().shuffle_answers = 1;
  for (const char* type : {"no_reorder", "No_Reorder", "fill_in_the_blank", "FILLER"}) {
    Question question = choice({1});
    question.question_type = type;
    const auto order = question.answers;
    robot.world.random.draws = {0.99f, 0.99f, 0.99f, 0.99f};
    show(question);
    EXPECT_EQ(row(1).answers, order) << type;
    EXPECT_EQ(row(1).answers_shuffled, 1) << type;
    EXPECT_TRUE(robot.world.random.draws.empty()) << type;
  }
}

TEST_F(RunningTest, WithoutShufflingNothingIsDrawn) {
  robot.world.random.draws = {0.25f};
  show(choice({1}));
  EXPECT_EQ(robot.world.random.draws.size(), 1u);
  EXPECT_EQ(row(1).answers[1], "one");
  EXPECT_EQ(row(1).answers_shuffled, 1);
}

// ---- Next and Back

TEST_F(RunningTest, NextKeepsTheChosenAnswerAndClearsTheOthers) {
  Question question = choice({1});
  question.answer_chosen[4] = 1;
  show(question);
  ASSERT_TRUE(robot.page().input("radio1", 3)->checked);
  robot.choose("radio1", 3);
  next();
  EXPECT_EQ(row(1).answer_chosen[3], 1);
  EXPECT_EQ(row(1).answer_chosen[4], 0);
}

TEST_F(RunningTest, NextKeepsTheTickedBoxesAndClearsEntriesWithoutABox) {
  Question question = choice({1, 2});
  question.answer_chosen[6] = 1;
  show(question);
  robot.tick("ans1");
  robot.tick("ans4");
  next();
  const Slots<Integer, 6>& chosen = row(1).answer_chosen;
  EXPECT_EQ(chosen[1], 1);
  EXPECT_EQ(chosen[2], 0);
  EXPECT_EQ(chosen[3], 0);
  EXPECT_EQ(chosen[4], 1);
  EXPECT_EQ(chosen[6], 0);
}

TEST_F(RunningTest, NextKeepsTheTypedAnswerAsItIs) {
  show(fill_in({"OSPF"}));
  robot.type_on_page("txt_fill", "  \"ospf\" ");
  next();
  EXPECT_EQ(row(1).typed_answer, "  \"ospf\" ");
}

TEST_F(RunningTest, ASimulatorQuestionTakesNothingFromThePage) {
  Question question = exercise("xxxdnd");
  question.answer_chosen[2] = 1;
  question.typed_answer = "before";
  show(question);
  next();
  EXPECT_EQ(row(1).answer_chosen[2], 1);
  EXPECT_EQ(row(1).typed_answer, "before");
}

TEST_F(RunningTest, APageThatLostItsInputsCostsNothingButTheAnswer) {
  show(choice({1}));
  quest().WebBrowser1.view.document.clear();
  next();
  EXPECT_EQ(row(1).result_state, 2);
  EXPECT_EQ(quest().question_number.caption, " 2");
}

TEST_F(RunningTest, BackKeepsTheInputButChecksNothing) {
  show(choice({1}));
  next();
  ASSERT_EQ(row(1).result_state, 2);
  show(choice({3}), 2);
  run().last_results[2] = "";
  robot.choose("radio1", 3);
  back();
  EXPECT_EQ(quest().question_number.caption, " 1");
  EXPECT_EQ(row(2).answer_chosen[3], 1);
  EXPECT_EQ(row(2).result_state, 0);
  EXPECT_EQ(run().last_results[2], "");
  EXPECT_EQ(run().category_right[1], 0);
  EXPECT_EQ(row(1).result_state, 2);
}

TEST_F(RunningTest, BackTakesExhibitAndDiagramAway) {
  Question question = choice({1});
  question.exhibits[1] = "q31.txt";
  question.diagrams[1] = "q16.jpg";
  show(question);
  robot.click("quest", "exhibitbutton", 0);
  robot.click("quest", "diagrambutton", 0);
  Forms& forms = robot.program().forms;
  ASSERT_TRUE(forms.is_loaded(Form::Exhibit));
  ASSERT_TRUE(forms.is_loaded(Form::Diagram));
  back();
  EXPECT_FALSE(forms.is_loaded(Form::Exhibit));
  EXPECT_FALSE(forms.is_loaded(Form::Diagram));
  EXPECT_EQ(run().question_position, 1);
}

TEST_F(RunningTest, AFixedQuizTakesEveryFourthRow) {
  run().order_stride = 4;
  run().order_base = 2;
  next();
  EXPECT_EQ(run().current_row, 6);
  EXPECT_EQ(quest().qid.caption, " 6");
  EXPECT_EQ(quest().question_number.caption, " 2");
}

// ---- The end

TEST_F(RunningTest, AnEmptyTestGoesStraightToItsScore) {
  run().question_total = 0;
  run().question_position = 0;
  quest().show_quest();
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().loaded);
  EXPECT_EQ(run().question_position, 0);
}

TEST_F(RunningTest, TheCountOfFinishedTestsGoesUp) {
  const std::pair<const char*, const char*> cases[] = {{"6", "7"}, {" 41 tests", "42"}, {"x", "1"}};
  for (const auto& [before, after] : cases) {
    robot.world.settings.save("marlo", "46000", "num_times", before);
    quest().end_the_test();
    EXPECT_EQ(robot.world.settings.get("marlo", "46000", "num_times", ""), after);
  }
  robot.world.settings.values.clear();
  quest().end_the_test();
  EXPECT_EQ(robot.world.settings.get("marlo", "46000", "num_times", ""), "1");
}

TEST_F(RunningTest, TheEndLowersThePositionAndTheFinalScoreSeesAllQuestions) {
  next();
  robot.click("quest", "menu_quittest");
  EXPECT_EQ(run().question_position, 50);
  EXPECT_EQ(finalscore().tot.caption, "50");
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().visible);
  EXPECT_FALSE(pick_a_quiz().loaded);
}

TEST_F(RunningTest, TheResultsFileHasAThousandLinesAndIsWrittenAnew) {
  robot.world.files.write("46000.STUDENT.results", std::string(100'000, 'x'));
  run().last_results[2] = "1";
  run().last_results[1000] = "";
  quest().write_results_file();
  std::string expected;
  for (int i = 1; i <= 1000; ++i) {
    expected += run().last_results[i] + "," + std::to_string(i) + "\r\n";
  }
  const std::string written = file("46000.STUDENT.results");
  EXPECT_EQ(written, expected);
  EXPECT_TRUE(written.ends_with("\r\n,999\r\n,1000\r\n"));
  EXPECT_NE(written.find("\r\n1,2\r\n"), std::string::npos);
}

TEST_F(RunningTest, TheResultsLieInTheWorkingFolderUnderTheStudentsName) {
  robot.world.files.working_folder = "\\home\\student";
  options().student_name = "ADA 2";
  robot.click("quest", "menu_quittest");
  EXPECT_TRUE(robot.world.files.exists("\\home\\student\\46000.ADA 2.results"));
  EXPECT_TRUE(robot.world.files.exists("\\home\\student\\history.46000.ADA 2.htm"));
}

TEST_F(RunningTest, ADiskThatTakesNoResultsStillLeavesTheScore) {
  robot.world.files.protect("46000.STUDENT.results");
  robot.click("quest", "menu_quittest");
  EXPECT_FALSE(robot.world.files.exists("46000.STUDENT.results"));
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().loaded);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(RunningTest, AFinalScoreLeftOpenIsMadeAnew) {
  robot.program().forms.show(Form::finalscore);
  const int generation = finalscore().generation;
  quest().end_the_test();
  EXPECT_EQ(finalscore().generation, generation + 1);
  EXPECT_TRUE(finalscore().visible);
}

}  // namespace
}  // namespace practice
