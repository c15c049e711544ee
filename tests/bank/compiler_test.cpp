#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "bank_compiler/plan.h"
#include "bank_compiler/reference.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/source.h"
#include "bank_compiler/text_form.h"
#include "bank_compiler/writer.h"
#include "compiler_testing.h"

namespace practice::compiler {
namespace {

namespace fs = std::filesystem;

// A small exam without a fault. The rules are tried by changing one thing in it.
constexpr std::string_view good_book = R"([head]
author_address = "heron.authors@brightwater.example"
test_description = "Questions of the book."
exam_title = "Heron"
exam_version = "5.22"
has_categories = true
categories = ["Frames", "Routes"]

[[row]]
category = 1
type = "single_answer"
question = "Which one?"
answers = ["This", "That"]
correct = [2]
section = "Frames and Fields"

[[row]]
category = 2
type = "multi_answer"
question = "Which two?"
answers = ["One", "Two", "Three"]
correct = [1, 3]
section = "Routes of Last Resort"
)";

constexpr std::string_view good_extra = R"([head]
author_address = "heron.authors@brightwater.example"
test_description = "Questions of the authors."
exam_title = "Heron"
exam_version = "5.22"
has_categories = true
categories = ["Frames", "Routes", "Simulator Questions"]

[[row]]
category = 2
type = "fill_in_the_blank"
question = "How many?"
answers = ["4", "four"]
explanation = "Two and two."

[[row]]
category = 1
type = "single_answer"
question = "Sort these."
answers = ["1"]
diagrams = ["xxxdnd", "d12.png"]
explanation = "Small before large."

[[row]]
category = 3
type = "single_answer"
question = "Configure it."
answers = ["vtp_mode=transparent", "[vlan 2]created"]
exhibits = ["x101.txt", "3550"]
diagrams = ["xxsim"]
explanation = "As shown."
clue = """
Switch#vtp mode transparent
Switch#"""
)";

constexpr std::string_view good_full = R"([head]
author_address = "heron.authors@brightwater.example"
test_description = "Both together."
exam_title = "Heron"
exam_version = "5.22"
has_categories = true
categories = ["Frames", "Routes"]

[[change]]
extra_row = 3
category = 2
)";

constexpr std::string_view chapter_1 =
    "# Frames\n\n## Frames and Fields\n\nText.\n\n```\n## no heading\n```\n\n## Gaps\nText.\n";
constexpr std::string_view chapter_2 = "# Routes\n\n## Routes of Last Resort\n\n## Next Hops";

constexpr ExamPlan small_plan{.exam = "heron",
                              .book_rows = 2,
                              .extra_rows = 3,
                              .book_categories = 2,
                              .extra_categories = 3,
                              .full_categories = 2};

const ContentFiles small_content{"d12.png", "x101.txt"};

struct Outcome {
  ExamSource exam;
  Faults faults;
  Shortfalls shortfalls;
};

Outcome check(std::string_view book, std::string_view extra, std::string_view full,
              const ExamPlan& plan) {
  Outcome outcome;
  outcome.exam = {.book = parse_bank(book, "book.toml", BankKind::book, outcome.faults),
                  .extra = parse_bank(extra, "extra.toml", BankKind::extra, outcome.faults),
                  .full = parse_bank(full, "full.toml", BankKind::full, outcome.faults)};
  add_sections(chapter_1, 1, outcome.exam.chapters);
  add_sections(chapter_2, 2, outcome.exam.chapters);
  outcome.exam.chapters.files = {"01.md", "02.md"};
  check_exam(outcome.exam, plan, small_content, outcome.faults, outcome.shortfalls);
  sort_by_place(outcome.faults);
  return outcome;
}

constexpr auto book = BankKind::book;
constexpr auto extra = BankKind::extra;
constexpr auto full = BankKind::full;

Outcome check_change(BankKind bank, std::string_view from, std::string_view to,
                     const ExamPlan& plan = small_plan) {
  const auto text = [&](BankKind kind, std::string_view good) {
    return kind == bank ? changed(good, from, to) : std::string(good);
  };
  return check(text(BankKind::book, good_book), text(BankKind::extra, good_extra),
               text(BankKind::full, good_full), plan);
}

std::string long_text(int characters) {
  std::string text;
  for (int i = 0; i < characters; ++i) text += "\u00e9";
  return text;
}

ExamPlan planned(const std::function<void(ExamPlan&)>& change) {
  ExamPlan plan = small_plan;
  change(plan);
  return plan;
}

struct Rule {
  std::string name;
  BankKind bank;
  std::string from;
  std::string to;
  /// All faults that are expected, one a line.
  std::string faults;
  ExamPlan plan = small_plan;
};

// Without it a failing test prints the bytes of the rule.
void PrintTo(const Rule& rule, std::ostream* out) { *out << rule.name; }

class TheBankCompilerRefuses : public testing::TestWithParam<Rule> {};

TEST_P(TheBankCompilerRefuses, WithFileLineAndRule) {
  const Rule& rule = GetParam();
  EXPECT_EQ(joined(check_change(rule.bank, rule.from, rule.to, rule.plan).faults), rule.faults);
}

std::string name_of_rule(const testing::TestParamInfo<Rule>& info) { return info.param.name; }

const std::string bank_key_rule = "a bank must have every key that is not optional: ";
const std::string head_key_rule = "[head] must have every key that is not optional: ";
const std::string row_key_rule = "[[row]] must have every key that is not optional: ";
const std::string change_key_rule = "[[change]] must have every key that is not optional: ";
const std::string control_rule = "text must have no tab or control character: ";
const std::string tag_rule = "the only tag is <br>, other angle brackets are &lt; and &gt;: ";
const std::string own_chapter_rule =
    "a question of a book bank names a section of its own chapter: ";
const std::string entity_rule =
    "an ampersand begins &lt; &gt; &amp; &quot; &nbsp; or a number, else it is &amp;: ";

