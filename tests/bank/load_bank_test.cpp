// The seven exams, their three banks each, and the road from a command line to a loaded bank.
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

constexpr const char* chapter_questions =
    "Chapter-opening multiple-choice questions from the book.";
constexpr const char* complete_exam =
    "A complete exam, which includes all book and CD-ROM questions.";
constexpr const char* not_from_the_menu =
    "Please Run the Practice Test from the Start Menu at Programs->Brightwater Press->Brightwater "
    "JASPER Test.";

struct ExpectedExam {
  const char* code;
  const char* name;
  const char* data_file;
  const char* content_dir;
  const char* book;
  const char* cover;
  const char* photo;
  const char* saver;
  const char* quizzes[3];
  const char* notes[3];
  const char* title;
  const char* author;
  const char* versions[3];
  const char* descriptions[3];
  int categories[3];
};

const ExpectedExam expected_exams[] = {
    {"46000",
     "FALCO",
     "bw_falco.dat",
     "C:\\exam\\bw_falco\\",
     "book_falco.pdf",
     "FALCO_front_cover.jpg",
     "FALCO_photo.jpg",
     "",
     {"FALCO Book Quiz", "FALCO CD-ROM Quiz", "Full FALCO Exam"},
     {"", "Includes questions from the Book and CD-ROM combined.", ""},
     "Brightwater JASPER FALCO",
     "falco.authors@brightwater.example",
     {"5.20", "5.20", "5.20"},
     {"Brightwater Questions for the JASPER FALCO book.",
      "Marlo's Questions for the JASPER FALCO book.",
      "Combination of marlo and brightwater questions. (100 from Marlo)."},
     {20, 21, 21}},
    {"46002",
     "ROBIN",
     "bw_robin.dat",
     "C:\\exam\\bw_robin\\",
     "book_robin.pdf",
     "ROBIN_front_cover.jpg",
     "FALCO_photo.jpg",
     "bw_robin.exe",
     {"ROBIN Book Questions", "ROBIN CD-ROM Questions", "Full ROBIN Exam"},
     {chapter_questions, "Unique multiple choice, fill-in-the-blank and drag & drop questions.",
      complete_exam},
     "Brightwater Press ROBIN",
     "robin.authors@brightwater.example",
     {"5.11", "5.11", "5.11"},
     {"Brightwater Questions for the ROBIN book.", "Marlo Questions for the ROBIN book.",
      "ROBIN Combo"},
     {19, 1, 20}},
    {"46003",
     "EGRET",
     "bw_egret.dat",
     "C:\\exam\\bw_egret\\",
     "book_egret.pdf",
     "JASPER_EGRET_Front_Cover.jpg",
     "FALCO_photo.jpg",
     "bw_egret.exe",
     {"Book Questions", "CD-ROM Questions", "Full JASPER EGRET Exam"},
     {chapter_questions,
      "Unique multiple choice, fill-in-the-blank, drag & drop, and simulation questions.",
      complete_exam},
     "Brightwater Press EGRET",
     "egret.authors@brightwater.example",
     {"5.22", "5.22", "5.22"},
     {"Brightwater Press Questions for the EGRET book.",
      "Marlo's questions for the Brightwater Press EGRET.",
      "Combination of Marlo and Brightwater Press questions for the EGRET book."},
     {18, 19, 18}},
    {"46004",
     "LARK",
     "bw_lark.dat",
     "C:\\exam\\bw_lark\\",
     "book_lark.pdf",
     "JASPER_LARK_ECG_Front_Cover.jpg",
     "FALCO_photo.jpg",
     "bw_lark.exe",
     {"Book Questions", "CD-ROM Questions", "Full JASPER LARK Exam"},
     {chapter_questions,
      "Unique multiple choice, fill-in-the-blank, drag-and-drop questions, and simulation "
      "questions.",
      complete_exam},
     "Brightwater Press LARK",
     "lark.authors@brightwater.example",
     {"5.12", "5.12", "5.23"},
     {"Brightwater Press Questions for the LARK book.",
      "Marlo's Questions for the Brightwater Press LARK.",
      "Combination of Marlo and Brightwater Press Questions for the Brightwater Press LARK."},
     {12, 14, 14}},
    {"46005",
     "HERON",
     "bw_heron.dat",
     "C:\\exam\\bw_heron\\",
     "book_heron.pdf",
     "JASPER_HERON_Front_Cover.jpg",
     "FALCO_photo.jpg",
     "bw_heron.exe",
     {"Book Questions", "CD-ROM Questions", "Full JASPER HERON Exam"},
     {chapter_questions,
      "Unique multiple choice, fill-in-the-blank, drag & drop, and simulation questions.",
      complete_exam},
     "Brightwater Press HERON",
     "heron.authors@brightwater.example",
     {"5.22", "5.22", "5.22"},
     {"Brightwater Press Questions for the HERON book.",
      "Marlo Questions for the Brightwater Press HERON book.", "Combo questions"},
     {18, 19, 18}},
    {"46006",
     "MERLE",
     "bw_merle.dat",
     "C:\\exam\\bw_merle\\",
     "book_merle.pdf",
     "OPAL_MERLE_ECG_Front_Cover.jpg",
     "OPAL_Photo.jpg",
     "bw_merle.exe",
     {"Book Questions", "CD-ROM Questions", "Full OPAL MERLE Exam"},
     {chapter_questions,
      "Unique multiple-choice, fill-in-the-blank, drag-and-drop, and simulation questions.",
      complete_exam},
     "Brightwater Press MERLE",
     "merle.authors@brightwater.example",
     {"5.14", "5.15", "5.15"},
     {"Brightwater Press Questions for the MERLE book.", "Marlo Questions for the MERLE book.",
      "Combination of Marlo and Brightwater Press questions. "},
     {20, 21, 21}},
    {"46007",
     "WREN",
     "bw_wren.dat",
     "C:\\exam\\bw_wren\\",
     "book_wren.pdf",
     "OPAL_WREN_ECG_Front_Cover.jpg",
     "OPAL_Photo.jpg",
     "bw_wren.exe",
     {"Book Questions", "CD-ROM Questions", "Full OPAL WREN Exam"},
     {chapter_questions,
      "Unique multiple-choice, fill-in-the-blank, drag-and-drop, and simulation questions.",
      complete_exam},
     "OPAL - WREN",
     "wren.authors@brightwater.example",
     {"5.23", "5.15", "5.15"},
     {"Brightwater Press Questions for the WREN book.", "Marlo Questions for the WREN book.",
      "Cool"},
     {16, 15, 17}},
};

