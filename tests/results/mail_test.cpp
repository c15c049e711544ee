// The two mails: the history report, to whomever the student chooses, and a report on a question,
// to its author.
#include "results/mail.h"

#include "platform/values/fault.h"
#include "robot/testing.h"

namespace practice {
namespace {

using Texts = std::vector<std::string>;

const std::string header =
    "<html><center><h2> History Report for ANNA </h2><h3> Brightwater JASPER FALCO "
    "</h3></center>Best Possible Result 100%<hr align=left width=100% size=15 NOSHADE "
    "COLOR=RED><hr><p>&nbsp;</p></html>";
const std::string header_text =
    " History Report for ANNA \r\nBrightwater JASPER FALCO\r\nBest Possible Result 100%\r\n\r\n";
const std::string end_text = "\r\nEnd of History Report";

std::string entry(const std::string& quiz) {
  return "<p><b> " + quiz +
         " Results:</b><br>8%&nbsp;&nbsp;(4/50)&nbsp;&nbsp;-&nbsp;&nbsp;Date: Saturday 11/21/26 "
         "09:00:00<hr align=left width=8% size=15 NOSHADE COLOR=NAVY>";
}
std::string modules(const std::string& name) {
  return "<b> Module Results:</b><table border=0><tr><td>100% (4/4)</td><td>" + name +
         "</td></tr></table><p>&nbsp;</p>";
}

TEST(HistoryText, ATestIsALineOnlyWhenItsQuizIsCalledQuiz) {
  const struct {
    const char* what;
    std::string entries;
    std::string lines;
  } cases[] = {
      {"no test yet", "", ""},
      {"a quiz", entry("FALCO Book Quiz"), "Quiz Results:</b>\r\n"},
      {"two of them", entry("FALCO CD-ROM Quiz") + entry("FALCO Book Quiz"),
       "Quiz Results:</b>\r\nQuiz Results:</b>\r\n"},
      {"names without the word", entry("Book Questions") + entry("Full ROBIN Exam") + entry(""),
       ""},
      {"small letters", entry("FALCO Book quiz"), ""},
      {"a module of that name, up to the next test's break",
       entry("Book Questions") + modules("Quiz Show") + entry("Full ROBIN Exam"),
       "Quiz Show</td></tr></table><p>&nbsp;</p><p><b> Full ROBIN Exam Results:</b>\r\n"},
      {"an ampersand, as it stands", entry("Quiz & more"), "Quiz & more Results:</b>\r\n"},
      {"twice before one break", entry("Quiz after Quiz"), "Quiz after Quiz Results:</b>\r\n"},
  };
  for (const auto& expected : cases) {
    const HistoryText report = history_text(header + expected.entries);
    EXPECT_EQ(report.subject, " History Report for ANNA ") << expected.what;
    EXPECT_EQ(report.text, header_text + expected.lines + end_text) << expected.what;
  }
}

TEST(HistoryText, TheTitlesAreThoseOfTheFirstHeadings) {
  const HistoryText report = history_text(
      "<h3>too early</h3><h2>A & B</h2><h2>later</h2><h3>   Exam   </h3></center> Ruler "
      "<hr><h2>last</h2>");
  EXPECT_EQ(report.subject, "A & B");
  EXPECT_EQ(report.text, "A & B\r\nExam\r\n Ruler \r\n\r\n\r\nEnd of History Report");
}

TEST(HistoryText, APageThatLostItsMarksIsAFault) {
  const Texts pages{"",
                    "no page at all",
                    "<H2>A</H2><H3>B</H3></CENTER>C<HR>",
                    "<h2>A",
                    "<h2>A</h2>",
                    "<h2>A</h2><h3>B",
                    "<h3>B</h3><h2>A</h2></center>C<hr>",
                    "<h2>A</h2><h3>B</h3>C<hr>",
                    "<h2>A</h2><h3>B</h3></center>C",
                    "<h2>A</h2><h3>B</h3></center>C<hr> Quiz without an end",
                    "<h2>A</h2><h3>B</h3></center>C<hr> Quiz<br> Quiz <BR>"};
  for (const std::string& page : pages) EXPECT_THROW(history_text(page), Fault) << page;
}

class MailTest : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }

