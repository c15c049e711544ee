// A student's days with the program: tests, retakes of what was wrong, and what lies on the disk
// after each.
#include "platform/values/text.h"
#include "robot/golden.h"
#include "robot/testing.h"

namespace practice {
namespace {

class StudentsStory : public robot::StudentTest {
 protected:
  void open_options() {
    robot.click("Welcome", "Image4", 0);
    robot.type("pick_a_quiz", "txtstudentname", 0, "Anna Lee");
    for (const char* box : {"random_questions", "random_answers", "answer_when_wrong"}) {
      robot.click("pick_a_quiz", box);
    }
    robot.click("pick_a_quiz", "cmd_save_settings");
  }
  void answer(std::initializer_list<bool> rightly) {
    for (const bool right : rightly) {
      if (right) answer_rightly();
      next();
    }
  }
  void at(int hour, int minute) {
    robot.world.clock.milliseconds = ((12 * 24 + hour) * 60 + minute) * 60'000LL;
  }
  void grade() { robot.click("quest", "menu_quittest"); }
  int questions() { return robot.run().question_total; }
  testing::AssertionResult is_golden(std::string_view path, const std::string& name) {
    return robot::is_golden(file(path), std::string(RESULTS_TESTS_FOLDER "/golden/") + name);
  }

  const std::string history = "history.46000.ANNA LEE.htm";
  const std::string results = "46000.ANNA LEE.results";
};

TEST_F(StudentsStory, ThreeTestsAndTwoRetakesLeaveTheirTraceUntilItIsCleared) {
  start();
  open_options();

  // The book quiz, given up at question 7.
  robot.click("pick_a_quiz", "Command1");
  ASSERT_EQ(questions(), 50);
  answer({true, true, true, false, true, false});
  at(9, 0);
  grade();
  EXPECT_EQ(finalscore().per.caption, "8%");
  EXPECT_TRUE(is_golden(history, "first_history.htm"));
  EXPECT_TRUE(is_golden(results, "first_results.txt"));
  EXPECT_TRUE(is_golden("testing.log", "first_testing_log.txt"));
  robot.click("finalscore", "Command2");
  EXPECT_EQ(robot.world.shell.calls.back(), "open " + history);

  // The two that were wrong, again; of these the one that still is.
  robot.click("finalscore", "cmd_retake");
  ASSERT_EQ(questions(), 2);
  EXPECT_EQ(quest().qid.caption, " 4");
  answer_rightly();
  next();
  EXPECT_EQ(quest().qid.caption, " 6");
  at(9, 10);
  next();
  EXPECT_EQ(finalscore().per.caption, "50%");
  robot.click("finalscore", "cmd_retake");
  ASSERT_EQ(questions(), 1);
  EXPECT_EQ(quest().qid.caption, " 6");
  answer_rightly();
  at(9, 20);
  next();
  EXPECT_EQ(finalscore().per.caption, "100%");
  EXPECT_EQ(finalscore().Label4.caption, "Congratulations, you scored perfect!");
  EXPECT_ROBOT_REFUSES(robot.click("finalscore", "cmd_retake"));

  // Chapter 2 alone, in another sitting: its second and seventh question wrong.
  robot.click("finalscore", "Command1");
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  robot.select("pick_a_quiz", "lst_cats_not_to_ask", 1);
  robot.click("pick_a_quiz", "cmd_add_cat");
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  ASSERT_EQ(questions(), 13);
  answer({true, false, true, true, true, true, false, true, true, true, true, true});
  answer_rightly();
  at(10, 0);
  next();
  EXPECT_EQ(finalscore().per.caption, "84%");
  EXPECT_TRUE(is_golden("testing.log", "chapter_testing_log.txt"));

  // The book quiz once more: the first question twice, the second wrong.
  robot.click("finalscore", "Command1");
  robot.click("pick_a_quiz", "Command1");
  answer({true});
  back();
  answer({true, false});
  at(11, 0);
  grade();
  EXPECT_EQ(finalscore().per.caption, "2%");
  EXPECT_TRUE(is_golden(history, "history.htm"));
  EXPECT_TRUE(is_golden(results, "results.txt"));
  EXPECT_TRUE(
      contains(file("testing.log"), "NUMBER WRONG: 1\r\nWrong Questions: \r\n 0  2  20  0 "))
      << "behind its count the list keeps what an earlier test put there";

  // The report by mail, in an edition that offers it, and then away with everything.
  robot.click("finalscore", "Command1");
  pick_a_quiz().mnu_emailtestscorehistory.enabled = true;
  robot.click("pick_a_quiz", "mnu_emailtestscorehistory");
  EXPECT_TRUE(
      robot::is_golden(robot.world.clipboard.text, RESULTS_TESTS_FOLDER "/golden/mail.txt"));
  robot.world.messages.answers = {Answer::yes};
  robot.click("pick_a_quiz", "mnu_resetuserhistory");
  EXPECT_FALSE(robot.world.files.exists(history));
  EXPECT_FALSE(robot.world.files.exists(results));
  EXPECT_TRUE(robot.world.files.exists("testing.log"));
  EXPECT_TRUE(robot.world.files.exists("temp.hist"));
  robot.click("pick_a_quiz", "mnu_viewtestscorehistory");
  EXPECT_EQ(robot.world.messages.shown.back().text,
            "No history found for user ANNA LEE.  Please take a quiz first and try again.");
}

}  // namespace
}  // namespace practice