/// One program's catalogue and table, loaded without any screen.
struct Shelf {
  std::unique_ptr<Catalogue> catalogue_owner = std::make_unique<Catalogue>();
  std::unique_ptr<QuestionTable> table_owner = std::make_unique<QuestionTable>();
  Catalogue& catalogue = *catalogue_owner;
  QuestionTable& table = *table_owner;
  robot::ScriptedMessages messages;

  bool load(std::string_view command_line, int clicked = 0, int selected = 0) {
    return load_bank({.command_line = command_line,
                      .clicked_quiz = clicked,
                      .selected_quiz = selected,
                      .install_dir = "C:\\exam\\"},
                     catalogue, table, messages);
  }
  std::vector<std::string> categories() const {
    std::vector<std::string> names;
    for (int i = 1; i <= catalogue.category_count; ++i)
      names.push_back(catalogue.category_names[i]);
    return names;
  }
};

class EveryExam : public testing::TestWithParam<ExpectedExam> {
 protected:
  Shelf shelf;
};

INSTANTIATE_TEST_SUITE_P(LoadBank, EveryExam, testing::ValuesIn(expected_exams),
                         [](const auto& parameter) { return parameter.param.name; });

TEST_P(EveryExam, NamesItsFilesAndQuizzesWhateverTheBank) {
  const ExpectedExam& exam = GetParam();
  for (int quiz = 1; quiz <= 3; ++quiz) {
    ASSERT_TRUE(shelf.load(exam.code, quiz));
    const Catalogue& catalogue = shelf.catalogue;
    EXPECT_EQ(catalogue.exam_code, exam.code);
    EXPECT_EQ(catalogue.exam_settings_key, exam.code);
    EXPECT_EQ(catalogue.data_file, exam.data_file);
    EXPECT_EQ(catalogue.content_dir, exam.content_dir);
    EXPECT_EQ(catalogue.book_file_name, exam.book);
    EXPECT_EQ(catalogue.book_file, std::string("C:\\exam\\") + exam.book);
    for (int book = 1; book <= 5; ++book) {
      EXPECT_EQ(catalogue.book_files[book], std::string("C:\\exam\\") + exam.book) << book;
    }
    EXPECT_EQ(catalogue.cover_picture, exam.cover);
    EXPECT_EQ(catalogue.photo_file, std::string("C:\\exam\\") + exam.photo);
    EXPECT_EQ(catalogue.saver_program, exam.saver);
    EXPECT_EQ(catalogue.book_edition, 9090);
    EXPECT_EQ(catalogue.book_layout, 99);
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(catalogue.quiz_names[i], exam.quizzes[i - 1]);
      EXPECT_EQ(catalogue.quiz_button_names[i], exam.quizzes[i - 1]);
      EXPECT_EQ(catalogue.quiz_notes[i], exam.notes[i - 1]);
    }
    EXPECT_EQ(catalogue.quiz_button_names[4], "");
    EXPECT_EQ(catalogue.quiz_button_names[5], "");
  }
  EXPECT_TRUE(shelf.messages.shown.empty());
}

