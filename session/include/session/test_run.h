// The state of one test run. The options screen fills it, the question screen works on it, and the
// final score reads it; it stays until the next composition.
#pragma once

#include <cstdint>
#include <string>

#include "bank/question.h"
#include "platform/values/integer.h"
#include "platform/values/slots.h"

namespace practice {

/// What the test run branches on.
namespace kind {
inline constexpr std::string_view radio_button = "Radio_Button";
inline constexpr std::string_view check_box = "Check_Box";
inline constexpr std::string_view fill_in = "Fill_In";
inline constexpr std::string_view drag_drop = "Drag_Drop";
inline constexpr std::string_view ms_sim = "MS_Sim";
inline constexpr std::string_view ms_sim_2 = "MS_Sim2";
inline constexpr std::string_view sim = "Sim";
}  // namespace kind

namespace verdict {
inline constexpr int right = 1;
inline constexpr int wrong = 99;
}  // namespace verdict

/// Rows answered wrong in the last graded test.
struct WrongList {
  Integer count;
  Slots<Integer, MAX_QUESTIONS> rows;
};

struct TestRun {
  /// Number of the question on show, from 1; 0 before the first.
  Integer question_position;
  Integer question_total;
  /// Order number by position.
  Slots<Integer, MAX_QUESTIONS> question_order;
  Integer order_stride;
  Integer order_base;
  /// Row on show.
  Integer current_row;
  /// Non-blank answers of the row on show.
  Integer answer_count;
  Integer correct_count;
  Integer correct_count_shown;
  std::string question_kind;
  Integer right_count;
  /// verdict::right or verdict::wrong, of the last check.
  Integer answer_verdict;
  /// By row: what the student gave.
  Slots<std::string, MAX_QUESTIONS> answer_given;
  /// By question_id: "0" right, "1" wrong, empty when never set.
  Slots<std::string, MAX_QUESTIONS> last_results;
  Slots<Integer, 150> category_right;
  Slots<Integer, 150> category_asked;
  /// 1 timed, 99 expired or ended, anything else untimed.
  Integer timed_run;
  Integer time_limit_minutes;
  /// Seconds of the platform's clock.
  std::int64_t time_started = 0;
  /// Number of the quiz of this test; 0 before the first.
  Integer selected_quiz;
  /// Number of the quiz clicked last on the options screen.
  Integer clicked_quiz;
  /// bank_total at the start, which bounds the plain order.
  Integer bank_size;
  /// True from the Next button until the next question is on its way.
  bool next_pressed = false;
  /// 99 while the answer page is printed, else 1.
  Integer print_mode = 1;
  WrongList wrong_list;
  bool category_filter_on = false;
  Slots<bool, 150> category_active;
  /// 1 asks the questions that were wrong last time, 99 does not.
  Integer ask_wrong_mode;
  /// 1 for a retake of the last test's wrong questions.
  Integer retake_wrong_mode;
  /// Above 0 asks the options screen for a retake of that quiz when it next loads.
  Integer retake_quiz;
};

/// The row of a position from 1. Raises fault 6 or 9 for what lies outside the table's numbers.
Integer row_of_position(const TestRun& run, int position);

/// right / total in percent, truncated. Raises fault 11 when total is 0.
int percent_of(int right, int total);

}  // namespace practice
