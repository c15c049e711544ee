// The final score: the grade, the categories, the list of questions, and the ways out.
#include <algorithm>
#include <utility>

#include "robot/testing.h"

namespace practice {
namespace {

using Lines = std::vector<std::string>;

class FinalScoreTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    start_test();
    robot.program().options.show_answer_when_wrong = 0;
  }

  /// Answers question 1 rightly and 2 wrongly, leaves the rest, and grades.
  void grade_two() {
    answer_rightly();
    next();
    next();
    robot.click("quest", "menu_quittest");
  }
  void grade_all(bool rightly) {
    for (int i = 1; i <= 50; ++i) {
      if (rightly) answer_rightly();
      next();
    }
  }
  /// Shows the score of a run as it stands.
  void show_score() {
    robot.program().forms.unload(Form::finalscore);
    robot.program().forms.show(Form::finalscore);
  }
  Lines& list() { return finalscore().List1.items; }
  std::string line(int position, int row_number) {
    return std::to_string(position) + ".) [" + std::to_string(row_number) + "]  " +
           row(row_number).question_text;
  }
};

TEST_F(FinalScoreTest, AGradedTestShowsRightTotalAndTruncatedPercent) {
  grade_two();
  EXPECT_EQ(finalscore().rig.caption, "1");
  EXPECT_EQ(finalscore().tot.caption, "50");
  EXPECT_EQ(finalscore().per.caption, "2%");
  EXPECT_EQ(finalscore().caption, "Practice Test Results for: Brightwater JASPER FALCO");
  EXPECT_EQ(finalscore().Label4.caption, "Take this test until you get 100%");
  EXPECT_NEAR(finalscore().right_score.bounds.width, 180.3, 0.001);
  EXPECT_FALSE(quest().loaded);
  EXPECT_EQ(robot.run().timed_run, 99);
}

TEST_F(FinalScoreTest, APerfectTestIsCongratulatedAndHasNothingToRetake) {
  grade_all(true);
  EXPECT_EQ(finalscore().per.caption, "100%");
  EXPECT_EQ(finalscore().Label4.caption, "Congratulations, you scored perfect!");
  EXPECT_FALSE(finalscore().cmd_retake.visible);
  EXPECT_EQ(finalscore().right_score.bounds.width, finalscore().total_score.bounds.width);
  EXPECT_EQ(robot.run().wrong_list.count, 0);
}

TEST_F(FinalScoreTest, AlmostAllRightIsNinetyNinePercent) {
  robot.run().question_total = 1000;
  robot.run().right_count = 999;
  show_score();
  EXPECT_EQ(finalscore().per.caption, "99%");
  EXPECT_EQ(finalscore().Label4.caption, "Take this test until you get 100%");
}

TEST_F(FinalScoreTest, NothingRightIsABarOfNoWidth) {
  grade_all(false);
  EXPECT_EQ(finalscore().per.caption, "0%");
  EXPECT_EQ(finalscore().right_score.bounds.width, 0);
  EXPECT_TRUE(finalscore().cmd_retake.visible);
  EXPECT_EQ(robot.run().wrong_list.count, 50);
}

TEST_F(FinalScoreTest, QuestionsAreListedAllMissedOrCorrect) {
  grade_two();
  EXPECT_TRUE(finalscore().whichq[1].value);
  ASSERT_EQ(list().size(), 50u);
  EXPECT_EQ(list()[0], line(1, 1));
  EXPECT_EQ(list()[49], line(50, 50));
  robot.click("finalscore", "whichq", 0);
  EXPECT_EQ(list(), Lines{line(2, 2)});
  robot.click("finalscore", "whichq", 2);
  EXPECT_EQ(list(), Lines{line(1, 1)});
  robot.click("finalscore", "whichq", 1);
  EXPECT_EQ(list().size(), 50u);
}

TEST_F(FinalScoreTest, AQuestionLeftUnansweredIsNeitherMissedNorCorrect) {
  row(3).result_state = result::not_marked;
  grade_two();
  const auto is_listed = [&] { return std::ranges::find(list(), line(3, 3)) != list().end(); };
  EXPECT_TRUE(is_listed());
  robot.click("finalscore", "whichq", 0);
  EXPECT_FALSE(is_listed());
  robot.click("finalscore", "whichq", 2);
  EXPECT_FALSE(is_listed());
}

TEST_F(FinalScoreTest, ATagInAQuestionStandsInTheListAsItIs) {
  row(4).question_text = "<br>Which one?";
  grade_two();
  EXPECT_EQ(list()[3], "4.) [4]  <br>Which one?");
}