TEST_P(EveryExam, HasTheHeadOfEachBank) {
  const ExpectedExam& exam = GetParam();
  for (int quiz = 1; quiz <= 3; ++quiz) {
    shelf.load(exam.code, quiz);
    const Catalogue& catalogue = shelf.catalogue;
    const auto bank = static_cast<std::size_t>(quiz - 1);
    EXPECT_EQ(catalogue.exam_title, exam.title) << quiz;
    EXPECT_EQ(catalogue.exam_version, exam.versions[bank]) << quiz;
    EXPECT_EQ(catalogue.test_description, exam.descriptions[bank]) << quiz;
    EXPECT_EQ(catalogue.author_address, exam.author) << quiz;
    EXPECT_EQ(catalogue.category_count, exam.categories[bank]) << quiz;
    EXPECT_EQ(catalogue.has_categories, !(exam.code == std::string("46002") && quiz == 2)) << quiz;
    EXPECT_EQ(catalogue.category_names[catalogue.category_count + 1], "") << quiz;
    for (const std::string& name : shelf.categories()) {
      EXPECT_NE(name, "");
      EXPECT_LE(character_count(name), 50u) << name;
    }
  }
}

TEST_P(EveryExam, FullBankIsTheBookAndThenTheExtraQuestions) {
  const std::string_view code = GetParam().code;
  Shelf book;
  Shelf extra;
  book.load(code, 1);
  extra.load(code, 2);
  shelf.load(code, 3);
  const int books = book.catalogue.bank_total;
  const int extras = extra.catalogue.bank_total;
  ASSERT_GT(books, 0);
  ASSERT_GT(extras, 0);
  ASSERT_EQ(shelf.catalogue.bank_total, books + extras);
  const auto expect_same = [](const Question& full, const Question& part, int row) {
    EXPECT_EQ(full.question_text, part.question_text) << row;
    EXPECT_EQ(full.answers, part.answers) << row;
    EXPECT_EQ(full.answer_correct, part.answer_correct) << row;
    EXPECT_EQ(full.explanation, part.explanation) << row;
    EXPECT_EQ(full.question_type, part.question_type) << row;
    EXPECT_EQ(full.diagrams, part.diagrams) << row;
    EXPECT_EQ(full.exhibits, part.exhibits) << row;
    EXPECT_EQ(full.clue, part.clue) << row;
    EXPECT_EQ(full.book_reference, part.book_reference) << row;
  };
  for (int i = 1; i <= books; ++i) {
    expect_same(shelf.table[i], book.table[i], i);
    EXPECT_EQ(shelf.table[i].category, book.table[i].category) << i;
  }
  for (int i = 1; i <= extras; ++i) expect_same(shelf.table[books + i], extra.table[i], i);
}