INSTANTIATE_TEST_SUITE_P(
    InTheFormOfASource, TheBankCompilerRefuses,
    testing::ValuesIn(std::vector<Rule>{
        {"AKeyOfARowThatNobodyKnows", book, "correct = [1, 3]\n",
         "correct = [1, 3]\nreference = \"31##\"\n",
         "book.toml:23: unknown key in [[row]]: \"reference\"\n"},
        {"AKeyOfAHeadThatNobodyKnows", book, "exam_title", "title = 1\nexam_title",
         "book.toml:4: unknown key in [head]: \"title\"\n"},
        {"RowsInAFullBank", full, "category = 2", "category = 2\n[[row]]",
         "full.toml:12: unknown key in a bank: \"row\"\n"},
        {"ABankWithoutAHead", book, "[head]", "[heads]",
         "book.toml:1: " + bank_key_rule + "\"head\" is missing\n" +
             "book.toml:1: unknown key in a bank: \"heads\"\n"},
        {"ARowWithoutAType", book, "type = \"single_answer\"\n", "",
         "book.toml:9: " + row_key_rule + "\"type\" is missing\n"},
        {"AHeadWithoutAVersion", extra, "exam_version = \"5.22\"\n", "",
         "extra.toml:1: " + head_key_rule + "\"exam_version\" is missing\n"},
        {"AChangeWithoutACategory", full, "category = 2\n", "",
         "full.toml:9: " + change_key_rule + "\"category\" is missing\n"},
        {"ANumberForATitle", book, "\"Heron\"", "1",
         "book.toml:4: \"exam_title\" must be a text: a whole number\n"},
        {"ATextForAListOfAnswers", book, "[\"This\", \"That\"]", "\"This\"",
         "book.toml:13: \"answers\" must be a list: a text\n"},
        {"ANumberAmongTheAnswers", book, "\"This\"", "5",
         "book.toml:13: \"answers\" must be a text: a whole number\n"},
        {"ACategoryWithAPoint", book, "category = 1", "category = 1.0",
         "book.toml:10: \"category\" must be a whole number: a number with a point\n"},
        {"ATextForTrueOrFalse", book, "= true", "= \"true\"",
         "book.toml:6: \"has_categories\" must be true or false: a text\n"},
        {"ASingleTableForChanges", full, "[[change]]", "[change]",
         "full.toml:7: a row whose category has another number here needs a [[change]]: extra row "
         "3 of line 24 is in \"Simulator Questions\"\n"
         "full.toml:9: \"change\" must be a list of tables: a table\n"},
        {"BytesThatAreNoUtf8", book, "Which one?", "Which \xC0\xAF?",
         "book.toml:12: text must be UTF-8: \"\\xC0\"\n"},
        {"ACharacterOutsideOfTexts", book, "correct = [2]", "correct =\u00a0[2]",
         "book.toml:14: outside of texts and comments all characters are ASCII: \"\u00a0\"\n"},
        {"AForeignCharacterBehindABackslash", book, "\"Which one?\"",
         "\"\"\"Which \\\n  \u00e9?\"\"\"",
         "book.toml:13: an ASCII character follows a backslash and its line break: \"\u00e9\"\n"},
        {"AKeyOfManyParts", book, "correct = [2]", "a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a = [2]",
         "book.toml:14: a key must not have so many parts: more than 16 dots in one line\n"},
        {"ATab", book, "Which one?", "Which\\tone?",
         "book.toml:12: " + control_rule + "the question has \"\\x09\"\n"},
        {"AControlCharacterOfTwoBytes", book, "Which one?", "Which\\u0085one?",
         "book.toml:12: " + control_rule + "the question has \"\\xC2\\x85\"\n"},
        {"ALineBreakInAQuestion", book, "Which one?", "Which\\none?",
         "book.toml:12: only a clue has line breaks: the question has \"\\x0A\"\n"},
        {"ALineBreakInAnAnswer", book, "\"This\"", "\"\"\"Th\nis\"\"\"",
         "book.toml:13: only a clue has line breaks: answer 1 has \"\\x0A\"\n"},
        {"ACarriageReturnAloneInAClue", extra, "transparent\n", "transparent\\rx\n",
         "extra.toml:32: a line ends in LF or CR LF: the clue has a CR alone\n"},
        {"ATabInAClue", extra, "#vtp mode", "#vtp\\tmode",
         "extra.toml:32: " + control_rule + "the clue has \"\\x09\"\n"},
        {"ATagThatIsNoLineBreak", book, "Which one?", "<b>Which<br>one?",
         "book.toml:12: " + tag_rule + "the question has \"<b>Which<br>one?\"\n" +
             "book.toml:12: " + tag_rule + "the question has \">Which<br>one?\"\n"},
        {"AnAngleBracketInAClue", extra, "Switch#vtp", "Switch>vtp",
         "extra.toml:32: " + tag_rule + "the clue has \">vtp mode transparent\\x0ASwitch#\"\n"},
        {"AnAngleBracketInASection", book, "Frames and Fields", "Frames > Fields",
         "book.toml:15: " + tag_rule + "the section has \"> Fields\"\n" +
             "book.toml:15: a question names a section of the book: \"Frames > Fields\"\n"},
        {"AnAmpersandInAQuestion", book, "Which one?", "&lt;&gt;&quot;&nbsp;&#38;&#x26; A&B;?",
         "book.toml:12: " + entity_rule + "the question has \"&B;?\"\n"},
        {"AnAmpersandInAnAnswer", book, "\"This\"", "\"AT&T\"",
         "book.toml:13: " + entity_rule + "answer 1 has \"&T\"\n"},
        {"AnAmpersandInAnExplanation", extra, "Two and two.", "Two & two.",
         "extra.toml:14: " + entity_rule + "the explanation has \"& two.\"\n"},
    }),
    name_of_rule);

