#include "robot/script.h"

#include <functional>
#include <map>
#include <string_view>

#include "platform/values/text.h"
#include "robot/json.h"

namespace practice::robot {
namespace {

using Words = std::vector<std::string>;

int number(const std::string& word) {
  std::size_t used = 0;
  int value = 0;
  try {
    value = std::stoi(word, &used);
  } catch (const std::exception&) {
    used = 0;
  }
  if (used != word.size() || word.empty()) throw RobotFailure{"\"" + word + "\" is no number"};
  return value;
}

double decimal(const std::string& word) {
  std::size_t used = 0;
  double value = 0;
  try {
    value = std::stod(word, &used);
  } catch (const std::exception&) {
    used = 0;
  }
  if (used != word.size() || word.empty()) throw RobotFailure{"\"" + word + "\" is no number"};
  return value;
}

int optional_number(const Words& words, std::size_t place) {
  return words.size() > place ? number(words[place]) : 0;
}

Answer answer_named(const std::string& word) {
  if (word == "yes") return Answer::yes;
  if (word == "no") return Answer::no;
  if (word == "ok") return Answer::ok;
  if (word == "cancel") return Answer::cancel;
  throw RobotFailure{"there is no answer \"" + word + "\""};
}

struct Command {
  std::size_t least_words;
  std::size_t most_words;
  std::string_view usage;
  std::function<void(Robot&, const Words&)> run;
};

constexpr std::size_t any_number = 1000;

const std::map<std::string, Command, std::less<>>& commands() {
  static const std::map<std::string, Command, std::less<>> table{
      {"start",
       {1, any_number, "start [COMMAND LINE]",
        [](Robot& robot, const Words& w) {
          std::string line;
          for (std::size_t i = 1; i < w.size(); ++i) line += (i > 1 ? " " : "") + w[i];
          robot.start(line);
        }}},
      {"click",
       {3, 4, "click SCREEN CONTROL [INDEX]",
        [](Robot& robot, const Words& w) { robot.click(w[1], w[2], optional_number(w, 3)); }}},
      {"double_click",
       {3, 4, "double_click SCREEN CONTROL [INDEX]",
        [](Robot& robot, const Words& w) {
          robot.double_click(w[1], w[2], optional_number(w, 3));
        }}},
      {"type",
       {5, 5, "type SCREEN CONTROL INDEX TEXT",
        [](Robot& robot, const Words& w) { robot.type(w[1], w[2], number(w[3]), w[4]); }}},
      {"select",
       {4, 5, "select SCREEN LIST ENTRY [also]",
        [](Robot& robot, const Words& w) {
          robot.select(w[1], w[2], number(w[3]), w.size() > 4 && w[4] == "also");
        }}},
      {"choose",
       {3, 3, "choose RADIO N",
        [](Robot& robot, const Words& w) { robot.choose(w[1], number(w[2])); }}},
      {"tick", {2, 2, "tick BOX", [](Robot& robot, const Words& w) { robot.tick(w[1], true); }}},
      {"clear", {2, 2, "clear BOX", [](Robot& robot, const Words& w) { robot.tick(w[1], false); }}},
      {"type_on_page",
       {3, 3, "type_on_page INPUT TEXT",
        [](Robot& robot, const Words& w) { robot.type_on_page(w[1], w[2]); }}},
      {"click_element",
       {2, 2, "click_element ID", [](Robot& robot, const Words& w) { robot.click_element(w[1]); }}},
      {"answer_rightly",
       {1, 1, "answer_rightly", [](Robot& robot, const Words&) { robot.answer_rightly(); }}},
      {"answer",
       {2, any_number, "answer yes|no|ok|cancel ...",
        [](Robot& robot, const Words& w) {
          for (std::size_t i = 1; i < w.size(); ++i) {
            robot.world.messages.answers.push_back(answer_named(w[i]));
          }
        }}},
      {"pass",
       {2, 2, "pass SECONDS", [](Robot& robot, const Words& w) { robot.pass(decimal(w[1])); }}},
      {"timer",
       {3, 3, "timer SCREEN TIMER",
        [](Robot& robot, const Words& w) { robot.tick_timer(w[1], w[2]); }}},
      {"draw",
       {2, any_number, "draw FRACTION ...",
        [](Robot& robot, const Words& w) {
          for (std::size_t i = 1; i < w.size(); ++i) {
            robot.world.random.draws.push_back(static_cast<float>(decimal(w[i])));
          }
        }}},
      {"distribution",
       {1, 1, "distribution", [](Robot& robot, const Words&) { robot.put_distribution(); }}},
      {"file",
       {3, 3, "file PATH CONTENT",
        [](Robot& robot, const Words& w) { robot.world.files.write(w[1], w[2]); }}},
      {"remove",
       {2, 2, "remove PATH",
        [](Robot& robot, const Words& w) {
          if (!robot.world.files.exists(w[1])) throw RobotFailure{"no file \"" + w[1] + "\""};
          robot.world.files.remove(w[1]);
        }}},
      {"setting",
       {5, 5, "setting APPLICATION SECTION KEY VALUE",
        [](Robot& robot, const Words& w) { robot.world.settings.save(w[1], w[2], w[3], w[4]); }}},
  };
  return table;
}

constexpr std::string_view show_usage =
    "show control SCREEN CONTROL [INDEX] | show screen SCREEN | show row N FIELD ... | show run | "
    "show page | show messages | show shell | show settings | show printed | show files | show "
    "file PATH";

std::vector<std::string> texts(const Slots<std::string, 6>& slots) {
  std::vector<std::string> result;
  for (int i = 1; i <= 6; ++i) result.push_back(slots[i]);
  return result;
}

std::vector<std::string> texts(const Slots<std::string, 3>& slots) {
  std::vector<std::string> result;
  for (int i = 1; i <= 3; ++i) result.push_back(slots[i]);
  return result;
}

std::string numbers(const Slots<Integer, 6>& slots) {
  std::string result = "[";
  for (int i = 1; i <= 6; ++i) result += (i > 1 ? "," : "") + std::to_string(int{slots[i]});
  return result + "]";
}

using FieldWriter = std::function<void(JsonObject&, const Question&)>;

const std::map<std::string, FieldWriter, std::less<>>& row_fields() {
  static const std::map<std::string, FieldWriter, std::less<>> table{
      {"question_text",
       [](auto& json, const auto& q) { json.add("question_text", q.question_text); }},
      {"answers", [](auto& json, const auto& q) { json.add("answers", texts(q.answers)); }},
      {"answer_correct",
       [](auto& json, const auto& q) {
         json.add_raw("answer_correct", numbers(q.answer_correct));
       }},
      {"explanation", [](auto& json, const auto& q) { json.add("explanation", q.explanation); }},
      {"question_type",
       [](auto& json, const auto& q) { json.add("question_type", q.question_type); }},
      {"diagrams", [](auto& json, const auto& q) { json.add("diagrams", texts(q.diagrams)); }},
      {"exhibits", [](auto& json, const auto& q) { json.add("exhibits", texts(q.exhibits)); }},
      {"question_id",
       [](auto& json, const auto& q) { json.add("question_id", int{q.question_id}); }},
      {"clue", [](auto& json, const auto& q) { json.add("clue", q.clue); }},
      {"book_reference",
       [](auto& json, const auto& q) { json.add("book_reference", q.book_reference); }},
      {"result_state",
       [](auto& json, const auto& q) { json.add("result_state", int{q.result_state}); }},
      {"answer_chosen",
       [](auto& json, const auto& q) { json.add_raw("answer_chosen", numbers(q.answer_chosen)); }},
      {"typed_answer", [](auto& json, const auto& q) { json.add("typed_answer", q.typed_answer); }},
      {"answers_shuffled",
       [](auto& json, const auto& q) { json.add("answers_shuffled", int{q.answers_shuffled}); }},
      {"category", [](auto& json, const auto& q) { json.add("category", int{q.category}); }},
      {"tutor_file", [](auto& json, const auto& q) { json.add("tutor_file", q.tutor_file); }},
      {"cycle_a", [](auto& json, const auto& q) { json.add("cycle_a", int{q.cycle_a}); }},
      {"cycle_b", [](auto& json, const auto& q) { json.add("cycle_b", int{q.cycle_b}); }},
      {"spare_text", [](auto& json, const auto& q) { json.add("spare_text", q.spare_text); }},
  };
  return table;
}

// What is particular to a kind of control.
struct KindWriter {
  JsonObject& json;

