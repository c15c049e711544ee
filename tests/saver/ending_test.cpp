// What wakes the screen from the saver, and what does not.
#include "saver_test.h"

namespace practice {
namespace {

class EndingTest : public SaverTest {
 protected:
  void SetUp() override { start_saver(); }

  void move(double x, double y) { robot.move_mouse("Security", "Frame1", x, y); }
  bool runs() {
    const bool is_there = saver().loaded && saver().visible && !robot.world.stage.pointer_shown;
    EXPECT_EQ(is_there, !robot.world.stage.ended);
    EXPECT_EQ(robot.world.shell.calls.empty(), is_there);
    return is_there;
  }
  /// By every sign that the student and the desktop have.
  void expect_the_end() {
    EXPECT_EQ(robot.world.shell.calls, std::vector<std::string>{"close windows marlo_study_saver"});
    EXPECT_TRUE(robot.world.stage.pointer_shown);
    EXPECT_TRUE(robot.world.stage.ended);
    EXPECT_TRUE(robot.app().has_ended());
    EXPECT_FALSE(saver().loaded);
    for (const Screen* screen : robot.program().forms.all()) {
      EXPECT_TRUE(screen == nullptr || !screen->visible);
    }
  }
};

TEST_F(EndingTest, TheFirstMoveOnlyTellsWhereTheMouseIs) {
  move(700, 400);
  EXPECT_TRUE(runs());
}

TEST_F(EndingTest, AJumpOfFivePixelsEndsTheSaver) {
  const std::pair<int, int> jumps[] = {{5, 0}, {-5, 0}, {0, 5}, {0, -5}, {5, 5}, {300, -200}};
  for (const auto& [dx, dy] : jumps) {
    robot.world.shell.calls.clear();
    robot.world.stage.ended = false;
    start_saver();
    move(700, 400);
    ASSERT_TRUE(runs());
    move(700 + dx, 400 + dy);
    expect_the_end();
  }
}

TEST_F(EndingTest, AShakingTableDoesNotEndTheSaver) {
  move(700, 400);
  for (const auto& [dx, dy] : {std::pair{4, 4}, {0, 0}, {-4, 4}, {0, 0}, {4, -4}, {0, 0}}) {
    move(700 + dx, 400 + dy);
    EXPECT_TRUE(runs()) << dx << ", " << dy;
  }
}

TEST_F(EndingTest, ASlowDriftNeverEndsTheSaver) {
  for (int i = 0; i <= 200; ++i) {
    move(100 + 4 * i, 900 - 4 * i);
    ASSERT_TRUE(runs()) << i;
  }
  move(100 + 4 * 200 + 5, 900 - 4 * 200);
  expect_the_end();
}

TEST_F(EndingTest, FromTheCornerOfTheScreenAJumpIsTakenForTheFirstMove) {
  move(0, 0);
  move(500, 500);
  EXPECT_TRUE(runs());
  move(506, 500);
  expect_the_end();
}

TEST_F(EndingTest, OnTheEdgeOfTheScreenTheOtherWayIsEnoughToKnowWhereTheMouseWas) {
  for (const auto& [x, y] : {std::pair{0, 400}, {400, 0}}) {
    robot.world.shell.calls.clear();
    robot.world.stage.ended = false;
    start_saver();
    move(x, y);
    move(x + 10, y + 10);
    expect_the_end();
  }
}

TEST_F(EndingTest, EveryNewStartForgetsWhereTheMouseWas) {
  move(700, 400);
  start_anew();
  move(100, 100);
  EXPECT_TRUE(runs());
}

TEST_F(EndingTest, AnyKeyEndsTheSaver) {
  for (const int key : {escape_key, 13, 32, int{'A'}, 112, 16, 0}) {
    robot.world.shell.calls.clear();
    robot.world.stage.ended = false;
    start_saver();
    ASSERT_EQ(saver().focus().first, "Picture1");
    robot.press_key("Security", key);
    expect_the_end();
  }
}

TEST_F(EndingTest, AWindowThatIsClosedEndsTheSaverToo) {
  saver().close_window();
  expect_the_end();
}

TEST_F(EndingTest, TheSaverEndsInEveryPartOfItsRound) {
  for (const int second : {0, 3, 7, 13, 15, 16}) {
    robot.world.shell.calls.clear();
    robot.world.stage.ended = false;
    start_saver();
    robot.pass(second);
    robot.press_key("Security", 32);
    expect_the_end();
  }
}

TEST_F(EndingTest, NothingMovesBehindTheEnd) {
  robot.pass(7);
  robot.press_key("Security", escape_key);
  const Bounds logo = saver().Picture1.bounds;
  robot.pass(30);
  EXPECT_EQ(saver().Picture1.bounds, logo);
  EXPECT_EQ(number_on_show(), "1. ");
  expect_the_end();
}

TEST_F(EndingTest, TimeAloneNeverEndsTheSaver) {
  robot.pass(200);
  EXPECT_TRUE(runs());
}

TEST_F(EndingTest, AnEndLeavesNoLineInTheLogAndAsksNothing) {
  const std::string log = file("error.log");
  robot.press_key("Security", 32);
  EXPECT_EQ(file("error.log"), log);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(EndingTest, AScreenThatIsTakenAwayGivesThePointerBack) {
  robot.program().forms.unload(Form::Security);
  EXPECT_TRUE(robot.world.stage.pointer_shown);
}

}  // namespace
}  // namespace practice