INSTANTIATE_TEST_SUITE_P(
    InAHead, TheBankCompilerRefuses,
    testing::ValuesIn(std::vector<Rule>{
        {"AnAddressOfTheRealNet", book, "brightwater.example", "brightwater.org",
         "book.toml:2: the author's address must end in \".example\": "
         "\"heron.authors@brightwater.org\"\n"},
        {"ABlankTitle", book, "\"Heron\"", "\" \"",
         "book.toml:4: a text of the head must not be blank: exam_title\n"},
        {"AMissingDescription", book, "test_description = \"Questions of the book.\"\n", "",
         "book.toml:1: " + head_key_rule + "\"test_description\" is missing\n"},
        {"ADescriptionThatTheExamLeavesOut", full, "", "",
         "full.toml:3: this head must leave its description out: \"test_description\"\n",
         planned([](ExamPlan& plan) { plan.full_has_description = false; })},
        {"ABankWithoutCategories", book, "= true", "= false",
         "book.toml:6: has_categories must be true here: false\n"},
        {"CategoriesWhereTheExamHasNone", extra, "", "",
         "extra.toml:6: has_categories must be false here: true\n"
         "extra.toml:24: this exam has no simulator questions: a simulator question\n"
         "full.toml:9: the full bank of this exam has no changes: a change\n",
         planned([](ExamPlan& plan) { plan.extra_has_categories = false; })},
        {"AListThatIsTooLong", book, "\"Routes\"]", "\"Routes\", \"Hosts\"]",
         "book.toml:7: the list must have 2 categories: 3\n"},
        {"ABlankCategory", book, "\"Frames\",", "\" \",",
         "book.toml:7: a category must have a name: category 1\n"},
        {"ACategoryThatEndsInABlank", book, "\"Frames\",", "\"Frames \",",
         "book.toml:7: a category must not begin or end in a blank: \"Frames \"\n"},
        {"ACategoryOf51Characters", book, "\"Frames\",", "\"" + long_text(51) + "\",",
         "book.toml:7: category 1 has at most 50 characters: 51\n"},
        {"AnotherLastCategory", extra, "Simulator Questions", "Simulation Questions",
         "extra.toml:7: category 3 must be \"Simulator Questions\": \"Simulation Questions\"\n"},
        {"AListWithoutGeneral", extra, "", "",
         "extra.toml:7: category 2 must be \"General\": \"Routes\"\n",
         planned([](ExamPlan& plan) { plan.general_before_last = true; })},
        {"AChapterWithoutItsNumber", book, "[\"Frames\", \"Routes\"]",
         "[\"Chapter 1 Frames\", \"Chapter 3 Routes\"]",
         "book.toml:7: a chapter's category begins with \"Chapter 2 \" and has a name: \"Chapter 3 "
         "Routes\"\n"
         "extra.toml:7: a chapter's category begins with \"Chapter 1 \" and has a name: "
         "\"Frames\"\n"
         "extra.toml:7: a chapter's category begins with \"Chapter 2 \" and has a name: "
         "\"Routes\"\n"
         "full.toml:7: a chapter's category begins with \"Chapter 1 \" and has a name: \"Frames\"\n"
         "full.toml:7: category 2 must be \"Simulator Questions\": \"Routes\"\n",
         planned([](ExamPlan& plan) { plan.numbered_chapters = true; })},
    }),
    name_of_rule);

const std::string marker_line = "diagrams = [\"xxsim\"]";
const std::string condition_rule = "an answer of a simulator question is key=value or [key]value: ";

