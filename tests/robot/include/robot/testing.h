// What the tests of all rooms share: a student sitting in front of a started program, and questions
// made for one test.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "robot/robot.h"

namespace practice::robot {

/// Stops a test at what nobody scripted, with its words.
#define EXPECT_ROBOT_REFUSES(statement)                                            \
  do {                                                                             \
    bool refused = false;                                                          \
    try {                                                                          \
      statement;                                                                   \
    } catch (const practice::robot::RobotFailure&) {                               \
      refused = true;                                                              \
    }                                                                              \
    EXPECT_TRUE(refused) << "the robot did what no student could do: " #statement; \
  } while (false)

class StudentTest : public testing::Test {
 protected:
  Robot robot;

  /// Starts FALCO, or another exam, with the files of the distribution and answers in bank order.
  void start(const std::string& command_line = "46000") {
    robot.put_distribution();
    robot.start(command_line);
    robot.close_answers();
  }

  /// From the welcome screen into a test of the quiz, 1 to 3, unshuffled unless asked.
  void start_test(int quiz = 1, bool shuffled = false) {
    robot.click("Welcome", "Image4", 0);
    robot.click("pick_a_quiz", "which_quiz", quiz);
    if (!shuffled) {
      for (const char* box : {"random_questions", "random_answers"}) {
        auto* const* ticked = std::get_if<CheckBox*>(&robot.control("pick_a_quiz", box).control);
        if ((*ticked)->visible && (*ticked)->value == 1) robot.click("pick_a_quiz", box);
      }
    }
    robot.click("pick_a_quiz", "Command1");
  }

  void next() { robot.click("quest", "cmd_buttons", 0); }
  void back() { robot.click("quest", "cmd_buttons", 1); }

  Quest& quest() { return robot.app().quest(); }
  PickAQuiz& pick_a_quiz() { return robot.app().pick_a_quiz(); }
  FinalScore& finalscore() { return robot.app().finalscore(); }
  TheAnswer& theanswer() { return robot.app().theanswer(); }
  Question& row(int number) { return robot.program().question_table[number]; }
  std::string file(std::string_view path) { return robot.world.files.read(path); }

  void answer_rightly() { robot.answer_rightly(); }
};

}  // namespace practice::robot
