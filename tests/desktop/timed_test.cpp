// A test with a time limit, on the real clock.
#include <QElapsedTimer>
#include <QLineEdit>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

using TimedTest = DesktopTest;

// The clock counts whole seconds and the timer ticks every other one.
TEST_F(TimedTest, OfOneMinuteIsOverAfterSixtyOneSecondsAndAtMostTwoMore) {
  start("46000");
  click("Welcome", "Image4", 0);
  turn_to_tab(1);
  click("pick_a_quiz", "timeron");
  auto* minutes = static_cast<QLineEdit*>(widget("pick_a_quiz", "timeamount"));
  minutes->selectAll();
  QTest::keyClicks(minutes, QStringLiteral("1"));
  turn_to_tab(0);
  QElapsedTimer timer;
  timer.start();
  click("pick_a_quiz", "Command1");
  ASSERT_TRUE(window("quest")->isVisible());
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return window("quest")->windowTitle().contains(QStringLiteral("Time Left:")); },
      4'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window("quest")->isVisible(); }, 70'000));
  const double seconds = static_cast<double>(timer.elapsed()) / 1000;
  EXPECT_GE(seconds, 60);
  EXPECT_LE(seconds, 63.5);
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].text, "Time has expired");
  EXPECT_TRUE(window("finalscore")->isVisible());
  EXPECT_FALSE(files.exists("46000.STUDENT.results"));
}

}  // namespace
}  // namespace practice::desktop
