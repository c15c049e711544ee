// The answer view: verdict, answers, explanation and book reference of one question.
#include "robot/testing.h"

namespace practice {
namespace {

class AnswerViewTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    start_test();
    Question& question = row(2);
    question.question_text = "Which command shows the table?";
    question.question_type = "single_answer";
    question.explanation = "It lists the addresses.";
    question.book_reference = "284##Modifying STP Timers";
    for (int i = 1; i <= 6; ++i) {
      question.answers[i].clear();
      question.answer_correct[i] = 0;
    }
    question.answers[1] = "show mac";
    question.answers[2] = "show vlan";
    question.answer_correct[1] = 1;
    question.result_state = result::right;
  }

  /// Opens row 2 as the list of the final score does, and returns the page behind its scripts. The
  /// student does `meanwhile` before closing it.
  std::string page(const std::function<void()>& meanwhile = {}) {
    std::string written;
    robot.world.stage.modal_user = [&](Screen& shown) {
      written = theanswer().text1.view.document.written();
      if (meanwhile) meanwhile();
      if (shown.visible) robot.click("theanswer", "Closeb");
    };
    robot.run().current_row = 2;
    theanswer().show_answer();
    const std::string& scripts = robot.program().pages.page_scripts;
    EXPECT_TRUE(written.starts_with(scripts));
    return written.substr(scripts.size());
  }
  std::string content_dir() { return robot.program().catalogue.content_dir; }

  static void expect_in(const std::string& page, const std::string& text) {
    EXPECT_NE(page.find(text), std::string::npos) << text << "\nis not in\n" << page;
  }
  static void expect_not_in(const std::string& page, const std::string& text) {
    EXPECT_EQ(page.find(text), std::string::npos) << text << "\nis in\n" << page;
  }
};

TEST_F(AnswerViewTest, AWholePageReadsAsStudentsKnowIt) {
  robot.program().options.font_size = 14;
  EXPECT_EQ(page(),
            "\r\n<style>\r\nBODY{font-size: 14 pt}\r\nTABLE{font-size: 14 pt}\r\n"
            "BODY{font-family:Times New Roman}\r\n</style>\r\n"
            "Correct.<br>The answer(s): A "
            "<br><br>Which command shows the table?<br>A.)  show mac<br>B.)  show vlan"
            "<br><br><br>It lists the addresses.<br><br>"
            "Brightwater Press Book Reference: PDF Page - 284<br>Modifying STP Timers"
            "<br><br> QID: 2 Brightwater JASPER FALCO"
            "<script language=javascript>\r\nFunction myfunction()\r\n{\r\nreturn 0;\r\n};\r\n"
            "</script>\r\n</body></html>");
}

TEST_F(AnswerViewTest, ARightQuestionReadsCorrectWhateverWasCheckedLast) {
  robot.run().answer_verdict = verdict::wrong;
  expect_in(page(), "Correct.<br>The answer(s): A ");
  EXPECT_EQ(robot.run().answer_verdict, verdict::right);
}

TEST_F(AnswerViewTest, AWrongQuestionTellsWhatTheStudentAnswered) {
  robot.run().answer_verdict = verdict::right;
  row(2).result_state = result::wrong;
  robot.run().answer_given[2] = "B ";
  expect_in(page(), "Incorrect.  Your answer was: B <br>The correct answer(s): A <br><br>Which");
}

TEST_F(AnswerViewTest, AnUnmarkedQuestionTakesTheVerdictOfTheLastCheck) {
  for (const int state : {result::not_marked, result::not_answered_yet}) {
    row(2).result_state = state;
    robot.run().answer_verdict = verdict::wrong;
    expect_in(page(), "Incorrect.  Your answer was: <br>The correct answer(s): A ");
    robot.run().answer_verdict = verdict::right;
    expect_in(page(), "Correct.<br>The answer(s): A ");
  }
}