TEST_F(FinalScoreTest, ADoubleClickOpensTheQuestionOfItsPosition) {
  grade_two();
  robot.click("finalscore", "whichq", 0);
  robot.select("finalscore", "List1", 0);
  std::string shown;
  robot.world.stage.modal_user = [&](Screen&) {
    shown = theanswer().text1.view.document.written();
    robot.click("theanswer", "Closeb");
  };
  robot.double_click("finalscore", "List1");
  EXPECT_NE(shown.find(" QID: 2 "), std::string::npos);
  EXPECT_NE(shown.find("Incorrect.  Your answer was: "), std::string::npos);
  EXPECT_EQ(robot.run().current_row, 2);
}

TEST_F(FinalScoreTest, ADoubleClickBesideTheLinesAsksForAQuestion) {
  grade_two();
  robot.double_click("finalscore", "List1");
  ASSERT_EQ(robot.world.messages.shown.size(), 1u);
  EXPECT_EQ(robot.world.messages.shown[0].text, "You must select a question");
  EXPECT_EQ(robot.world.messages.shown[0].title, "");
}

TEST_F(FinalScoreTest, EachCategoryShowsItsShare) {
  TestRun& run = robot.run();
  const struct {
    int right, asked;
    const char* text;
  } cases[] = {{0, 0, "  0% (0/0) "}, {1, 20, "  5% (1/20) "}, {1, 10, " 10% (1/10) "},
               {2, 3, " 66% (2/3) "}, {4, 4, "100% (4/4) "},   {5, 4, "125% (5/4) "},
               {0, 7, "  0% (0/7) "}};
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    run.category_right[static_cast<int>(i) + 1] = cases[i].right;
    run.category_asked[static_cast<int>(i) + 1] = cases[i].asked;
  }
  show_score();
  const Lines& table = finalscore().list_cat.items;
  ASSERT_EQ(table.size(), 20u);
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(table[i],
              cases[i].text + robot.program().catalogue.category_names[static_cast<int>(i) + 1]);
  }
}

TEST_F(FinalScoreTest, OnlyFortyCategoriesAreListedThoughTheReportNamesAll) {
  Catalogue& catalogue = robot.program().catalogue;
  for (int i = 21; i <= 42; ++i) catalogue.category_names[i] = "More " + std::to_string(i);
  catalogue.category_names[30].clear();
  catalogue.category_count = 42;
  show_score();
  const Lines& table = finalscore().list_cat.items;
  EXPECT_EQ(table.size(), 39u) << "and none without a name";
  EXPECT_TRUE(table.back().ends_with(" More 40"));
  EXPECT_NE(file("testing.log").find("More 42: 0\r\n"), std::string::npos);
}

TEST_F(FinalScoreTest, TheWindowSnapsBackToItsSize) {
  grade_two();
  for (const double size : {100.0, 20000.0}) {
    finalscore().bounds.width = size;
    finalscore().bounds.height = size;
    finalscore().resize();
    EXPECT_EQ(finalscore().bounds.width, 9255);
    EXPECT_EQ(finalscore().bounds.height, 6855);
    EXPECT_EQ(finalscore().Image1.bounds.width, 9255);
    EXPECT_EQ(finalscore().Image1.bounds.height, 6855);
  }
}

TEST_F(FinalScoreTest, MailIsNotSentFromHere) {
  grade_two();
  EXPECT_ROBOT_REFUSES(robot.click("finalscore", "cmdEmailResults"));
}

