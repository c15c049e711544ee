// The options of a test: what stands there at first, the two modes, and what is remembered.
#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

class TestOptionsTest : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }

  void open() { robot.click("Welcome", "Image4", 0); }
  void reopen() {
    robot.program().forms.unload(Form::pick_a_quiz);
    robot.program().forms.show(Form::pick_a_quiz);
  }
  int box(const char* name) {
    return std::get<CheckBox*>(robot.control("pick_a_quiz", name).control)->value;
  }
  std::string stored(const char* key) { return get_option(robot.program(), key, "(none)"); }
  void store(const char* key, const char* value) { save_option(robot.program(), key, value); }
  const MessageBox& last_box() { return robot.world.messages.shown.back(); }

  static constexpr const char* boxes[] = {"timeron",
                                          "answer_when_wrong",
                                          "answer_when_right",
                                          "random_questions",
                                          "random_answers",
                                          "scoregraph",
                                          "backb"};
};

TEST_F(TestOptionsTest, BeforeTheFirstSaveEverythingStandsAtItsDefault) {
  open();
  const std::pair<const char*, int> defaults[] = {{"timeron", 0},
                                                  {"answer_when_wrong", 1},
                                                  {"answer_when_right", 0},
                                                  {"random_questions", 1},
                                                  {"random_answers", 1},
                                                  {"scoregraph", 1},
                                                  {"backb", 1},
                                                  {"chkEmbed", 0},
                                                  {"chkRadio", 1},
                                                  {"askwrong", 0},
                                                  {"showhowmanyanswers", 0}};
  for (const auto& [name, value] : defaults) EXPECT_EQ(box(name), value) << name;
  EXPECT_EQ(pick_a_quiz().timeamount.text, "75");
  EXPECT_EQ(pick_a_quiz().txtstudentname.text, "STUDENT");
  EXPECT_TRUE(robot.program().options.radio_for_single);
  EXPECT_EQ(robot.program().options.answer_position, "top");
}

TEST_F(TestOptionsTest, WhatThisEditionDoesNotOfferIsHidden) {
  open();
  for (const char* name : {"askwrong", "chkEmbed"}) {
    EXPECT_ROBOT_REFUSES(robot.click("pick_a_quiz", name));
  }
  EXPECT_ROBOT_REFUSES(robot.type("pick_a_quiz", "howmanyq", 0, "12"));
}

TEST_F(TestOptionsTest, EachModeSetsTheOptionsAndSaysSo) {
  struct Mode {
    const char* control;
    int expected[7];
    bool test_mode;
    const char* text;
  };
  const Mode test{"Command2",
                  {1, 0, 0, 1, 1, 0, 0},
                  true,
                  "User Settings have been changed to simulate the actual exam."};
  const Mode practice{"restore_defaults",
                      {0, 1, 0, 1, 1, 1, 1},
                      false,
                      "User Settings have been changed to enhance learning."};
  Mode test_menu = test;
  test_menu.control = "mnu_simulatormode";
  Mode practice_menu = practice;
  practice_menu.control = "mnu_learningmode";
  open();
  for (const Mode& mode : {test, practice, test_menu, practice_menu}) {
    for (const char* name : boxes) {
      auto* control = std::get<CheckBox*>(robot.control("pick_a_quiz", name).control);
      control->value = 1 - control->value;
    }
    pick_a_quiz().timeamount.text = "12";
    const auto settings = robot.world.settings.values;
    robot.click("pick_a_quiz", mode.control);
    for (std::size_t i = 0; i < 7; ++i) {
      EXPECT_EQ(box(boxes[i]), mode.expected[i]) << mode.control << " " << boxes[i];
    }
    EXPECT_EQ(pick_a_quiz().timeamount.text, "75");
    EXPECT_EQ(pick_a_quiz().timeamount.visible, mode.test_mode);
    EXPECT_EQ(robot.program().options.test_mode_on, mode.test_mode);
    EXPECT_EQ(last_box().text, mode.text);
    EXPECT_EQ(last_box().title, "User Settings");
    EXPECT_EQ(robot.world.settings.values, settings) << "a mode leaves the store alone";
  }
}

TEST_F(TestOptionsTest, LoadingTheScreenLeavesTestMode) {
  open();
  robot.click("pick_a_quiz", "Command2");
  reopen();
  EXPECT_FALSE(robot.program().options.test_mode_on);
}

TEST_F(TestOptionsTest, TheTimeCanBeSeenOnlyWhileTheQuizIsTimed) {
  open();
  EXPECT_FALSE(pick_a_quiz().timeamount.visible);
  EXPECT_FALSE(pick_a_quiz().timeamountlabel.visible);
  EXPECT_FALSE(pick_a_quiz().VScroll1.visible);
  robot.click("pick_a_quiz", "timeron");
  EXPECT_TRUE(pick_a_quiz().timeamount.visible);
  EXPECT_TRUE(pick_a_quiz().timeamountlabel.visible);
  EXPECT_FALSE(pick_a_quiz().VScroll1.visible) << "only a load of the screen shows it";
  robot.click("pick_a_quiz", "timeron");
  EXPECT_FALSE(pick_a_quiz().timeamount.visible);
}