// A question of a chapter stays in that chapter, by its name, when the list of the full bank has
// other numbers. Questions that the full list has no category for go to some chapter of it.
TEST_P(EveryExam, FullBankKeepsEachExtraQuestionInItsChapter) {
  const std::string_view code = GetParam().code;
  if (code == "46002") return;  // its extra questions stay in category 1
  Shelf extra;
  extra.load(code, 2);
  shelf.load(code, 3);
  const int books = shelf.catalogue.bank_total - extra.catalogue.bank_total;
  const auto full_names = shelf.categories();
  const std::set<std::string> known(full_names.begin(), full_names.end());
  for (int i = 1; i <= extra.catalogue.bank_total; ++i) {
    const int category = shelf.table[books + i].category;
    ASSERT_GE(category, 1) << i;
    ASSERT_LE(category, shelf.catalogue.category_count) << i;
    const std::string& name = extra.catalogue.category_names[extra.table[i].category];
    if (known.contains(name)) {
      EXPECT_EQ(shelf.catalogue.category_names[category], name) << "extra row " << i;
    }
  }
}

TEST_P(EveryExam, RowsKeepTheRulesThatReadersRelyOn) {
  for (int quiz = 1; quiz <= 3; ++quiz) {
    shelf.load(GetParam().code, quiz);
    int category = 1;
    for (int i = 1; i <= shelf.catalogue.bank_total; ++i) {
      const Question& question = shelf.table[i];
      EXPECT_NE(question.question_text, "") << i;
      EXPECT_TRUE(question.question_type == "single_answer" ||
                  question.question_type == "multi_answer" ||
                  question.question_type == "fill_in_the_blank")
          << i;
      EXPECT_GE(question.category, 1) << i;
      EXPECT_LE(question.category, shelf.catalogue.category_count) << i;
      if (quiz == 1) {
        EXPECT_GE(question.category, category) << "the book goes by chapters, row " << i;
        category = question.category;
      }
      if (quiz == 2) {
        EXPECT_NE(question.explanation, "") << i;
      }
    }
  }
}

TEST(LoadBank, TheBookListsOfChaptersEndWithTheSimulatorsInExtraBanks) {
  const struct {
    const char* code;
    const char* last;
  } cases[] = {{"46000", "Simulator Questions"},
               {"46003", "Simulation Questions"},
               {"46004", "Simulator Questions"},
               {"46005", "Simulator Questions"},
               {"46006", "Simulator Questions"},
               {"46007", "Simulator Questions"},
               {"46002", "General"}};
  for (const auto& exam : cases) {
    Shelf shelf;
    shelf.load(exam.code, 2);
    EXPECT_EQ(shelf.categories().back(), exam.last) << exam.code;
  }
}

TEST(LoadBank, LarksExtraBankHasGeneralInFrontOfTheSimulators) {
  Shelf book;
  Shelf extra;
  book.load("46004", 1);
  extra.load("46004", 2);
  auto expected = book.categories();
  expected.push_back("General");
  expected.push_back("Simulator Questions");
  EXPECT_EQ(extra.categories(), expected);
}

TEST(LoadBank, FalcosCategoriesCarryTheirChapterAndOneOddSpelling) {
  Shelf shelf;
  shelf.load("46000", 1);
  const auto names = shelf.categories();
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_TRUE(names[i].starts_with("Chapter " + std::to_string(i + 1) + " ")) << names[i];
  }
  EXPECT_EQ(names[6], "Chapter 7 VLAN Trunking Protocol (VTP)");
  EXPECT_EQ(names[9], "Chapter 10 Spannning Tree Configuration");
}

TEST(LoadBank, RobinsFullBankListsGeneralLastAndLeavesItsQuestionsInTheFirstCategory) {
  Shelf book;
  Shelf full;
  book.load("46002", 1);
  full.load("46002", 3);
  EXPECT_EQ(full.catalogue.category_names[20], "General");
  for (int i = book.catalogue.bank_total + 1; i <= full.catalogue.bank_total; ++i) {
    EXPECT_EQ(full.table[i].category, 1) << i;
  }
}

TEST(LoadBank, FullBanksOfEgretAndHeronListTheBookAloneAndSpreadTheSimulators) {
  for (const char* code : {"46003", "46005"}) {
    Shelf book;
    Shelf extra;
    Shelf full;
    book.load(code, 1);
    extra.load(code, 2);
    full.load(code, 3);
    EXPECT_EQ(full.categories(), book.categories()) << code;
    int simulators = 0;
    for (int i = 1; i <= extra.catalogue.bank_total; ++i) {
      if (extra.table[i].category != extra.catalogue.category_count) continue;
      ++simulators;
      EXPECT_LE(full.table[book.catalogue.bank_total + i].category, 18) << code << " row " << i;
    }
    EXPECT_GT(simulators, 0) << code;
  }
}