  void put_history(const std::string& page) { robot.world.files.write(history, page); }
  /// In an edition whose options screen mails.
  void mail_from_options() {
    if (!pick_a_quiz().visible) robot.click("Welcome", "Image4", 0);
    pick_a_quiz().mnu_emailtestscorehistory.enabled = true;
    robot.click("pick_a_quiz", "mnu_emailtestscorehistory");
  }
  /// From the answer page of question 2.
  void mail_question() {
    if (!quest().loaded) start_test();
    robot.world.stage.modal_user = [this](Screen&) {
      robot.click("theanswer", "Command1");
      robot.click("theanswer", "Closeb");
    };
    robot.run().current_row = 2;
    theanswer().show_answer();
  }
  std::string mailed_question() {
    robot.world.shell.opened.clear();
    mail_question();
    return only_opened();
  }
  std::string only_opened() {
    const auto& opened = robot.world.shell.opened;
    if (opened.size() != 1) return "opened: " + std::to_string(opened.size());
    EXPECT_EQ(opened[0].show, WindowShow::normal);
    return opened[0].target;
  }
  void store(const char* section, const char* key, const char* value) {
    robot.world.settings.save("marlotest", section, key, value);
  }
  std::vector<MessageBox>& boxes() { return robot.world.messages.shown; }
  std::string& kind() { return robot.program().options.mail_kind; }
  Catalogue& catalogue() { return robot.program().catalogue; }

  const std::string history = "history.46000.STUDENT.htm";
};

TEST_F(MailTest, TheHistoryGoesToTheMailProgramAsAPreparedMessage) {
  put_history(header + "\r\n" + entry("FALCO Book Quiz") + "\r\n");
  store("stuff", "mailtype", "outlook");
  mail_from_options();
  EXPECT_EQ(only_opened(),
            "mailto:?subject= History Report for ANNA &BODY= History Report for ANNA "
            "%0d%0aBrightwater JASPER FALCO%0d%0aBest Possible Result 100%25%0d%0a%0d%0a"
            "Quiz Results:</b>%0d%0a%0d%0aEnd of History Report");
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(robot.world.clipboard.text, "");
}

TEST_F(MailTest, AnExamWithoutQuizzesByNameMailsItsHeadingsAndTheEnd) {
  put_history(header + "\r\n" + entry("Full ROBIN Exam") + "\r\n" + entry("Book Questions"));
  store("stuff", "mailtype", "outlook");
  mail_from_options();
  EXPECT_TRUE(only_opened().ends_with(
      "Best Possible Result 100%25%0d%0a%0d%0a%0d%0aEnd of History Report"));
}

TEST_F(MailTest, AnAmpersandIsNotEscapedNorAPercentSignOfTheSubject) {
  put_history("<h2> 5% & more </h2><h3>x</h3></center>y<hr>");
  store("stuff", "mailtype", "outlook");
  mail_from_options();
  EXPECT_EQ(only_opened(),
            "mailto:?subject= 5% & more &BODY= 5%25 & more %0d%0ax%0d%0ay%0d%0a%0d%0a%0d%0aEnd of "
            "History Report");
}

TEST_F(MailTest, ANumberSignStaysInAMailToAnyone) {
  put_history("<h2>A # B</h2><h3>x</h3></center>y<hr>");
  store("stuff", "mailtype", "outlook");
  mail_from_options();
  EXPECT_TRUE(only_opened().starts_with("mailto:?subject=A # B&BODY=A # B%0d%0a")) << only_opened();
}

TEST_F(MailTest, TheLinesOfAPageAreJoinedBeforeItIsRead) {
  store("stuff", "mailtype", "outlook");
  for (const char* page : {"<h2>A</h2><h3>B</h3></center>C D<hr>Quiz 1<br>",
                           "<h2>A</h2>\r\n<h3>B</h3>\r\n</cen\r\n"
                           "ter>C D<hr>Quiz \r\n1<br>\r\n",
                           "<h2>A</h\n2><h3>B</h3></center>C D<h\nr>Qu\niz 1<br>\n"}) {
    robot.world.shell.opened.clear();
    put_history(page);
    mail_from_options();
    EXPECT_EQ(only_opened(),
              "mailto:?subject=A&BODY=A%0d%0aB%0d%0aC D%0d%0a%0d%0aQuiz 1%0d%0a%0d%0aEnd of "
              "History Report")
        << page;
  }
}

TEST_F(MailTest, WithoutAHistoryTheStudentIsToldAndNothingIsMailed) {
  for (const char* mail_type : {"web", "outlook"}) {
    boxes().clear();
    store("stuff", "mailtype", mail_type);
    mail_from_options();
    ASSERT_EQ(boxes().size(), 1u) << mail_type;
    EXPECT_EQ(boxes()[0].text,
              "  You currently do not have a history file.  This can happen if you\r\n have not "
              "yet taken a practice test, or you do not have the correct name below.");
    EXPECT_EQ(boxes()[0].title, "No History File");
    EXPECT_EQ(boxes()[0].buttons, Buttons::ok);
  }
  EXPECT_TRUE(robot.world.shell.calls.empty());
  EXPECT_FALSE(robot.world.files.exists("instructions.htm"));
}

