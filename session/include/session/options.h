// The options of a test, read from the options screen at its start, and what the menus of the
// question screen change of them.
#pragma once

#include <string>

#include "platform/values/integer.h"

namespace practice {

struct Options {
  Integer show_answer_when_right;
  Integer show_answer_when_wrong;
  Integer random_question_order;
  Integer shuffle_answers;
  /// Not 0 shows the score panel.
  Integer show_running_score;
  Integer back_button_on;
  Integer show_answer_count;
  /// Not 0 puts the tutor's player into the page.
  Integer embed_media;
  bool radio_for_single = true;
  bool test_mode_on = false;
  std::string student_name;
  /// Points; 0 or below is taken as 12.
  int font_size = 12;
  std::string font_name = "Times New Roman";
  /// "top" or "bottom".
  std::string answer_position = "top";
  /// "outlook" or "web"; empty before the first test.
  std::string mail_kind;
};

}  // namespace practice
