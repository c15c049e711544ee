// Turning the state of the options screen into a test run.
#include <algorithm>
#include <cmath>

#include "platform/values/text.h"
#include "session/student_files.h"
#include "setup/pick_a_quiz.h"

namespace practice {
namespace {

constexpr int most_questions = 50;
constexpr int quizzes_with_a_bank = 3;

}  // namespace

void PickAQuiz::start_the_quiz_from_command1() {
  // The question screen is drawn on the way, which lets a second press come in.
  if (is_composing_) return;
  struct Composing {
    explicit Composing(bool& now) : on(now) { on = true; }
    ~Composing() { on = false; }
    bool& on;
  } composing(is_composing_);
  compose();
}

void PickAQuiz::compose() {
  skip([&] { keep_robin_in_book_order(); });
  for (int i = 1; i <= 100; ++i) {
    run_.category_right[i] = 0;
    run_.category_asked[i] = 0;
  }
  for (int row = 1; row <= MAX_QUESTIONS; ++row) program_.question_table[row].typed_answer.clear();
  program_.platform.random.seed_from_clock();
  skip([&] { read_switches(); });
  if (!wants_this_name()) return;
  skip([&] { clean_student_name(); });
  read_last_results();
  skip([&] { choose_bank(); });
  read_option_fields();

  program_.forms.load(Form::quest);
  program_.forms.show(Form::quest);
  program_.platform.stage.pump();
  run_.ask_wrong_mode = askwrong.value == 1 ? 1 : 99;
  if (!order_the_questions()) return;

  skip([&] { mark_the_rows(); });
  skip([&] {
    for (int row = 1; row <= run_.order_stride * run_.question_total; ++row) {
      program_.question_table[row].result_state = result::not_answered_yet;
    }
  });
  skip([&] {
    if (program_.options.random_question_order == 1 && run_.ask_wrong_mode != 1)
      shuffle_the_order();
  });
  if (run_.order_base == 5) run_.order_base = 1;
  run_.current_row = 0;
  run_.question_position = 0;
  run_.right_count = 0;
  program_.handover->show_quest();
  run_.wrong_list.count = 0;
  pointer = Pointer::normal;
  program_.forms.hide(Form::pick_a_quiz);
}

void PickAQuiz::read_switches() {
  run_.timed_run = timeron.value;
  pointer = Pointer::hourglass;
  skip([&] { run_.time_limit_minutes = integer_in(timeamount.text); });
  if (run_.time_limit_minutes < 1) run_.time_limit_minutes = 1;
  skip([&] { run_.question_total = integer_in(howmanyq.text); });
  if (run_.question_total > most_questions) run_.question_total = most_questions;
  run_.time_started = program_.platform.clock.seconds();
  program_.options.student_name = upper(txtstudentname.text);
}

// Asked once, in editions that want a name.
bool PickAQuiz::wants_this_name() {
  if (!program_.branding.asks_for_a_name || get_option(program_, "askname", "0") != "0" ||
      program_.options.student_name != "STUDENT") {
    return true;
  }
  const Answer answer = program_.platform.messages.show(
      {.text = "Are you sure you do not want to enter a Student Name?",
       .title = {},
       .buttons = Buttons::yes_no,
       .icon = Icon::question});
  skip([&] { save_option(program_, "askname", "1"); });
  if (answer != Answer::no) return true;
  pointer = Pointer::normal;
  return false;
}

void PickAQuiz::clean_student_name() {
  std::string& name = program_.options.student_name;
  if (trim(name).empty()) name = "STUDENT";
  name = cleaned_name(name);
  save_option(program_, "studentname", name);
}

void PickAQuiz::choose_bank() {
  const int quiz = ticked_quiz();
  if (quiz == 0) return;
  run_.selected_quiz = quiz;
  run_.current_row = quiz;
  run_.order_base = quiz;
  run_.order_stride = 4;
  if (quiz > quizzes_with_a_bank) return;
  load_bank(program_);
  run_.current_row = 1;
  run_.bank_size = program_.catalogue.bank_total;
  run_.question_total = std::min(int{run_.bank_size}, most_questions);
  run_.order_stride = 1;
  run_.order_base = 1;
}

void PickAQuiz::read_option_fields() {
  run_.right_count = 0;
  Options& options = program_.options;
  options.show_answer_when_right = answer_when_right.value;
  options.show_answer_when_wrong = answer_when_wrong.value;
  options.random_question_order = random_questions.value;
  options.shuffle_answers = random_answers.value;
  options.show_answer_count = showhowmanyanswers.value == 0 ? 0 : 1;
  options.embed_media = chkEmbed.value;
  options.back_button_on = backb.value;
  options.show_running_score = scoregraph.value;
}

// False when there is nothing to retake.
bool PickAQuiz::order_the_questions() {
  for (;;) {
    if (run_.ask_wrong_mode != 1) {
      for (int i = 1; i <= run_.bank_size; ++i) run_.question_order[i] = i;
    }
    if (run_.retake_wrong_mode == 1) return order_by_wrong_list();
    if (run_.ask_wrong_mode == 1) {
      if (order_by_saved_wrong()) return true;
      // Nothing was wrong last time: the plain test, without a word.
      run_.ask_wrong_mode = 99;
      continue;
    }
    if (run_.category_filter_on) skip([&] { order_by_category(); });
    return true;
  }
}

void PickAQuiz::order_by_category() {
  run_.question_total = program_.catalogue.bank_total;
  int count = 0;
  for (int row = 1; row <= program_.catalogue.bank_total; ++row) {
    run_.order_stride = 1;
    skip([&] {
      if (!run_.category_active[category_of(program_.question_table[row])]) return;
      run_.question_order[++count] = row;
    });
  }
  run_.question_total = count;
}

bool PickAQuiz::order_by_saved_wrong() {
  int count = 0;
  skip([&] {
    for (int i = 1; i <= run_.question_total; ++i) {
      const int row = Integer{i - 1} * run_.order_stride + run_.order_base;
      if (number_in(run_.last_results[row]) == 1) run_.question_order[++count] = i;
    }
  });
  if (count == 0) return false;
  run_.question_total = std::min(count, int{run_.question_total});
  return true;
}

bool PickAQuiz::order_by_wrong_list() {
  const WrongList& wrong = run_.wrong_list;
  if (wrong.count == 0) {
    program_.platform.messages.show({.text = "You did not get any wrong.", .title = {}});
    return false;
  }
  run_.order_stride = 1;
  run_.order_base = 1;
  for (int i = 1; i <= wrong.count; ++i) run_.question_order[i] = wrong.rows[i];
  run_.question_total = wrong.count;
  return true;
}

// A question counts as wrong until it is answered right. After a retake these are the first rows
// of the table, not the retaken ones.
void PickAQuiz::mark_the_rows() {
  for (int i = 1; i <= run_.question_total; ++i) {
    run_.last_results[Integer{i - 1} * run_.order_stride + run_.order_base] = "1";
  }
}

// Entries are walked in order, and j never picks the last two; with a single question of a
// category it may be 0, the spare entry in front.
void PickAQuiz::shuffle_the_order() {
  const int n = run_.category_filter_on ? run_.question_total : program_.catalogue.bank_total;
  const int m = run_.category_filter_on ? run_.question_total : run_.bank_size;
  for (int i = 1; i <= n; ++i) {
    const float r = program_.platform.random.next();
    const int j = static_cast<int>(std::floor(double{r} * (m - 2) + 1));
    std::swap(run_.question_order[i], run_.question_order[j]);
  }
}

}  // namespace practice