TEST_F(MailTest, TheWebWayLeadsToABrowserAndPutsTheReportOnTheClipboard) {
  put_history(header + "\r\n" + entry("FALCO Book Quiz") + "\r\n");
  robot.world.clipboard.text = "of another program";
  // What lies ready while each box is open.
  std::vector<std::pair<std::size_t, std::string>> seen;
  robot.world.messages.while_open = [&] {
    seen.emplace_back(robot.world.shell.opened.size(), robot.world.clipboard.text);
  };
  mail_from_options();
  ASSERT_EQ(boxes().size(), 2u);
  EXPECT_EQ(boxes()[0].text,
            "We will now launch a web browser.  Please go to your email service provider and log "
            "into your email account.");
  EXPECT_EQ(boxes()[0].title, "Web Based Email");
  EXPECT_EQ(boxes()[1].text,
            "You will now have to create an email to your instructor. Click in the text area of "
            "your message and select the Paste option under the edit menu. This will paste your "
            "score into your email.  Make sure you have entered your instructors email address in "
            "the to field.  Click Send and you are finished!");
  EXPECT_EQ(boxes()[1].title, "Web Based Email");
  EXPECT_EQ(seen, (std::vector<std::pair<std::size_t, std::string>>{{0, "of another program"},
                                                                    {1, "of another program"}}));
  EXPECT_EQ(only_opened(), "instructions.htm");
  EXPECT_EQ(file("instructions.htm"),
            "<html><head><title>Web Based Email Intructions</title></head><body><p><font "
            "color=\"#0000FF\">Marlo Software Web Based Email Instructions</p><p>1. Please go to "
            "your email service provider and log into your email account.</p><p>2. You will then "
            "have to create an email to your instructor. Click in the text area of your message "
            "and select the Paste option under the edit menu. This will paste your score into your "
            "email. </p><p>3. Make sure you have entered your instructors email address in the to "
            "field.</p><p>4. Click Send and you are finished!</font></p></body></html>\r\n");
  EXPECT_EQ(robot.world.clipboard.text, header_text + "Quiz Results:</b>\r\n" + end_text)
      << "nothing is escaped";
}

TEST_F(MailTest, TheInstructionsLieInTheWorkingFolder) {
  robot.world.files.working_folder = "\\home\\anna";
  put_history(header);
  mail_from_options();
  EXPECT_TRUE(robot.world.files.exists("\\home\\anna\\instructions.htm"));
  EXPECT_FALSE(robot.world.files.exists("\\program\\instructions.htm"));
}

// Only the word "web" leads to the web. A kind that is not stored counts as web too, one that was
// stored empty does not, and what the program took for web once, it keeps.
TEST_F(MailTest, TheKindOfMailIsTheStoredOneOrTheOneInForce) {
  const struct {
    const char* stored;
    const char* before;
    const char* after;
  } cases[] = {{nullptr, "", "web"},      {nullptr, "outlook", "web"},
               {"web", "", "web"},        {"web", "outlook", "web"},
               {"outlook", "", ""},       {"outlook", "outlook", "outlook"},
               {"outlook", "web", "web"}, {"", "", ""},
               {"Web", "", ""},           {"web ", "outlook", "outlook"},
               {"outlook", "WEB", "WEB"}};
  put_history(header);
  for (const auto& expected : cases) {
    const std::string stored = expected.stored == nullptr ? "none" : expected.stored;
    robot.world.settings.values.erase({"marlotest", "stuff", "mailtype"});
    if (expected.stored != nullptr) store("stuff", "mailtype", expected.stored);
    kind() = expected.before;
    robot.world.shell.opened.clear();
    mail_from_options();
    EXPECT_EQ(kind(), expected.after) << stored << ", " << expected.before;
    const bool by_web = std::string_view(expected.after) == "web";
    EXPECT_EQ(only_opened() == "instructions.htm", by_web) << stored << ", " << expected.before;
    EXPECT_EQ(only_opened().starts_with("mailto:"), !by_web) << stored << ", " << expected.before;
  }
}

TEST_F(MailTest, WithoutAKindTheHistoryGoesByMailAndAQuestionByTheWeb) {
  start_test();
  put_history(header);
  kind() = "";
  mail_history_report(robot.program());
  EXPECT_TRUE(only_opened().starts_with("mailto:?subject="));
  EXPECT_TRUE(mailed_question().starts_with("http://"));
}

TEST_F(MailTest, AHistoryThatLostItsHeadingsIsNotMailedAndTheProgramGoesOn) {
  put_history("nothing that a report is made of\r\n");
  for (const char* mail_type : {"web", "outlook"}) {
    store("stuff", "mailtype", mail_type);
    mail_from_options();
  }
  EXPECT_TRUE(robot.world.shell.calls.empty());
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(file(history), "nothing that a report is made of\r\n");
  robot.click("pick_a_quiz", "Command1");
  EXPECT_TRUE(quest().visible);
}