TEST_F(AnswerViewTest, AnswersKeepTheirLettersWhenOneBetweenThemIsMissing) {
  row(2).answers[2] = "  ";
  row(2).answers[4] = "show arp";
  row(2).answer_correct[4] = 1;
  const std::string shown = page();
  expect_in(shown, "The answer(s): A D ");
  expect_in(shown, "<br>A.)  show mac<br>D.)  show arp<br><br><br>");
}

TEST_F(AnswerViewTest, AFillInQuestionShowsItsFirstAnswerAndNoList) {
  row(2).question_type = "Fill_in_the_blank";
  const std::string shown = page();
  expect_in(shown, "The answer(s): show mac<br><br>Which command shows the table?<br><br><br>It");
  expect_not_in(shown, "A.)");
}

TEST_F(AnswerViewTest, OnlyTheFirstPictureOfATextGetsItsFolder) {
  row(2).question_text = "<img src=\"a.gif\"> and <img src=\"b.gif\">";
  row(2).explanation = "<img src=\"c.gif\">";
  row(2).answers[2] = "<img src=\"d.gif\">";
  const std::string shown = page();
  expect_in(shown, "<img src=\"" + content_dir() + "a.gif\"> and <img src=\"b.gif\">");
  expect_in(shown, "<img src=\"" + content_dir() + "c.gif\">");
  expect_in(shown, "B.)  <img src=\"" + content_dir() + "d.gif\">");
  EXPECT_EQ(row(2).explanation, "<img src=\"c.gif\">") << "the question itself is not changed";
}

TEST_F(AnswerViewTest, APictureTagInCapitalsIsLeftAlone) {
  row(2).question_text = "<IMG SRC=\"a.gif\">";
  expect_in(page(), "<IMG SRC=\"a.gif\">");
}

TEST_F(AnswerViewTest, ABookReferenceWithoutAPageStandsAsItIs) {
  row(2).book_reference = "Chapter 4";
  const std::string shown = page();
  expect_in(shown, "addresses.<br><br>Chapter 4<br><br> QID: 2");
  expect_not_in(shown, "Book Reference");
}

// Outside the table only the verdict is unknown.
TEST_F(AnswerViewTest, ARowOutsideTheTableCostsTheVerdictAndNotThePage) {
  robot.program().current_question = row(2);
  robot.run().current_row = 1001;
  robot.run().answer_verdict = verdict::wrong;
  robot.program().current_question.result_state = 0;
  std::string written;
  robot.world.stage.modal_user = [&](Screen&) {
    written = theanswer().text1.view.document.written();
    robot.click("theanswer", "Closeb");
  };
  theanswer().show_answer();
  expect_in(written, "</style>\r\n<br><br>Which command shows the table?<br>A.)  show mac");
  expect_in(written, "PDF Page - 284<br>Modifying STP Timers");
}

TEST_F(AnswerViewTest, TheTutorsButtonIsHiddenWithAndWithoutATutor) {
  for (const char* tutor : {"", "vlans"}) {
    row(2).tutor_file = tutor;
    page([&] { EXPECT_FALSE(theanswer().cmdtutor.visible); });
  }
}

TEST_F(AnswerViewTest, EveryPairOfNumberSignsInAReferenceBreaksTheLine) {
  row(2).book_reference = "284##One##Two";
  expect_in(page(), "Brightwater Press Book Reference: PDF Page - 284<br>One<br>Two<br><br> QID");
}

TEST_F(AnswerViewTest, TheVerdictStandsAtTheBottomOnlyForThatVeryWord) {
  robot.program().options.answer_position = "bottom";
  const std::string shown = page();
  expect_in(shown, "</style>\r\n<br><br>Which command");
  expect_in(shown, "Modifying STP Timers<br><br><br>Correct.<br>The answer(s): A <br><br> QID");
  robot.program().options.answer_position = "Bottom";
  expect_in(page(), "</style>\r\nCorrect.<br>");
}

