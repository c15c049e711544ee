// The time limit of a test run.
#include "question_test.h"

namespace practice {
namespace {

constexpr const char* untimed_caption =
    "Practice Test for Brightwater JASPER FALCO - Question  1 of 50";

class TestTimer : public QuestionTest {
 protected:
  void begin(int minutes) {
    run().timed_run = 1;
    run().time_limit_minutes = minutes;
    run().time_started = robot.world.clock.seconds();
  }
  void tick_after(std::int64_t seconds) {
    robot.world.clock.milliseconds = (run().time_started + seconds) * 1000;
    robot.tick_timer("quest", "Timer1");
  }
};

TEST_F(TestTimer, TheTimeLeftIsToldInTenthsOfAMinute) {
  struct Case {
    std::int64_t seconds;
    const char* left;
  };
  const Case cases[] = {{0, " 75"},     {5, " 75"},     {6, " 74.9"}, {11, " 74.9"},
                        {12, " 74.8"},  {59, " 74.1"},  {60, " 74"},  {4440, " 1"},
                        {4446, " 0.9"}, {4499, " 0.1"}, {4500, " 0"}};
  begin(75);
  for (const Case& c : cases) {
    tick_after(c.seconds);
    EXPECT_EQ(quest().lbltime.caption, std::string(c.left) + " min.") << c.seconds;
    EXPECT_EQ(quest().caption, std::string(untimed_caption) + " ---  Time Left:" + c.left + " min.")
        << c.seconds;
  }
}

TEST_F(TestTimer, TheTimeLeftHasTheDecimalPointOfTheStudentsCountry) {
  robot.world.platform.decimal_point = ",";
  begin(75);
  tick_after(6);
  EXPECT_EQ(quest().lbltime.caption, " 74,9 min.");
  tick_after(60);
  EXPECT_EQ(quest().lbltime.caption, " 74 min.");
}

TEST_F(TestTimer, AMinuteIsOverInTheFirstTickAfterSixtyOneSeconds) {
  begin(1);
  tick_after(60);
  EXPECT_TRUE(quest().loaded);
  EXPECT_TRUE(robot.world.messages.shown.empty());
  tick_after(61);
  ASSERT_EQ(robot.world.messages.shown.size(), 1u);
  EXPECT_EQ(robot.world.messages.shown[0].text, "Time has expired");
  EXPECT_EQ(robot.world.messages.shown[0].buttons, Buttons::ok);
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().loaded);
}

TEST_F(TestTimer, TheTimerTicksEveryTwoSeconds) {
  EXPECT_EQ(quest().Timer1.interval, 2000);
  EXPECT_EQ(quest().Timer2.interval, 100);
  begin(1);
  robot.pass(60);
  EXPECT_TRUE(quest().loaded);
  robot.pass(3);
  EXPECT_FALSE(quest().loaded);
  EXPECT_EQ(robot.world.messages.shown.size(), 1u);
}

TEST_F(TestTimer, ExpiryWritesNoResultsAndKeepsThePosition) {
  next();
  next();
  begin(1);
  tick_after(61);
  EXPECT_EQ(run().question_position, 3);
  EXPECT_EQ(run().timed_run, 99);
  EXPECT_FALSE(robot.world.files.exists("46000.STUDENT.results"));
  EXPECT_EQ(robot.world.settings.get("marlo", "46000", "num_times", "none"), "none");
}

TEST_F(TestTimer, ATickWhileTheBoxIsOpenShowsNoSecondBox) {
  begin(1);
  int inner = 0;
  robot.world.messages.while_open = [&] {
    if (++inner > 3) return;
    robot.tick_timer("quest", "Timer1");
  };
  tick_after(61);
  EXPECT_EQ(robot.world.messages.shown.size(), 1u);
}

TEST_F(TestTimer, TimeThatExpiresWhileAnAnswerIsReadEndsTheTest) {
  begin(1);
  options().show_answer_when_wrong = 1;
  robot.world.stage.modal_user = [&](Screen&) { tick_after(61); };
  show(choice({1}));
  next();
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(quest().loaded);
  EXPECT_FALSE(theanswer().loaded);
  EXPECT_EQ(run().question_position, 1);
}

TEST_F(TestTimer, AnAnswerThatIsStillReadWhenTimeExpiresCounts) {
  begin(1);
  options().show_answer_when_right = 1;
  robot.world.stage.modal_user = [&](Screen&) { tick_after(61); };
  show(choice({1}));
  robot.choose("radio1", 1);
  next();
  EXPECT_EQ(finalscore().rig.caption, "1");
  EXPECT_EQ(run().category_right[1], 1);
  EXPECT_EQ(run().right_count, 1);
}

// Only one of the waits for a page needs to meet the tick.
TEST_F(TestTimer, TimeThatExpiresWhileAnAnswerPageIsOnItsWayShowsTheScoreAlone) {
  options().show_answer_when_wrong = 1;
  show(choice({1}));
  begin(1);
  robot.world.stage.modal_user = [&](Screen& screen) { ADD_FAILURE() << screen.form_name; };
  robot.world.stage.during_pump = [&] {
    if (theanswer().loaded) tick_after(61);
  };
  next();
  EXPECT_TRUE(finalscore().visible);
  EXPECT_FALSE(theanswer().loaded);
  EXPECT_FALSE(quest().loaded);
}

TEST_F(TestTimer, TimeThatExpiresWhileAQuestionIsOnItsWayEndsTheTest) {
  for (const int scripts_state : {1, 123}) {
    SCOPED_TRACE(scripts_state);
    robot.program().forms.load(Form::quest);
    robot.program().pages.page_scripts_state = scripts_state;
    begin(1);
    robot.world.stage.during_pump = [&] {
      if (quest().loaded) tick_after(61);
    };
    const int scores = finalscore().generation;
    show(choice({1}));
    EXPECT_EQ(finalscore().generation, scores + 1);
    EXPECT_TRUE(finalscore().visible);
    EXPECT_FALSE(quest().loaded);
    robot.world.stage.during_pump = nullptr;
  }
}

TEST_F(TestTimer, TimeThatExpiresWhileTheStudentIsAskedWhetherToExitLeavesTheScore) {
  begin(1);
  robot.world.messages.answers = {Answer::no};
  robot.world.messages.while_open = [&] { tick_after(61); };
  robot.click("quest", "menu_exit");
  EXPECT_TRUE(finalscore().visible);
  EXPECT_EQ(finalscore().generation, 1);
  EXPECT_FALSE(robot.app().has_ended());
}

TEST_F(TestTimer, AnUntimedRunKeepsThePlainCaption) {
  for (const int timed : {0, 2, 99}) {
    begin(1);
    run().timed_run = timed;
    tick_after(1000);
    EXPECT_EQ(quest().caption, untimed_caption);
    EXPECT_TRUE(quest().loaded);
  }
}

TEST_F(TestTimer, ANewQuestionHasThePlainCaptionUntilTheNextTick) {
  begin(75);
  tick_after(12);
  next();
  EXPECT_EQ(quest().caption, "Practice Test for Brightwater JASPER FALCO - Question  2 of 50");
  tick_after(14);
  EXPECT_EQ(quest().caption,
            "Practice Test for Brightwater JASPER FALCO - Question  2 of 50 ---  Time Left: 74.8 "
            "min.");
}

TEST_F(TestTimer, TheLabelsOfTheTimeStayHidden) {
  begin(75);
  tick_after(12);
  EXPECT_FALSE(quest().lbltime.visible);
  EXPECT_FALSE(quest().lbltimeleft.visible);
  EXPECT_FALSE(quest().Line3.visible);
  EXPECT_EQ(quest().lbltimeleft.caption, "TIME LEFT:");
}

TEST_F(TestTimer, TheRedBarStandsInFrontOfTheGreenOne) {
  const Bounds bar{120, 960, 495, 2175};
  EXPECT_EQ(quest().Gauge1.bounds, bar);
  EXPECT_EQ(quest().the_gauge.bounds.left, bar.left);
  EXPECT_EQ(quest().the_gauge.bounds.top, bar.top);
  EXPECT_EQ(quest().the_gauge.bounds.width, bar.width);
}

}  // namespace
}  // namespace practice