TEST_F(MailTest, InstructionsThatCanNotBeWrittenEndTheMail) {
  put_history(header);
  robot.world.files.protect("instructions.htm");
  mail_from_options();
  EXPECT_EQ(boxes().size(), 1u);
  EXPECT_TRUE(robot.world.shell.calls.empty());
  EXPECT_EQ(robot.world.clipboard.text, "");
}

TEST_F(MailTest, ADesktopWithoutAMailProgramIsNoMatter) {
  robot.program().branding.partner_edition = 8080;
  start_test();
  for (const int code : {0, 2, 31, 32}) {
    robot.world.shell.result = code;
    EXPECT_TRUE(mailed_question().starts_with("mailto:")) << code;
  }
  robot.world.shell.opened.clear();
  robot.click("quest", "menu_quittest");
  robot.click("finalscore", "cmdEmailResults");
  EXPECT_TRUE(only_opened().starts_with("mailto:"));
  EXPECT_TRUE(boxes().empty());
}

TEST_F(MailTest, OnlyThePartnersEditionMailsFromTheScore) {
  for (const int edition : {0, 1, 8079, 8081, 9090}) {
    robot.program().branding.partner_edition = edition;
    start_test();
    robot.click("quest", "menu_quittest");
    EXPECT_ROBOT_REFUSES(robot.click("finalscore", "cmdEmailResults"));
    robot.click("finalscore", "Command1");
    robot.program().forms.unload(Form::pick_a_quiz);
    robot.program().forms.show(Form::Welcome);
  }
  robot.program().branding.partner_edition = 8080;
  start_test();
  robot.click("quest", "menu_quittest");
  EXPECT_EQ(finalscore().cmdEmailResults.caption, "Email Your Score History");
  robot.click("finalscore", "cmdEmailResults");
  EXPECT_TRUE(
      only_opened().starts_with("mailto:?subject= History Report for STUDENT &BODY= History"));
}

TEST_F(MailTest, TheScoreMailsByTheKindInForceWhateverIsStored) {
  robot.program().branding.partner_edition = 8080;
  start_test();
  robot.click("quest", "menu_quittest");
  store("stuff", "mailtype", "outlook");
  kind() = "web";
  robot.click("finalscore", "cmdEmailResults");
  EXPECT_EQ(only_opened(), "instructions.htm");
  EXPECT_TRUE(robot.world.clipboard.text.starts_with(" History Report for STUDENT \r\n"));
}

TEST_F(MailTest, AQuestionGoesToItsAuthorByTheMailProgram) {
  EXPECT_EQ(mailed_question(),
            "mailto:falco.authors@brightwater.example?subject=46000 Brightwater Press FALCO "
            "QuestionID=2  (v5.20) &cc=&BODY=Remember that answers are listed in random order.");
  EXPECT_TRUE(boxes().empty());
}

TEST_F(MailTest, AnyOtherKindReportsAQuestionByTheWeb) {
  start_test();
  store("order", "email", "me@school.example");
  for (const char* other : {"web", "", "Outlook", "outlook "}) {
    kind() = other;
    EXPECT_EQ(mailed_question(),
              "http://www.marlo.example/promo/email/marlomail.asp?author=falco.authors@brightwater."
              "example&email=me@school.example&subj=46000 Brightwater Press FALCO QuestionID=2  "
              "(v5.20) ")
        << other;
  }
}

TEST_F(MailTest, AStudentWithoutAnAddressLeavesItEmpty) {
  start_test();
  kind() = "web";
  EXPECT_NE(mailed_question().find("brightwater.example&email=&subj=46000 "), std::string::npos);
}

TEST_F(MailTest, ANumberSignBecomesALineInAWebAddressAlone) {
  start_test();
  catalogue().exam_mail_title = "C# and F#";
  catalogue().author_address = "c#@authors.example";
  store("order", "email", "me#2@school.example");
  EXPECT_EQ(mailed_question(),
            "mailto:c#@authors.example?subject=46000 C# and F# QuestionID=2  (v5.20) &cc=&BODY="
            "Remember that answers are listed in random order.");
  kind() = "web";
  EXPECT_EQ(mailed_question(),
            "http://www.marlo.example/promo/email/marlomail.asp?author=c_@authors.example&email="
            "me_2@school.example&subj=46000 C_ and F_ QuestionID=2  (v5.20) ");
}

TEST_F(MailTest, AnExamWithoutAVersionLeavesItsBracketsEmpty) {
  start_test();
  catalogue().exam_version = "";
  EXPECT_NE(mailed_question().find("QuestionID=2  (v) &cc="), std::string::npos);
  kind() = "web";
  EXPECT_TRUE(mailed_question().ends_with("QuestionID=2  (v) "));
}

}  // namespace
}  // namespace practice
