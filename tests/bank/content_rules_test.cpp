#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "bank_compiler/plan.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/source.h"
#include "bank_compiler/text_form.h"
#include "compiler_testing.h"

namespace practice::compiler {
namespace {

RowSource row_with(int line, std::string_view question, const std::vector<std::string>& answers) {
  RowSource row{.line = line};
  row.type.value = "single_answer";
  row.question = {.line = line, .value = std::string(question)};
  for (const std::string& answer : answers) {
    row.answers.entries.push_back({.line = line, .value = answer});
  }
  return row;
}

TEST(AQuestion, IsReadWithoutItsMarkup) {
  EXPECT_EQ(shown_text("a<br>b &lt;c&gt; &quot;d&quot;&nbsp;&amp; &#169;&#xA9; &x;"),
            "a b <c> \"d\" & ?? &x;");
  EXPECT_EQ(shown_text("&#"), "&#");
}

// Two exams with one question each.
std::string faults_of_pair(const RowSource& first, const RowSource& second) {
  std::vector<ExamSource> exams(2);
  exams[0].book.file = "wren/book.toml";
  exams[0].book.rows = {first};
  exams[1].extra.file = "lark/extra.toml";
  exams[1].extra.rows = {second};
  Faults faults;
  check_likeness(exams, faults);
  return joined(faults);
}

const std::string alike_fault =
    "lark/extra.toml:20: two questions are nearly the same: wren/book.toml:10\n";

struct Pair {
  std::string_view question;
  std::vector<std::string> answers;
  bool alike;
};

TEST(TheLikenessRule, FindsAQuestionThatWasTakenOver) {
  // 14 words, so 12 shingles.
  const RowSource row = row_with(10, "Which port of the switch SW1 does the spanning tree block?",
                                 {"Fa0/1", "Fa0/2", "Gi0/1"});
  const std::vector<Pair> pairs{
      {"Which port of the switch SW1 does the spanning tree block?",
       {"Fa0/1", "Fa0/2", "Gi0/1"},
       true},
      // Case, punctuation and markup do not count.
      {"which PORT of the &quot;switch&quot; SW1<br>does the spanning tree block",
       {"fa01", "Fa0/2.", "(Gi0/1)"},
       true},
      // One word in the middle takes three shingles with it: 9 of 15 are left.
      {"Which port of the switch SW2 does the spanning tree block?",
       {"Fa0/1", "Fa0/2", "Gi0/1"},
       true},
      // 6 of 18.
      {"Which port of the switch SW2 does the spanning tree forward?",
       {"Fa0/1", "Fa0/2", "Gi0/1"},
       false},
      {"Which port of a host does no spanning tree reach?", {"One", "Two", "Three"}, false},
  };
  for (const auto& [question, answers, alike] : pairs) {
    EXPECT_EQ(faults_of_pair(row, row_with(20, question, answers)), alike ? alike_fault : "")
        << question;
  }
}

TEST(TheLikenessRule, BeginsAtSixTenths) {
  const RowSource row = row_with(10, "a b c d e f g h i j", {});
  // 6 shingles of 10, then 6 of 11.
  EXPECT_EQ(faults_of_pair(row, row_with(20, "a b c d e f g h k l", {})), alike_fault);
  EXPECT_EQ(faults_of_pair(row, row_with(20, "a b c d e f g h k l m", {})), "");
}

TEST(TheLikenessRule, ComparesOfSimulatorsAndExercisesTheQuestionsOnly) {
  for (const std::string_view marker : {"xxsim", "xxxdnd"}) {
    RowSource first = row_with(10, "Give the switch an address.", {"a=1", "b=2", "c=3", "d=4"});
    RowSource second = row_with(20, "Give the switch an address.", {"e=5", "f=6", "g=7", "h=8"});
    EXPECT_EQ(faults_of_pair(first, second), "") << "as choices they differ";
    for (RowSource* row : {&first, &second}) {
      row->diagrams.entries.push_back({.line = 1, .value = std::string(marker)});
    }
    EXPECT_EQ(faults_of_pair(first, second), alike_fault) << marker;
    second.question.value = "Give the router no default route.";
    second.answers = first.answers;
    EXPECT_EQ(faults_of_pair(first, second), "") << marker;
  }
}

TEST(TheLikenessRule, ComparesTextsOfLessThanThreeWords) {
  EXPECT_EQ(faults_of_pair(row_with(10, "Why?", {}), row_with(20, "why", {})), alike_fault);
  EXPECT_EQ(faults_of_pair(row_with(10, "Why?", {}), row_with(20, "Why not?", {})), "");
  EXPECT_EQ(faults_of_pair(row_with(10, "?", {}), row_with(20, "!", {})), "");
}

TEST(TheLikenessRule, NamesTheNearestOfTheEarlierQuestions) {
  ExamSource exam;
  exam.book.file = "book.toml";
  exam.book.rows = {row_with(1, "one two three four five six seven eight nine", {}),
                    row_with(2, "a b c d e f g h i j k l", {}),
                    row_with(3, "one two three four five six seven eight", {}),
                    row_with(4, "one two three four five six seven", {})};
  RowSource without_text = row_with(5, "", {});
  without_text.question.value.reset();
  exam.book.rows.push_back(without_text);
  Faults faults;
  check_likeness({exam}, faults);
  EXPECT_EQ(joined(faults),
            "book.toml:3: two questions are nearly the same: book.toml:1\n"
            "book.toml:4: two questions are nearly the same: book.toml:3\n");
}

// So many rows of four choices in which each position is right, the right choice being longer,
// shorter or as long as the others.
BankSource bank_with(const std::array<int, 4>& rows_by_position, std::string_view right = "a") {
  BankSource bank{.file = "book.toml"};
  for (std::size_t position = 0; position < 4; ++position) {
    for (int i = 0; i < rows_by_position[position]; ++i) {
      RowSource row = row_with(1, "Which?", {"b", "c", "d", "e"});
      row.answers.entries[position].value = std::string(right);
      row.correct.entries = {{.line = 1, .value = static_cast<std::int64_t>(position) + 1}};
      bank.rows.push_back(row);
    }
  }
  return bank;
}

std::string faults_of(const BankSource& bank) {
  Faults faults;
  check_evenness(bank, faults);
  return joined(faults);
}

const std::string position_rule =
    "book.toml: of 100 questions with four choices, each position is right in 17 to 33: ";

TEST(TheEvennessRule, KeepsTheRightPositionWithinTheReachOfChance) {
  EXPECT_EQ(faults_of(bank_with({25, 25, 25, 25})), "");
  EXPECT_EQ(faults_of(bank_with({17, 33, 25, 25})), "");
  EXPECT_EQ(faults_of(bank_with({16, 34, 25, 25})), position_rule + "position 1 in 16, 16 %\n" +
                                                        position_rule + "position 2 in 34, 34 %\n");
  EXPECT_EQ(faults_of(bank_with({34, 33, 33, 0})),
            position_rule + "position 1 in 34, 34 %\n" + position_rule + "position 4 in 0, 0 %\n");
}

TEST(TheEvennessRule, LeavesASmallBankAlone) {
  EXPECT_EQ(faults_of(bank_with({59, 0, 0, 0})), "");
  EXPECT_EQ(faults_of(bank_with({60, 0, 0, 0})).find("book.toml: of 60 questions"), 0u);
}

TEST(TheEvennessRule, CountsForPositionsTheRowsOfFourChoicesOnly) {
  BankSource bank = bank_with({15, 15, 15, 15});
  const BankSource first_ones = bank_with({60, 0, 0, 0});
  for (RowSource row : first_ones.rows) {
    row.answers.entries.push_back({.line = 1, .value = "f"});
    bank.rows.push_back(row);
  }
  EXPECT_EQ(faults_of(bank), "");
}

TEST(TheEvennessRule, CountsQuestionsWithOneRightChoiceOnly) {
  const BankSource all = bank_with({100, 0, 0, 0}, "long");
  const auto faults_with = [&](auto change) {
    BankSource bank = all;
    for (RowSource& row : bank.rows) change(row);
    return faults_of(bank);
  };
  EXPECT_NE(faults_with([](RowSource&) {}), "");
  EXPECT_EQ(faults_with([](RowSource& row) { row.type.value = "fill_in_the_blank"; }), "");
  EXPECT_EQ(faults_with([](RowSource& row) {
              row.diagrams.entries.push_back({.line = 1, .value = "xxsim"});
            }),
            "");
  EXPECT_EQ(
      faults_with([](RowSource& row) { row.correct.entries.push_back({.line = 1, .value = 2}); }),
      "");
  // What other rules refuse.
  EXPECT_EQ(faults_with([](RowSource& row) { row.correct.entries[0].value = 5; }), "");
  EXPECT_EQ(faults_with([](RowSource& row) { row.correct.entries[0].value = 0; }), "");
  EXPECT_EQ(faults_with([](RowSource& row) { row.answers.entries[1].value.reset(); }), "");
}

TEST(TheEvennessRule, KeepsTheLongestChoiceFromBeingTheRightOne) {
  // 100 rows: one standard deviation of chance is 4.3.
  const auto faults_with = [](std::size_t longest, std::string_view right) {
    BankSource bank = bank_with({25, 25, 25, 25});
    for (std::size_t i = 0; i < longest; ++i) {
      TextList& answers = bank.rows[i].answers;
      const auto position = static_cast<std::size_t>(*bank.rows[i].correct.entries[0].value) - 1;
      answers.entries[position].value = std::string(right);
    }
    return faults_of(bank);
  };
  EXPECT_EQ(faults_with(33, "bb"), "");
  EXPECT_EQ(faults_with(34, "bb"),
            "book.toml: of 100 questions with one right choice, it is the longest in at most 33: "
            "34, 34 %\n");
  EXPECT_EQ(faults_with(100, "x"), "") << "as long as the others";
  EXPECT_EQ(faults_with(100, "\u00e9"), "") << "characters, not bytes";
  EXPECT_EQ(faults_with(100, "&lt;"), "") << "as it is shown";
}

TEST(TheEvennessRule, GrantsMoreRoomWhereThereAreFewerChoices) {
  BankSource bank = bank_with({25, 25, 25, 25}, "long");
  for (RowSource& row : bank.rows) {
    row.answers.entries.resize(2);
    row.correct.entries[0].value = 1;
    row.answers.entries[0].value = "b";
    row.answers.entries[1].value = "c";
  }
  for (std::size_t i = 0; i < 60; ++i) bank.rows[i].answers.entries[0].value = "long";
  EXPECT_EQ(faults_of(bank), "");
  bank.rows[60].answers.entries[0].value = "long";
  EXPECT_EQ(faults_of(bank),
            "book.toml: of 100 questions with one right choice, it is the longest in at most 60: "
            "61, 61 %\n");
}

TEST_F(TheBankCompilerProgram, ComparesTheQuestionsOfAllExams) {
  for (const ExamPlan& plan : plans) write_exam(plan);
  for (const std::string_view exam : {"wren", "egret"}) {
    const std::filesystem::path file = std::filesystem::path("data/banks") / exam / "extra.toml";
    write(file, read(file) +
                    "[[row]]\ncategory = 1\ntype = \"single_answer\"\nquestion = \"Which one?\"\n"
                    "answers = [\"This\", \"That\"]\ncorrect = [1]\nexplanation = \"So.\"\n");
  }
  EXPECT_EQ(call({"--check", root_.native()}), 1);
  const std::string banks = (root_ / "data/banks").generic_string();
  EXPECT_EQ(err_.str(), banks + "/wren/extra.toml:27: two questions are nearly the same: " + banks +
                            "/egret/extra.toml:31\n");
}

TEST_F(TheBankCompilerProgram, ChecksTheEvennessOfABankItCompiles) {
  write_exam(*plan_of("falco"));
  const std::filesystem::path file = "data/banks/falco/extra.toml";
  std::string text = read(file);
  for (int i = 0; i < 60; ++i) {
    text += "[[row]]\ncategory = 1\ntype = \"single_answer\"\nquestion = \"Which of " +
            std::to_string(i) + "?\"\nanswers = [\"a\", \"b\", \"c\", \"d\"]\ncorrect = [1]\n" +
            "explanation = \"So.\"\n";
  }
  write(file, text);
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_TRUE(err_.str().starts_with(
      (root_ / file).generic_string() +
      ": of 60 questions with four choices, each position is right in 9 to 21: "
      "position 1 in 60, 100 %\n"))
      << err_.str();
}

}  // namespace
}  // namespace practice::compiler