INSTANTIATE_TEST_SUITE_P(
    InTheChoicesOfARow, TheBankCompilerRefuses,
    testing::ValuesIn(std::vector<Rule>{
        {"ACategoryAboveTheList", book, "category = 2", "category = 3",
         "book.toml:18: a category must be 1 to 2: 3\nbook.toml:23: " + own_chapter_rule +
             "\"Routes of Last Resort\" of chapter 2\n"},
        {"CategoryZero", book, "category = 1", "category = 0",
         "book.toml:10: a category must be 1 to 2: 0\nbook.toml:15: " + own_chapter_rule +
             "\"Frames and Fields\" of chapter 1\n"},
        {"ACategoryThatFalls", book, "[2]\nsection = \"Frames and Fields\"\n",
         "[2]\nsection = \"Gaps\"\n[[row]]\ncategory = 2\ntype = \"single_answer\"\n"
         "question = \"And?\"\nanswers = [\"x\"]\ncorrect = [1]\nsection = \"Next Hops\"\n"
         "[[row]]\ncategory = 1\ntype = \"single_answer\"\nquestion = \"Or?\"\n"
         "answers = [\"x\"]\ncorrect = [1]\nsection = \"Gaps\"\n",
         "book.toml:24: the category never falls in a book bank: 1 after 2\n",
         planned([](ExamPlan& plan) { plan.book_rows = 4; })},
        {"ATypeThatNobodyKnows", book, "multi_answer", "no_reorder",
         "book.toml:19: the type is single_answer, multi_answer or fill_in_the_blank: "
         "\"no_reorder\"\n"},
        {"AQuestionOf793Characters", book, "Which one?", long_text(793),
         "book.toml:12: the question has at most 792 characters: 793\n"},
        {"AnAnswerOf273Characters", book, "\"This\"", "\"" + long_text(273) + "\"",
         "book.toml:13: answer 1 has at most 272 characters: 273\n"},
        {"AnExplanationOf8091Characters", extra, "Two and two.", long_text(8091),
         "extra.toml:14: the explanation has at most 8090 characters: 8091\n"},
        {"AClueOf5261CharactersWithItsLineEnds", extra, "Switch#vtp mode transparent\n",
         long_text(5252) + "\n", "extra.toml:32: the clue has at most 5260 characters: 5261\n"},
        {"ABlankQuestion", book, "Which one?", " ",
         "book.toml:12: a question must not be blank: \" \"\n"},
        {"SevenAnswers", book, "\"Three\"]", "\"3\", \"4\", \"5\", \"6\", \"7\"]",
         "book.toml:21: a question has one to six answers: 7\n"},
        {"NoAnswers", extra, "[\"4\", \"four\"]", "[]",
         "extra.toml:13: a question has one to six answers: 0\n"},
        {"ABlankAnswer", book, "\"This\"", "\"  \"",
         "book.toml:13: an answer must not be blank: answer 1\n"},
        {"TwoAnswersThatAreAlike", book, "\"Three\"", "\" One\"",
         "book.toml:21: no two answers may be alike: answer 3 and answer 1 are \" One\"\n"},
        {"ACorrectPositionWithoutAnAnswer", book, "[1, 3]", "[1, 4]",
         "book.toml:22: a correct position must be 1 to 3: 4\n"},
        {"ACorrectPositionTwice", book, "[1, 3]", "[1, 1]",
         "book.toml:22: a correct position stands once: 1\n"},
        {"ASingleAnswerWithTwo", book, "[2]", "[1, 2]",
         "book.toml:14: single_answer has exactly one correct answer: 2\n"},
        {"ASingleAnswerWithNone", book, "correct = [2]\n", "",
         "book.toml:9: single_answer has exactly one correct answer: 0\n"},
        {"AMultiAnswerWithOne", book, "[1, 3]", "[3]",
         "book.toml:22: multi_answer has two or more correct answers: 1\n"},
        {"ABookRowWithoutASection", book, "section = \"Frames and Fields\"\n", "",
         "book.toml:9: every question of a book bank names its section: none\n"},
        {"ASectionThatIsNotInTheBook", book, "Frames and Fields", "Frames and Feelds",
         "book.toml:15: a question names a section of the book: \"Frames and Feelds\"\n"},
        {"ASectionOfAnotherChapter", book, "Frames and Fields", "Next Hops",
         "book.toml:15: a question of a book bank names a section of its own chapter: "
         "\"Next Hops\" of chapter 2\n"},
        {"ASectionInTheExtraBankThatIsNotInTheBook", extra, "explanation = \"Two and two.\"",
         "explanation = \"Two and two.\"\nsection = \"Sums\"",
         "extra.toml:15: a question names a section of the book: \"Sums\"\n"},
        {"AQuestionThatRefersToAnExhibitItDoesNotHave", book, "Which one?",
         "Refer to the exhibit. Which one?",
         "book.toml:12: a question that refers to it has it: \"Refer to the exhibit\"\n"},
        {"AQuestionThatRefersToADiagramItDoesNotHave", book, "Which one?",
         "Refer to the diagram. Which one?",
         "book.toml:12: a question that refers to it has it: \"Refer to the diagram\"\n"},
        {"AnUnknownFormOfAReference", book, "\nsection = \"Frames and Fields\"",
         "\nreference_form = \"line\"\nsection = \"Frames and Fields\"",
         "book.toml:15: the form of a reference is heading, blank, page or none: \"line\"\n"},
        {"AFormOfAReferenceToNothing", extra, "explanation = \"Two and two.\"",
         "explanation = \"Two and two.\"\nreference_form = \"page\"",
         "extra.toml:15: the form of a reference needs a section: none\n"},
        {"AQuestionThatStandsTwice", book, "Which two?", "Which one?",
         "book.toml:20: no question stands twice in a bank: the same text in the row of line 9\n"},
        {"AQuestionOfTheBookInTheExtraBank", extra, "How many?", "Which two?",
         "extra.toml:12: no question stands in the book bank and in the extra bank: the same text "
         "in the book bank's row of line 17\n"},
    }),
    name_of_rule);

