// From the options screen into a test: which questions, in which order, with which switches.
#include <algorithm>
#include <utility>

#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

constexpr float just_below_one = 0.99999994f;

class CompositionTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    robot.click("Welcome", "Image4", 0);
  }

  TestRun& run() { return robot.run(); }
  int bank() { return robot.program().catalogue.bank_total; }
  int order(int position) { return run().question_order[position]; }
  std::vector<int> order_of_test() {
    std::vector<int> result;
    for (int i = 1; i <= run().question_total; ++i) result.push_back(order(i));
    return result;
  }

  void untick(std::initializer_list<const char*> boxes) {
    for (const char* box : boxes) robot.click("pick_a_quiz", box);
  }
  void plain_order() { untick({"random_questions", "random_answers"}); }
  void start_quiz() { robot.click("pick_a_quiz", "Command1"); }

  /// Leaves rows `rows` alone in category 2 and asks for that category only.
  void start_category_of(std::initializer_list<int> rows) {
    for (int i = 1; i <= bank(); ++i) row(i).category = 1;
    for (const int i : rows) row(i).category = 2;
    robot.click("pick_a_quiz", "cmd_remove_all_cat");
    robot.select("pick_a_quiz", "lst_cats_not_to_ask", 1);
    robot.click("pick_a_quiz", "cmd_add_cat");
    robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  }

  void draw(float value, int times) {
    robot.world.random.draws.assign(static_cast<std::size_t>(times), value);
  }

  /// Ends the options screen and asks for a retake when it comes up again.
  void load_for_retake(int quiz) {
    robot.program().forms.unload(Form::pick_a_quiz);
    run().retake_quiz = quiz;
    run().selected_quiz = quiz;
    robot.program().forms.load(Form::pick_a_quiz);
  }
};

TEST_F(CompositionTest, APlainTestAsksTheFirstFiftyRowsInBankOrder) {
  plain_order();
  start_quiz();
  EXPECT_EQ(run().question_total, 50);
  for (int i = 1; i <= bank(); ++i) ASSERT_EQ(order(i), i);
  EXPECT_EQ(run().order_stride, 1);
  EXPECT_EQ(run().order_base, 1);
  EXPECT_EQ(run().selected_quiz, 1);
  EXPECT_EQ(run().bank_size, bank());
  EXPECT_EQ(run().question_position, 1);
  EXPECT_EQ(run().right_count, 0);
  EXPECT_TRUE(quest().visible);
  EXPECT_FALSE(pick_a_quiz().visible);
  EXPECT_TRUE(pick_a_quiz().loaded);
  EXPECT_EQ(pick_a_quiz().pointer, Pointer::normal);
}

TEST_F(CompositionTest, EachQuizLoadsItsBankAndIsCappedAtFifty) {
  for (int quiz = 1; quiz <= 3; ++quiz) {
    robot::Robot other;
    other.put_distribution();
    other.start("46000");
    other.click("Welcome", "Image4", 0);
    other.click("pick_a_quiz", "which_quiz", quiz);
    other.click("pick_a_quiz", "Command1");
    EXPECT_EQ(other.run().selected_quiz, quiz);
    EXPECT_EQ(other.run().bank_size, other.program().catalogue.bank_total);
    EXPECT_GT(other.run().bank_size, 50);
    EXPECT_EQ(other.run().question_total, 50);
  }
}

TEST_F(CompositionTest, AShuffledTestDrawsFromTheWholeBank) {
  start_quiz();
  std::vector<int> all;
  for (int i = 1; i <= bank(); ++i) all.push_back(order(i));
  EXPECT_FALSE(std::ranges::is_sorted(all));
  EXPECT_GT(std::ranges::max(order_of_test()), 50);
  std::ranges::sort(all);
  for (int i = 1; i <= bank(); ++i) EXPECT_EQ(all[static_cast<std::size_t>(i - 1)], i);
}

// One draw for each row of the bank, though the test asks fifty.
TEST_F(CompositionTest, AShuffleDrawsOnceForEachRowOfTheBank) {
  untick({"random_answers"});
  draw(0.5f, bank() + 3);
  start_quiz();
  EXPECT_EQ(robot.world.random.draws.size(), 3u);
}

TEST_F(CompositionTest, TheLowestDrawAlwaysPicksTheFirstEntry) {
  untick({"random_answers"});
  draw(0, bank());
  start_quiz();
  EXPECT_EQ(order(1), bank());
  for (int i = 2; i <= bank(); ++i) ASSERT_EQ(order(i), i - 1);
}

