#include "composition_state.h"

#include <algorithm>
#include <random>
#include <sstream>

namespace practice::composing {
namespace {

constexpr unsigned seed = 20'260'117;
constexpr int robin = 46002;
constexpr int highest_draw = 16'777'215;

const TypedNumber whole_numbers[] = {
    {"75", 75},       {"1", 1},           {"2", 2},
    {"12", 12},       {"49", 49},         {"50", 50},
    {"51", 51},       {"242", 242},       {"1000", 1000},
    {"32767", 32767}, {"0", 0},           {"-1", -1},
    {"-5", -5},       {"-30000", -30000}, {" 30 ", 30},
    {"12 min", 12},   {"+7", 7},          {"007", 7},
    {"49.2", 49},     {"0.4", 0},         {".3 hours", 0},
    {"7.0", 7},       {"1,000", 1},       {"5-", 5},
    {"", 0},          {"   ", 0},         {"ten", 0},
    {"x12", 0},       {"--5", 0},         {"nan", 0},
    {"infinity", 0},  {"٣٠", 0},          {"５０", 0},
    {"vingt", 0},     {"пять", 0},        {"32768", {}},
    {"40000", {}},    {"-40000", {}},     {"99999999999999999999", {}}};

// One letter each, of many scripts.
const TypedName letters[] = {
    {"a", "A"}, {"n", "N"}, {"z", "Z"},      {"A", "A"},      {"M", "M"},  {"Z", "Z"},  {"0", "0"},
    {"9", "9"}, {" ", " "}, {" ", " "},      {"é", " "},      {"É", " "},  {"ß", " "},  {"ø", " "},
    {"Ł", " "}, {"ÿ", " "}, {"ı", "I"},      {"İ", " "},      {"ж", " "},  {"Ж", " "},  {"ё", " "},
    {"Ω", " "}, {"ς", " "}, {"א", " "},      {"ع", " "},      {"漢", " "}, {"か", " "}, {"한", " "},
    {"न", " "}, {"ก", " "}, {"ა", " "},      {"😀", " "},      {"𝔄", " "},  {"ﬁ", " "},  {"ａ", " "},
    {"٣", " "}, {"²", " "}, {"\u0301", " "}, {"\u00a0", " "}, {"\t", " "}, {"-", " "},  {"'", " "},
    {".", " "}, {",", " "}, {"\\", " "},     {"/", " "},      {":", " "},  {"@", " "},  {"[", " "},
    {"`", " "}, {"{", " "}, {"_", " "},      {"\"", " "},     {"*", " "}};

const TypedName whole_names[] = {{"", "STUDENT"},
                                 {" ", "STUDENT"},
                                 {"     ", "STUDENT"},
                                 {"STUDENT", "STUDENT"},
                                 {"student", "STUDENT"},
                                 {"Student", "STUDENT"},
                                 {"STUDENT ", "STUDENT "},
                                 {"anna", "ANNA"},
                                 {" Bo ", " BO "},
                                 {"!?#", "   "},
                                 {"Łukasz", " UKASZ"},
                                 {"Юлия", "    "},
                                 {"\t", " "}};

// The first field of a line and what is taken from it.
const TypedName fields[] = {{"0", "0"},   {"1", "1"},     {"2", "2"},       {"", "0"},
                            {" ", "0"},   {" 1 ", "1"},   {"  0", "0"},     {"-1", "-1"},
                            {"12", "12"}, {"wrong", "0"}, {"1 wrong", "1"}, {"01", "1"},
                            {"+1", "1"},  {"x1", "0"},    {"1;1", "1"}};

const char* const behind_the_field[] = {",5", ",5", ",5", ",5", ",", ",1,1,1", ", 7 ", ",x", ""};

class Dice {
 public:
  Dice(const std::string& exam, unsigned number) {
    std::seed_seq seeds{seed, static_cast<unsigned>(std::stoi(exam)), number};
    engine_.seed(seeds);
  }

  /// lowest to highest, both included.
  int between(int lowest, int highest) {
    return lowest + static_cast<int>(engine_() % static_cast<unsigned>(highest - lowest + 1));
  }
  bool one_in(int n) { return between(1, n) == 1; }

