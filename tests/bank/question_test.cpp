// The question record and its table: what a reset takes, what it leaves, and what start-up writes.
#include "bank/question.h"

#include <memory>

#include "robot/testing.h"

namespace practice {
namespace {

class QuestionTableTest : public testing::Test {
 protected:
  // Too large for the stack of a test.
  std::unique_ptr<QuestionTable> owner = std::make_unique<QuestionTable>();
  QuestionTable& table = *owner;

  static void fill(Question& question) {
    question.question_text = "What?";
    question.explanation = "Because.";
    question.question_type = "multi_answer";
    for (int i = 1; i <= 6; ++i) {
      question.answers[i] = "answer";
      question.answer_correct[i] = 1;
      question.answer_chosen[i] = 1;
    }
    for (int i = 1; i <= 3; ++i) {
      question.diagrams[i] = "d.png";
      question.exhibits[i] = "x.txt";
    }
    question.clue = "clue";
    question.book_reference = "1##One";
    question.category = 7;
    question.tutor_file = "tutor";
    question.spare_text = "spare";
    question.typed_answer = "typed";
    question.result_state = result::wrong;
    question.answers_shuffled = 1;
    question.question_id = 12;
    question.cycle_a = 3;
    question.cycle_b = 4;
  }
};

TEST_F(QuestionTableTest, ATableEndsAtRow1000) {
  EXPECT_NO_THROW(table[1000].category = 1);
  EXPECT_THROW(table[1001].category = 1, Fault);
  EXPECT_THROW(table[-1].category = 1, Fault);
}

TEST_F(QuestionTableTest, AResetTakesWhatBanksFillFromEveryRow) {
  for (const int row : {1, 355, 1000}) fill(table[row]);
  reset_bank_fields(table);
  for (const int row : {1, 355, 1000}) {
    const Question& question = table[row];
    for (int i = 1; i <= 6; ++i) {
      EXPECT_EQ(question.answers[i], "");
      EXPECT_EQ(question.answer_correct[i], 0);
    }
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(question.diagrams[i], "");
      EXPECT_EQ(question.exhibits[i], "");
    }
    EXPECT_EQ(question.clue, "");
    EXPECT_EQ(question.book_reference, "");
    EXPECT_EQ(question.category, 1);
    EXPECT_EQ(question.tutor_file, "");
  }
}

TEST_F(QuestionTableTest, AResetLeavesTextsMarksAndNumbersStanding) {
  fill(table[40]);
  reset_bank_fields(table);
  const Question& question = table[40];
  EXPECT_EQ(question.question_text, "What?");
  EXPECT_EQ(question.explanation, "Because.");
  EXPECT_EQ(question.question_type, "multi_answer");
  EXPECT_EQ(question.typed_answer, "typed");
  EXPECT_EQ(question.result_state, result::wrong);
  EXPECT_EQ(question.answers_shuffled, 1);
  EXPECT_EQ(question.answer_chosen[6], 1);
  EXPECT_EQ(question.question_id, 12);
  EXPECT_EQ(question.cycle_a, 3);
  EXPECT_EQ(question.cycle_b, 4);
}

TEST_F(QuestionTableTest, StartUpNumbersTheFirst900RowsAndNoFurther) {
  number_the_rows(table);
  EXPECT_EQ(table[1].question_id, 1);
  EXPECT_EQ(table[900].question_id, 900);
  EXPECT_EQ(table[901].question_id, 0);
  EXPECT_EQ(table[1000].question_id, 0);
}

TEST_F(QuestionTableTest, TheCyclesCountFromOneToFour) {
  number_the_rows(table);
  const struct {
    int row, cycle_a, cycle_b;
  } cases[] = {{1, 1, 1}, {2, 2, 2}, {4, 4, 4}, {5, 1, 1}, {900, 4, 4}, {901, 1, 0}, {1000, 4, 0}};
  for (const auto& expected : cases) {
    EXPECT_EQ(table[expected.row].cycle_a, expected.cycle_a) << "row " << expected.row;
    EXPECT_EQ(table[expected.row].cycle_b, expected.cycle_b) << "row " << expected.row;
  }
}

TEST_F(QuestionTableTest, ClearedMarksLeaveTheQuestionItself) {
  fill(table[1000]);
  clear_run_marks(table);
  const Question& question = table[1000];
  EXPECT_EQ(question.typed_answer, "");
  EXPECT_EQ(question.answers_shuffled, 0);
  EXPECT_EQ(question.result_state, result::not_marked);
  for (int i = 1; i <= 6; ++i) EXPECT_EQ(question.answer_chosen[i], 0);
  EXPECT_EQ(question.answers[6], "answer");
  EXPECT_EQ(question.category, 7);
}

TEST_F(QuestionTableTest, ACopyDoesNotFollowItsRow) {
  fill(table[3]);
  const Question copy = table[3];
  table[3].answers[1] = "another";
  table[3].question_text = "Which?";
  EXPECT_EQ(copy.answers[1], "answer");
  EXPECT_EQ(copy.question_text, "What?");
}

TEST(Question, ABadCategoryOfZeroCountsAsOne) {
  Question question;
  question.category = 0;
  EXPECT_EQ(category_of(question), 1);
  question.category = 21;
  EXPECT_EQ(category_of(question), 21);
}

TEST(Question, BlankAnswersDoNotCount) {
  Question question;
  question.answers[1] = "one";
  question.answers[2] = "   ";
  question.answers[4] = "four";
  EXPECT_EQ(count_answers(question), 2);
}

TEST(Question, OnlyAFlagOfOneCountsAsCorrect) {
  Question question;
  question.answer_correct[2] = 1;
  question.answer_correct[6] = 1;
  question.answer_correct[3] = 2;
  EXPECT_EQ(count_correct(question), 2);
}

TEST(Question, ThePageOfAReferenceStandsInFrontOfTheNumberSigns) {
  const struct {
    std::string_view reference, page;
  } cases[] = {{"284##Modifying STP Timers", "284"},
               {"205##", "205"},
               {"44## Layer 2 Switching", "44"},
               {"408/##Network Layer Protocols", "408/"},
               {"##Heading alone", ""},
               {"12##a##b", "12"},
               {"no page", ""},
               {"7#One", ""},
               {"", ""}};
  for (const auto& expected : cases) {
    EXPECT_EQ(page_of(expected.reference), expected.page) << expected.reference;
  }
}

TEST(Question, TheFourSimulatorMarkersAreKnownAndNothingLikeThem) {
  for (const char* marker : {"xxxdnd", "xxxmssim", "xxxmssim2", "xxsim"}) {
    EXPECT_TRUE(is_simulator_marker(marker)) << marker;
  }
  for (const char* other : {"", "xxmssim", "xxmssim2", "xxxsim", "XXSIM", "xxsim ", "d101.png"}) {
    EXPECT_FALSE(is_simulator_marker(other)) << other;
  }
}

class RowsOnShowTest : public robot::StudentTest {};

TEST_F(RowsOnShowTest, ARowWithFourAnswersShowsFour) {
  start();
  start_test();
  robot.program().options.show_answer_when_wrong = 0;
  Question& second = row(2);
  for (int i = 1; i <= 6; ++i) second.answers[i] = i <= 4 ? "choice" : "";
  second.question_type = "single_answer";
  next();
  EXPECT_NE(robot.page().input("radio1", 3), nullptr);
  EXPECT_EQ(robot.page().input("radio1", 4), nullptr);
}

TEST_F(RowsOnShowTest, ABadCategoryIsTalliedUnderTheFirst) {
  start();
  robot.click("Welcome", "Image4", 0);
  const int in_first = [&] {
    int count = 0;
    for (int i = 1; i <= robot.program().catalogue.bank_total; ++i) {
      count += row(i).category == 1 ? 1 : 0;
    }
    return count;
  }();
  row(robot.program().catalogue.bank_total).category = 0;
  while (pick_a_quiz().lst_cats_to_ask.items.size() > 1) {
    robot.select("pick_a_quiz", "lst_cats_to_ask", 1);
    robot.click("pick_a_quiz", "cmd_remove_cat");
  }
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_EQ(robot.run().question_total, in_first + 1);
}

}  // namespace
}  // namespace practice