TEST_F(CompositionTest, TheHighestDrawNeverPicksTheLastTwoEntries) {
  untick({"random_answers"});
  draw(just_below_one, bank());
  start_quiz();
  const int picked = bank() - 2;
  EXPECT_EQ(order(1), picked);
  for (int i = 2; i < picked; ++i) ASSERT_EQ(order(i), i - 1);
  EXPECT_EQ(order(picked), bank());
  EXPECT_EQ(order(bank() - 1), picked - 1);
  EXPECT_EQ(order(bank()), bank() - 1);
}

TEST_F(CompositionTest, ABankOfTwoExchangesWithTheFirstEntryWhateverIsDrawn) {
  for (const float drawn : {0.0f, 0.5f, just_below_one}) {
    robot::Robot other;
    other.put_distribution();
    other.start("46000");
    other.click("Welcome", "Image4", 0);
    other.click("pick_a_quiz", "random_answers");
    // A quiz that does not load its bank keeps the size that stands here.
    other.app().pick_a_quiz().which_quiz[0].value = false;
    other.app().pick_a_quiz().which_quiz[4].value = true;
    other.program().catalogue.bank_total = 2;
    other.run().bank_size = 2;
    other.app().pick_a_quiz().howmanyq.text = "2";
    other.world.random.draws = {drawn, drawn};
    other.click("pick_a_quiz", "Command1");
    EXPECT_EQ(other.run().question_order[1], 2) << drawn;
    EXPECT_EQ(other.run().question_order[2], 1) << drawn;
    EXPECT_TRUE(other.world.random.draws.empty());
  }
}

TEST_F(CompositionTest, TwoQuestionsOfACategoryExchangeWithTheFirstEntry) {
  untick({"random_answers"});
  draw(just_below_one, 2);
  start_category_of({7, 9});
  EXPECT_EQ(run().question_total, 2);
  EXPECT_EQ(order_of_test(), (std::vector<int>{9, 7}));
}

TEST_F(CompositionTest, ASingleQuestionOfACategoryExchangesWithTheSpareEntry) {
  untick({"random_answers"});
  draw(0.5f, 1);
  start_category_of({7});
  EXPECT_EQ(run().question_total, 1);
  EXPECT_EQ(order(0), 7);
  EXPECT_EQ(order(1), 0);
}

TEST_F(CompositionTest, ASingleQuestionStaysWhenTheDrawIsExactlyZero) {
  untick({"random_answers"});
  draw(0, 1);
  start_category_of({7});
  EXPECT_EQ(order(0), 0);
  EXPECT_EQ(order(1), 7);
}

TEST_F(CompositionTest, ACategoryTestIsShuffledWithinItsOwnQuestions) {
  untick({"random_answers"});
  draw(0, 5);
  start_category_of({10, 20, 30, 40});
  EXPECT_EQ(order_of_test(), (std::vector<int>{40, 10, 20, 30}));
  EXPECT_EQ(robot.world.random.draws.size(), 1u);
}

TEST_F(CompositionTest, ACategoryTestAsksAllItsRowsBeyondTheCap) {
  plain_order();
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_GT(bank(), 50);
  EXPECT_EQ(run().question_total, bank());
  EXPECT_EQ(run().selected_quiz, 5);
  EXPECT_EQ(run().order_stride, 1);
  EXPECT_EQ(run().order_base, 1);
  EXPECT_EQ(order(bank()), bank());
}

// The category start ticks quiz 5, whose base of 5 still stands while the rows are marked.
TEST_F(CompositionTest, ACategoryTestMarksTheResultsOfRowsFromTheFifth) {
  plain_order();
  start_category_of({10, 20, 30});
  EXPECT_EQ(run().question_total, 3);
  const char* expected[] = {"0", "0", "0", "0", "1", "1", "1", "0"};
  for (int i = 1; i <= 8; ++i) EXPECT_EQ(run().last_results[i], expected[i - 1]) << i;
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(row(i).result_state, result::not_answered_yet);
  EXPECT_EQ(row(4).result_state, result::not_marked);
}

TEST_F(CompositionTest, ACategoryWithoutQuestionsEndsAtTheScoreAtOnce) {
  plain_order();
  start_category_of({});
  EXPECT_EQ(run().question_total, 0);
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().loaded);
  EXPECT_EQ(finalscore().tot.caption, "0");
}

TEST_F(CompositionTest, ACategoryTestTakesTheBankOfTheQuizClickedLast) {
  plain_order();
  robot.click("pick_a_quiz", "which_quiz", 2);
  const int extra = bank();
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_EQ(bank(), extra);
  EXPECT_EQ(run().question_total, extra);
}

