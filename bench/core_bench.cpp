// What the core costs, without a display: loading a bank, building and reading pages, a step of a
// test and a whole one, the last two through the robot.
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "full_size_bank.h"
#include "robot/robot.h"
#include "run/question_page.h"
#include "session/student_files.h"

namespace practice::bench {
namespace {

using benchmark::Counter;
using benchmark::State;

constexpr const char* falco = "46000";
constexpr int full_quiz = 3;

double seconds_of(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Time per item, beside the time of the whole.
Counter each(int items) {
  return {static_cast<double>(items), Counter::kIsIterationInvariantRate | Counter::kInvert};
}

// A student on the welcome screen, and from there in a test of all questions of the full bank.
class Student {
 public:
  explicit Student(const char* exam) {
    robot.put_distribution();
    robot.start(exam);
    robot.world.stage.modal_user = [this](Screen& shown) {
      ++answers_seen;
      answer_page = robot.page().written();
      robot.click(shown.form_name, "Closeb");
    };
  }

  void start_test() {
    robot.click("Welcome", "Image4", 0);
    robot.click("pick_a_quiz", "which_quiz", full_quiz);
    robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  }

  void answer_rightly() {
    const Question& question = robot.program().current_question;
    const std::string& shown = robot.run().question_kind;
    for (int i = 1; i <= 6; ++i) {
      if (question.answer_correct[i] != 1) continue;
      if (shown == kind::radio_button) robot.choose("radio1", i);
      if (shown == kind::check_box) robot.tick("ans" + std::to_string(i));
    }
    if (shown == kind::fill_in) robot.type_on_page("txt_fill", question.answers[1]);
  }

  // Every other question right, the rest wrong, without the time that answering takes.
  void mark_all() {
    TestRun& run = robot.run();
    run.right_count = (run.question_total + 1) / 2;
    for (int position = 1; position <= run.question_total; ++position) {
      robot.program().question_table[row_of_position(run, position)].result_state =
          position % 2 == 1 ? result::right : result::wrong;
    }
  }
  void grade() { robot.click("quest", "menu_quittest"); }

  void press_next() { robot.click("quest", "cmd_buttons", 0); }
  bool is_graded() { return robot.app().finalscore().visible; }

  void go_to(int position) {
    robot.run().question_position = position - 1;
    robot.app().quest().show_quest();
  }

  // To the question of that kind with the longest page. False when there is none.
  bool go_to_longest(std::string_view wanted) {
    int best = 0;
    std::size_t longest = 0;
    for (int position = 1; position <= robot.run().question_total; ++position) {
      go_to(position);
      const std::size_t length = robot.page().written().size();
      if (robot.run().question_kind != wanted || length <= longest) continue;
      best = position;
      longest = length;
    }
    if (best > 0) go_to(best);
    return best > 0;
  }

  robot::Robot robot;
  int answers_seen = 0;
  /// The last one seen.
  std::string answer_page;
};

// A bank loaded over the same bank, as each click on a quiz does.
void load_bank_again(State& state, const char* exam) {
  Catalogue catalogue;
  auto table = std::make_unique<QuestionTable>();
  robot::ScriptedMessages messages;
  const BankRequest request{
      .command_line = exam, .clicked_quiz = full_quiz, .selected_quiz = 0, .install_dir = "\\x\\"};
  load_bank(request, catalogue, *table, messages);
  for (auto _ : state) {
    load_bank(request, catalogue, *table, messages);
    benchmark::DoNotOptimize(*table);
  }
  state.counters["rows"] = int{catalogue.bank_total};
  state.counters["per_row"] = each(catalogue.bank_total);
}
BENCHMARK_CAPTURE(load_bank_again, falco, falco);
BENCHMARK_CAPTURE(load_bank_again, full_size, full_size_exam);

// Into an empty table, as at start-up: every text takes its memory.
void load_bank_first(State& state, const char* exam) {
  robot::ScriptedMessages messages;
  const BankRequest request{
      .command_line = exam, .clicked_quiz = full_quiz, .selected_quiz = 0, .install_dir = "\\x\\"};
  int rows = 0;
  for (auto _ : state) {
    Catalogue catalogue;
    const auto table = std::make_unique<QuestionTable>();
    state.SetIterationTime(seconds_of([&] { load_bank(request, catalogue, *table, messages); }));
    rows = catalogue.bank_total;
  }
  state.counters["rows"] = rows;
  state.counters["per_row"] = each(rows);
}
BENCHMARK_CAPTURE(load_bank_first, falco, falco)->UseManualTime();
BENCHMARK_CAPTURE(load_bank_first, full_size, full_size_exam)->UseManualTime();

// The part of a load that does not depend on the bank's size.
void reset_table(State& state) {
  const auto table = std::make_unique<QuestionTable>();
  for (auto _ : state) {
    reset_bank_fields(*table);
    benchmark::DoNotOptimize(*table);
  }
}
BENCHMARK(reset_table);

void question_page(State& state, std::string_view wanted) {
  Student student(falco);
  student.start_test();
  if (!student.go_to_longest(wanted)) return state.SkipWithError("no such question");
  Program& program = student.robot.program();
  std::size_t size = 0;
  for (auto _ : state) {
    const std::string page =
        read_page_header(program) + build_question_page(program, program.current_question);
    size = page.size();
    benchmark::DoNotOptimize(page.data());
  }
  state.counters["bytes"] = static_cast<double>(size);
}
BENCHMARK_CAPTURE(question_page, radio, kind::radio_button);
BENCHMARK_CAPTURE(question_page, check_box, kind::check_box);

void parse(State& state, const std::string& page) {
  html::Document document;
  for (auto _ : state) {
    document.open();
    document.write(page);
    document.close();
  }
  state.counters["bytes"] = static_cast<double>(page.size());
}

void parse_page(State& state, std::string_view wanted) {
  Student student(falco);
  student.start_test();
  if (!student.go_to_longest(wanted)) return state.SkipWithError("no such question");
  parse(state, student.robot.page().written());
}
BENCHMARK_CAPTURE(parse_page, radio, kind::radio_button);
BENCHMARK_CAPTURE(parse_page, check_box, kind::check_box);

void parse_answer_page(State& state) {
  Student student(falco);
  student.start_test();
  if (!student.go_to_longest(kind::radio_button)) return state.SkipWithError("no such question");
  student.robot.app().theanswer().show_answer();
  parse(state, student.answer_page);
}
BENCHMARK(parse_answer_page);

// The answer view from its call to its close: page, parsing, and the screen's load and unload.
void answer_view(State& state) {
  Student student(falco);
  student.start_test();
  if (!student.go_to_longest(kind::radio_button)) return state.SkipWithError("no such question");
  for (auto _ : state) student.robot.app().theanswer().show_answer();
}
BENCHMARK(answer_view);

// A quiz clicked: its bank loaded and its categories listed.
void quiz_clicked(State& state, const char* exam) {
  Student student(exam);
  student.robot.click("Welcome", "Image4", 0);
  for (auto _ : state) student.robot.click("pick_a_quiz", "which_quiz", full_quiz);
}
BENCHMARK_CAPTURE(quiz_clicked, falco, falco);
BENCHMARK_CAPTURE(quiz_clicked, full_size, full_size_exam);

// The start button pressed until the first question stands: a test of the whole bank, shuffled.
void test_composed(State& state, const char* exam) {
  Student student(exam);
  for (auto _ : state) {
    student.robot.program().forms.unload(Form::quest);
    student.robot.program().forms.show(Form::pick_a_quiz);
    student.robot.click("pick_a_quiz", "which_quiz", full_quiz);
    state.SetIterationTime(
        seconds_of([&] { student.robot.click("pick_a_quiz", "cmd_start_cat_quiz"); }));
  }
  state.counters["questions"] = int{student.robot.run().question_total};
}
BENCHMARK_CAPTURE(test_composed, falco, falco)->UseManualTime();
BENCHMARK_CAPTURE(test_composed, full_size, full_size_exam)->UseManualTime();

// Next pressed until the following question stands: the answer checked, and shown when wrong.
void next_pressed(State& state, bool rightly) {
  Student student(falco);
  student.start_test();
  for (auto _ : state) {
    if (student.robot.run().question_position == student.robot.run().question_total) {
      student.go_to(1);
    }
    if (rightly) student.answer_rightly();
    state.SetIterationTime(seconds_of([&] { student.press_next(); }));
  }
  if (!rightly && student.answers_seen == 0) state.SkipWithError("no answer was shown");
}
BENCHMARK_CAPTURE(next_pressed, right, true)->UseManualTime();
BENCHMARK_CAPTURE(next_pressed, wrong, false)->UseManualTime();

// The end of a test: results file, final score, report and the first entry of a history.
void test_graded(State& state, const char* exam) {
  Student student(exam);
  Program& program = student.robot.program();
  for (auto _ : state) {
    program.forms.unload(Form::finalscore);
    program.forms.unload(Form::pick_a_quiz);
    program.forms.show(Form::Welcome);
    student.start_test();
    student.mark_all();
    const std::string history = history_file(program);
    if (program.platform.files.exists(history)) program.platform.files.remove(history);
    state.SetIterationTime(seconds_of([&] { student.grade(); }));
    if (!student.is_graded()) return state.SkipWithError("the test was not graded");
  }
  state.counters["questions"] = int{student.robot.run().question_total};
}
BENCHMARK_CAPTURE(test_graded, falco, falco)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(test_graded, full_size, full_size_exam)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// One entry more for a student of many tests.
void history_entry(State& state) {
  constexpr int entries = 1000;
  Student student(full_size_exam);
  student.start_test();
  student.mark_all();
  student.grade();
  Files& files = student.robot.world.files;
  const std::string name = history_file(student.robot.program());
  std::string history = files.read(name);
  const std::string entry = history.substr(history.find('\n') + 1);
  for (int i = 1; i < entries; ++i) history += entry;
  for (auto _ : state) {
    files.write(name, history);
    state.SetIterationTime(seconds_of([&] { student.robot.app().finalscore().save_history(); }));
  }
  if (files.read(name).size() != history.size() + entry.size()) {
    state.SkipWithError("the history has no entry more");
  }
  state.counters["bytes"] = static_cast<double>(history.size());
}
BENCHMARK(history_entry)->UseManualTime()->Unit(benchmark::kMicrosecond);

// From the welcome screen to the final score, every question answered.
void whole_test(State& state, const char* exam) {
  int questions = 0;
  for (auto _ : state) {
    Student student(exam);
    state.SetIterationTime(seconds_of([&] {
      student.start_test();
      for (questions = 0; !student.is_graded(); ++questions) {
        student.answer_rightly();
        student.press_next();
      }
    }));
  }
  state.counters["questions"] = questions;
  state.counters["per_question"] = each(questions);
}
BENCHMARK_CAPTURE(whole_test, falco, falco)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(whole_test, full_size, full_size_exam)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace practice::bench
