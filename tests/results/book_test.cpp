// "Review Chapter ": the exam's book at the page of the question on show.
#include "robot/testing.h"

namespace practice {
namespace {

constexpr const char* get_a_reader =
    "Adobe Acrobat Reader is required to view PDF files.  Would you like to visit Adobe to install "
    "Acrobat Reader?";

class BookTest : public robot::StudentTest {
 protected:
  const std::string book = "\\program\\book_falco.pdf";
  const std::string viewer_page = book + ".hta";

  void SetUp() override {
    start();
    start_test();
    robot.program().options.show_answer_when_wrong = 0;
    robot.world.shell.pdf_class = "AcroExch.Document";
    robot.world.files.write(book, "pdf");
  }

  void question_with(const std::string& reference) {
    row(robot.run().question_position + 1).book_reference = reference;
    next();
  }
  void review(const std::string& reference) {
    question_with(reference);
    robot.click("quest", "Command1");
  }
  const std::vector<MessageBox>& boxes() { return robot.world.messages.shown; }
  const std::vector<std::string>& calls() { return robot.world.shell.calls; }
};

TEST_F(BookTest, OpensAtThePageOfTheReference) {
  review("284##Modifying STP Timers");
  EXPECT_EQ(file(viewer_page),
            "\r\n<html><head><title>Brightwater Press PDF Viewer   </title></head>"
            "\r\n<body bgcolor='#FFFFFF'><OBJECT id=PDF height=100% width=100% "
            "classid='clsid:CA8A9780-280D-11CF-A24D-444553540000'>"
            "\r\n<PARAM NAME='SRC' VALUE='\\program\\book_falco.pdf'>"
            "\r\n</OBJECT> <script language=javascript>"
            "\r\nPDF.setLayoutMode('PDFLayoutOneColumn');"
            "\r\nPDF.setZoom('100');"
            "\r\nPDF.setShowScrollbars(true);"
            "\r\nPDF.setCurrentPage(284);"
            "\r\n</script></body></html>\r\n");
  ASSERT_EQ(robot.world.shell.opened.size(), 1u);
  EXPECT_EQ(robot.world.shell.opened[0].target, viewer_page);
  EXPECT_EQ(robot.world.shell.opened[0].folder, "");
  EXPECT_EQ(robot.world.shell.opened[0].show, WindowShow::maximised);
  EXPECT_TRUE(boxes().empty());
}

TEST_F(BookTest, OnlyTheBookEditionHasItsPublisherInTheViewersTitle) {
  robot.program().catalogue.book_edition = 0;
  review("284##Modifying STP Timers");
  EXPECT_NE(file(viewer_page).find("<title>PDF Viewer   </title>"), std::string::npos);
}

TEST_F(BookTest, ReadsThePageOfEveryKindOfReference) {
  const struct {
    const char* reference;
    const char* page;
  } cases[] = {{"305##", "305"},
               {" 7 ##Blanks", "7"},
               {"40/##Odd page", "40/"},
               {"1##A##B", "1"},
               {"é##Signs", "é"}};
  for (const auto& expected : cases) {
    review(expected.reference);
    EXPECT_NE(file(viewer_page).find("PDF.setCurrentPage(" + std::string(expected.page) + ");"),
              std::string::npos)
        << expected.reference;
  }
}

TEST_F(BookTest, AReferenceWithoutAPageStopsWithoutAWord) {
  review("##Heading alone");
  EXPECT_TRUE(calls().empty());
  EXPECT_TRUE(boxes().empty());
  EXPECT_FALSE(robot.world.files.exists(viewer_page));
}

TEST_F(BookTest, APageOfFourDigitsIsNotRead) {
  review("1284##Far away");
  EXPECT_TRUE(calls().empty());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(BookTest, AQuestionWithoutAPageOffersNoBook) {
  for (const char* reference : {"", "   ", "Chapter 4"}) {
    question_with(reference);
    EXPECT_ROBOT_REFUSES(robot.click("quest", "Command1"));
  }
}

TEST_F(BookTest, EveryPressWritesThePageAnew) {
  review("10##One");
  robot.world.files.write(viewer_page, "tampered");
  robot.click("quest", "Command1");
  EXPECT_NE(file(viewer_page).find("setCurrentPage(10)"), std::string::npos);
  review("20##Two");
  EXPECT_NE(file(viewer_page).find("setCurrentPage(20)"), std::string::npos);
}

TEST_F(BookTest, WithoutTheReaderTheStudentIsOfferedOne) {
  for (const char* other : {"", "Other.Document", "acroexch.document"}) {
    robot.world.shell.pdf_class = other;
    robot.world.messages.shown.clear();
    robot.world.messages.answers = {Answer::no};
    review("284##Timers");
    ASSERT_EQ(boxes().size(), 1u) << other;
    EXPECT_EQ(boxes()[0].text, get_a_reader);
    EXPECT_EQ(boxes()[0].title, "Adobe Acrobat not Found");
    EXPECT_EQ(boxes()[0].buttons, Buttons::yes_no);
    EXPECT_TRUE(calls().empty()) << "No ends the action";
  }
}

TEST_F(BookTest, AStudentWhoWantsTheReaderIsTakenToIt) {
  robot.world.shell.pdf_class = "";
  robot.world.messages.answers = {Answer::yes};
  review("284##Timers");
  ASSERT_EQ(robot.world.shell.opened.size(), 1u);
  EXPECT_TRUE(robot.world.shell.opened[0].target.starts_with("http://"));
  EXPECT_EQ(robot.world.shell.opened[0].show, WindowShow::maximised);
  EXPECT_FALSE(robot.world.files.exists(viewer_page));
}

TEST_F(BookTest, AMissingBookIsNamed) {
  robot.world.files.remove(book);
  review("284##Timers");
  ASSERT_EQ(boxes().size(), 1u);
  EXPECT_EQ(boxes()[0].text, "Could not find \\program\\book_falco.pdf");
  EXPECT_EQ(boxes()[0].title, "");
  EXPECT_TRUE(calls().empty());
}

TEST_F(BookTest, AShellWithoutAProgramForThePageOffersTheReader) {
  robot.world.shell.result = 31;
  robot.world.messages.answers = {Answer::no};
  review("284##Timers");
  ASSERT_EQ(boxes().size(), 1u);
  EXPECT_EQ(boxes()[0].text, get_a_reader);
}

TEST_F(BookTest, AnyOtherFailureOfTheShellIsToldAsAnError) {
  const std::pair<int, const char*> cases[] = {
      {0, "File not found"}, {2, "Unknown error"}, {30, "Unknown error"}, {32, "Unknown error"}};
  for (const auto& [code, text] : cases) {
    robot.world.messages.shown.clear();
    robot.world.shell.result = code;
    review("284##Timers");
    ASSERT_EQ(boxes().size(), 1u) << code;
    EXPECT_EQ(boxes()[0].text, text);
    EXPECT_EQ(boxes()[0].title, "Error:");
  }
  robot.world.messages.shown.clear();
  robot.world.shell.result = 33;
  review("284##Timers");
  EXPECT_TRUE(boxes().empty());
}

TEST_F(BookTest, APageThatCanNotBeWrittenIsOpenedAsItStands) {
  robot.world.files.write(viewer_page, "old page");
  robot.world.files.protect(viewer_page);
  review("284##Timers");
  EXPECT_EQ(file(viewer_page), "old page");
  EXPECT_EQ(calls(), std::vector<std::string>{"open " + viewer_page});
}

// An exam of several books, one for each quiz.
TEST_F(BookTest, TheQuizClickedLastAndTheThirdExhibitChooseTheBook) {
  const auto book_of = [](int quiz) { return "\\program\\book " + std::to_string(quiz) + ".pdf"; };
  const struct {
    int clicked_quiz;
    const char* exhibit;
    int book;  // 0 for the one that was chosen before
  } cases[] = {{1, "", 1},      {2, "", 2},      {3, "", 3},      {4, "", 4},      {5, "", 5},
               {0, "", 0},      {6, "", 0},      {-1, "", 0},     {5, "heron", 1}, {5, "falco", 2},
               {5, "Heron", 5}, {5, "robin", 5}, {3, "heron", 3}, {4, "falco", 4}, {0, "falco", 0},
               {0, "new", 5},   {1, "new", 5},   {5, "new", 5},   {6, "new", 5},   {1, "New", 1}};
  Catalogue& catalogue = robot.program().catalogue;
  for (int quiz = 0; quiz <= 5; ++quiz) {
    robot.world.files.write(book_of(quiz), "pdf");
    catalogue.book_files[quiz] = book_of(quiz);
  }
  for (const auto& expected : cases) {
    catalogue.book_file = book_of(0);
    robot.run().clicked_quiz = expected.clicked_quiz;
    row(robot.run().question_position + 1).exhibits[3] = expected.exhibit;
    review("10##One");
    EXPECT_EQ(calls().back(), "open " + book_of(expected.book) + ".hta")
        << expected.clicked_quiz << " " << expected.exhibit;
    EXPECT_EQ(catalogue.book_file, book_of(expected.book));
  }
}

TEST_F(BookTest, AnExamHasOneBookWhateverTheQuizAndTheExhibit) {
  for (int quiz = 0; quiz <= 6; ++quiz) {
    for (const char* exhibit : {"", "heron", "falco", "new"}) {
      robot.run().clicked_quiz = quiz;
      row(robot.run().question_position + 1).exhibits[3] = exhibit;
      review("10##One");
      EXPECT_EQ(calls().back(), "open " + viewer_page) << quiz << " " << exhibit;
    }
  }
}

TEST_F(BookTest, APageOnceOpenedIsKeptForTheQuestionWhoseNumberIsNotRead) {
  review("10##One");
  robot.program().current_question.book_reference = "1284##Far away";
  robot.click("quest", "Command1");
  EXPECT_EQ(calls().size(), 2u);
  EXPECT_NE(file(viewer_page).find("setCurrentPage(10)"), std::string::npos);
  review("1284##Far away");
  EXPECT_EQ(calls().size(), 2u) << "the next question has none yet";
}

TEST_F(BookTest, APageOnceOpenedIsForgottenWithAReferenceThatNamesNone) {
  for (const char* reference : {"Chapter 4", "##Heading alone", ""}) {
    review("10##One");
    const auto opened = calls().size();
    robot.program().current_question.book_reference = reference;
    robot.click("quest", "Command1");
    EXPECT_EQ(calls().size(), opened) << reference;
  }
}

TEST(BookPage, ABookInAFolderWithABlankStandsInQuotes) {
  robot::Robot robot;
  robot.world.platform.program_folder = "\\practice exam";
  robot.world.shell.pdf_class = "AcroExch.Document";
  robot.world.files.write("\\practice exam\\book_falco.pdf", "pdf");
  robot.start("46000");
  robot.click("Welcome", "Image4", 0);
  robot.click("pick_a_quiz", "Command1");
  robot.program().current_question.book_reference = "12##One";
  robot.app().quest().Command1.visible = true;
  robot.click("quest", "Command1");
  EXPECT_NE(robot.world.files.read("\\practice exam\\book_falco.pdf.hta")
                .find("VALUE='\\practice exam\\book_falco.pdf'>"),
            std::string::npos);
}

}  // namespace
}  // namespace practice