TEST_F(TestOptionsTest, TheScrollBarOfATimedQuizSetsItsMinutes) {
  store("savesettings", "saved");
  store("timedtest", "1");
  open();
  ASSERT_TRUE(pick_a_quiz().VScroll1.visible);
  EXPECT_EQ(pick_a_quiz().VScroll1.value, 170);
  EXPECT_EQ(pick_a_quiz().VScroll1.highest, 199);
  const std::pair<int, const char*> cases[] = {{199, "1"}, {170, "30"}, {0, "200"}};
  for (const auto& [position, minutes] : cases) {
    pick_a_quiz().VScroll1.value = position;
    robot.control("pick_a_quiz", "VScroll1").change();
    EXPECT_EQ(pick_a_quiz().timeamount.text, minutes);
  }
}

TEST_F(TestOptionsTest, SavingWritesEveryOption) {
  for (const char* control : {"savesettings", "cmd_save_settings", "mnu_savesettings"}) {
    robot.world.settings.values.clear();
    open();
    robot.click("pick_a_quiz", "timeron");
    robot.type("pick_a_quiz", "timeamount", 0, "120");
    robot.click("pick_a_quiz", "answer_when_right");
    robot.click("pick_a_quiz", "random_questions");
    robot.click("pick_a_quiz", "chkRadio");
    robot.click("pick_a_quiz", control);
    const std::pair<const char*, const char*> saved[] = {
        {"savesettings", "saved"}, {"answerwhenwrong", "1"}, {"answerwhenright", "1"},
        {"timedtest", "1"},        {"timedminutes", "120"},  {"randomanswers1", "1"},
        {"randomquestions1", "0"}, {"scoregraph1", "1"},     {"backb", "1"},
        {"show#answers", "0"},     {"radio", "0"},           {"EmbedWM", "0"},
        {"savedfont", "12"}};
    for (const auto& [key, value] : saved) EXPECT_EQ(stored(key), value) << control << " " << key;
    EXPECT_EQ(robot.world.settings.values.size(), std::size(saved));
    EXPECT_EQ(last_box().text, "User Settings have been saved.");
    robot.program().forms.unload(Form::pick_a_quiz);
    robot.program().forms.show(Form::Welcome);
  }
}

TEST_F(TestOptionsTest, SavingRepairsAFontSizeThatIsNone) {
  const std::pair<const char*, const char*> cases[] = {
      {"14", "14"}, {"0", "12"}, {"-3", "12"}, {"large", "12"}, {"", "12"}};
  open();
  for (const auto& [before, after] : cases) {
    store("savedfont", before);
    robot.click("pick_a_quiz", "savesettings");
    EXPECT_EQ(stored("savedfont"), after) << before;
  }
}

TEST_F(TestOptionsTest, SavedOptionsComeBackAllButTheMinutes) {
  open();
  for (const char* name : boxes) robot.click("pick_a_quiz", name);
  robot.type("pick_a_quiz", "timeamount", 0, "120");
  robot.click("pick_a_quiz", "showhowmanyanswers");
  robot.click("pick_a_quiz", "chkRadio");
  robot.click("pick_a_quiz", "savesettings");
  reopen();
  const int expected[] = {1, 0, 1, 0, 0, 0, 0};
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(box(boxes[i]), expected[i]) << boxes[i];
  EXPECT_EQ(box("showhowmanyanswers"), 1);
  EXPECT_EQ(box("chkRadio"), 0);
  EXPECT_FALSE(robot.program().options.radio_for_single);
  EXPECT_EQ(pick_a_quiz().timeamount.text, "75");
  EXPECT_TRUE(pick_a_quiz().timeamount.visible);
  EXPECT_TRUE(pick_a_quiz().VScroll1.visible);
}

TEST_F(TestOptionsTest, WhatWasNotSavedIsGoneWhenTheScreenLoadsAgain) {
  open();
  for (const char* name : boxes) robot.click("pick_a_quiz", name);
  reopen();
  const int expected[] = {0, 1, 0, 1, 1, 1, 1};
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(box(boxes[i]), expected[i]) << boxes[i];
}

TEST_F(TestOptionsTest, TheNumberOfAnswersIsRememberedWhateverElseWasSaved) {
  store("show#answers", "1");
  open();
  EXPECT_EQ(box("showhowmanyanswers"), 1);
}

