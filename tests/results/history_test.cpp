// The two files of a student: the results of the last tests, and the growing history.
#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

class HistoryTest : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }

  void take_test(const char* name = "anna") {
    robot.click("Welcome", "Image4", 0);
    robot.type("pick_a_quiz", "txtstudentname", 0, name);
    start_from_options();
  }
  void start_from_options() {
    for (const char* box : {"random_questions", "random_answers"}) robot.click("pick_a_quiz", box);
    robot.click("pick_a_quiz", "Command1");
    robot.program().options.show_answer_when_wrong = 0;
  }
  void answer(int questions) {
    for (int i = 1; i <= questions; ++i) {
      answer_rightly();
      next();
    }
  }
  void grade() { robot.click("quest", "menu_quittest"); }
  void again() {
    robot.click("finalscore", "Command1");
    start_from_options();
  }
  std::vector<std::string> lines(std::string_view name) { return read_all(file(name)); }
  static std::vector<std::string> read_all(const std::string& content) {
    std::vector<std::string> result;
    for (std::size_t place = 0; place < content.size();) {
      const auto end = content.find("\r\n", place);
      EXPECT_NE(end, std::string::npos) << "each line ends in CR LF";
      if (end == std::string::npos) break;
      result.push_back(content.substr(place, end - place));
      place = end + 2;
    }
    return result;
  }
  static bool has(const std::string& text, std::string_view part) { return contains(text, part); }

  const std::string history = "history.46000.ANNA.htm";
};

TEST_F(HistoryTest, ATestWithoutAQuestionIsAnEntryOfZeroPercent) {
  take_test();
  robot.run().question_total = 0;
  grade();
  const auto written = lines(history);
  ASSERT_EQ(written.size(), 2u);
  EXPECT_TRUE(has(written[1], "Results:</b><br>0%&nbsp;&nbsp;(0/0)&nbsp;")) << written[1];
}

TEST_F(HistoryTest, TheFirstGradedTestGivesAHeaderAndOneEntry) {
  take_test();
  answer(1);
  grade();
  const auto written = lines(history);
  ASSERT_EQ(written.size(), 2u);
  EXPECT_EQ(written[0],
            "<html><center><h2> History Report for ANNA </h2><h3> Brightwater JASPER FALCO "
            "</h3></center>Best Possible Result 100%<hr align=left width=100% size=15 NOSHADE "
            "COLOR=RED><hr><p>&nbsp;</p></html>");
  EXPECT_TRUE(written[1].starts_with(
      "<p><b> FALCO Book Quiz Results:</b><br>2%&nbsp;&nbsp;(1/50)&nbsp;&nbsp;-&nbsp;&nbsp;Date: "
      "Saturday " +
      robot.world.clock.date_and_time() +
      "<hr align=left width=2% size=15 NOSHADE COLOR=NAVY><b> Module Results:</b><table border=0 "
      "cellpadding=0 cellspacing=0 style=\"border-collapse: collapse\" bordercolor=#111111 "
      "width=50% id=AutoNumber1> <tr> <td width=50 align=center><u>&nbsp;% </u></td>   "
      "<td><u>&nbsp;Exam Module </u></td></tr><tr><td  align=center>"))
      << written[1];
  EXPECT_TRUE(written[1].ends_with(
      "</td><td>Chapter 20 Troubleshooting the Campus</td></tr></table><p>&nbsp;</p>"));
}

TEST_F(HistoryTest, EntriesStandNewestFirstBehindTheHeader) {
  take_test();
  answer(1);
  grade();
  again();
  answer(2);
  grade();
  again();
  answer(3);
  grade();
  const auto written = lines(history);
  ASSERT_EQ(written.size(), 4u);
  EXPECT_TRUE(has(written[0], "History Report for ANNA"));
  EXPECT_TRUE(has(written[1], "(3/50)"));
  EXPECT_TRUE(has(written[2], "(2/50)"));
  EXPECT_TRUE(has(written[3], "(1/50)"));
  const auto copy = lines("temp.hist");
  ASSERT_EQ(copy.size(), 3u) << "the working copy is what stood there before";
  EXPECT_EQ(copy[1], written[2]);
}

TEST_F(HistoryTest, BlanksAroundANameStandInTheResultsFileAndTheHeaderOnly) {
  take_test(" anna ");
  grade();
  EXPECT_TRUE(robot.world.files.exists("history.46000.ANNA.htm"));
  EXPECT_TRUE(robot.world.files.exists("46000. ANNA .results"));
  EXPECT_TRUE(has(file(history), "History Report for  ANNA  </h2>"));
}

