// How a page comes into the view, what leads back from it, and the row of tabs at its top.
#include "run/page_writing.h"

#include "question_test.h"
#include "run/question_page.h"

namespace practice {
namespace {

using PageWriting = QuestionTest;

TEST_F(PageWriting, TheRowOfTabsHoldsTheActiveQuestionTabAlone) {
  EXPECT_EQ(build_tab_row(robot.program(), 1),
            "<tr><td align=top height=2><img  align=top onclick=\"tabclick(1)\" "
            "src=\"\\program\\bw_falco\\Question_active.gif\"></td></tr>");
  for (const int active : {0, 2, 12, 20}) {
    EXPECT_EQ(build_tab_row(robot.program(), active),
              "<tr><td align=top height=2><img  align=top onclick=\"tabclick(1)\" "
              "src=\"\\program\\bw_falco\\Question.gif\"></td></tr>");
  }
}

TEST_F(PageWriting, MarkersChangeNothingInTheRowOfTabs) {
  show(choice({1}));
  const std::string plain = build_tab_row(robot.program(), 1);
  Question question = exercise("xxsim");
  question.diagrams[2] = "a.jpg";
  question.exhibits[1] = "a.txt";
  question.tutor_file = "a.wmv";
  show(question);
  EXPECT_EQ(build_tab_row(robot.program(), 1), plain);
}

TEST_F(PageWriting, ThePageStandsBetweenTheGuardScriptsAndTheEndOfTheDocument) {
  show(choice({1}));
  EXPECT_EQ(robot.page().written(), page_guard_scripts() + html() + "</body></html>");
}

TEST_F(PageWriting, ThePageIsTheOnlyOneInTheDocument) {
  show(choice({1}));
  show(fill_in({"x"}), 2);
  EXPECT_EQ(robot.page().written(), page_guard_scripts() + html() + "</body></html>");
  EXPECT_EQ(robot.page().input("radio1"), nullptr);
  EXPECT_FALSE(quest().WebBrowser1.view.busy);
}

TEST_F(PageWriting, TheBlankPageIsLoadedOnceForEachOpeningOfTheScreen) {
  EXPECT_EQ(robot.program().pages.page_scripts_state, 123);
  html::View& view = quest().WebBrowser1.view;
  EXPECT_EQ(view.address(), "FILE://" + folder() + "blank.htm");
  view.navigate("elsewhere.htm");
  next();
  EXPECT_EQ(view.address(), "elsewhere.htm");

  robot.program().forms.unload(Form::quest);
  robot.program().forms.show(Form::quest);
  EXPECT_EQ(robot.program().pages.page_scripts_state, 1);
  quest().show_quest();
  EXPECT_EQ(quest().WebBrowser1.view.address(), "FILE://" + folder() + "blank.htm");
  EXPECT_EQ(robot.program().pages.page_scripts_state, 123);
}

TEST_F(PageWriting, TheBlanksOfThePathAreLeftAsTheyAre) {
  robot.program().catalogue.content_dir = "\\my exams\\bw_falco\\";
  robot.program().pages.page_scripts_state = 1;
  show(choice({1}));
  EXPECT_EQ(quest().WebBrowser1.view.address(), "FILE://\\my exams\\bw_falco\\blank.htm");
}

// The clock begins at a whole second.
TEST_F(PageWriting, AMissingBlankPageCostsTwoSecondsAndThePageStillComes) {
  robot.world.files.remove(folder() + "blank.htm");
  robot.program().pages.page_scripts_state = 1;
  robot.world.clock.milliseconds = 1'000'000'000;
  show(choice({1}));
  const auto waited = robot.world.clock.milliseconds - 1'000'000'000;
  EXPECT_GE(waited, 2000);
  EXPECT_LE(waited, 2200);
  EXPECT_NE(robot.page().input("radio1", 3), nullptr);
  show(choice({1}), 2);
  EXPECT_LE(robot.world.clock.milliseconds - 1'000'000'000 - waited, 200);
}

// Seconds are counted by their numbers, so a wait that begins late in one is shorter.
TEST_F(PageWriting, TheWaitIsCountedOnWholeSeconds) {
  robot.world.files.remove(folder() + "blank.htm");
  robot.program().pages.page_scripts_state = 1;
  robot.world.clock.milliseconds = 1'000'000'900;
  show(choice({1}));
  EXPECT_LE(robot.world.clock.milliseconds - 1'000'000'900, 1300);
}

TEST_F(PageWriting, ABlankPageThatLoadsEndsTheWaitAtOnce) {
  robot.program().pages.page_scripts_state = 1;
  robot.world.clock.milliseconds = 1'000'000'000;
  show(choice({1}));
  EXPECT_LT(robot.world.clock.milliseconds - 1'000'000'000, 500);
  EXPECT_TRUE(robot.program().pages.page_loaded);
}

TEST_F(PageWriting, EitherCompletionEventMarksThePageAsLoaded) {
  html::View& view = quest().WebBrowser1.view;
  bool& loaded = robot.program().pages.page_loaded;
  loaded = false;
  view.document_complete();
  EXPECT_TRUE(loaded);
  loaded = false;
  view.navigate_complete();
  EXPECT_TRUE(loaded);
}

TEST_F(PageWriting, TheScreenWaitsForAsLongAsTheViewIsBusy) {
  int pumps = 0;
  robot.world.stage.during_pump = [&] { quest().WebBrowser1.view.busy = ++pumps < 100; };
  robot.world.clock.milliseconds = 1'000'000'000;
  show(choice({1}));
  EXPECT_EQ(pumps, 100);
  EXPECT_GT(robot.world.clock.milliseconds - 1'000'000'000, 4000);
}

// Nothing guards the wait: the click is served at once, and the newer page is the one that stays.
TEST_F(PageWriting, AClickOnNextDuringTheWaitIsServed) {
  bool clicked = false;
  robot.world.stage.during_pump = [&] {
    if (std::exchange(clicked, true)) return;
    next();
  };
  show(choice({1}));
  EXPECT_TRUE(clicked);
  EXPECT_EQ(run().question_position, 2);
  EXPECT_EQ(row(1).result_state, 2);
}

TEST_F(PageWriting, TheNewestPageStaysWhenNextIsPressedBeforeTheFirstOne) {
  row(2) = fill_in({"OSPF"});
  robot.program().pages.page_scripts_state = 1;
  bool clicked = false;
  robot.world.stage.during_pump = [&] {
    if (std::exchange(clicked, true)) return;
    next();
  };
  show(choice({1}));
  EXPECT_EQ(run().question_position, 2);
  EXPECT_NE(robot.page().input("txt_fill"), nullptr);
  EXPECT_TRUE(page_has("Type it."));
}

TEST_F(PageWriting, BackDuringAWaitShowsThePageBefore) {
  show(choice({1}));
  bool clicked = false;
  robot.world.stage.during_pump = [&] {
    if (std::exchange(clicked, true)) return;
    back();
  };
  show(fill_in({"OSPF"}), 2);
  EXPECT_EQ(run().question_position, 1);
  EXPECT_NE(robot.page().input("radio1", 3), nullptr);
}

TEST_F(PageWriting, GradingDuringAWaitEndsTheTestOnce) {
  robot.program().pages.page_scripts_state = 1;
  bool clicked = false;
  robot.world.stage.during_pump = [&] {
    if (std::exchange(clicked, true)) return;
    robot.click("quest", "menu_quittest");
  };
  show(choice({1}));
  EXPECT_TRUE(finalscore().visible);
  EXPECT_EQ(finalscore().generation, 1);
  EXPECT_FALSE(quest().loaded);
}

// ---- Links

Question with_exhibit(Question question) {
  question.exhibits[1] = "q31.txt";
  question.exhibits[2] = "q32.txt";
  question.exhibits[3] = "q33.txt";
  return question;
}

TEST_F(PageWriting, TheExhibitLinkOpensTheFileAndThePageStays) {
  show(with_exhibit(choice({1})));
  robot.choose("radio1", 3);
  const std::string before = robot.page().written();
  robot.click_element("Exhibit1");
  EXPECT_EQ(robot.world.shell.calls, std::vector<std::string>{"open " + folder() + "q31.txt"});
  EXPECT_EQ(robot.page().written(), before);
  EXPECT_TRUE(robot.page().input("radio1", 2)->checked);
  EXPECT_EQ(run().question_position, 1);
  EXPECT_FALSE(robot.program().forms.is_loaded(Form::Exhibit));
}

int elements_with_an_event(const html::Node& node) {
  int count = node.onclick ? 1 : 0;
  for (const auto& child : node.children) count += elements_with_an_event(*child);
  return count;
}

TEST_F(PageWriting, APageWithoutExhibitMakesNoEvent) {
  show(choice({1}));
  ASSERT_NE(robot.page().root(), nullptr);
  EXPECT_EQ(elements_with_an_event(*robot.page().root()), 0);
  show(with_exhibit(choice({1})));
  EXPECT_EQ(elements_with_an_event(*robot.page().root()), 1);
  show(choice({1}), 2);
  EXPECT_EQ(elements_with_an_event(*robot.page().root()), 0);
}

TEST_F(PageWriting, PagesThatHoldMoreExhibitLinksHaveThemAllWired) {
  show(with_exhibit(choice({1})));
  quest().set_wow_question_html("<a id=Exhibit3>three</a><a id=Exhibit2>two</a><a id=Exhibit4>");
  robot.click_element("Exhibit2");
  robot.click_element("Exhibit3");
  EXPECT_EQ(robot.world.shell.calls, (std::vector<std::string>{"open " + folder() + "q32.txt",
                                                               "open " + folder() + "q33.txt"}));
  EXPECT_ROBOT_REFUSES(robot.click_element("Exhibit4"));
}

TEST_F(PageWriting, AnUnknownExhibitOpensNothing) {
  show(with_exhibit(choice({1})));
  for (const char* which : {"", "0", "4", "11", "x", " 1"}) quest().HTML_Click(which);
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(PageWriting, ThePagesScriptsAreKeptAsTextAndRunNothing) {
  Question question = choice({1});
  question.question_text = "<script>document.write('<input name=evil>')</script>Which?";
  show(question);
  EXPECT_EQ(robot.page().input("evil"), nullptr);
  EXPECT_EQ(robot.page().inputs().size(), 4u);
}

}  // namespace
}  // namespace practice