TEST(LoadBank, HeronsExtraListSwapsTwoChapters) {
  Shelf book;
  Shelf extra;
  book.load("46005", 1);
  extra.load("46005", 2);
  std::vector<int> different;
  for (int i = 1; i <= 18; ++i) {
    if (book.catalogue.category_names[i] != extra.catalogue.category_names[i]) {
      different.push_back(i);
    }
  }
  ASSERT_EQ(different.size(), 2u);
  const auto [a, b] = std::pair(different[0], different[1]);
  EXPECT_EQ(book.catalogue.category_names[a], extra.catalogue.category_names[b]);
  EXPECT_EQ(book.catalogue.category_names[b], extra.catalogue.category_names[a]);
}

TEST(LoadBank, WrensExtraListLacksTwoChaptersOfTheFullList) {
  Shelf extra;
  Shelf full;
  extra.load("46007", 2);
  full.load("46007", 3);
  const auto few = extra.categories();
  const auto all = full.categories();
  std::size_t found = 0;
  for (const std::string& name : all) {
    if (found < few.size() && few[found] == name) ++found;
  }
  EXPECT_EQ(found, few.size()) << "the extra list is the full list, in order, less two";
  EXPECT_EQ(all.size(), few.size() + 2);
  int moved = 0;
  const int books = full.catalogue.bank_total - extra.catalogue.bank_total;
  for (int i = 1; i <= extra.catalogue.bank_total; ++i) {
    if (full.table[books + i].category != extra.table[i].category) ++moved;
  }
  EXPECT_GT(moved, 0);
}

TEST(LoadBank, ReadsTheCodeThroughTheLettersOfTheCommandLine) {
  const struct {
    const char* line;
    const char* code;
  } cases[] = {{"46002", "46002"},
               {"46002a", "46002"},
               {"p46002", "46002"},
               {"4p60a02", "46002"},
               {"  46002  ", "46002"},
               {"aaaa46002", "46002"},
               {"appa46002pp", "46002"},
               {"46002A", "46002A"},
               {"P46002", "P46002"},
               {"46 002", "46 002"},
               {"", ""},
               {"ap", ""},
               {"46002 a", "46002 "},
               {"46002x", "46002x"}};
  for (const auto& expected : cases) {
    EXPECT_EQ(exam_code_in(expected.line), expected.code) << expected.line;
  }
}

TEST(LoadBank, AnUnknownCodeShowsTheWayInAndTouchesNothing) {
  for (const char* line : {"", "   ", "46001", "46008", "45999", "46002A", "P46000", "4600",
                           "460000", "46000 a", "falco"}) {
    Shelf shelf;
    shelf.load("46006", 2);
    const int total = shelf.catalogue.bank_total;
    const std::string text = shelf.table[1].question_text;
    const std::string answer = shelf.table[1].answers[1];
    EXPECT_FALSE(shelf.load(line, 1)) << line;
    ASSERT_EQ(shelf.messages.shown.size(), 1u) << line;
    EXPECT_EQ(shelf.messages.shown[0].text, not_from_the_menu);
    EXPECT_EQ(shelf.catalogue.bank_total, total);
    EXPECT_EQ(shelf.catalogue.exam_code, "46006");
    EXPECT_EQ(shelf.catalogue.category_count, 21);
    EXPECT_EQ(shelf.table[1].question_text, text);
    EXPECT_EQ(shelf.table[1].answers[1], answer);
    // Written before the code is known.
    EXPECT_EQ(shelf.catalogue.data_file, "bw_onyx.dat");
    EXPECT_EQ(shelf.catalogue.content_dir, "C:\\exam\\bw_onyx\\");
    EXPECT_EQ(shelf.catalogue.book_file_name, "book_onyx.bookmarks.pdf");
  }
}