  void operator()(const Label* c) { json.add("caption", c->caption); }
  void operator()(const Button* c) { json.add("caption", c->caption); }
  void operator()(const CheckBox* c) {
    json.add("caption", c->caption).add("value", int{c->value});
  }
  void operator()(const OptionButton* c) { json.add("caption", c->caption).add("value", c->value); }
  void operator()(const TextBox* c) { json.add("text", c->text); }
  void operator()(const ListBox* c) {
    json.add("items", c->items).add("list_index", c->list_index);
  }
  void operator()(const ScrollBar* c) { json.add("value", c->value); }
  void operator()(const Picture* c) { json.add("file", c->file); }
  void operator()(const Shape* c) { json.add("height", static_cast<int>(c->bounds.height)); }
  void operator()(const Frame* c) { json.add("caption", c->caption); }
  void operator()(const Tabs* c) { json.add("captions", c->captions).add("tab", c->tab); }
  void operator()(const MenuEntry* c) {
    json.add("caption", c->caption).add("checked", c->checked);
  }
  void operator()(const Timer* c) { json.add("interval", c->interval); }
  void operator()(const HtmlView* c) { json.add("written", c->view.document.written()); }
};

const char* name_of(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok:
      return "ok";
    case Buttons::ok_cancel:
      return "ok_cancel";
    case Buttons::yes_no:
      return "yes_no";
  }
  return "";
}

}  // namespace

