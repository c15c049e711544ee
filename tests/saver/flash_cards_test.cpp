// The flash cards: the bank card by card, turned over by one key.
#include <set>

#include "saver_test.h"

namespace practice {
namespace {

class FlashCardsTest : public SaverTest {
 protected:
  void SetUp() override {
    start();
    robot.click("Welcome", "Image4", 0);
  }

  void open_cards() { robot.click("pick_a_quiz", "cmd_flashcards"); }
  /// Cards of these questions, in this order.
  void open_cards_of(std::vector<Question> questions) {
    const auto count = static_cast<float>(questions.size());
    take_as_bank(std::move(questions));
    for (float i = 0; i < count; ++i) robot.world.random.draws.push_back((i + 0.5f) / count);
    open_cards();
  }
  void press() { robot.click("Security", "cmd_main"); }
  void press_hidden_next() { robot.control("Security", "cmd_next").click(); }
  const std::string& card() { return saver().text1.text; }
  std::string button() { return saver().cmd_main.caption; }
  /// Question and answer, then the next question.
  void pass_cards(int count) {
    for (int i = 0; i < 2 * count; ++i) press();
  }
  int number_on_card() {
    const std::string heading = "Question # ";
    EXPECT_TRUE(card().starts_with(heading)) << card();
    return std::stoi(card().substr(heading.size()));
  }
};

TEST_F(FlashCardsTest, TheStudentIsToldWhatToExpectAndGetsTheCards) {
  open_cards();
  ASSERT_EQ(robot.world.messages.shown.size(), 1u);
  EXPECT_EQ(robot.world.messages.shown[0].title, "Flash Cards");
  EXPECT_EQ(robot.world.messages.shown[0].text,
            "Flash Cards show you ONLY the question (no possible answers, exhibits, or diagrams).  "
            "NOTE:  Some questions may not make sense in this mode, which may require the use of "
            "regular testing mode.");
  EXPECT_TRUE(saver().visible);
  EXPECT_FALSE(pick_a_quiz().loaded);
  EXPECT_EQ(saver().Label2.caption, "Flash Cards");
  EXPECT_EQ(saver().window_state, WindowState::maximised);
  EXPECT_FALSE(saver().Frame1.visible);
  EXPECT_FALSE(saver().cmd_next.visible);
  EXPECT_TRUE(saver().cmd_main.is_default) << "Enter turns the card";
  EXPECT_TRUE(saver().text1.multi_line);
  EXPECT_EQ(button(), "Show Answer");
}

TEST_F(FlashCardsTest, NothingOfTheSaverRuns) {
  keep_setting("RandQuestions", "1");
  const int seeds = robot.world.random.seeds;
  open_cards();
  EXPECT_FALSE(saver().covers_the_desk);
  EXPECT_FALSE(saver().FadeTimer.enabled);
  EXPECT_FALSE(saver().scrolllogo.enabled);
  EXPECT_TRUE(robot.world.stage.pointer_shown);
  EXPECT_EQ(robot.world.random.seeds, seeds);
  EXPECT_EQ(lines_in_the_log("sec_form"), 0);
  EXPECT_ROBOT_REFUSES(robot.move_mouse("Security", "Frame1", 10, 10));
  const std::string shown = card();
  robot.pass(60);
  EXPECT_EQ(card(), shown);
}

TEST_F(FlashCardsTest, TheCardsStandInTheMiddleOfTheScreenAndAResizeMovesNothing) {
  open_cards();
  const Bounds before = saver().bounds;
  EXPECT_EQ(before.left, (28800 - before.width) / 2);
  EXPECT_EQ(before.top, (16200 - before.height) / 2);
  const Bounds heading = saver().Label2.bounds;
  saver().resize();
  EXPECT_EQ(saver().bounds, before);
  EXPECT_EQ(saver().Label2.bounds, heading);
}

// ---- One card

TEST_F(FlashCardsTest, ACardShowsItsQuestionThenItsAnswerAndItsExplanation) {
  Question question = question_of("Which?", {"one", "two", "three"}, {2});
  question.explanation = "Two it is.";
  open_cards_of({question});
  EXPECT_EQ(card(), "Question # 1\r\nWhich?");
  EXPECT_EQ(robot.run().current_row, 1);
  press();
  EXPECT_EQ(card(),
            "Question # 1\r\nWhich?\r\nB.) two\r\n\r\nCorrect answer(s):  B\r\n\r\nTwo it is.");
  EXPECT_EQ(button(), "Show Next Question");
}

struct AnswerCase {
  const char* story;
  const char* type;
  std::vector<std::string> answers;
  std::vector<int> correct;
  const char* listed;