  template <class T, std::size_t N>
  const T& one_of(const T (&all)[N]) {
    return all[static_cast<std::size_t>(between(0, static_cast<int>(N) - 1))];
  }

  std::vector<int> list(int entries, int lowest, int highest) {
    std::vector<int> result;
    for (int i = 0; i < entries; ++i) result.push_back(between(lowest, highest));
    return result;
  }

 private:
  std::mt19937 engine_;
};

TypedName name(Dice& dice) {
  if (dice.one_in(3)) return dice.one_of(whole_names);
  TypedName result;
  bool is_blank = true;
  for (int left = dice.between(1, dice.one_in(10) ? 60 : 12); left > 0; --left) {
    const TypedName& letter = dice.one_of(letters);
    result.typed += letter.typed;
    result.cleaned += letter.cleaned;
    is_blank = is_blank && letter.typed == " ";
  }
  if (is_blank) result.cleaned = "STUDENT";
  return result;
}

std::optional<std::vector<ResultLine>> results(Dice& dice) {
  if (dice.one_in(4)) return {};
  const int lengths[] = {0, 1, 3, 20, 49, 60, 250, 310, 1000, 1003};
  const int lines = dice.one_of(lengths);
  const bool is_odd = dice.one_in(3);
  const int chance_of_wrong = dice.between(1, 20);
  const bool nothing_wrong = dice.one_in(5);
  std::vector<ResultLine> result;
  for (int n = 1; n <= lines; ++n) {
    if (is_odd) {
      const TypedName& field = dice.one_of(fields);
      result.push_back({field.typed + dice.one_of(behind_the_field) + (n % 3 == 0 ? "\n" : "\r\n"),
                        field.cleaned});
    } else {
      const char* const value = !nothing_wrong && dice.one_in(chance_of_wrong) ? "1" : "0";
      result.push_back({value + ("," + std::to_string(n)) + "\r\n", value});
    }
  }
  return result;
}

std::vector<int> draws(Dice& dice) {
  constexpr int enough = 400;
  switch (dice.between(1, 4)) {
    case 1:
      return dice.list(enough, 0, 0);
    case 2:
      return dice.list(enough, highest_draw, highest_draw);
    case 3: {
      std::vector<int> mixed = dice.list(enough, 0, highest_draw);
      for (int& draw : mixed) {
        if (dice.one_in(4)) draw = dice.one_in(2) ? 0 : highest_draw;
      }
      return mixed;
    }
    default:
      return dice.list(enough, 0, highest_draw);
  }
}

Leftovers leftovers(Dice& dice) {
  const char* const marks[] = {"0", "1", "2", ""};
  const int totals[] = {0, 1, 12, 50, 112, 350};
  const int sizes[] = {1, 2, 3, 50, 125, 179, 242, 255, 355, 1000};
  Leftovers result;
  result.question_order = dice.list(1001, 0, 1000);
  for (int row = 0; row <= 1000; ++row) result.last_results.emplace_back(dice.one_of(marks));
  result.result_state = dice.list(1001, 0, 3);
  result.result_state[0] = 0;
  result.category_right = dice.list(151, 0, 9);
  result.category_asked = dice.list(151, 0, 9);
  const int active = dice.one_in(5) ? 0 : dice.between(1, 6);
  for (int i = 0; i <= 150; ++i) {
    result.category_active.push_back(active > 0 && dice.one_in(active) ? 1 : 0);
  }
  result.typed_rows = dice.list(dice.between(0, 5), 1, 1000);
  result.question_total = dice.one_of(totals);
  result.question_position = dice.between(0, 60);
  result.order_stride = dice.one_in(2) ? 1 : 4;
  result.order_base = dice.between(1, 6);
  result.current_row = dice.between(0, 300);
  result.answer_count = dice.between(0, 6);
  result.right_count = dice.between(0, 50);
  result.selected_quiz = dice.between(0, 6);
  result.bank_size = dice.one_of(sizes);
  result.ask_wrong_mode = dice.one_in(2) ? 1 : 99;
  result.category_filter_on = dice.one_in(2);
  result.timed_run = dice.one_in(2) ? 99 : dice.between(0, 1);
  result.time_limit_minutes = dice.between(-1, 200);
  result.time_started = dice.between(1, 1000);
  result.test_mode_on = dice.one_in(2);
  for (const std::string& box : boxes()) {
    if (box != "timeron" && box != "chkRadio" && box != "askwrong") {
      result.options[box] = dice.between(0, 1);
    }
  }
  return result;
}

void choose_for_retake(Dice& dice, State& state) {
  state.before.selected_quiz = dice.between(1, 6);
  state.before.retake_quiz = dice.between(1, 6);
  for (const char* const key :
       {"timedtest", "answerwhenwrong", "answerwhenright", "randomquestions1", "randomanswers1",
        "backb", "scoregraph1", "EmbedWM", "show#answers", "radio", "timedminutes"}) {
    const char* const values[] = {"0", "1", "", "1", "0"};
    if (!dice.one_in(4)) state.settings[key] = dice.one_of(values);
  }
  if (dice.one_in(4)) state.settings["radio"] = " 1 ";
  if (dice.one_in(2)) state.settings["savesettings"] = dice.one_in(4) ? "lost" : "saved";
  if (dice.one_in(4)) {
    state.name = {"STUDENT", "STUDENT"};
  } else {
    state.settings["studentname"] = state.name.typed;
  }
}

void choose_on_screen(Dice& dice, State& state) {
  const int odd_clicks[] = {0, 0, 4, 5, 6, 7, -1, 99};
  state.quiz_of_the_table = dice.between(1, 3);
  state.clicked_quiz = state.quiz_of_the_table;
  if (state.way == Way::routine && dice.one_in(4)) state.clicked_quiz = dice.one_of(odd_clicks);
  state.ticked_quiz = dice.one_in(2) ? state.quiz_of_the_table : dice.between(1, 6);
  if (dice.one_in(40)) state.ticked_quiz = 0;
  if (dice.one_in(6)) state.bank_total = dice.between(1, 8) * dice.between(1, 8);
  if (dice.one_in(3)) {
    const int odd[] = {0, 0, 1, 2, 60, 150, 151, -1};
    for (int left = dice.between(1, 80); left > 0; --left) {
      state.categories[dice.between(1, 360)] = dice.one_of(odd);
    }
  }
  state.before.retake_wrong_mode = dice.one_in(5) ? 1 : 0;
  for (int i = 1; i <= 21; ++i) {
    if (dice.one_in(3)) state.kept_categories.push_back(i);
  }
  if (dice.one_in(12)) state.kept_categories.clear();
  if (dice.one_in(6)) state.kept_categories = {dice.between(1, 21)};
  state.kept_by_buttons = dice.one_in(2);
  if (dice.one_in(2)) state.settings["studentname"] = "EARLIER";
}

std::string list_in_words(const std::vector<int>& list, std::size_t most = 30) {
  std::string words;
  for (std::size_t i = 0; i < std::min(most, list.size()); ++i) {
    words += (i == 0 ? "" : " ") + std::to_string(list[i]);
  }
  if (list.size() > most) words += " ... (" + std::to_string(list.size()) + ")";
  return words.empty() ? "nothing" : words;
}

}  // namespace

const std::vector<std::string>& boxes() {
  static const std::vector<std::string> all = {"timeron",
                                               "answer_when_wrong",
                                               "answer_when_right",
                                               "random_questions",
                                               "random_answers",
                                               "scoregraph",
                                               "backb",
                                               "showhowmanyanswers",
                                               "chkEmbed",
                                               "chkRadio",
                                               "askwrong"};
  return all;
}

State random_state(const std::string& exam, unsigned number) {
  Dice dice(exam, number);
  const Way ways[] = {Way::routine,         Way::routine,         Way::start_button,
                      Way::category_button, Way::category_button, Way::retake};
  State state;
  state.exam = exam;
  state.number = number;
  state.way = dice.one_of(ways);
  state.name = name(dice);
  state.minutes = dice.one_of(whole_numbers);
  state.howmany = dice.one_of(whole_numbers);
  for (const std::string& box : boxes()) state.boxes[box] = dice.between(0, 1);
  state.random_answers_shown = std::stoi(exam) != robin || dice.one_in(2);
  state.results = results(dice);
  state.other_students_results = dice.one_in(2);
  if (!dice.one_in(4)) {
    const int lengths[] = {1, 1, 2, 3, 20, 50, 60, 355};
    state.wrong_list = dice.list(dice.one_of(lengths), 1, dice.one_in(10) ? 1000 : 280);
  }
  state.draws = draws(dice);
  state.before = leftovers(dice);
  if (state.way == Way::retake) {
    choose_for_retake(dice, state);
  } else {
    choose_on_screen(dice, state);
  }
  const char* const asked[] = {"0", "1", ""};
  if (dice.one_in(2)) state.settings["askname"] = dice.one_of(asked);
  // A text beyond 16 bits gives no number, so that what stood before remains.
  if (!state.minutes.number) state.before.time_limit_minutes = 0;
  if (!state.howmany.number)
    state.before.question_total = std::min(50, state.before.question_total);
  state.settings_full = dice.one_in(50);
  state.asks_for_a_name = dice.one_in(5);
  state.answers_yes = dice.one_in(2);
  state.clock = 1'000'000'000 + dice.between(0, 9'999'999);
  return state;
}

std::string in_words(const State& state) {
  const Leftovers& before = state.before;
  std::ostringstream words;
  const auto yes = [](bool flag) { return flag ? "yes" : "no"; };
  words << "state " << state.number << " of exam " << state.exam << ", seed " << seed << '\n';
  switch (state.way) {
    case Way::routine:
      words << "started by a call of the routine";
      break;
    case Way::start_button:
      words << "started by the start button";
      break;
    case Way::category_button:
      words << "started by the category button";
      break;
    case Way::retake:
      words << "started by a retake of quiz " << before.selected_quiz;
      break;
  }
  words << "\nstudent \"" << state.name.typed << "\", which is \"" << state.name.cleaned << "\"";
  words << "\nsettings:";
  for (const auto& [key, value] : state.settings) words << ' ' << key << "=\"" << value << '"';
  words << (state.settings_full ? ", and the store is full" : "");
  words << "\nasks for a name: " << yes(state.asks_for_a_name)
        << ", is answered yes: " << yes(state.answers_yes);
  if (state.way != Way::retake) {
    words << "\nbank of quiz " << state.quiz_of_the_table << " in the table, quiz "
          << state.clicked_quiz << " clicked, quiz " << state.ticked_quiz << " ticked";
    if (state.bank_total) words << ", bank cut to " << *state.bank_total << " rows";
    words << "\nrows of another category:";
    for (const auto& [row, category] : state.categories) words << ' ' << row << '=' << category;
    words << "\nminutes \"" << state.minutes.typed << "\", how many \"" << state.howmany.typed
          << "\"\nboxes ticked:";
    for (const auto& [box, value] : state.boxes) words << (value == 1 ? " " + box : "");
    words << (state.random_answers_shown ? "" : " (random_answers is hidden)");
    words << "\ncategories left to ask: " << list_in_words(state.kept_categories)
          << ", by the buttons: " << yes(state.kept_by_buttons);
  }
  words << "\nresults file: ";
  if (!state.results) words << "none";
  if (state.results) {
    words << state.results->size() << " lines, taken:";
    for (std::size_t i = 0; i < std::min<std::size_t>(60, state.results->size()); ++i) {
      words << ' ' << (*state.results)[i].taken;
    }
  }
  words << "\nresults file of another student: " << yes(state.other_students_results)
        << "\nwrong list: " << list_in_words(state.wrong_list, 60)
        << "\ndraws, of 16777216: " << list_in_words(state.draws) << "\nbefore: total "
        << before.question_total << ", stride " << before.order_stride << ", base "
        << before.order_base << ", bank size " << before.bank_size << ", selected quiz "
        << before.selected_quiz << ", retake of wrong ones " << before.retake_wrong_mode
        << ", category filter " << yes(before.category_filter_on) << ", active categories";
  for (std::size_t i = 0; i < before.category_active.size(); ++i) {
    if (before.category_active[i] == 1) words << ' ' << i;
  }
  words << '\n';
  return words.str();
}

}  // namespace practice::composing