TEST_F(FinalScoreTest, QuittingToTheMenuBringsAFreshOptionsScreen) {
  const int generation = pick_a_quiz().generation;
  grade_two();
  robot.click("finalscore", "Command1");
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_NE(pick_a_quiz().generation, generation);
  EXPECT_FALSE(finalscore().visible);
  EXPECT_FALSE(robot.app().welcome().visible);
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(FinalScoreTest, TheDetailsAreTheStudentsHistory) {
  grade_two();
  robot.click("finalscore", "Command2");
  ASSERT_EQ(robot.world.shell.opened.size(), 1u);
  EXPECT_EQ(robot.world.shell.opened[0].target, "history.46000.STUDENT.htm");
  EXPECT_EQ(robot.world.shell.opened[0].show, WindowShow::maximised);
}

TEST_F(FinalScoreTest, ClosingTheWindowEndsTheProgram) {
  grade_two();
  finalscore().close_window();
  EXPECT_TRUE(robot.world.stage.ended);
}

TEST_F(FinalScoreTest, WrongAnswersAreCollectedInTheOrderOfTheTest) {
  std::swap(robot.run().question_order[1], robot.run().question_order[30]);
  std::swap(robot.run().question_order[2], robot.run().question_order[7]);
  row(30).result_state = result::wrong;
  row(7).result_state = result::wrong;
  show_score();
  EXPECT_EQ(robot.run().wrong_list.count, 2);
  EXPECT_EQ(robot.run().wrong_list.rows[1], 30);
  EXPECT_EQ(robot.run().wrong_list.rows[2], 7);
}

TEST_F(FinalScoreTest, WrongAnswersAreCollectedByTheirNumbersAndNotTheirRows) {
  row(2).question_id = 77;
  grade_two();
  EXPECT_EQ(robot.run().wrong_list.count, 1);
  EXPECT_EQ(robot.run().wrong_list.rows[1], 77);
}

// A category counts right checks, and a question can be checked again by going back.
TEST_F(FinalScoreTest, AnAnswerCheckedAgainRaisesItsCategoryBeyondTheWhole) {
  row(1).category = 20;
  back();
  for (int i = 1; i <= 2; ++i) {
    answer_rightly();
    next();
    if (i == 1) back();
  }
  robot.click("quest", "menu_quittest");
  EXPECT_EQ(finalscore().list_cat.items[19], "200% (2/1) Chapter 20 Troubleshooting the Campus");
  EXPECT_EQ(finalscore().rig.caption, "1");
  EXPECT_EQ(finalscore().per.caption, "2%");
}

TEST_F(FinalScoreTest, ACategoryWithoutQuestionsIsALineInTheErrorLogAndNothingElse) {
  grade_two();
  const std::string log = file("error.log");
  EXPECT_NE(log.find(" - finalscore form Load() - finalscore 11 - Division by zero - \r\n"),
            std::string::npos);
  EXPECT_EQ(finalscore().list_cat.items.size(), 20u);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(FinalScoreTest, AReportThatCanNotBeWrittenDoesNotStopTheScore) {
  robot.world.files.protect("testing.log");
  grade_two();
  EXPECT_EQ(finalscore().per.caption, "2%");
  EXPECT_EQ(list().size(), 50u);
  EXPECT_TRUE(finalscore().cmd_retake.visible);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(FinalScoreTest, TheReportOfATestWithoutWrongAnswersSaysSo) {
  grade_all(true);
  const std::string log = file("testing.log");
  EXPECT_TRUE(log.starts_with("Category Information\r\nChapter 1 Ethernet Frames and Media: "));
  EXPECT_NE(log.find("\r\nQuestion History\r\n 0  1  1 "), std::string::npos);
  EXPECT_NE(log.find("NUMBER WRONG: 0\r\nWrong Questions: \r\n"), std::string::npos);
  EXPECT_NE(log.find("Correct Questions\r\n"), std::string::npos);
}

TEST_F(FinalScoreTest, AnOldReportThatCanNotBeReplacedDoesNotGrow) {
  robot.world.files.write("testing.log", "old report");
  robot.world.files.keep("testing.log");
  grade_two();
  EXPECT_EQ(file("testing.log"), "old report");
  EXPECT_EQ(finalscore().per.caption, "2%");
}

TEST_F(FinalScoreTest, TheReportLiesInTheWorkingFolderAndNotBesideTheProgram) {
  robot.world.files.working_folder = "\\home\\student";
  grade_two();
  EXPECT_TRUE(robot.world.files.exists("\\home\\student\\testing.log"));
  EXPECT_FALSE(robot.world.files.exists("\\program\\testing.log"));
}

TEST_F(FinalScoreTest, TheReportHoldsTheLastTestOnly) {
  robot.world.files.write("testing.log", "old report");
  grade_two();
  const std::string log = file("testing.log");
  EXPECT_EQ(log.find("old report"), std::string::npos);
  EXPECT_EQ(log.find("Category Information"), log.rfind("Category Information"));
  EXPECT_NE(log.find("NUMBER WRONG: 1\r\n"), std::string::npos);
}

class ExamWithoutCategories : public robot::StudentTest {};

TEST_F(ExamWithoutCategories, HasNoTableOfThem) {
  start("46002");
  start_test(2);
  robot.click("quest", "menu_quittest");
  EXPECT_FALSE(finalscore().list_cat.visible);
  EXPECT_TRUE(finalscore().list_cat.items.empty());
  EXPECT_EQ(file("history.46002.STUDENT.htm").find("Module Results"), std::string::npos);
}

}  // namespace
}  // namespace practice