  friend std::ostream& operator<<(std::ostream& out, const AnswerCase& c) { return out << c.story; }
};

class AnswerOfACard : public FlashCardsTest, public testing::WithParamInterface<AnswerCase> {};

TEST_P(AnswerOfACard, ListsWhatCounts) {
  const AnswerCase& c = GetParam();
  Question question = question_of("Q", c.answers, c.correct);
  question.question_type = c.type;
  open_cards_of({question});
  press();
  EXPECT_EQ(card(), "Question # 1\r\nQ" + std::string(c.listed) + "\r\n\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    AllKinds, AnswerOfACard,
    testing::Values(
        AnswerCase{"no correct answer",
                   "single_answer",
                   {"one", "two"},
                   {},
                   "\r\n\r\nCorrect answer(s): "},
        AnswerCase{"several correct answers",
                   "multi_answer",
                   {"one", "two", "three", "four", "five", "six"},
                   {1, 3, 6},
                   "\r\nA.) one\r\nC.) three\r\nF.) six\r\n\r\nCorrect answer(s):  A C F"},
        AnswerCase{"a text to type, with blank entries between",
                   "fill_in_the_blank",
                   {"show ip", "", "sh ip", "   ", "SHOW IP"},
                   {1},
                   "\r\nA.) show ip\r\nC.) sh ip\r\nE.) SHOW IP\r\n\r\nCorrect answer(s):  A"},
        AnswerCase{"a text to type, none marked",
                   "FiLl",
                   {"one", "two"},
                   {},
                   "\r\nA.) one\r\nB.) two\r\n\r\nCorrect answer(s): "},
        AnswerCase{"a kind that only holds the word",
                   "refill",
                   {"one", "two"},
                   {2},
                   "\r\nB.) two\r\n\r\nCorrect answer(s):  B"}));

TEST_F(FlashCardsTest, TheVeryFirstCardShowsItsRawTextUntilItIsTurned) {
  open_cards_of({question_of("a<br>b &lt; c", {"<BR>"}, {1}), question_of("d<br>e &gt; f")});
  EXPECT_EQ(card(), "Question # 1\r\na<br>b &lt; c");
  press();
  EXPECT_TRUE(card().starts_with("Question # 1\r\na\r\nb < c\r\nA.) \r\n\r\n\r\n")) << card();
  press();
  EXPECT_EQ(card(), "Question # 2\r\nd\r\ne > f");
  EXPECT_EQ(row(2).question_text, "d<br>e &gt; f") << "the bank keeps its own";
}

// ---- From card to card

TEST_F(FlashCardsTest, TheSecondPressLeadsToTheNextCard) {
  open_cards_of({question_of("First"), question_of("Second")});
  press();
  EXPECT_EQ(number_on_card(), 1);
  press();
  EXPECT_EQ(card(), "Question # 2\r\nSecond");
  EXPECT_EQ(button(), "Show Answer");
  EXPECT_EQ(robot.run().current_row, 2);
}

TEST_F(FlashCardsTest, TheDrawsDecideTheOrder) {
  take_as_bank(
      {question_of("a"), question_of("b"), question_of("c"), question_of("d"), question_of("e")});
  robot.world.random.draws = {0.5f, 0.9f, 0.5f, 0.9f, 0.9f};
  open_cards();
  std::string order;
  for (int i = 0; i < 5; ++i) {
    order += std::to_string(number_on_card()) + ' ';
    pass_cards(1);
  }
  EXPECT_EQ(order, "3 5 1 2 4 ");
}

TEST_F(FlashCardsTest, EachQuestionOfTheBankComesOnceAndInNoOrder) {
  open_cards();
  const int total = robot.program().catalogue.bank_total;
  std::set<int> met;
  int in_place = 0;
  for (int i = 1; i <= total; ++i) {
    in_place += number_on_card() == i ? 1 : 0;
    met.insert(number_on_card());
    pass_cards(1);
  }
  EXPECT_EQ(static_cast<int>(met.size()), total);
  EXPECT_EQ(*met.begin(), 1);
  EXPECT_EQ(*met.rbegin(), total);
  EXPECT_LT(in_place, total / 10);
}

TEST_F(FlashCardsTest, WhoComesBackFindsANewOrder) {
  std::vector<int> orders[2];
  for (std::vector<int>& order : orders) {
    open_cards();
    EXPECT_EQ(button(), "Show Answer");
    for (int i = 0; i < 10; ++i) {
      order.push_back(number_on_card());
      pass_cards(1);
    }
    press();
    robot.click("Security", "Command3");
  }
  EXPECT_NE(orders[0], orders[1]);
}

TEST_F(FlashCardsTest, BehindTheLastCardComeEmptyOnesWithTheirNumbers) {
  open_cards();
  const int total = robot.program().catalogue.bank_total;
  pass_cards(total);
  EXPECT_EQ(card(), "Question # " + std::to_string(total + 1) + "\r\n");
  press();
  EXPECT_EQ(card(),
            "Question # " + std::to_string(total + 1) + "\r\n\r\n\r\nCorrect answer(s): \r\n\r\n");
  press();
  EXPECT_EQ(number_on_card(), total + 2);
  EXPECT_EQ(robot.world.messages.shown.size(), 1u) << "the one before the first card";
  robot.click("Security", "Command3");
  EXPECT_TRUE(pick_a_quiz().visible);
}

TEST_F(FlashCardsTest, BehindTheThousandthCardItStaysAndExitIsOpen) {
  open_cards_of({question_of("First"), question_of("Second"), question_of("Third")});
  row(1000).question_text = "The end";
  pass_cards(999);
  EXPECT_EQ(card(), "Question # 1000\r\nThe end");
  const std::string log = file("error.log");
  for (int i = 0; i < 3; ++i) {
    pass_cards(1);
    EXPECT_EQ(card(), "Question # 1000\r\nThe end");
    EXPECT_EQ(button(), "Show Answer");
  }
  EXPECT_EQ(file("error.log"), log);
  EXPECT_EQ(robot.world.messages.shown.size(), 1u);
  robot.click("Security", "Command3");
  EXPECT_FALSE(saver().loaded);
}

// ---- The controls beside the card

TEST_F(FlashCardsTest, TheCardGivesTheFocusToItsButton) {
  open_cards();
  robot.give_focus("Security", "text1");
  EXPECT_EQ(saver().focus().first, "cmd_main");
}

TEST_F(FlashCardsTest, NobodyReachesTheNextButton) {
  open_cards();
  press();
  EXPECT_ROBOT_REFUSES(robot.click("Security", "cmd_next"));
}

TEST_F(FlashCardsTest, TheHiddenNextButtonStillLeadsToTheNextQuestion) {
  open_cards_of({question_of("First"), question_of("Sec<br>ond")});
  press_hidden_next();
  EXPECT_EQ(card(), "Question # 2\r\nSec<br>ond");
  EXPECT_EQ(robot.run().current_row, 2);
  EXPECT_EQ(button(), "Show Answer");
  EXPECT_TRUE(saver().visible);
}

TEST_F(FlashCardsTest, TheHiddenNextButtonEndsBehindTheLastCard) {
  open_cards_of({question_of("First"), question_of("Second")});
  press_hidden_next();
  EXPECT_EQ(robot.world.messages.shown.size(), 1u);
  press_hidden_next();
  ASSERT_EQ(robot.world.messages.shown.size(), 2u);
  EXPECT_EQ(robot.world.messages.shown[1].text, "All flash cards completed");
  EXPECT_EQ(robot.world.messages.shown[1].title, "Flash Cards Completed");
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_FALSE(saver().loaded);
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(FlashCardsTest, ExitLeadsBackToAFreshOptionsScreen) {
  pick_a_quiz().lbldisplayans.caption = "9";
  open_cards();
  robot.click("Security", "Command3");
  EXPECT_FALSE(saver().loaded);
  EXPECT_FALSE(saver().visible);
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_EQ(pick_a_quiz().lbldisplayans.caption, "3");
  EXPECT_FALSE(robot.app().welcome().visible);
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(FlashCardsTest, AnExamWithoutTheWayBackLeavesTheWelcomeScreen) {
  for (const char* code : {"30021", "30204"}) {
    open_cards();
    robot.program().catalogue.exam_code = code;
    robot.click("Security", "Command3");
    EXPECT_TRUE(robot.app().welcome().visible) << code;
    EXPECT_FALSE(pick_a_quiz().loaded) << code;
    EXPECT_FALSE(saver().loaded) << code;
    robot.click("Welcome", "Image4", 0);
  }
}

TEST_F(FlashCardsTest, ClosingTheWindowIsAnExit) {
  open_cards();
  saver().close_window();
  EXPECT_FALSE(saver().loaded);
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_TRUE(robot.world.shell.calls.empty());
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(FlashCardsTest, ATestCanBeTakenBehindTheCards) {
  open_cards();
  pass_cards(3);
  robot.click("Security", "Command3");
  robot.click("pick_a_quiz", "Command1");
  EXPECT_TRUE(quest().visible);
  EXPECT_EQ(quest().question_number.caption, " 1");
}

}  // namespace
}  // namespace practice