TEST_F(HistoryTest, AnEmptyNameGivesFilesOfNobody) {
  take_test();
  robot.program().options.student_name = "";
  grade();
  EXPECT_TRUE(robot.world.files.exists("history.46000..htm"));
  EXPECT_TRUE(robot.world.files.exists("46000..results"));
}

TEST_F(HistoryTest, NothingRightIsABarOfNoWidth) {
  take_test();
  grade();
  EXPECT_TRUE(has(file(history), "<br>0%&nbsp;&nbsp;(0/50)"));
  EXPECT_TRUE(has(file(history), "<hr align=left width=0% size=15"));
}

TEST_F(HistoryTest, ACategoryTestHasNoNameInTheHistory) {
  robot.click("Welcome", "Image4", 0);
  robot.type("pick_a_quiz", "txtstudentname", 0, "anna");
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  grade();
  EXPECT_TRUE(has(lines(history)[1], "<p><b>  Results:</b><br>"));
}

TEST_F(HistoryTest, AQuizBeyondTheTableOfNamesLeavesItsModulesAlone) {
  take_test();
  robot.run().selected_quiz = 6;
  grade();
  EXPECT_TRUE(lines(history)[1].starts_with("<b> Module Results:</b><table"));
}

TEST_F(HistoryTest, AQuizBeyondTheTableWithoutCategoriesIsAnEmptyLine) {
  take_test();
  robot.run().selected_quiz = 6;
  robot.program().catalogue.has_categories = false;
  grade();
  const auto written = lines(history);
  ASSERT_EQ(written.size(), 2u);
  EXPECT_EQ(written[1], "");
}

TEST_F(HistoryTest, ACategoryBeyondTheFortiethIsInTheReportOnly) {
  take_test();
  Catalogue& catalogue = robot.program().catalogue;
  for (int i = 21; i <= 41; ++i) catalogue.category_names[i] = "More " + std::to_string(i);
  catalogue.category_count = 41;
  answer(1);
  grade();
  EXPECT_TRUE(has(file(history), "<td>More 40</td></tr></table>"));
  EXPECT_FALSE(has(file(history), "More 41"));
  EXPECT_TRUE(has(file("testing.log"), "More 41: 0\r\nQuestion History\r\n"));
}

TEST_F(HistoryTest, TheHeaderKeepsTheTitleOfItsFirstDay) {
  robot.world.files.write(history, "old header\r\nold entry\r\n");
  take_test();
  grade();
  const auto written = lines(history);
  ASSERT_EQ(written.size(), 3u);
  EXPECT_EQ(written[0], "old header");
  EXPECT_EQ(written[2], "old entry");
}

TEST_F(HistoryTest, AHistoryThatCanNotBeWrittenLosesItsEntryWithoutAWord) {
  robot.world.files.write(history, "header\r\n");
  robot.world.files.protect(history);
  take_test();
  grade();
  EXPECT_EQ(file(history), "header\r\n");
  EXPECT_TRUE(finalscore().visible);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(HistoryTest, ResultsHaveALineForEachOfAThousandQuestions) {
  take_test();
  answer(2);
  next();
  grade();
  const auto written = lines("46000.ANNA.results");
  ASSERT_EQ(written.size(), 1000u);
  EXPECT_EQ(written[0], "0,1");
  EXPECT_EQ(written[1], "0,2");
  EXPECT_EQ(written[2], "1,3") << "answered wrong";
  EXPECT_EQ(written[49], "1,50") << "never reached";
  EXPECT_EQ(written[50], "0,51") << "not in this test";
  EXPECT_EQ(written[300], ",301") << "never set";
  EXPECT_EQ(written[999], ",1000");
}

TEST_F(HistoryTest, OnlyAQuestionFoundRightIsRightNextTime) {
  take_test();
  answer(2);
  grade();
  robot.click("finalscore", "Command1");
  pick_a_quiz().read_last_results();
  EXPECT_EQ(robot.run().last_results[1], "0");
  EXPECT_EQ(robot.run().last_results[3], "1");
}

TEST_F(HistoryTest, ATestLeftWithoutAGradeChangesNothingOnDisk) {
  take_test();
  answer(2);
  const auto before = robot.world.files.names();
  robot.world.messages.answers = {Answer::yes};
  robot.click("quest", "menu_exit");
  EXPECT_TRUE(robot.world.stage.ended);
  EXPECT_EQ(robot.world.files.names(), before);
}

}  // namespace
}  // namespace practice