TEST_F(CompositionTest, QuizzesWithoutABankAskEveryFourthRow) {
  const struct { int quiz, base, second_row; } cases[] = {{4, 4, 8}, {5, 1, 5}, {6, 6, 10}};
  for (const auto& expected : cases) {
    robot::Robot other;
    other.put_distribution();
    other.start("46000");
    other.click("Welcome", "Image4", 0);
    for (const char* box : {"random_questions", "random_answers"}) other.click("pick_a_quiz", box);
    PickAQuiz& screen = other.app().pick_a_quiz();
    screen.which_quiz[0].value = false;
    screen.which_quiz[static_cast<std::size_t>(expected.quiz - 1)].value = true;
    screen.howmanyq.text = "12";
    other.click("pick_a_quiz", "Command1");
    EXPECT_EQ(other.run().selected_quiz, expected.quiz);
    EXPECT_EQ(other.run().question_total, 12);
    EXPECT_EQ(other.run().order_stride, 4);
    EXPECT_EQ(other.run().order_base, expected.base) << expected.quiz;
    EXPECT_EQ(row_of_position(other.run(), 2), expected.second_row) << expected.quiz;
    EXPECT_EQ(other.program().question_table[48].result_state, result::not_answered_yet);
    EXPECT_EQ(other.program().question_table[49].result_state, result::not_marked);
    EXPECT_EQ(other.run().last_results[expected.quiz], "1");
    EXPECT_EQ(other.run().last_results[expected.quiz + 1], "0");
    EXPECT_EQ(other.run().last_results[expected.quiz + 4], "1");
  }
}

TEST_F(CompositionTest, QuizzesWithoutABankAreCappedAtFiftyToo) {
  PickAQuiz& screen = pick_a_quiz();
  screen.which_quiz[0].value = false;
  screen.which_quiz[3].value = true;
  screen.howmanyq.text = "80";
  start_quiz();
  EXPECT_EQ(run().question_total, 50);
}

TEST_F(CompositionTest, MarksOfTheLastTestAreTaken) {
  plain_order();
  for (const int i : {1, 100}) {
    run().category_right[i] = 4;
    run().category_asked[i] = 5;
  }
  row(1).typed_answer = "old";
  row(1000).typed_answer = "old";
  run().right_count = 9;
  start_quiz();
  for (const int i : {1, 100}) {
    EXPECT_EQ(run().category_right[i], 0);
    EXPECT_EQ(run().category_asked[i], 0);
  }
  EXPECT_EQ(row(1).typed_answer, "");
  EXPECT_EQ(row(1000).typed_answer, "");
  EXPECT_EQ(run().right_count, 0);
  EXPECT_EQ(row(50).result_state, result::not_answered_yet);
  EXPECT_EQ(row(51).result_state, result::not_marked);
}

TEST_F(CompositionTest, QuestionsOfATestCountAsWrongFromItsStart) {
  plain_order();
  robot.world.files.write("46000.STUDENT.results", "0,1\r\n0,2\r\n");
  start_quiz();
  EXPECT_EQ(run().last_results[1], "1");
  EXPECT_EQ(run().last_results[50], "1");
  EXPECT_EQ(run().last_results[51], "0");
}

TEST_F(CompositionTest, AnUnfinishedTestLeavesTheUnansweredQuestionsWrongForTheNextTime) {
  plain_order();
  start_quiz();
  answer_rightly();
  next();
  robot.click("quest", "menu_quittest");
  EXPECT_TRUE(file("46000.STUDENT.results").starts_with("0,1\r\n1,2\r\n1,3\r\n"));
}

TEST_F(CompositionTest, TheTimeIsReadAsWholeMinutesOfAtLeastOne) {
  const struct {
    const char* typed;
    int minutes;
  } cases[] = {{"90", 90}, {"75", 75}, {"", 1},    {"   ", 1},     {"abc", 1},   {"ten", 1},
               {"0", 1},   {"-5", 1},  {"0.4", 1}, {"12 min", 12}, {" 30 ", 30}, {"5000", 5000}};
  for (const auto& expected : cases) {
    robot::Robot other;
    other.put_distribution();
    other.start("46000");
    other.click("Welcome", "Image4", 0);
    other.click("pick_a_quiz", "timeron");
    other.type("pick_a_quiz", "timeamount", 0, expected.typed);
    other.click("pick_a_quiz", "Command1");
    EXPECT_EQ(other.run().time_limit_minutes, expected.minutes) << expected.typed;
    EXPECT_EQ(other.run().timed_run, 1);
  }
}