INSTANTIATE_TEST_SUITE_P(
    InThePartsOfARow, TheBankCompilerRefuses,
    testing::ValuesIn(std::vector<Rule>{
        {"AnExtraRowWithoutAnExplanation", extra, "explanation = \"Two and two.\"\n", "",
         "extra.toml:9: every row of this bank has an explanation: none\n"},
        {"AnExplanationInABookWithout", book, "[1, 3]", "[1, 3]\nexplanation = \"So.\"",
         "book.toml:23: this book bank has no explanations: explanation 1\n"},
        {"OneExplanationTooMany", book, "[1, 3]",
         "[1, 3]\nexplanation = \"So.\"\nsection = \"Next Hops\"\n[[row]]\ncategory = 2\n"
         "type = \"single_answer\"\nquestion = \"And?\"\nanswers = [\"x\"]\ncorrect = [1]\n"
         "explanation = \"So.\"",
         "book.toml:31: this book bank has at most 1 explanations: explanation 2\n",
         planned([](ExamPlan& plan) {
           plan.book_rows = 3;
           plan.book_explanations = 1;
         })},
        {"ARowWithoutAnExplanationWhereAllHaveOne", book, "[1, 3]", "[1, 3]\nexplanation = \"So.\"",
         "book.toml:9: every row of this bank has an explanation: none\n",
         planned([](ExamPlan& plan) { plan.book_explanations = every_row; })},
        {"AClueOutsideASimulatorQuestion", extra, "\"Two and two.\"", "\"Two.\"\nclue = \"Count.\"",
         "extra.toml:15: only a simulator question has a clue: a clue\n"},
        {"AFillInQuestionInABookBank", book, "\"multi_answer\"", "\"fill_in_the_blank\"",
         "book.toml:17: this book bank has at most 0 fill-in questions: fill-in question 1\n"},
        {"ADragAndDropQuestionInABookBank", book, "[\"This\", \"That\"]\ncorrect = [2]",
         "[\"1\"]\ndiagrams = [\"xxxdnd\"]",
         "book.toml:9: drag and drop questions stand in extra banks only: a drag and drop "
         "question\n"},
        {"ASimulatorQuestionInABookBank", book, "[\"This\", \"That\"]\ncorrect = [2]",
         "[\"a=b\"]\ndiagrams = [\"xxsim\"]\nexhibits = [\"\", \"lark\"]\nclue = \"a\"",
         "book.toml:9: simulator questions stand in extra banks only: a simulator question\n"},
        {"AMarkerThatNoBankUses", extra, "\"xxxdnd\"", "\"xxxmssim2\"",
         "extra.toml:16: single_answer has exactly one correct answer: 0\n"
         "extra.toml:21: no bank uses this marker: \"xxxmssim2\"\n"},
        {"ADragAndDropQuestionOfAnotherType", extra,
         "\"single_answer\"\nquestion = \"Sort these.\"",
         "\"multi_answer\"\nquestion = \"Sort these.\"",
         "extra.toml:18: a drag and drop question is a single_answer: \"multi_answer\"\n"},
        {"ADragAndDropQuestionWithoutItsNumber", extra, "answers = [\"1\"]", "answers = [\"01\"]",
         "extra.toml:20: a drag and drop question has one answer, the number of the exercise: "
         "\"01\"\n"},
        {"ADragAndDropQuestionWithTwoAnswers", extra, "[\"1\"]", "[\"1\", \"2\"]",
         "extra.toml:20: a drag and drop question has one answer, the number of the exercise: 2 "
         "answers\n"},
        {"ADragAndDropQuestionWithACorrectAnswer", extra, "[\"1\"]", "[\"1\"]\ncorrect = [1]",
         "extra.toml:21: a drag and drop question has no correct answers: 1\n"},
        {"ASimulatorQuestionWithACorrectAnswer", extra, marker_line,
         marker_line + "\ncorrect = [1]",
         "extra.toml:31: a simulator question has no correct answers: 1\n"},
        {"ALabThatNobodyKnows", extra, "\"3550\"", "\"3551\"",
         "extra.toml:29: no lab of that name: \"3551\"\n"},
        {"ASimulatorQuestionWithoutALab", extra, "[\"x101.txt\", \"3550\"]", "[\"x101.txt\"]",
         "extra.toml:29: exhibits of a simulator question name a lab in entry 2: \"\"\n"},
        {"ASimulatorQuestionWithoutAClue", extra,
         "clue = \"\"\"\nSwitch#vtp mode transparent\nSwitch#\"\"\"", "",
         "extra.toml:24: a simulator question has a clue: none\n"},
        {"AConditionWithoutAValue", extra, "vtp_mode=transparent",
         "vtp_mode=", "extra.toml:28: " + condition_rule + "\"vtp_mode=\"\n"},
        {"AConditionWithACapitalInItsKey", extra, "vtp_mode=", "VTP_mode=",
         "extra.toml:28: " + condition_rule + "\"VTP_mode=transparent\"\n"},
        {"AConditionThatEndsItsKeyTwice", extra, "[vlan 2]created", "[vlan 2]cre]ated",
         "extra.toml:28: " + condition_rule + "\"[vlan 2]cre]ated\"\n"},
        {"AValueThatWouldBeReadCut", extra, "=transparent", "=" + std::string(60, 'x'),
         "extra.toml:28: a value of a simulator's result has at most 59 bytes: 60\n"},
        {"AnExhibitInAFolder", extra, "x101.txt", "sub/x101.txt",
         "extra.toml:29: exhibits names a file without a folder: \"sub/x101.txt\"\n"},
        {"AnExhibitThatIsNoText", extra, "x101.txt", "d12.png",
         "extra.toml:29: an exhibit ends in .txt: \"d12.png\"\n"},
        {"ADiagramThatDoesNotExist", extra, "d12.png", "d13.png",
         "extra.toml:21: diagrams names a file in the exam's folder: \"d13.png\"\n"},
        {"ALabInARowThatIsNoSimulatorQuestion", extra, "\"Two and two.\"",
         "\"Two.\"\nexhibits = [\"\", \"3550\"]",
         "extra.toml:15: exhibits names a file in the exam's folder: \"3550\"\n"
         "extra.toml:15: an exhibit ends in .txt: \"3550\"\n"},
        {"FourDiagrams", extra, "\"d12.png\"]", "\"\", \"\", \"\"]",
         "extra.toml:21: a question has up to three diagrams: 4\n"},
        {"MoreRowsThanPlanned", extra, "", "", "extra.toml:16: the plan has 1 rows here: 3\n",
         planned([](ExamPlan& plan) { plan.extra_rows = 1; })},
        {"MoreRowsInTheFirstChapterThanPlanned", book, "category = 2", "category = 1",
         "book.toml:17: the plan has 1 rows in category 1 here: 2\nbook.toml:23: " +
             own_chapter_rule + "\"Routes of Last Resort\" of chapter 2\n",
         planned([](ExamPlan& plan) { plan.first_chapter_rows = 1; })},
    }),
    name_of_rule);

const std::string needs_change_rule =
    "a row whose category has another number here needs a [[change]]: ";

INSTANTIATE_TEST_SUITE_P(
    InAFullBank, TheBankCompilerRefuses,
    testing::ValuesIn(std::vector<Rule>{
        {"AChangeOfARowThatDoesNotExist", full, "category = 2",
         "category = 2\n[[change]]\nextra_row = 4\ncategory = 1",
         "full.toml:13: extra_row must be 1 to 3: 4\n"},
        {"AChangeThatStandsTwice", full, "category = 2",
         "category = 2\n[[change]]\nextra_row = 3\ncategory = 1",
         "full.toml:13: an extra row is changed once: 3\n"},
        {"ChangesInFallingOrder", full, "category = 2",
         "category = 2\n[[change]]\nextra_row = 2\ncategory = 2",
         "full.toml:13: changes stand by rising extra_row: 2 after 3\n"
         "full.toml:14: a change leads to the category of the same name: extra row 2 of line 16 is "
         "in \"Frames\", the change leads to \"Routes\"\n"},
        {"AChangeToACategoryAboveTheList", full, "category = 2", "category = 5",
         "full.toml:11: a category must be 1 to 2: 5\n"},
        {"AChangeThatChangesNothing", full, "extra_row = 3\ncategory = 2",
         "extra_row = 2\ncategory = 1\n[[change]]\nextra_row = 3\ncategory = 2",
         "full.toml:11: a change gives the row another category than its own: 1\n"},
        {"RowsThatNeedAChange", full, "[\"Frames\", \"Routes\"]", "[\"Routes\", \"Frames\"]",
         "full.toml:7: " + needs_change_rule + "extra row 1 of line 9 is in \"Routes\"\n" +
             "full.toml:7: " + needs_change_rule + "extra row 2 of line 16 is in \"Frames\"\n"},
        {"ASimulatorQuestionWithoutAChapter", full, "[[change]]\nextra_row = 3\ncategory = 2\n", "",
         "full.toml:7: " + needs_change_rule +
             "extra row 3 of line 24 is in \"Simulator Questions\"\n"},
        {"AListThatLacksACategoryOfTheExtraBank", full, "\"Frames\"", "\"Hosts\"",
         "full.toml:7: the full list has every category but that of simulator questions: extra row "
         "2 of line 16 is in \"Frames\"\n"},
    }),
    name_of_rule);