TEST_F(AnswerViewTest, AFontSizeOfNoneBecomesTwelveForTheWholeProgram) {
  robot.program().options.font_size = 0;
  expect_in(page(), "BODY{font-size: 12 pt}");
  EXPECT_EQ(robot.program().options.font_size, 12);
}

TEST_F(AnswerViewTest, ASimulatorQuestionShowsItsExplanationAndTheBareReference) {
  for (const char* marker : {"xxsim", "xxxdnd", "xxxmssim", "xxxmssim2"}) {
    row(2).diagrams[1] = marker;
    const std::string shown = page();
    expect_in(shown,
              "</style>\r\nIt lists the addresses.<br><br>284##Modifying STP Timers<br><br> "
              "QID: 2 ");
    expect_not_in(shown, "Correct");
    expect_not_in(shown, "Which command");
    expect_not_in(shown, "<hr>Diagram");
  }
}

TEST_F(AnswerViewTest, DiagramsFollowThePage) {
  row(2).diagrams[1] = "d1.png";
  row(2).diagrams[3] = "d3.png";
  expect_in(page(), "FALCO\r\n<hr>Diagram 1<br>\r\n<img src=\"" + content_dir() +
                        "d1.png\"><p>\r\n<hr>Diagram 3<br>\r\n<img src=\"" + content_dir() +
                        "d3.png\"><p><script");
}

TEST_F(AnswerViewTest, ATutorIsALinkBehindThePage) {
  row(2).tutor_file = "bridges";
  expect_in(page(),
            "\r\n<hr>\r\n<a target=\"_blank\" "
            "href=\"http://tutor.marlo.example/tests/46000/bridges.wmv\"> \r\nClick Here to View "
            "the Online Tutor</a>\r\n");
  row(2).tutor_file = "Bridges.Wav";
  expect_in(page(), "/46000/Bridges.Wav\">");
}

TEST_F(AnswerViewTest, AnEmbeddedTutorPlaysInThePage) {
  row(2).tutor_file = "bridges.wmv";
  robot.program().options.embed_media = 1;
  const std::string shown = page();
  expect_in(shown, "<hr>Click the Play Button to Start the Online Tutor<br><br>\r\n");
  expect_in(shown, "<br><p align=\"center\">\r\n<a target=\"_blank\" href=");
  expect_in(shown, "Click Here</a> If You Cannot See the Online Tutor</p>\r\n");
}

TEST_F(AnswerViewTest, AnExplanationWithoutALinkOffersNone) {
  bool offered = true;
  page([&] { offered = theanswer().webcmd.visible; });
  EXPECT_FALSE(offered);
}

TEST_F(AnswerViewTest, ATutorIsNoLinkToJumpTo) {
  row(2).tutor_file = "bridges";
  bool offered = true;
  page([&] { offered = theanswer().webcmd.visible; });
  EXPECT_FALSE(offered);
}

TEST_F(AnswerViewTest, TheLastLinkOfAPageIsTheOneToJumpTo) {
  row(2).book_reference = "";
  const struct {
    const char* explanation;
    const char* link;
  } cases[] = {
      {"See http://one.example and http://two.example or so.", "http://two.example"},
      {"See HTTP://One.example now", "HTTP://One.example"},
      // Nothing but a blank or a line end stops a link.
      {"See http://one.example<br>", "http://one.example<br><br><br>"},
      {"See \"http://one.example\".", "http://one.example\".<br><br>"},
      {"See http://one.example\r\nnow", "http://one.example\r"},
      {"See http://one.example\nnow", "http://one.example\n"},
      // The letter before the link is longer than its capital.
      {"Kızıl http://one.example now", "http://one.example"},
  };
  for (const auto& expected : cases) {
    row(2).explanation = expected.explanation;
    robot.world.shell.opened.clear();
    page([&] { robot.click("theanswer", "webcmd"); });
    ASSERT_EQ(robot.world.shell.opened.size(), 1u) << expected.explanation;
    EXPECT_EQ(robot.world.shell.opened[0].target, expected.link);
    EXPECT_EQ(robot.world.shell.opened[0].show, WindowShow::normal);
  }
}

