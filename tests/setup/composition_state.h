// A state of the program just before a test is started, as plain values: what a student may have
// chosen on the options screen, what earlier tests left behind, and what the disk and the dice
// hold. Made at random from a number, so that every state can be made again.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace practice::composing {

enum class Way {
  /// The routine is called on whatever the state holds.
  routine,
  start_button,
  category_button,
  /// The options screen loads after a graded test and is asked for a retake.
  retake
};

/// A text and the whole number that it stands for; none is beyond 16 bits.
struct TypedNumber {
  std::string typed;
  std::optional<int> number;
};

/// A name as it was typed, and what is left of each letter when it is cleaned.
struct TypedName {
  std::string typed;
  std::string cleaned;
};

/// A line of a results file and the text that is taken from it.
struct ResultLine {
  std::string line;
  std::string taken;
};

/// What the run and the table hold from earlier tests. Vectors have an entry 0.
struct Leftovers {
  std::vector<int> question_order;
  std::vector<std::string> last_results;
  std::vector<int> result_state;
  std::vector<int> category_right;
  std::vector<int> category_asked;
  std::vector<int> category_active;
  std::vector<int> typed_rows;
  int question_total = 0;
  int question_position = 0;
  int order_stride = 4;
  int order_base = 1;
  int current_row = 0;
  int answer_count = 0;
  int right_count = 0;
  int selected_quiz = 0;
  int bank_size = 2;
  int ask_wrong_mode = 0;
  int retake_wrong_mode = 0;
  int retake_quiz = 0;
  bool category_filter_on = false;
  int timed_run = 0;
  int time_limit_minutes = 0;
  std::int64_t time_started = 0;
  bool test_mode_on = false;
  /// By the box that each option is read from.
  std::map<std::string, int> options;
};

struct State {
  std::string exam;
  unsigned number = 0;
  Way way = Way::routine;

  /// 1 to 3: the bank of that quiz is in the table.
  int quiz_of_the_table = 1;
  int clicked_quiz = 1;
  /// 0 when no quiz is ticked.
  int ticked_quiz = 1;
  /// A bank made for the test: less questions, and rows of another category.
  std::optional<int> bank_total;
  std::map<int, int> categories;

  TypedName name;
  TypedNumber minutes;
  TypedNumber howmany;
  /// By the name of the box; 1 ticked.
  std::map<std::string, int> boxes;
  bool random_answers_shown = true;

  /// Numbers of the categories left to ask, and whether they were moved by the buttons or stand
  /// there in capitals between blanks.
  std::vector<int> kept_categories;
  bool kept_by_buttons = true;

  /// Of the results file of the student; none when there is no such file.
  std::optional<std::vector<ResultLine>> results;
  /// A file of the name without its outer blanks, which is another student's.
  bool other_students_results = false;
  std::vector<int> wrong_list;

  /// Draws in parts of 2^24: 0 is the lowest, 16777215 the highest below 1.
  std::vector<int> draws;

  /// What the settings store holds of the options.
  std::map<std::string, std::string> settings;
  bool settings_full = false;
  /// The edition that asks once whether a student wants no name, and the answer.
  bool asks_for_a_name = false;
  bool answers_yes = true;

  std::int64_t clock = 0;
  Leftovers before;
};

/// The boxes of the options screen that a test is made from.
const std::vector<std::string>& boxes();

State random_state(const std::string& exam, unsigned number);

/// All that a person needs to see the same test being composed.
std::string in_words(const State& state);

}  // namespace practice::composing