TEST(TheBankCompiler, FindsNoFaultInAGoodExam) {
  EXPECT_EQ(joined(check(good_book, good_extra, good_full, small_plan).faults), "");
}

TEST(TheBankCompiler, TakesTextsOfTheGreatestLength) {
  const std::vector<std::array<std::string, 2>> changes{
      {"How many?", long_text(792)},
      {"\"four\"", "\"" + long_text(272) + "\""},
      {"Two and two.", long_text(8090)},
      {"Switch#vtp mode transparent\n", long_text(5251) + "\n"},
  };
  for (const auto& [from, to] : changes) {
    EXPECT_EQ(joined(check_change(extra, from, to).faults), "") << from;
  }
}

TEST(TheBankCompiler, TakesLineEndsOfBothKindsInAClueAndWritesThemAlike) {
  const Outcome outcome = check_change(extra, "transparent\n", "a\\r\\nb\\nc\r\n");
  EXPECT_EQ(joined(outcome.faults), "");
  EXPECT_NE(
      write_tables(outcome.exam, small_plan).find(R"("Switch#vtp mode a\r\nb\r\nc\r\nSwitch#"sv)"),
      std::string::npos);
}

TEST(TheBankCompiler, WritesAReferenceInEachOfItsForms) {
  RowSource row;
  row.section.value = "Next Hops";
  Chapters chapters;
  add_sections(chapter_2, 2, chapters);
  EXPECT_EQ(reference_of(row, chapters), "1##Next Hops") << "of a book that is not set";
  chapters.sections.at("Next Hops").page = 44;
  for (const auto& [form, reference] : {std::pair{"heading", "44##Next Hops"},
                                        {"blank", "44## Next Hops"},
                                        {"page", "44##"},
                                        {"none", ""}}) {
    row.reference_form.value = form;
    EXPECT_EQ(reference_of(row, chapters), reference);
  }
  EXPECT_EQ(reference_of(RowSource{}, chapters), "");
}

TEST(TheBankCompiler, TakesAnySectionWhileTheBookIsNotYetWhole) {
  ExamPlan plan = small_plan;
  plan.book_categories = 3;
  const Outcome outcome = check_change(book, "\nsection = \"Frames and Fields\"",
                                       "\nsection = \"Still to Come\"", plan);
  EXPECT_EQ(joined(outcome.faults).find("Still to Come"), std::string::npos);
  EXPECT_EQ(outcome.shortfalls[0], "heron text: 2 of 3 chapters");
}

TEST(TheBankCompiler, ReportsAllFaultsOfAllBanksAtOnce) {
  const std::string tagged_book = changed(good_book, "Which one?", "Which <i>one?");
  const Outcome outcome =
      check(changed(tagged_book, "[1, 3]", "[1]"), changed(good_extra, "\"Heron\"", "5"),
            changed(good_full, "extra_row = 3", "extra_row = three"), small_plan);
  std::vector<std::string> places;
  for (const Fault& fault : outcome.faults) {
    places.push_back(fault.file + ":" + std::to_string(fault.line));
  }
  EXPECT_EQ(places, (std::vector<std::string>{"book.toml:12", "book.toml:12", "book.toml:22",
                                              "extra.toml:4", "full.toml:10"}))
      << joined(outcome.faults);
}

TEST(TheBankCompiler, LosesNoOtherRowToASyntaxError) {
  const std::string open_list = changed(good_book, "\"That\"]", "\"That\"");
  const Outcome outcome =
      check(changed(open_list, "\"Three\"]", "\"One\"]"), good_extra, good_full, small_plan);
  ASSERT_EQ(outcome.faults.size(), 2u) << joined(outcome.faults);
  EXPECT_EQ(outcome.faults[0].line, 14);
  EXPECT_EQ(outcome.faults[0].rule, "a bank source must be valid TOML");
  EXPECT_EQ(outcome.faults[1].line, 21);
  EXPECT_EQ(outcome.faults[1].rule, "no two answers may be alike");
}

TEST(TheBankCompiler, NamesTheLineOfATextWithoutItsEnd) {
  const Outcome outcome = check_change(book, "\"Which one?\"", "\"Which one?");
  ASSERT_EQ(outcome.faults.size(), 1u) << joined(outcome.faults);
  EXPECT_TRUE(to_text(outcome.faults[0])
                  .starts_with("book.toml:12: a bank source must be valid "
                               "TOML: "))
      << joined(outcome.faults);
}

TEST(TheBankCompiler, BlamesTheRowThatWasLeftOpenAndNotTheNext) {
  const std::string open_row = changed(good_extra, "explanation = \"Two and two.\"\n",
                                       "explanation = \"Two and two.\"\ncorrect = [\n");
  const Outcome outcome =
      check(good_book, changed(open_row, "d12.png", "d13.png"), good_full, small_plan);
  ASSERT_EQ(outcome.faults.size(), 2u) << joined(outcome.faults);
  EXPECT_EQ(outcome.faults[0].rule, "a bank source must be valid TOML");
  EXPECT_EQ(outcome.faults[1].line, 22) << "the second row is still read";
}

TEST(TheBankCompiler, SurvivesWhatIsNoBank) {
  std::string deep = "a";
  for (int i = 0; i < 500000; ++i) deep += ".a";
  const std::vector<std::string> sources{
      "",
      "\xEF\xBB\xBF",
      std::string("\x7F"
                  "ELF\0\1\2",
                  7),
      "[head",
      "head = 5\nrow = [1, [2], {}]\nchange = [1]\n",
      "[[head]]\n[[head]]\n",
      "[[row]]\n'''",
      std::string(100000, '['),
      deep + " = 1",
      "[" + deep + "]",
      "x = [\n'''\n[[row]]\n" + deep + " = 1\n'''",
      "x = { y = \"\"\"z\"\"\"\"\", " + deep + " = 1 }",
      "[head]\ncategories = [[[]]]\n",
  };
  for (const std::string& source : sources) {
    for (const BankKind kind : {book, extra, full}) {
      ExamSource exam;
      Faults faults;
      Shortfalls shortfalls;
      BankSource& bank = kind == book ? exam.book : kind == extra ? exam.extra : exam.full;
      bank = parse_bank(source, "bank.toml", kind, faults);
      check_exam(exam, small_plan, {}, faults, shortfalls);
      EXPECT_FALSE(faults.empty()) << in_quotes(source);
    }
  }
}

TEST(TheBankCompiler, ListsWhatIsStillToBeWritten) {
  const ExamPlan plan = planned([](ExamPlan& more) {
    more.book_rows = 80;
    more.first_chapter_rows = 10;
    more.extra_rows = 4;
  });
  EXPECT_EQ(check(good_book, good_extra, good_full, plan).shortfalls,
            (Shortfalls{"heron book: 2 of 80 rows", "heron book: 1 of 10 rows in category 1",
                        "heron extra: 3 of 4 rows", "heron extra: 1 of 20 simulator rows"}));
}

TEST(TheBankCompiler, CountsExplanationsOnceTheBookBankIsComplete) {
  ExamPlan plan = planned([](ExamPlan& more) { more.book_explanations = 2; });
  EXPECT_EQ(check(good_book, good_extra, good_full, plan).shortfalls[0],
            "heron book: 0 of 2 explanations");
  plan.book_rows = 3;
  EXPECT_EQ(check(good_book, good_extra, good_full, plan).shortfalls,
            (Shortfalls{"heron book: 2 of 3 rows", "heron extra: 1 of 20 simulator rows"}));
}

ExamSource exam_with_simulators(int count) {
  RowSource row;
  row.diagrams.entries.push_back({.line = 1, .value = "xxsim"});
  ExamSource exam;
  exam.extra.file = "extra.toml";
  for (int i = 1; i <= count; ++i) {
    row.line = 10 * i;
    exam.extra.rows.push_back(row);
  }
  return exam;
}

TEST(TheBankCompiler, GrantsOneExamOneMoreSimulatorQuestion) {
  Faults faults;
  Shortfalls shortfalls;
  check_simulator_counts({exam_with_simulators(20), exam_with_simulators(21)}, faults, shortfalls);
  EXPECT_EQ(joined(faults), "");
  EXPECT_EQ(shortfalls, Shortfalls{});
  check_simulator_counts({exam_with_simulators(20)}, faults, shortfalls);
  EXPECT_EQ(shortfalls, Shortfalls{"all exams: none has 21 simulator rows"});
  check_simulator_counts({exam_with_simulators(21), exam_with_simulators(21)}, faults, shortfalls);
  EXPECT_EQ(joined(faults),
            "extra.toml:210: only one exam has 21 simulator rows: 21 in one more exam\n");
}

TEST(TheBankCompiler, GrantsNoExamTwoMoreSimulatorQuestions) {
  ExamSource exam = exam_with_simulators(22);
  Faults faults;
  Shortfalls shortfalls;
  check_counts(exam, *plan_of("wren"), faults, shortfalls);
  EXPECT_EQ(joined(faults), "extra.toml:220: the plan has 21 simulator rows here: 22\n");
}

// The compiler of C++ itself tells what the spelling means, so this is a way there and back.
#define SPELLED(text) \
  { std::string_view(text, sizeof(text) - 1), #text }

TEST(TheBankCompiler, SpellsTextsSoThatTheyComeBackWhole) {
  const std::vector<std::pair<std::string_view, std::string_view>> spelled{
      SPELLED(""),
      SPELLED("say \"no\""),
      SPELLED("C:\\new\\0"),
      SPELLED("100% %s %%"),
      SPELLED("what?\?/ or ?\?!"),
      SPELLED("why?\?\?"),
      SPELLED("one\r\ntwo\r\n"),
      SPELLED("\0011\177f\0000"),
      SPELLED("it’s äöü 語 \\u00e9"),
      SPELLED("'single' // /* */ # R(x)"),
  };
  for (const auto& [text, spelling] : spelled) EXPECT_EQ(literal(text), spelling);
}

TEST(TheBankCompiler, WritesARowWithAllThatItHolds) {
  const std::string tables =
      write_tables(check(good_book, good_extra, good_full, small_plan).exam, small_plan);
  EXPECT_NE(tables.find(R"(    {.question_text = "Which two?"sv,
     .answers = {"One"sv, "Two"sv, "Three"sv},
     .correct = 0b000101,
     .explanation = {},
     .question_type = "multi_answer"sv,
     .diagrams = {},
     .exhibits = {},
     .clue = {},
     .book_reference = "1##Routes of Last Resort"sv,
     .category = 2},
)"),
            std::string::npos);
  EXPECT_NE(tables.find(R"(    {.question_text = "Configure it."sv,
     .answers = {"vtp_mode=transparent"sv, "[vlan 2]created"sv},
     .correct = 0b000000,
     .explanation = "As shown."sv,
     .question_type = "single_answer"sv,
     .diagrams = {"xxsim"sv},
     .exhibits = {"x101.txt"sv, "3550"sv},
     .clue = "Switch#vtp mode transparent\r\nSwitch#"sv,
     .book_reference = {},
     .category = 3},
)"),
            std::string::npos);
  EXPECT_NE(tables.find("constexpr std::array<CategoryChange, 1> full_changes{{\n"
                        "    {.extra_row = 3, .category = 2},\n}};\n"),
            std::string::npos);
  EXPECT_NE(tables.find("constinit const ExamBanks heron_banks{\n"), std::string::npos);
}