TEST_F(AnswerViewTest, LinksToExhibitsOpenThem) {
  row(2).exhibits[1] = "x1.txt";
  row(2).exhibits[3] = "x3.txt";
  row(2).explanation = "<a id=Exhibit1>one</a> <a id=Exhibit3>three</a>";
  page([&] {
    robot.click_element("Exhibit3");
    robot.click_element("Exhibit1");
  });
  EXPECT_EQ(robot.world.shell.calls,
            (std::vector<std::string>{"open " + content_dir() + "x3.txt",
                                      "open " + content_dir() + "x1.txt"}));
}

TEST_F(AnswerViewTest, NextIsHeldUntilTheAnswerIsClosed) {
  bool held = false;
  robot.world.stage.modal_user = [&](Screen&) {
    held = !quest().cmd_buttons[0].enabled;
    robot.click("theanswer", "Closeb");
    EXPECT_TRUE(quest().cmd_buttons[0].enabled);
  };
  next();
  EXPECT_TRUE(held) << "an unanswered question shows its answer";
  EXPECT_FALSE(theanswer().loaded);
  EXPECT_EQ(quest().question_number.caption, " 2");
}

TEST_F(AnswerViewTest, PrintingTheQuestionPrintsItsAnswerPageUnseen) {
  robot.click("quest", "menu_printquestion");
  ASSERT_EQ(robot.world.stage.printed.size(), 1u);
  expect_in(robot.world.stage.printed[0], " QID: 1 Brightwater JASPER FALCO");
  EXPECT_FALSE(theanswer().visible);
  EXPECT_FALSE(theanswer().loaded);
  EXPECT_EQ(robot.run().print_mode, 1);
}

TEST_F(AnswerViewTest, TheStudentPrintsThePageOnShow) {
  page([&] { robot.click("theanswer", "Command2"); });
  ASSERT_EQ(robot.world.stage.printed.size(), 1u);
  expect_in(robot.world.stage.printed[0], " QID: 2 ");
}

TEST_F(AnswerViewTest, WithoutTheBlankPageTheAnswerComesAfterTwoSeconds) {
  robot.world.files.remove(content_dir() + "blank.htm");
  const auto before = robot.world.clock.seconds();
  expect_in(page(), "Which command shows the table?");
  const auto waited = robot.world.clock.seconds() - before;
  EXPECT_GE(waited, 2);
  EXPECT_LE(waited, 3);
}

TEST_F(AnswerViewTest, ThePageGrowsWithItsWindowAndTheButtonsStayCentred) {
  page([&] {
    TheAnswer& screen = theanswer();
    const Bounds view = screen.text1.bounds;
    const Bounds window = screen.bounds;
    screen.bounds.width += 1000;
    screen.bounds.height += 500;
    screen.resize();
    EXPECT_EQ(screen.text1.bounds.width, view.width + 1000);
    EXPECT_EQ(screen.text1.bounds.height, view.height + 500);
    EXPECT_EQ(screen.text1.bounds.left, view.left);
    EXPECT_EQ(screen.Frame1.bounds.left, (window.width + 1000 - screen.Frame1.bounds.width) / 2);
    screen.bounds = {0, 0, 100, 100};
    screen.resize();
    EXPECT_EQ(screen.bounds.width, 9540);
    EXPECT_EQ(screen.bounds.height, 6960);
    screen.bounds = {0, 0, 100, 100};
    screen.window_state = WindowState::minimised;
    screen.resize();
    EXPECT_EQ(screen.bounds.width, 100);
  });
}

}  // namespace
}  // namespace practice