TEST_F(CompositionTest, AnUntimedTestStartsNowAllTheSame) {
  robot.pass(17);
  const auto before = robot.world.clock.seconds();
  start_quiz();
  EXPECT_EQ(run().timed_run, 0);
  EXPECT_EQ(run().time_started, before);
}

TEST_F(CompositionTest, EveryOptionReachesTheTest) {
  const struct {
    const char* box;
    Integer Options::*field;
    int ticked_by_design;
  } cases[] = {{"answer_when_right", &Options::show_answer_when_right, 0},
               {"answer_when_wrong", &Options::show_answer_when_wrong, 1},
               {"random_questions", &Options::random_question_order, 1},
               {"random_answers", &Options::shuffle_answers, 1},
               {"showhowmanyanswers", &Options::show_answer_count, 0},
               {"backb", &Options::back_button_on, 1},
               {"scoregraph", &Options::show_running_score, 1}};
  for (const auto& option : cases) {
    for (const bool clicked : {false, true}) {
      robot::Robot other;
      other.put_distribution();
      other.start("46000");
      other.click("Welcome", "Image4", 0);
      if (clicked) other.click("pick_a_quiz", option.box);
      other.click("pick_a_quiz", "Command1");
      EXPECT_EQ(other.program().options.*option.field,
                clicked ? 1 - option.ticked_by_design : option.ticked_by_design)
          << option.box;
    }
  }
}

struct Name {
  const char* typed;
  const char* stored;
};

class StudentNameTest : public CompositionTest, public testing::WithParamInterface<Name> {};

INSTANTIATE_TEST_SUITE_P(
    Names, StudentNameTest,
    testing::Values(Name{"anna", "ANNA"}, Name{"Ann-Marie O'Neil", "ANN MARIE O NEIL"},
                    Name{"Zoë 2", "ZO  2"}, Name{"Łukasz", " UKASZ"}, Name{"Jürgen", "J RGEN"},
                    Name{"東京 7", "   7"}, Name{"Юлия", "    "}, Name{"😀x", " X"},
                    Name{"a.b\\c:d", "A B C D"}, Name{" anna ", " ANNA "}, Name{"a\tb", "A B"},
                    Name{"", "STUDENT"}, Name{"    ", "STUDENT"}, Name{"!?#", "   "},
                    Name{"\t", " "}));

TEST_P(StudentNameTest, IsCleanedCharacterByCharacter) {
  const auto [typed, stored] = GetParam();
  robot.type("pick_a_quiz", "txtstudentname", 0, typed);
  start_quiz();
  const std::string& name = robot.program().options.student_name;
  EXPECT_EQ(name, stored);
  if (!trim(typed).empty()) {
    EXPECT_EQ(character_count(name), character_count(typed));
  }
  EXPECT_EQ(get_option(robot.program(), "studentname", "none"), stored);
  EXPECT_TRUE(robot.world.messages.shown.empty()) << "nobody is warned of a name";
}

TEST_F(CompositionTest, ASavedWrongTestAsksWhatWasWrongLastTime) {
  robot.world.files.write("46000.STUDENT.results", "1,1\r\n0,2\r\n1,3\r\n,4\r\n 1 ,5\r\n2,6\r\n");
  pick_a_quiz().askwrong.value = 1;
  start_quiz();
  EXPECT_EQ(order_of_test(), (std::vector<int>{1, 3, 5})) << "and in bank order";
  EXPECT_EQ(run().ask_wrong_mode, 1);
  EXPECT_EQ(run().question_total, 3);
  // Marked from the first row of the table on, not the rows asked.
  EXPECT_EQ(run().last_results[2], "1");
  EXPECT_EQ(run().last_results[3], "1");
  EXPECT_EQ(run().last_results[5], "1");
  EXPECT_EQ(run().last_results[6], "2");
}

TEST_F(CompositionTest, ASavedWrongTestLooksNoFurtherThanTheTestsOwnQuestions) {
  std::string lines;
  for (int i = 1; i <= 70; ++i) lines += (i >= 50 ? "1," : "0,") + std::to_string(i) + "\r\n";
  robot.world.files.write("46000.STUDENT.results", lines);
  pick_a_quiz().askwrong.value = 1;
  start_quiz();
  EXPECT_EQ(order_of_test(), std::vector<int>{50});
}