TEST_F(TestOptionsTest, RadioButtonsAreUsedForExactlyOne) {
  const std::pair<const char*, int> cases[] = {{"1", 1}, {" 1 ", 1}, {"0", 0},
                                               {"", 0},  {"yes", 0}, {"11", 0}};
  for (const auto& [text, value] : cases) {
    store("radio", text);
    reopen();
    EXPECT_EQ(box("chkRadio"), value) << text;
    EXPECT_EQ(robot.program().options.radio_for_single, value == 1) << text;
  }
}

TEST_F(TestOptionsTest, RadioButtonsApplyAtOnce) {
  open();
  robot.click("pick_a_quiz", "chkRadio");
  EXPECT_FALSE(robot.program().options.radio_for_single);
  robot.click("pick_a_quiz", "chkRadio");
  EXPECT_TRUE(robot.program().options.radio_for_single);
}

TEST_F(TestOptionsTest, AnUnreadableSettingCountsAsZero) {
  store("savesettings", "saved");
  for (const char* key : {"answerwhenwrong", "randomquestions1", "backb"}) store(key, "rubbish");
  open();
  EXPECT_EQ(box("answer_when_wrong"), 0);
  EXPECT_EQ(box("random_questions"), 0);
  EXPECT_EQ(box("backb"), 0);
}

TEST_F(TestOptionsTest, RobinHasNoRandomAnswersWhateverWasSaved) {
  start("46002");
  store("savesettings", "saved");
  store("randomanswers1", "1");
  open();
  EXPECT_EQ(box("random_answers"), 0);
  EXPECT_FALSE(pick_a_quiz().random_answers.visible);
}

TEST_F(TestOptionsTest, TypingANameTakesItAsItIsTyped) {
  open();
  robot.type("pick_a_quiz", "txtstudentname", 0, "anna");
  EXPECT_EQ(robot.program().options.student_name, "anna");
}

TEST_F(TestOptionsTest, ANameIsCleanedAtTheStartAndStandsThereNextTime) {
  open();
  robot.type("pick_a_quiz", "txtstudentname", 0, "ann-lee");
  robot.click("pick_a_quiz", "Command1");
  EXPECT_EQ(stored("studentname"), "ANN LEE");
  robot.click("quest", "menu_quittest");
  robot.click("finalscore", "Command1");
  EXPECT_EQ(pick_a_quiz().txtstudentname.text, "ANN LEE");
}

class LastResultsTest : public TestOptionsTest {
 protected:
  std::string result(int number) { return robot.run().last_results[number]; }
  void read(const std::string& content) {
    robot.program().options.student_name = "ANNA";
    robot.world.files.write("46000.ANNA.results", content);
    pick_a_quiz().read_last_results();
  }
};

TEST_F(LastResultsTest, WithoutAFileTheFirst300AreRightAndTheRestStays) {
  robot.run().last_results.fill("1");
  pick_a_quiz().read_last_results();
  EXPECT_EQ(result(1), "0");
  EXPECT_EQ(result(300), "0");
  EXPECT_EQ(result(301), "1");
  EXPECT_EQ(result(1000), "1");
}

TEST_F(LastResultsTest, TheNthLineIsTheNthResultWhateverItsNumberSays) {
  read("1,9\r\n0,8\r\n,7\r\n 1 ,6\r\n1x,5\r\nx,4\r\n2,3\r\n");
  const char* expected[] = {"1", "0", "0", "1", "1", "0", "2", "0"};
  for (int i = 1; i <= 8; ++i) EXPECT_EQ(result(i), expected[i - 1]) << i;
}

TEST_F(LastResultsTest, AFileOfFewerLinesFillsWhatItHas) {
  robot.run().last_results[400] = "1";
  read("1,1\r\n1,2");
  EXPECT_EQ(result(2), "1");
  EXPECT_EQ(result(3), "0");
  EXPECT_EQ(result(400), "1");
}

TEST_F(LastResultsTest, TheReadingEndsQuietlyBehindTheLastResult) {
  std::string lines;
  for (int i = 1; i <= 1005; ++i) lines += "1," + std::to_string(i) + "\r\n";
  const std::string log = file("error.log");
  read(lines);
  EXPECT_EQ(result(1000), "1");
  EXPECT_EQ(file("error.log"), log);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(LastResultsTest, ANumberThatIsTooLargeEndsTheReadingWhereItStands) {
  read("1,1\r\n99999,2\r\n1,3\r\n");
  EXPECT_EQ(result(1), "1");
  EXPECT_EQ(result(2), "0");
  EXPECT_EQ(result(3), "0");
}

TEST_F(LastResultsTest, AnotherStudentHasResultsOfTheirOwn) {
  read("1,1\r\n");
  robot.program().options.student_name = "BEN";
  pick_a_quiz().read_last_results();
  EXPECT_EQ(result(1), "0");
}

}  // namespace
}  // namespace practice
