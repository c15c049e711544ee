#include "session/fault_patterns.h"

#include <algorithm>

#include "robot/testing.h"

namespace practice {
namespace {

using FaultPatterns = robot::StudentTest;

TEST_F(FaultPatterns, ATrappedFaultLeavesOneLineOfTheKnownShape) {
  start();
  const std::string before = file("error.log");
  Trap trap{robot.program(), "show_quest()", "quest3"};
  trap([] { throw Fault::out_of_range(); });
  EXPECT_EQ(file("error.log"), before + robot.world.clock.date_and_time() +
                                   " - show_quest() - quest39 - Subscript out of range - \r\n");
}

TEST_F(FaultPatterns, AMissingLogIsMadeAndAnExistingOneKeepsItsContent) {
  robot.start("46000");
  robot.world.files.remove("error.log");
  Trap trap{robot.program(), "timer1_timer()", "quest3"};
  trap([] { throw Fault::overflow(); });
  const std::string first = file("error.log");
  trap([] { throw Fault::overflow(); });
  EXPECT_EQ(file("error.log"), first + first);
}

TEST_F(FaultPatterns, AFailureOfTheStandardLibraryIsLoggedAsAFaultToo) {
  start();
  Trap trap{robot.program(), "show_quest()", "quest3"};
  trap([] { static_cast<void>(std::string("short").at(99)); });
  EXPECT_TRUE(file("error.log").ends_with("quest39 - Subscript out of range - \r\n"));
}

TEST_F(FaultPatterns, ALogThatCanNotBeWrittenCostsNothing) {
  start();
  robot.world.files.protect("error.log");
  Trap trap{robot.program(), "show_quest()", "quest3"};
  bool reached = false;
  trap([] { throw Fault::overflow(); });
  trap([&] { reached = true; });
  EXPECT_TRUE(reached);
}

TEST_F(FaultPatterns, ASkippedFaultLeavesNoRecord) {
  start();
  const std::string before = file("error.log");
  EXPECT_FALSE(skip([] { throw Fault::overflow(); }));
  EXPECT_TRUE(skip([] {}));
  EXPECT_EQ(file("error.log"), before);
}

TEST_F(FaultPatterns, AStoppingRoutineKeepsWhatItHasDone) {
  int done = 0;
  stop_at_first_fault([&] {
    ++done;
    throw Fault::file_not_found();
  });
  EXPECT_EQ(done, 1);
}

TEST_F(FaultPatterns, TheLogLiesInTheWorkingFolderAndNotBesideTheProgram) {
  robot.world.files.working_folder = "\\home\\student";
  start();
  EXPECT_TRUE(robot.world.files.exists("\\home\\student\\error.log"));
  EXPECT_FALSE(robot.world.files.exists("\\program\\error.log"));
}

// Fault 53 is the picture that the test does not put on the disk.
TEST_F(FaultPatterns, EachTrappedScreenWritesItsOwnLabels) {
  start();
  robot.click("Welcome", "Image4", 0);
  robot.click("pick_a_quiz", "Command1");
  robot.click("quest", "menu_quittest");
  const std::string log = file("error.log");
  for (const char* line : {" - Welcome form load() - Welcome53 - File not found - \r\n",
                           " - pick_a_quiz form load() - pick_a_quiz53 - File not found - \r\n",
                           " - finalscore form Load() - finalscore 53 - File not found - \r\n"}) {
    EXPECT_NE(log.find(line), std::string::npos) << line << "in\n" << log;
  }
}

// The welcome screen misses the splash picture and the book's cover.
TEST_F(FaultPatterns, TwoFaultsInOneLoadLeaveTwoLinesAndTheLastStepStillRuns) {
  start();
  const std::string line = robot.world.clock.date_and_time() +
                           " - Welcome form load() - Welcome53 - File not found - \r\n";
  EXPECT_EQ(file("error.log"), line + line);
  EXPECT_TRUE(robot.app().welcome().visible);
}

TEST_F(FaultPatterns, APlainStepCostsItsCallersStepAndNoMore) {
  start();
  const std::string before = file("error.log");
  Trap trap{robot.program(), "show_quest()", "quest3"};
  int steps = 0;
  const auto plain = [&] {
    ++steps;
    static_cast<void>(robot.program().question_table[1001]);
    ++steps;
  };
  trap([&] { plain(); });
  trap([&] { ++steps; });
  EXPECT_EQ(steps, 2);
  EXPECT_EQ(std::ranges::count(file("error.log").substr(before.size()), '\n'), 1);
}

TEST_F(FaultPatterns, WhatNobodyScriptedIsNoFaultOfTheProgram) {
  start();
  EXPECT_ROBOT_REFUSES(skip([] { throw robot::RobotFailure{"unscripted"}; }));
}

}  // namespace
}  // namespace practice