TEST_F(CompositionTest, WithNothingWrongLastTimeTheStudentGetsThePlainTestWithoutAWord) {
  untick({"random_answers"});
  robot.world.files.write("46000.STUDENT.results", "0,1\r\n0,2\r\n");
  pick_a_quiz().askwrong.value = 1;
  draw(0, bank());
  start_quiz();
  EXPECT_TRUE(robot.world.messages.shown.empty());
  EXPECT_EQ(run().question_total, 50);
  EXPECT_EQ(run().ask_wrong_mode, 99);
  EXPECT_EQ(order(1), bank()) << "the plain test is shuffled";
  EXPECT_EQ(pick_a_quiz().askwrong.value, 1);
}

TEST_F(CompositionTest, ARetakeAsksTheWrongQuestionsInTheirOrderAndUnshuffled) {
  run().wrong_list.count = 3;
  run().wrong_list.rows[1] = 44;
  run().wrong_list.rows[2] = 3;
  run().wrong_list.rows[3] = 17;
  load_for_retake(1);
  EXPECT_EQ(order_of_test(), (std::vector<int>{44, 3, 17}));
  EXPECT_EQ(run().order_stride, 1);
  EXPECT_EQ(run().order_base, 1);
  EXPECT_EQ(run().wrong_list.count, 0);
  EXPECT_EQ(run().retake_quiz, 0);
  EXPECT_EQ(run().retake_wrong_mode, 1);
  EXPECT_EQ(run().current_row, 44);
  EXPECT_TRUE(quest().visible);
  // The first rows of the table are marked, not the rows retaken.
  EXPECT_EQ(run().last_results[3], "1");
  EXPECT_EQ(run().last_results[4], "0");
  EXPECT_EQ(run().last_results[44], "0");
  EXPECT_EQ(row(3).result_state, result::not_answered_yet);
  EXPECT_EQ(row(4).result_state, result::not_marked);
}

TEST_F(CompositionTest, ARetakeWithNothingWrongStopsAtItsMessageUnderTheHourglass) {
  load_for_retake(1);
  ASSERT_EQ(robot.world.messages.shown.size(), 1u);
  EXPECT_EQ(robot.world.messages.shown[0].text, "You did not get any wrong.");
  EXPECT_EQ(robot.world.messages.shown[0].title, "");
  EXPECT_EQ(pick_a_quiz().pointer, Pointer::hourglass);
  EXPECT_EQ(run().retake_quiz, 0);
}

TEST_F(CompositionTest, ARetakeKeepsTheBankOfItsQuiz) {
  robot.click("pick_a_quiz", "which_quiz", 2);
  const int extra = bank();
  run().wrong_list.count = 1;
  run().wrong_list.rows[1] = 2;
  load_for_retake(2);
  EXPECT_EQ(bank(), extra);
  EXPECT_EQ(run().selected_quiz, 2);
  EXPECT_EQ(run().question_total, 1);
}

TEST_F(CompositionTest, AFinishedTestIsRetakenFromItsScore) {
  plain_order();
  start_quiz();
  robot.program().options.show_answer_when_wrong = 0;
  for (int i = 1; i <= 50; ++i) {
    if (i != 2 && i != 5) answer_rightly();
    next();
  }
  ASSERT_TRUE(finalscore().visible);
  robot.click("finalscore", "cmd_retake");
  EXPECT_EQ(order_of_test(), (std::vector<int>{2, 5}));
  EXPECT_TRUE(quest().visible);
  EXPECT_FALSE(finalscore().loaded);
}

TEST_F(CompositionTest, PressesWhileATestIsComposedAreDropped) {
  bool pressed = false;
  robot.world.stage.during_pump = [&] {
    if (std::exchange(pressed, true)) return;
    start_quiz();
    robot.click("quest", "cmd_buttons", 0);
  };
  start_quiz();
  EXPECT_TRUE(pressed);
  EXPECT_EQ(robot.app().quest().generation, 1);
  EXPECT_EQ(robot.run().question_position, 1);
  EXPECT_EQ(row(1).result_state, result::not_answered_yet);
}

TEST_F(CompositionTest, RobinsAnswersStayInBookOrder) {
  robot::Robot other;
  other.put_distribution();
  other.start("46002");
  other.click("Welcome", "Image4", 0);
  EXPECT_FALSE(other.app().pick_a_quiz().random_answers.visible);
  other.app().pick_a_quiz().random_answers.value = 1;
  other.app().pick_a_quiz().random_answers.visible = true;
  other.click("pick_a_quiz", "Command1");
  EXPECT_EQ(other.program().options.shuffle_answers, 0);
  EXPECT_FALSE(other.app().pick_a_quiz().random_answers.visible);
}

}  // namespace
}  // namespace practice