TEST_F(TheBankCompilerProgram, SumsAllExamsUpAndRefusesWhatIsNotComplete) {
  for (const ExamPlan& plan : plans) write_exam(plan);
  EXPECT_EQ(call({"--check", root_.native()}), 1);
  EXPECT_EQ(err_.str(), "");
  EXPECT_TRUE(out_.str().starts_with("falco text: 0 of 20 chapters\nfalco book: 0 of 242 rows\n"))
      << out_.str();
  EXPECT_NE(out_.str().find("\nwren: 0, 0, 0 rows, 16, 15, 17 categories\n"), std::string::npos);
  EXPECT_TRUE(out_.str().ends_with("21 banks, 0 rows, not complete\n")) << out_.str();
}

TEST_F(TheBankCompilerProgram, NamesEveryBankThatIsMissing) {
  for (const ExamPlan& plan : plans) write_exam(plan);
  fs::remove(root_ / "data/banks/wren/full.toml");
  fs::remove(root_ / "data/banks/lark/book.toml");
  fs::create_directory(root_ / "data/banks/lark/book.toml");
  EXPECT_EQ(call({"--check", root_.native()}), 1);
  const std::string rule = ".toml: a bank source must be a file that can be read: ";
  const std::string banks = (root_ / "data/banks").generic_string();
  EXPECT_EQ(err_.str(), banks + "/lark/book" + rule + "not a file\n" + banks + "/wren/full" + rule +
                            "no such file\n");
  EXPECT_TRUE(out_.str().ends_with("21 banks, 0 rows, 2 faults\n")) << out_.str();
}