std::vector<std::string> words_of(std::string_view line) {
  Words words;
  for (std::size_t i = 0; i < line.size();) {
    if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
      ++i;
      continue;
    }
    std::string word;
    if (line[i] == '"') {
      for (++i; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
          word += line[i];
          continue;
        }
        const char c = line[++i];
        word += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
      }
      if (i == line.size()) throw RobotFailure{"a quote is not closed"};
      ++i;
    } else {
      while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') {
        word += line[i++];
      }
    }
    words.push_back(std::move(word));
  }
  return words;
}

Script::Script(Robot& robot, std::istream& in, std::ostream& out)
    : robot_(robot), in_(in), out_(out) {
  robot_.world.stage.modal_user = [this](Screen& screen) { run_until_hidden(screen); };
}

void Script::run() {
  try {
    while (run_next_line()) {
    }
  } catch (const RobotFailure& failure) {
    throw ScriptError{line_, failure.text};
  }
}

// While a modal screen is open the script goes on inside the call that opened it.
void Script::run_until_hidden(Screen& screen) {
  while (screen.visible) {
    if (!run_next_line()) {
      throw RobotFailure{"the script ends while the screen " + screen.form_name + " is open"};
    }
  }
}

bool Script::run_next_line() {
  std::string line;
  if (!std::getline(in_, line)) return false;
  ++line_;
  if (line.starts_with('#')) return true;
  const Words words = words_of(line);
  if (!words.empty()) perform(words);
  return true;
}

void Script::perform(const Words& words) {
  if (words[0] == "show") {
    show(words);
    return;
  }
  if (words[0] == "help") {
    for (const auto& [name, command] : commands()) out_ << "# " << command.usage << '\n';
    out_ << "# " << show_usage << '\n';
    return;
  }
  const auto command = commands().find(words[0]);
  if (command == commands().end()) {
    throw RobotFailure{"there is no command \"" + words[0] + "\""};
  }
  if (words.size() < command->second.least_words || words.size() > command->second.most_words) {
    throw RobotFailure{"usage: " + std::string(command->second.usage)};
  }
  command->second.run(robot_, words);
}

