// Looking at the history and clearing it, from the options screen.
#include <algorithm>

#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

using Texts = std::vector<std::string>;

class HistoryMenuTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    robot.click("Welcome", "Image4", 0);
  }

  void type_name(std::string_view name) { robot.type("pick_a_quiz", "txtstudentname", 0, name); }
  void view() { robot.click("pick_a_quiz", "mnu_viewtestscorehistory"); }
  void clear(Answer answer, const char* control = "cmd_reset_user_history") {
    robot.world.messages.shown.clear();
    robot.world.messages.answers.push_back(answer);
    robot.click("pick_a_quiz", control);
  }
  void put(std::initializer_list<const char*> names) {
    for (const char* name : names) robot.world.files.write(name, "1,1\r\n");
  }
  bool exists(std::string_view name) { return robot.world.files.exists(name); }
  std::vector<MessageBox>& boxes() { return robot.world.messages.shown; }
};

TEST_F(HistoryMenuTest, AStudentWithoutHistoryIsToldToTakeAQuizFirst) {
  type_name("anna");
  view();
  ASSERT_EQ(boxes().size(), 1u);
  EXPECT_EQ(boxes()[0].text,
            "No history found for user anna.  Please take a quiz first and try again.");
  EXPECT_EQ(boxes()[0].title, "");
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(HistoryMenuTest, TheHistoryIsOpenedMaximisedByTheDesktop) {
  put({"history.46000.ANNA.htm"});
  for (const char* name : {"ANNA", "anna", "  anna "}) {
    type_name(name);
    view();
    EXPECT_EQ(robot.world.shell.opened.back().target, "history.46000.ANNA.htm") << name;
    EXPECT_EQ(robot.world.shell.opened.back().show, WindowShow::maximised);
  }
  EXPECT_TRUE(boxes().empty());
}

TEST_F(HistoryMenuTest, HistoriesOfOtherStudentsAndExamsAreNotShown) {
  put({"history.46000.ANNA.htm", "history.46002.BEN.htm"});
  type_name("ben");
  view();
  EXPECT_EQ(boxes().size(), 1u);
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(HistoryMenuTest, ADesktopWithoutABrowserShowsNothing) {
  robot.world.shell.result = 31;
  put({"history.46000.STUDENT.htm"});
  view();
  EXPECT_TRUE(boxes().empty());
}

TEST_F(HistoryMenuTest, NoLeavesBothFiles) {
  put({"46000.ANNA.results", "history.46000.ANNA.htm"});
  type_name("anna");
  clear(Answer::no);
  EXPECT_TRUE(exists("46000.ANNA.results"));
  EXPECT_TRUE(exists("history.46000.ANNA.htm"));
  ASSERT_EQ(boxes().size(), 2u);
  EXPECT_EQ(boxes()[0].text, "Are you sure you want to clear all history for user anna?");
  EXPECT_EQ(boxes()[0].title, "Clear History?");
  EXPECT_EQ(boxes()[0].buttons, Buttons::yes_no);
  EXPECT_EQ(boxes()[1].text, "History NOT cleared.");
  EXPECT_EQ(boxes()[1].title, "Clear History?");
  EXPECT_EQ(boxes()[1].buttons, Buttons::ok);
}

TEST_F(HistoryMenuTest, YesTakesTheTwoFilesOfThisStudentAndExamOnly) {
  for (const char* control : {"cmd_reset_user_history", "mnu_resetuserhistory"}) {
    put({"46000.ANNA.results", "history.46000.ANNA.htm", "46000.BEN.results",
         "history.46000.BEN.htm", "46002.ANNA.results", "history.46002.ANNA.htm", "temp.hist"});
    type_name("anna");
    Texts expected = robot.world.files.names();
    std::erase(expected, "46000.ANNA.results");
    std::erase(expected, "history.46000.ANNA.htm");
    clear(Answer::yes, control);
    EXPECT_EQ(robot.world.files.names(), expected) << control;
    ASSERT_EQ(boxes().size(), 2u);
    EXPECT_EQ(boxes()[1].text, "anna history has been cleared.");
    EXPECT_EQ(boxes()[1].title, "Clear History?");
  }
}

TEST_F(HistoryMenuTest, BlanksAroundANameAreOfTheResultsFileAndNotOfTheHistory) {
  put({"46000. ANNA .results", "46000.ANNA.results", "history.46000.ANNA.htm"});
  type_name(" anna ");
  clear(Answer::yes);
  EXPECT_FALSE(exists("46000. ANNA .results"));
  EXPECT_FALSE(exists("history.46000.ANNA.htm"));
  EXPECT_TRUE(exists("46000.ANNA.results"));
}

TEST_F(HistoryMenuTest, ClearingWhatIsNotThereStillReportsItsEnd) {
  type_name("nobody");
  clear(Answer::yes);
  ASSERT_EQ(boxes().size(), 2u);
  EXPECT_EQ(boxes()[1].text, "nobody history has been cleared.");
  put({"history.46000.NOBODY.htm"});
  clear(Answer::yes);
  EXPECT_FALSE(exists("history.46000.NOBODY.htm")) << "a missing results file is no matter";
}

TEST_F(HistoryMenuTest, ClearingForgetsTheFirst300ResultsOfTheProgramToo) {
  robot.run().last_results.fill("1");
  put({"46000.STUDENT.results"});
  clear(Answer::no);
  EXPECT_EQ(robot.run().last_results[1], "1");
  clear(Answer::yes);
  EXPECT_EQ(robot.run().last_results[1], "0");
  EXPECT_EQ(robot.run().last_results[300], "0");
  EXPECT_EQ(robot.run().last_results[301], "1");
}

TEST_F(HistoryMenuTest, AfterClearingTheNextGradedTestBeginsANewReport) {
  const auto grade_one = [&] {
    robot.click("pick_a_quiz", "Command1");
    robot.click("quest", "menu_quittest");
    robot.click("finalscore", "Command1");
  };
  type_name("anna");
  robot.world.files.write("history.46000.ANNA.htm", "the header of long ago\r\nan old entry\r\n");
  grade_one();
  EXPECT_TRUE(file("history.46000.ANNA.htm").starts_with("the header of long ago\r\n"));
  clear(Answer::yes);
  grade_one();
  const std::string report = file("history.46000.ANNA.htm");
  EXPECT_TRUE(
      report.starts_with("<html><center><h2> History Report for ANNA </h2><h3> "
                         "Brightwater JASPER FALCO </h3></center>"));
  EXPECT_FALSE(contains(report, "an old entry"));
  EXPECT_EQ(std::ranges::count(report, '\n'), 2);
}

}  // namespace
}  // namespace practice