TEST(LoadBank, TakesTheBankOfTheQuizClickedLastElseOfTheLastTestElseTheBook) {
  Shelf bank[4];
  for (int quiz = 1; quiz <= 3; ++quiz) bank[quiz].load("46000", quiz);
  const struct {
    int clicked, selected, quiz;
  } cases[] = {{0, 0, 1}, {0, 1, 1}, {0, 2, 2}, {0, 3, 3}, {1, 3, 1}, {2, 1, 2},
               {3, 1, 3}, {0, 5, 1}, {4, 3, 1}, {5, 2, 1}, {6, 0, 1}};
  for (const auto& expected : cases) {
    Shelf shelf;
    shelf.load("46000", expected.clicked, expected.selected);
    EXPECT_EQ(shelf.catalogue.test_description, bank[expected.quiz].catalogue.test_description)
        << expected.clicked << " " << expected.selected;
  }
}

TEST(LoadBank, ASmallerBankLeavesTheTextOfTheLargerOneAboveItsTotal) {
  Shelf shelf;
  shelf.load("46000", 3);
  const int full = shelf.catalogue.bank_total;
  const std::string last = shelf.table[full].question_text;
  shelf.load("46000", 1);
  EXPECT_LT(shelf.catalogue.bank_total, full);
  EXPECT_EQ(shelf.table[full].question_text, last);
  EXPECT_NE(shelf.table[full].explanation, "");
  EXPECT_EQ(shelf.table[full].answers[1], "");
  EXPECT_EQ(shelf.table[full].category, 1);
}

TEST(LoadBank, RowsOfAReloadedBankAreNewAgainButKeepTheirNumbers) {
  Shelf shelf;
  shelf.load("46000", 1);
  number_the_rows(shelf.table);
  const auto answers = shelf.table[5].answers;
  std::swap(shelf.table[5].answers[1], shelf.table[5].answers[2]);
  shelf.table[5].answers_shuffled = 1;
  shelf.table[5].result_state = result::right;
  shelf.load("46000", 1);
  EXPECT_EQ(shelf.table[5].answers, answers);
  EXPECT_EQ(shelf.table[5].question_id, 5);
  EXPECT_EQ(shelf.table[900].question_id, 900);
  EXPECT_EQ(shelf.table[5].cycle_b, 1);
  EXPECT_EQ(shelf.table[5].answers_shuffled, 1);
  EXPECT_EQ(shelf.table[5].result_state, result::right);
}

class ProgramWithBanks : public robot::StudentTest {};

TEST_F(ProgramWithBanks, AnEmptyCommandLineGivesTheMessageAndNoQuestions) {
  start("");
  ASSERT_FALSE(robot.world.messages.shown.empty());
  for (const MessageBox& box : robot.world.messages.shown) EXPECT_EQ(box.text, not_from_the_menu);
  EXPECT_EQ(robot.program().catalogue.bank_total, 0);
  EXPECT_EQ(row(1).question_text, "");
}

TEST_F(ProgramWithBanks, ClickingTheSecondQuizAndStartingTheFirstReloadsTheBook) {
  start();
  robot.click("Welcome", "Image4", 0);
  const int book = robot.program().catalogue.bank_total;
  robot.click("pick_a_quiz", "which_quiz", 2);
  EXPECT_NE(robot.program().catalogue.bank_total, book);
  EXPECT_EQ(robot.program().catalogue.category_count, 21);
  robot.click("pick_a_quiz", "which_quiz", 1);
  robot.click("pick_a_quiz", "Command1");
  EXPECT_EQ(robot.program().catalogue.bank_total, book);
  EXPECT_EQ(robot.program().catalogue.category_count, 20);
  EXPECT_EQ(robot.run().bank_size, book);
}

TEST_F(ProgramWithBanks, AReloadUndoesThePermutedAnswersOfATest) {
  start();
  const auto in_bank_order = row(1).answers;
  robot.click("Welcome", "Image4", 0);
  robot.click("pick_a_quiz", "random_questions");
  // Each answer takes the place of the next one.
  robot.world.random.draws = {0.3f, 0.6f, 0.9f, 0.9f};
  robot.click("pick_a_quiz", "Command1");
  EXPECT_NE(row(1).answers, in_bank_order);
  load_bank(robot.program());
  EXPECT_EQ(row(1).answers, in_bank_order);
  EXPECT_EQ(row(1).answers_shuffled, 1);
}

}  // namespace
}  // namespace practice
