// Checking of answers, and the tallies of the run.
#include <optional>

#include "platform/values/text.h"
#include "run/quest3.h"
#include "run/simulators.h"

namespace practice {
namespace {

constexpr std::string_view en_dash = "\u2013";

/// One condition of a device simulator question: a key and the value it must have.
struct Condition {
  std::string key;
  std::string value;
};

// "[key]value" or "key=value". The place of the "=" is found in the entry as it stands and cuts
// the trimmed entry, so a leading blank shifts the cut.
std::optional<Condition> condition_in(std::string_view entry) {
  const auto cut = [](std::string_view text, std::size_t from, std::size_t count) {
    return from < text.size() ? std::string(text.substr(from, count)) : std::string();
  };
  constexpr auto rest = std::string_view::npos;
  if (const auto bracket = entry.find(']'); bracket != std::string_view::npos) {
    return Condition{bracket > 0 ? cut(entry, 1, bracket - 1) : std::string(),
                     cut(entry, bracket + 1, rest)};
  }
  if (const auto equals = entry.find('='); equals != std::string_view::npos) {
    const std::string_view trimmed = trim(entry);
    return Condition{cut(trimmed, 0, equals), cut(trimmed, equals + 1, rest)};
  }
  return {};
}

}  // namespace

void Quest::check_answer() {
  const Question& question = program_.current_question;
  run_.answer_verdict = verdict::right;
  skip([&] { run_.answer_given[run_.current_row].clear(); });
  const std::string diagram = question.diagrams[1];
  // What can not be checked is not right.
  bool right = false;
  skip([&] {
    if (diagram == marker::device_simulator) {
      right = configuration_is_right();
    } else if (is_simulator_marker(diagram)) {
      right = result_is_right();
    } else if (is_fill_in(question.question_type)) {
      right = fill_in_is_right();
    } else {
      right = choice_is_right();
    }
  });
  if (!right) run_.answer_verdict = verdict::wrong;
  record(right);
  calculate_score();
  count_category_questions();
}

bool Quest::fill_in_is_right() {
  const Question& row = row_on_show(program_);
  run_.answer_given[run_.current_row] = row.typed_answer;
  const std::string typed = upper(trim(row.typed_answer));
  bool found = false;
  for (int i = 1; i <= 6; ++i) {
    std::string& answer = program_.current_question.answers[i];
    answer = replace_all(answer, en_dash, "-");
    const std::string accepted = upper(trim(answer));
    if (!accepted.empty() && accepted == typed) found = true;
  }
  return found;
}

bool Quest::choice_is_right() {
  bool right = true;
  for (int i = 1; i <= 6; ++i) {
    int mark = 0;
    skip([&] {
      if (row_on_show(program_).answer_chosen[i] != 1) return;
      mark = 1;
      run_.answer_given[run_.current_row].append(" ").push_back(static_cast<char>('A' + i - 1));
    });
    if (mark != program_.current_question.answer_correct[i]) right = false;
  }
  return right;
}

bool Quest::result_is_right() {
  const std::string diagram = program_.current_question.diagrams[1];
  const std::string file = result_file(program_, diagram);
  const std::string value = diagram == marker::drag_drop
                                ? read_out_ini(program_, "Answer", "result")
                                : read_ini_value(program_, "Answer", "result", file);
  skip([&] {
    if (program_.platform.files.exists(file)) program_.platform.files.remove(file);
  });
  return value == "Success";
}

bool Quest::configuration_is_right() {
  bool right = true;
  for (int i = 1; i <= 6; ++i) {
    const std::string& entry = program_.current_question.answers[i];
    if (entry.empty()) continue;
    const auto condition = condition_in(entry);
    if (!condition) continue;
    const std::string value = read_out_ini(program_, "general", condition->key);
    if (lower(trim(value)) != lower(trim(condition->value))) right = false;
  }
  return right;
}

void Quest::record(bool right) {
  const int category = category_of(program_.current_question);
  skip([&] { run_.last_results[program_.current_question.question_id] = right ? "0" : "1"; });
  skip([&] { row_on_show(program_).result_state = right ? result::right : result::wrong; });
  // Before the answer is shown, as the test may be graded while the student reads it.
  if (right) {
    skip([&] { ++run_.right_count; });
    skip([&] {
      if (category < 151) ++run_.category_right[category];
    });
  }
  const Integer wants_answer =
      right ? program_.options.show_answer_when_right : program_.options.show_answer_when_wrong;
  if (wants_answer == 1) skip([&] { program_.handover->show_answer(); });
}

void Quest::calculate_score() {
  Integer right;
  Integer wrong;
  for (int i = 1; i <= run_.question_total; ++i) {
    skip([&] {
      const int state = program_.question_table[row_of_position(run_, i)].result_state;
      if (state == result::right) ++right;
      if (state == result::wrong) ++wrong;
    });
  }
  const int answered = right + wrong;
  score.caption = text_form(right) + "/" + text_form(answered);
  // With nothing answered the panel keeps what it shows.
  if (answered > 0) {
    Percent_Right.caption =
        with_one_decimal(100.0 * int{right} / answered, program_.platform.decimal_point) + "%";
    the_gauge.bounds.height =
        (1 - static_cast<double>(int{right}) / answered) * Gauge1.bounds.height;
  }
  the_gauge.visible = the_gauge.bounds.height >= least_bar_height;
  run_.right_count = right;
}

void Quest::count_category_questions() {
  const int categories = program_.catalogue.category_count;
  for (int c = 1; c <= categories; ++c) skip([&] { run_.category_asked[c] = 0; });
  for (int j = 1; j <= run_.question_total; ++j) {
    skip([&] {
      // Without order_stride: the tally is of the first stretch of the table.
      const int row = run_.question_order[j] - 1 + run_.order_base;
      const int category = category_of(program_.question_table[row]);
      if (category >= 1 && category <= categories) ++run_.category_asked[category];
    });
  }
}

}  // namespace practice
