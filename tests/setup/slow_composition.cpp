#include "slow_composition.h"

#include <algorithm>
#include <set>

#include "bank/catalogue.h"

namespace practice::composing {
namespace {

constexpr long long parts_of_a_draw = 16'777'216;

struct Bank {
  int total = 0;
  /// By row, 0 to 1000.
  std::vector<int> category = std::vector<int>(1001, 1);
  std::vector<int> answers = std::vector<int>(1001, 0);
  /// From 1.
  std::vector<std::string> chapters = {""};
};

int answers_of(const BankRow& row) {
  int count = 0;
  for (const std::string_view answer : row.answers) {
    if (answer.find_first_not_of(' ') != std::string_view::npos) ++count;
  }
  return count;
}

Bank read_bank(const std::string& exam_code, int number) {
  const ExamBanks* banks = nullptr;
  for (const Exam& exam : exams()) {
    if (exam.code == exam_code) banks = exam.banks;
  }
  Bank bank;
  const auto add_row = [&bank](const BankRow& row, int category) {
    ++bank.total;
    bank.category.at(static_cast<std::size_t>(bank.total)) = category;
    bank.answers.at(static_cast<std::size_t>(bank.total)) = answers_of(row);
  };
  const auto add_chapters = [&bank](const BankHead& head) {
    for (const std::string_view name : head.categories) bank.chapters.emplace_back(name);
  };
  if (number == 2) {
    for (const BankRow& row : banks->extra_rows) add_row(row, row.category);
    add_chapters(banks->extra_head);
  } else {
    for (const BankRow& row : banks->book_rows) add_row(row, row.category);
    if (number != 3) add_chapters(banks->book_head);
  }
  if (number == 3) {
    std::map<int, int> other_category;
    for (const CategoryChange& change : banks->full_changes) {
      other_category[change.extra_row] = change.category;
    }
    int extra_row = 0;
    for (const BankRow& row : banks->extra_rows) {
      ++extra_row;
      add_row(row, other_category.contains(extra_row) ? other_category[extra_row] : row.category);
    }
    add_chapters(banks->full_head);
  }
  return bank;
}

/// "  General " and "GENERAL" are one name.
std::string folded(const std::string& name) {
  std::string result;
  for (const char c : name) result += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  while (!result.empty() && result.front() == ' ') result.erase(0, 1);
  while (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

class SlowComposition {
 public:
  explicit SlowComposition(const State& state) : s(state), was(s.before) {}

  Outcome run() {
    switch (s.way) {
      case Way::routine:
        take_the_desk();
        compose();
        break;
      case Way::start_button:
        take_the_desk();
        was.category_filter_on = false;
        compose();
        break;
      case Way::category_button:
        take_the_desk();
        press_category_button();
        break;
      case Way::retake:
        load_for_retake();
        break;
    }
    return outcome();
  }

 private:
  // The screen is open, with the bank of the quiz that was clicked.
  void take_the_desk() {
    screens = {"pick_a_quiz"};
    bank = read_bank(s.exam, s.quiz_of_the_table);
    howmany = std::to_string(bank.total);
    if (s.bank_total) bank.total = *s.bank_total;
    for (const auto& [row, category] : s.categories) {
      bank.category.at(static_cast<std::size_t>(row)) = category;
    }
    radio = s.boxes["chkRadio"] == 1;
    name = s.name.typed;
    stored_name = s.settings.contains("studentname") ? s.settings["studentname"] : "never stored";
  }

  void press_category_button() {
    s.ticked_quiz = 5;
    s.howmany = {howmany, std::stoi(howmany)};
    s.boxes["askwrong"] = 0;
    was.category_filter_on = true;
    for (std::size_t i = 1; i <= 50; ++i) was.category_active[i] = 0;
    std::set<std::string> wanted;
    for (const int number : s.kept_categories) {
      if (number < static_cast<int>(bank.chapters.size())) {
        wanted.insert(folded(bank.chapters[static_cast<std::size_t>(number)]));
      }
    }
    if (wanted.empty()) {
      messages += "You must select at least one category|";
      return;
    }
    for (std::size_t i = 1; i < bank.chapters.size(); ++i) {
      if (wanted.contains(folded(bank.chapters[i]))) was.category_active[i] = 1;
    }
    compose();
  }

  // The options screen comes up with its own state, not with that of the last test.
  void load_for_retake() {
    was.test_mode_on = false;
    s.clicked_quiz = 1;
    bank = read_bank(s.exam, 1);
    was.order_stride = 4;
    was.bank_size = bank.total;
    was.result_state = std::vector<int>(1001, 0);
    was.typed_rows.clear();
    ++seeds;
    restore_options();
    s.howmany = {std::to_string(was.question_total), was.question_total};
    howmany = std::to_string(was.bank_size);
    was.retake_wrong_mode = 1;
    s.ticked_quiz = was.selected_quiz;
    if (s.ticked_quiz <= 3) {
      s.clicked_quiz = s.ticked_quiz;
      bank = read_bank(s.exam, s.ticked_quiz);
    } else if (s.ticked_quiz >= 5) {
      s.howmany = {howmany, std::stoi(howmany)};
    }
    s.boxes["askwrong"] = 1;
    compose();
    was.retake_quiz = 0;
  }

  void restore_options() {
    s.boxes = {{"timeron", 0},
               {"answer_when_wrong", 1},
               {"answer_when_right", 0},
               {"random_questions", 1},
               {"random_answers", 1},
               {"scoregraph", 1},
               {"backb", 1},
               {"showhowmanyanswers", 1},
               {"chkEmbed", 0},
               {"chkRadio", 1},
               {"askwrong", 0}};
    s.minutes = {"75", 75};
    s.random_answers_shown = true;
    const auto restore = [this](const std::string& box, const std::string& key) {
      s.boxes[box] = s.settings[key] == "1" ? 1 : 0;
    };
    stored_name = s.settings.contains("studentname") ? s.settings["studentname"] : "never stored";
    restore("showhowmanyanswers", "show#answers");
    if (!s.settings.contains("radio")) s.settings["radio"] = "1";
    radio = folded(s.settings["radio"]) == "1";
    s.boxes["chkRadio"] = radio ? 1 : 0;
    if (s.settings["savesettings"] == "saved") {
      restore("timeron", "timedtest");
      restore("answer_when_wrong", "answerwhenwrong");
      restore("answer_when_right", "answerwhenright");
      restore("random_questions", "randomquestions1");
      restore("random_answers", "randomanswers1");
      restore("backb", "backb");
      restore("scoregraph", "scoregraph1");
      restore("chkEmbed", "EmbedWM");
    }
  }

  void compose() {
    if (s.exam == "46002") {
      s.boxes["random_answers"] = 0;
      s.random_answers_shown = false;
    }
    for (std::size_t i = 1; i <= 100; ++i) was.category_right[i] = was.category_asked[i] = 0;
    was.typed_rows.clear();
    ++seeds;

    was.timed_run = s.boxes["timeron"];
    pointer = "hourglass";
    if (s.minutes.number) was.time_limit_minutes = *s.minutes.number;
    if (was.time_limit_minutes < 1) was.time_limit_minutes = 1;
    if (s.howmany.number) was.question_total = *s.howmany.number;
    if (was.question_total > 50) was.question_total = 50;
    was.time_started = s.clock / 1000;

    const bool is_called_student =
        s.name.cleaned == "STUDENT" && s.name.typed.size() == 7 && s.name.typed[0] != ' ';
    if (s.asks_for_a_name && is_called_student &&
        (!s.settings.contains("askname") || s.settings["askname"] == "0")) {
      messages += "Are you sure you do not want to enter a Student Name?|";
      if (!s.settings_full) s.settings["askname"] = "1";
      if (!s.answers_yes) {
        pointer = "normal";
        name = "STUDENT";
        return;
      }
    }
    name = s.name.cleaned;
    if (!s.settings_full) stored_name = name;

    for (std::size_t i = 1; i <= 300; ++i) was.last_results[i] = "0";
    if (s.results) {
      std::size_t n = 0;
      for (const ResultLine& line : *s.results) {
        ++n;
        if (n > 1000) break;
        was.last_results[n] = line.taken;
      }
    }

    if (s.ticked_quiz != 0) {
      was.selected_quiz = was.current_row = was.order_base = s.ticked_quiz;
      was.order_stride = 4;
    }
    if (s.ticked_quiz >= 1 && s.ticked_quiz <= 3) {
      int number = s.clicked_quiz;
      if (number == 0) number = was.selected_quiz;
      bank = read_bank(s.exam, number);
      was.current_row = 1;
      was.bank_size = bank.total;
      was.question_total = bank.total > 50 ? 50 : bank.total;
      was.order_stride = was.order_base = 1;
    }

    was.right_count = 0;
    for (auto& [box, value] : was.options) value = s.boxes[box];
    screens.insert("quest");
    question_screen_drawn = true;
    was.ask_wrong_mode = s.boxes["askwrong"] == 1 ? 1 : 99;

    std::string mode;
    bool again = true;
    while (again) {
      again = false;
      if (was.ask_wrong_mode != 1) {
        for (int i = 1; i <= was.bank_size; ++i) order(i) = i;
      }
      mode = "ALL";
      if (was.category_filter_on) mode = "CATEGORIES";
      if (was.ask_wrong_mode == 1) mode = "SAVED_WRONG";
      if (was.retake_wrong_mode == 1) mode = "IMMEDIATE_WRONG";
      if (mode == "SAVED_WRONG") {
        const std::vector<int> wrong = numbers_wrong_last_time();
        if (wrong.empty()) {
          was.ask_wrong_mode = 99;
          again = true;
        } else {
          ask(wrong);
        }
      }
    }
    if (mode == "CATEGORIES") {
      was.order_stride = 1;
      ask(rows_of_active_categories());
    }
    if (mode == "IMMEDIATE_WRONG") {
      if (s.wrong_list.empty()) {
        messages += "You did not get any wrong.|";
        return;
      }
      was.order_stride = was.order_base = 1;
      ask(s.wrong_list);
    }

    for (int i = 1; i <= was.question_total; ++i) {
      const int row = (i - 1) * was.order_stride + was.order_base;
      was.last_results.at(static_cast<std::size_t>(row)) = "1";
    }
    for (int row = 1; row <= was.order_stride * was.question_total; ++row) {
      was.result_state.at(static_cast<std::size_t>(row)) = 3;
    }
    if (s.boxes["random_questions"] == 1 && was.ask_wrong_mode != 1) shuffle();
    if (was.order_base == 5) was.order_base = 1;
    was.current_row = was.right_count = was.question_position = 0;
    show_the_first_question();
    s.wrong_list.clear();
    pointer = "normal";
    screens.erase("pick_a_quiz");
  }

  int& order(int position) { return was.question_order.at(static_cast<std::size_t>(position)); }

  void ask(const std::vector<int>& numbers) {
    int position = 0;
    for (const int number : numbers) order(++position) = number;
    was.question_total = position;
  }

  std::vector<int> numbers_wrong_last_time() const {
    std::vector<int> wrong;
    for (int i = 1; i <= was.question_total; ++i) {
      const int row = (i - 1) * was.order_stride + was.order_base;
      if (was.last_results.at(static_cast<std::size_t>(row)) == "1") wrong.push_back(i);
    }
    return wrong;
  }

  std::vector<int> rows_of_active_categories() const {
    std::vector<int> rows;
    for (int row = 1; row <= bank.total; ++row) {
      int category = bank.category.at(static_cast<std::size_t>(row));
      if (category == 0) category = 1;
      const bool exists = category >= 0 && category <= 150;
      if (exists && was.category_active[static_cast<std::size_t>(category)] == 1) {
        rows.push_back(row);
      }
    }
    return rows;
  }

  void shuffle() {
    const int walked = was.category_filter_on ? was.question_total : bank.total;
    const int m = was.category_filter_on ? was.question_total : was.bank_size;
    for (int i = 1; i <= walked; ++i) {
      // j = r * (m - 2) + 1, counted in parts of a draw and never below 0.
      const long long j_in_parts = s.draws.at(drawn++) * (m - 2LL) + parts_of_a_draw;
      const int j = static_cast<int>(j_in_parts / parts_of_a_draw);
      const int moved = order(i);
      order(i) = order(j);
      order(j) = moved;
    }
  }

  void show_the_first_question() {
    ++seeds;
    if (was.question_total < 1) {
      // Graded at once; the question screen takes the options screen with it.
      screens = {"finalscore"};
      was.timed_run = 99;
      return;
    }
    was.question_position = 1;
    was.current_row = (order(1) - 1) * was.order_stride + was.order_base;
    const bool exists = was.current_row >= 0 && was.current_row <= 1000;
    const int answers =
        exists ? bank.answers[static_cast<std::size_t>(was.current_row)] : was.answer_count;
    if (s.boxes["random_answers"] == 1) drawn += static_cast<std::size_t>(answers);
  }

  Outcome outcome() {
    Outcome o;
    const auto fact = [&o](const std::string& what, auto value) {
      o.facts[what] = std::to_string(value);
    };
    fact("question_total", was.question_total);
    fact("order_stride", was.order_stride);
    fact("order_base", was.order_base);
    fact("selected_quiz", was.selected_quiz);
    fact("clicked_quiz", s.clicked_quiz);
    fact("bank_size", was.bank_size);
    fact("bank_total", bank.total);
    fact("question_position", was.question_position);
    fact("current_row", was.current_row);
    fact("right_count", was.right_count);
    fact("ask_wrong_mode", was.ask_wrong_mode);
    fact("retake_wrong_mode", was.retake_wrong_mode);
    fact("retake_quiz", was.retake_quiz);
    fact("category_filter_on", was.category_filter_on);
    fact("wrong list", s.wrong_list.size());
    fact("timed_run", was.timed_run);
    fact("time_limit_minutes", was.time_limit_minutes);
    fact("time_started", was.time_started);
    fact("test_mode_on", was.test_mode_on);
    fact("radio_for_single", radio);
    for (const auto& [box, value] : was.options) fact("option " + box, value);
    fact("askwrong ticked", s.boxes["askwrong"]);
    fact("random_answers ticked", s.boxes["random_answers"]);
    fact("random_answers shown", s.random_answers_shown);
    fact("quiz ticked", s.ticked_quiz);
    fact("rows with something typed",
         std::set<int>(was.typed_rows.begin(), was.typed_rows.end()).size());
    fact("draws left", s.draws.size() - drawn);
    fact("seeds", seeds);
    fact("question screen drawn", question_screen_drawn);
    o.facts["howmanyq"] = s.howmany.typed;
    o.facts["student_name"] = name;
    o.facts["stored name"] = stored_name;
    o.facts["askname"] = s.settings.contains("askname") ? s.settings["askname"] : "never stored";
    o.facts["messages"] = messages;
    o.facts["pointer"] = pointer;
    for (const std::string& screen : screens) o.facts["screens"] += screen + "|";
    o.numbers = {{"question_order", was.question_order},
                 {"result_state", was.result_state},
                 {"category_right", was.category_right},
                 {"category_asked", was.category_asked},
                 {"category_active", was.category_active}};
    o.texts = {{"last_results", was.last_results}};
    return o;
  }

  State s;
  Leftovers& was;
  Bank bank;
  std::string howmany;
  std::string name;
  std::string stored_name;
  bool radio = true;
  std::string messages;
  std::set<std::string> screens;
  std::string pointer = "normal";
  bool question_screen_drawn = false;
  int seeds = 0;
  std::size_t drawn = 0;
};

}  // namespace

Outcome compose_slowly(const State& state) { return SlowComposition(state).run(); }

}  // namespace practice::composing