void Script::show(const Words& words) {
  const std::string what = words.size() > 1 ? words[1] : "";
  const World& world = robot_.world;
  if (what == "control" && words.size() >= 4) {
    show_control(robot_.screen(words[2]),
                 robot_.control(words[2], words[3], optional_number(words, 4)));
  } else if (what == "screen" && words.size() == 3) {
    const Screen& screen = robot_.screen(words[2]);
    out_ << JsonObject()
                .add("screen", screen.form_name)
                .add("caption", screen.caption)
                .add("loaded", screen.loaded)
                .add("visible", screen.visible)
                .add("focus", screen.focus().first)
                .text()
         << '\n';
  } else if (what == "row" && words.size() >= 4) {
    show_row(number(words[2]), {words.begin() + 3, words.end()});
  } else if (what == "run" && words.size() == 2) {
    show_run();
  } else if (what == "page" && words.size() == 2) {
    out_ << JsonObject().add("page", robot_.page().written()).text() << '\n';
  } else if (what == "messages" && words.size() == 2) {
    for (const MessageBox& box : world.messages.shown) {
      out_ << JsonObject()
                  .add("message", box.text)
                  .add("title", box.title)
                  .add("buttons", name_of(box.buttons))
                  .text()
           << '\n';
    }
  } else if (what == "shell" && words.size() == 2) {
    out_ << JsonObject().add("shell", world.shell.calls).text() << '\n';
  } else if (what == "printed" && words.size() == 2) {
    out_ << JsonObject().add("printed", world.stage.printed).text() << '\n';
  } else if (what == "settings" && words.size() == 2) {
    for (const auto& [key, value] : world.settings.values) {
      out_ << JsonObject()
                  .add("application", std::get<0>(key))
                  .add("section", std::get<1>(key))
                  .add("key", std::get<2>(key))
                  .add("value", value)
                  .text()
           << '\n';
    }
  } else if (what == "files" || what == "file") {
    show_files(words);
  } else {
    throw RobotFailure{"usage: " + std::string(show_usage)};
  }
}

void Script::show_control(Screen& screen, const ControlEntry& entry) {
  const Control& state = base_of(entry.control);
  JsonObject json;
  json.add("screen", screen.form_name)
      .add("control", entry.name)
      .add("index", entry.index)
      .add("visible", state.visible)
      .add("enabled", state.enabled);
  std::visit(KindWriter{json}, entry.control);
  out_ << json.text() << '\n';
}

void Script::show_row(int row, const Words& fields) {
  if (row < 0 || row > MAX_QUESTIONS) {
    throw RobotFailure{"there is no row " + std::to_string(row)};
  }
  JsonObject json;
  json.add("row", row);
  for (const std::string& field : fields) {
    const auto writer = row_fields().find(field);
    if (writer == row_fields().end()) {
      throw RobotFailure{"a row has no field \"" + field + "\""};
    }
    writer->second(json, robot_.program().question_table[row]);
  }
  out_ << json.text() << '\n';
}

void Script::show_run() {
  const TestRun& run = robot_.run();
  out_ << JsonObject()
              .add("question_position", int{run.question_position})
              .add("question_total", int{run.question_total})
              .add("current_row", int{run.current_row})
              .add("question_kind", run.question_kind)
              .add("answer_count", int{run.answer_count})
              .add("correct_count", int{run.correct_count})
              .add("right_count", int{run.right_count})
              .add("answer_verdict", int{run.answer_verdict})
              .add("selected_quiz", int{run.selected_quiz})
              .add("timed_run", int{run.timed_run})
              .text()
       << '\n';
}

void Script::show_files(const Words& words) {
  if (words[1] == "files") {
    out_ << JsonObject().add("files", robot_.world.files.names()).text() << '\n';
    return;
  }
  if (words.size() != 3) throw RobotFailure{"usage: " + std::string(show_usage)};
  if (!robot_.world.files.exists(words[2])) {
    throw RobotFailure{"there is no file \"" + words[2] + "\""};
  }
  out_
      << JsonObject().add("file", words[2]).add("content", robot_.world.files.read(words[2])).text()
      << '\n';
}

}  // namespace practice::robot