TEST_F(TheBankCompilerProgram, HoldsFalcoAgainstItsFixedCategories) {
  write_exam(*plan_of("falco"));
  const fs::path file = "data/banks/falco/book.toml";
  write(file, changed(read(file), "Spannning", "Spanning"));
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_EQ(err_.str(), (root_ / file).generic_string() +
                            ":17: category 10 must be \"Chapter 10 Spannning Tree Configuration\": "
                            "\"Chapter 10 Spanning Tree Configuration\"\n");
}

TEST_F(TheBankCompilerProgram, WritesTablesAndWhatTheyDependOn) {
  write_exam(*plan_of("falco"));
  write("data/exams/falco/x 1.txt", "An exhibit.");
  ASSERT_EQ(compile_falco(), 0) << err_.str();
  EXPECT_NE(read("made here/falco.cpp").find("constinit const ExamBanks falco_banks{"),
            std::string::npos);
  const std::string depfile = read("made here/falco.cpp.d");
  EXPECT_NE(depfile.find("made\\ here/falco.cpp: \\\n"), std::string::npos) << depfile;
  EXPECT_NE(depfile.find("data/banks/falco/full.toml"), std::string::npos) << depfile;
  EXPECT_NE(depfile.find("data/exams/falco/x\\ 1.txt"), std::string::npos) << depfile;
}

TEST_F(TheBankCompilerProgram, TakesThePagesOfReferencesFromTheBook) {
  write_exam(*plan_of("falco"));
  const fs::path bank = "data/banks/falco/book.toml";
  write(bank, read(bank) +
                  "[[row]]\ncategory = 1\ntype = \"single_answer\"\nquestion = \"Which?\"\n"
                  "answers = [\"This\", \"That\"]\ncorrect = [1]\nsection = \"Gaps\"\n");
  write("data/books/falco/01.md", chapter_1);
  write("pages.toml",
        "[[chapter]]\nnumber = 1\nsections = [{ heading = \"Frames and Fields\", page = 9 },\n"
        "  { heading = \"Gaps\", page = 12 }]\n");
  ASSERT_EQ(compile_falco(), 0) << err_.str();
  EXPECT_NE(read("made here/falco.cpp").find("\"12##Gaps\"sv"), std::string::npos);
  EXPECT_NE(read("made here/falco.cpp.d").find("data/books/falco/01.md"), std::string::npos);

  const std::string index = (root_ / "pages.toml").generic_string();
  write("pages.toml", "[[chapter]]\nsections = [{ heading = \"Gaps\", page = 12 }, 5]\n");
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_EQ(err_.str(), index +
                            ": every section of the book is in its page index: "
                            "\"Frames and Fields\"\n");
  write("pages.toml", "[[chapter]\n");
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_TRUE(err_.str().starts_with(index + ":1: this must be the page index of a book: "))
      << err_.str();
}

TEST_F(TheBankCompilerProgram, LeavesNoOldTablesBehindAFault) {
  write_exam(*plan_of("falco"));
  ASSERT_EQ(compile_falco(), 0) << err_.str();
  write("data/banks/falco/extra.toml", "[head]\n");
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_FALSE(fs::exists(root_ / "made here/falco.cpp"));
}

TEST_F(TheBankCompilerProgram, TellsWhenItCanNotWrite) {
  write_exam(*plan_of("falco"));
  write("made here", "A file where a folder is wanted.");
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_TRUE(err_.str().ends_with("made here/falco.cpp: the file can not be written\n"))
      << err_.str();
}

TEST_F(TheBankCompilerProgram, ExplainsItselfWhenArgumentsMakeNoSense) {
  for (const std::vector<std::string_view>& arguments : std::vector<std::vector<std::string_view>>{
           {},
           {"--check"},
           {"--check", ""},
           {"--exam", "falco", "--banks", "a", "--content", "b", "--book", "c"},
           {"--exam", "falco", "--banks", "a", "--content", "b", "--output", "c"},
           {"--exam", "owl", "--banks", "a", "--content", "b", "--book", "c", "--output", "d"},
           {"--exam", "falco", "--banks", "a", "--content", "b", "--book", "c", "--output", "d",
            "--more", "e"},
           {"--check", "a", "--exam", "falco"}}) {
    EXPECT_EQ(call(arguments), 2);
    EXPECT_NE(err_.str().find("bank_compiler --check ROOT"), std::string::npos);
  }
}

}  // namespace
}  // namespace practice::compiler
