// Ten thousand states of the options screen: the test that the program composes from each is the
// one that a slow second way of composing it gives.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>

#include "composition_state.h"
#include "robot/testing.h"
#include "slow_composition.h"

namespace practice {
namespace {

using composing::Leftovers;
using composing::Outcome;
using composing::State;
using composing::Way;

constexpr unsigned states_per_exam = 1'430;
constexpr float parts_of_a_draw = 16'777'216;

/// Setting it to a number repeats that one state.
constexpr const char* one_state = "PRACTICE_EXAM_STATE";

struct OptionField {
  const char* box;
  Integer Options::*field;
};
constexpr OptionField option_fields[] = {{"answer_when_right", &Options::show_answer_when_right},
                                         {"answer_when_wrong", &Options::show_answer_when_wrong},
                                         {"random_questions", &Options::random_question_order},
                                         {"random_answers", &Options::shuffle_answers},
                                         {"scoregraph", &Options::show_running_score},
                                         {"backb", &Options::back_button_on},
                                         {"showhowmanyanswers", &Options::show_answer_count},
                                         {"chkEmbed", &Options::embed_media}};

template <class T, int N, class U>
void fill(Slots<T, N>& slots, const std::vector<U>& values) {
  for (int i = 0; i <= N; ++i) slots[i] = T(values[static_cast<std::size_t>(i)]);
}

template <class T, int N>
std::vector<int> numbers_in(const Slots<T, N>& slots) {
  std::vector<int> result;
  for (int i = 0; i <= N; ++i) result.push_back(slots[i]);
  return result;
}

template <class T>
void compare_lists(const std::string& what, const std::vector<T>& expected,
                   const std::vector<T>& seen, std::string& differences) {
  const auto [e, s] = std::ranges::mismatch(expected, seen);
  if (e == expected.end() && s == seen.end()) return;
  differences += what + " differs from entry " + std::to_string(e - expected.begin());
  if (e != expected.end() && s != seen.end()) {
    const testing::Message values = testing::Message() << ": expected " << *e << ", seen " << *s;
    differences += values.GetString();
  }
  differences += '\n';
}

std::string differences_of(const Outcome& expected, const Outcome& seen) {
  std::string differences;
  std::set<std::string> names;
  for (const Outcome* outcome : {&expected, &seen}) {
    for (const auto& [name, value] : outcome->facts) names.insert(name);
  }
  const auto value_of = [](const Outcome& outcome, const std::string& name) {
    const auto found = outcome.facts.find(name);
    return found == outcome.facts.end() ? "nothing" : '"' + found->second + '"';
  };
  for (const std::string& name : names) {
    const std::string wanted = value_of(expected, name);
    const std::string got = value_of(seen, name);
    if (wanted != got) differences += name + ": expected " + wanted + ", seen " + got + '\n';
  }
  for (const auto& [name, list] : expected.numbers) {
    compare_lists(name, list, seen.numbers.at(name), differences);
  }
  for (const auto& [name, list] : expected.texts) {
    compare_lists(name, list, seen.texts.at(name), differences);
  }
  return differences;
}

class CompositionPropertyTest : public robot::StudentTest,
                                public testing::WithParamInterface<const char*> {
 protected:
  // One program serves all states of an exam; each state is put over what the last one left.
  void SetUp() override {
    start(GetParam());
    robot.click("Welcome", "Image4", 0);
  }

  TestRun& run() { return robot.run(); }
  CheckBox& box(const std::string& name) {
    return **std::get_if<CheckBox*>(&robot.control("pick_a_quiz", name).control);
  }

  void put(const State& state) {
    Forms& forms = robot.program().forms;
    for (const Form form : {Form::quest, Form::finalscore, Form::pick_a_quiz}) forms.unload(form);
    robot.world.settings.is_full = false;
    robot.world.settings.values.clear();
    run().retake_quiz = 0;
    robot.program().branding.asks_for_a_name = false;
    if (state.way != Way::retake) {
      forms.show(Form::pick_a_quiz);
      robot.click("pick_a_quiz", "which_quiz", state.quiz_of_the_table);
      put_on_screen(state);
    }
    put_leftovers(state.before);
    if (state.way != Way::retake) run().clicked_quiz = state.clicked_quiz;
    put_results_file(state);
    run().wrong_list.count = static_cast<int>(state.wrong_list.size());
    for (int i = 1; i <= run().wrong_list.count; ++i) {
      run().wrong_list.rows[i] = state.wrong_list[static_cast<std::size_t>(i - 1)];
    }
    for (const auto& [key, value] : state.settings) {
      robot.world.settings.values[{"marlotest", "stuff", key}] = value;
    }
    robot.world.settings.is_full = state.settings_full;
    robot.program().branding.asks_for_a_name = state.asks_for_a_name;
    robot.world.messages.shown.clear();
    robot.world.messages.answers.assign(1, state.answers_yes ? Answer::yes : Answer::no);
    robot.world.random.seeds = 0;
    robot.world.random.draws.clear();
    for (const int draw : state.draws) {
      robot.world.random.draws.push_back(static_cast<float>(draw) / parts_of_a_draw);
    }
    robot.world.clock.milliseconds = state.clock;
    question_screen_drawn_ = false;
    robot.world.stage.during_pump = [this] { question_screen_drawn_ |= quest().visible; };
  }

  void put_on_screen(const State& state) {
    PickAQuiz& screen = pick_a_quiz();
    Program& program = robot.program();
    robot.type("pick_a_quiz", "txtstudentname", 0, state.name.typed);
    screen.timeamount.text = state.minutes.typed;
    screen.howmanyq.text = state.howmany.typed;
    if (box("chkRadio").value != state.boxes.at("chkRadio")) robot.click("pick_a_quiz", "chkRadio");
    for (const auto& [name, value] : state.boxes) box(name).value = value;
    screen.random_answers.visible = state.random_answers_shown;
    for (int i = 1; i <= 6; ++i) {
      screen.which_quiz[static_cast<std::size_t>(i - 1)].value = i == state.ticked_quiz;
    }
    keep_categories(state);
    if (state.bank_total) program.catalogue.bank_total = *state.bank_total;
    for (const auto& [number, category] : state.categories) row(number).category = category;
  }

  void keep_categories(const State& state) {
    ListBox& asked = pick_a_quiz().lst_cats_to_ask;
    const std::vector<std::string> all = asked.items;
    const auto is_kept = [&](std::size_t entry) {
      return std::ranges::count(state.kept_categories, static_cast<int>(entry) + 1) > 0;
    };
    if (state.kept_by_buttons) {
      asked.selected.assign(all.size(), false);
      for (std::size_t i = 0; i < all.size(); ++i) {
        if (!is_kept(i)) robot.select("pick_a_quiz", "lst_cats_to_ask", static_cast<int>(i), true);
      }
      robot.click("pick_a_quiz", "cmd_remove_cat");
      return;
    }
    asked.items.clear();
    for (std::size_t i = all.size(); i-- > 0;) {
      if (!is_kept(i)) continue;
      std::string capitals = all[i];
      for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
      asked.items.push_back("  " + capitals + " ");
    }
    asked.selected.assign(asked.items.size(), false);
  }

  void put_leftovers(const Leftovers& before) {
    fill(run().question_order, before.question_order);
    fill(run().last_results, before.last_results);
    fill(run().category_right, before.category_right);
    fill(run().category_asked, before.category_asked);
    fill(run().category_active, before.category_active);
    for (int i = 1; i <= MAX_QUESTIONS; ++i) {
      row(i).result_state = before.result_state[static_cast<std::size_t>(i)];
      row(i).typed_answer.clear();
    }
    for (const int number : before.typed_rows) row(number).typed_answer = "show version";
    run().question_total = before.question_total;
    run().question_position = before.question_position;
    run().order_stride = before.order_stride;
    run().order_base = before.order_base;
    run().current_row = before.current_row;
    run().answer_count = before.answer_count;
    run().right_count = before.right_count;
    run().selected_quiz = before.selected_quiz;
    run().bank_size = before.bank_size;
    run().ask_wrong_mode = before.ask_wrong_mode;
    run().retake_wrong_mode = before.retake_wrong_mode;
    run().retake_quiz = before.retake_quiz;
    run().category_filter_on = before.category_filter_on;
    run().timed_run = before.timed_run;
    run().time_limit_minutes = before.time_limit_minutes;
    run().time_started = before.time_started;
    Options& options = robot.program().options;
    options.test_mode_on = before.test_mode_on;
    for (const OptionField& option : option_fields) {
      options.*option.field = before.options.at(option.box);
    }
  }

  void put_results_file(const State& state) {
    for (const std::string& path : results_files_) {
      if (robot.world.files.exists(path)) robot.world.files.remove(path);
    }
    std::string without_blanks = state.name.cleaned;
    while (without_blanks.starts_with(' ')) without_blanks.erase(0, 1);
    while (without_blanks.ends_with(' ')) without_blanks.pop_back();
    const std::string path = state.exam + "." + state.name.cleaned + ".results";
    const std::string others_path = state.exam + "." + without_blanks + ".results";
    results_files_ = {path, others_path};
    if (state.other_students_results && others_path != path) {
      robot.world.files.write(others_path, "1,1\r\n");
    }
    if (!state.results) return;
    std::string content;
    for (const composing::ResultLine& line : *state.results) content += line.line;
    robot.world.files.write(path, content);
  }

  void start_a_test(Way way) {
    switch (way) {
      case Way::routine:
        pick_a_quiz().start_the_quiz_from_command1();
        break;
      case Way::start_button:
        robot.click("pick_a_quiz", "Command1");
        break;
      case Way::category_button:
        robot.click("pick_a_quiz", "cmd_start_cat_quiz");
        break;
      case Way::retake:
        robot.program().forms.load(Form::pick_a_quiz);
        break;
    }
  }

  Outcome seen() {
    Outcome o;
    const auto fact = [&o](const std::string& what, auto value) {
      o.facts[what] = std::to_string(value);
    };
    fact("question_total", int{run().question_total});
    fact("order_stride", int{run().order_stride});
    fact("order_base", int{run().order_base});
    fact("selected_quiz", int{run().selected_quiz});
    fact("clicked_quiz", int{run().clicked_quiz});
    fact("bank_size", int{run().bank_size});
    fact("bank_total", int{robot.program().catalogue.bank_total});
    fact("question_position", int{run().question_position});
    fact("current_row", int{run().current_row});
    fact("right_count", int{run().right_count});
    fact("ask_wrong_mode", int{run().ask_wrong_mode});
    fact("retake_wrong_mode", int{run().retake_wrong_mode});
    fact("retake_quiz", int{run().retake_quiz});
    fact("category_filter_on", run().category_filter_on);
    fact("wrong list", int{run().wrong_list.count});
    fact("timed_run", int{run().timed_run});
    fact("time_limit_minutes", int{run().time_limit_minutes});
    fact("time_started", run().time_started);
    const Options& options = robot.program().options;
    fact("test_mode_on", options.test_mode_on);
    fact("radio_for_single", options.radio_for_single);
    for (const OptionField& option : option_fields) {
      fact(std::string("option ") + option.box, int{options.*option.field});
    }
    see_screens(o);
    see_platform(o);
    o.facts["student_name"] = options.student_name;
    int typed = 0;
    std::vector<int> states;
    for (int i = 0; i <= MAX_QUESTIONS; ++i) {
      typed += row(i).typed_answer.empty() ? 0 : 1;
      states.push_back(row(i).result_state);
    }
    fact("rows with something typed", typed);
    o.numbers = {{"question_order", numbers_in(run().question_order)},
                 {"result_state", states},
                 {"category_right", numbers_in(run().category_right)},
                 {"category_asked", numbers_in(run().category_asked)},
                 {"category_active", numbers_in(run().category_active)}};
    for (int i = 0; i <= MAX_QUESTIONS; ++i) {
      o.texts["last_results"].push_back(run().last_results[i]);
    }
    return o;
  }

  void see_screens(Outcome& o) {
    PickAQuiz& screen = pick_a_quiz();
    o.facts["askwrong ticked"] = std::to_string(screen.askwrong.value);
    o.facts["random_answers ticked"] = std::to_string(screen.random_answers.value);
    o.facts["random_answers shown"] = std::to_string(screen.random_answers.visible);
    int ticked = 0;
    for (int i = 6; i >= 1; --i) {
      if (screen.which_quiz[static_cast<std::size_t>(i - 1)].value) ticked = ticked * 10 + i;
    }
    o.facts["quiz ticked"] = std::to_string(ticked);
    o.facts["howmanyq"] = screen.howmanyq.text;
    o.facts["question screen drawn"] = std::to_string(question_screen_drawn_);
    o.facts["pointer"] = screen.pointer == Pointer::hourglass ? "hourglass" : "normal";
    std::set<std::string> visible;
    for (const Screen* shown : robot.program().forms.all()) {
      if (shown != nullptr && shown->visible) visible.insert(shown->form_name);
    }
    for (const std::string& name : visible) o.facts["screens"] += name + "|";
  }

  void see_platform(Outcome& o) {
    const auto stored = [&](const char* key) {
      const auto& values = robot.world.settings.values;
      const auto found = values.find({"marlotest", "stuff", key});
      return found == values.end() ? "never stored" : found->second;
    };
    o.facts["stored name"] = stored("studentname");
    o.facts["askname"] = stored("askname");
    o.facts["messages"];
    for (const MessageBox& box : robot.world.messages.shown) o.facts["messages"] += box.text + "|";
    o.facts["draws left"] = std::to_string(robot.world.random.draws.size());
    o.facts["seeds"] = std::to_string(robot.world.random.seeds);
  }

 private:
  std::array<std::string, 2> results_files_;
  bool question_screen_drawn_ = false;
};

TEST_P(CompositionPropertyTest, EveryStateOfTheScreenGivesTheTestThatItsRulesTell) {
  unsigned first = 1;
  unsigned last = states_per_exam;
  if (const char* wanted = std::getenv(one_state)) {
    first = last = static_cast<unsigned>(std::atoi(wanted));
  }
  constexpr int enough_failures = 3;
  int failures = 0;
  for (unsigned number = first; number <= last && failures < enough_failures; ++number) {
    const State state = composing::random_state(GetParam(), number);
    put(state);
    start_a_test(state.way);
    const std::string differences = differences_of(compose_slowly(state), seen());
    if (differences.empty()) continue;
    ++failures;
    ADD_FAILURE() << in_words(state) << differences << "Repeat it with " << one_state << '='
                  << number << " and --gtest_filter='*PropertyTest*/" << GetParam() << "'";
  }
}

INSTANTIATE_TEST_SUITE_P(Exams, CompositionPropertyTest,
                         testing::Values("46000", "46002", "46003", "46004", "46005", "46006",
                                         "46007"),
                         [](const auto& exam) { return std::string(exam.param); });

}  // namespace
}  // namespace practice
