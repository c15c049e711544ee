#include "robot/robot.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "platform/values/text.h"
#include "run/simulators.h"

namespace practice::robot {
namespace {

std::string content_of(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

}  // namespace

Robot::Robot() = default;

void Robot::put_distribution() {
  namespace fs = std::filesystem;
  const fs::path data = PRACTICE_EXAM_DATA;
  world.files.write("\\program\\q_bottom.ini", content_of(data / "distribution" / "q_bottom.ini"));
  for (const Exam& exam : exams()) {
    const std::string folder = "\\program\\" + replace_all(exam.data_file, ".dat", "\\");
    world.files.write(folder + "blank.htm", content_of(data / "distribution" / "blank.htm"));
    // An exam whose questions show nothing has no folder.
    const fs::path content = data / "exams" / lower(exam.name);
    if (!fs::is_directory(content)) continue;
    for (const auto& file : fs::directory_iterator(content)) {
      if (file.path().extension() == ".txt") {
        world.files.write(folder + file.path().filename().string(), content_of(file.path()));
      }
    }
  }
}

void Robot::start(std::string command_line) {
  application_ = std::make_unique<Application>(world.platform, std::move(command_line));
  world.stage.forms = &program().forms;
  application_->start();
}

Application& Robot::app() {
  if (!application_) throw RobotFailure{"the program has not been started"};
  return *application_;
}

Screen& Robot::screen(std::string_view name) {
  Screen* found = program().forms.find(name);
  if (found == nullptr) throw RobotFailure{"there is no screen " + quoted(name)};
  return *found;
}

const ControlEntry& Robot::control(std::string_view screen_name, std::string_view name, int index) {
  const ControlEntry* entry = screen(screen_name).find(name, index);
  if (entry == nullptr) {
    throw RobotFailure{"there is no control " + quoted(name) + " " + std::to_string(index) +
                       " on screen " + quoted(screen_name)};
  }
  return *entry;
}

const ControlEntry& Robot::usable(std::string_view screen_name, std::string_view name, int index) {
  const ControlEntry& entry = control(screen_name, name, index);
  const Screen& owner = screen(screen_name);
  const Control& state = base_of(entry.control);
  const std::string what =
      std::string(name) + " " + std::to_string(index) + " on " + std::string(screen_name);
  if (!owner.loaded || !owner.visible) throw RobotFailure{what + ": the screen is not shown"};
  if (!state.visible) throw RobotFailure{what + " is hidden"};
  if (!state.enabled) throw RobotFailure{what + " is disabled"};
  for (std::string menu = entry.menu; !menu.empty();) {
    const ControlEntry& around = control(screen_name, menu);
    if (!base_of(around.control).visible) throw RobotFailure{what + " is in a hidden menu"};
    menu = around.menu;
  }
  return entry;
}

void Robot::click(std::string_view screen_name, std::string_view name, int index) {
  const ControlEntry& entry = usable(screen_name, name, index);
  if (auto* const* box = std::get_if<CheckBox*>(&entry.control)) {
    (*box)->value = (*box)->value == 1 ? 0 : 1;
  }
  if (entry.click) {
    entry.click();
  } else if (!std::holds_alternative<CheckBox*>(entry.control)) {
    throw RobotFailure{std::string(name) + " does not answer to a click"};
  }
}

void Robot::double_click(std::string_view screen_name, std::string_view name, int index) {
  const ControlEntry& entry = usable(screen_name, name, index);
  if (!entry.double_click) {
    throw RobotFailure{std::string(name) + " does not answer to a double click"};
  }
  entry.double_click();
}

void Robot::type(std::string_view screen_name, std::string_view name, int index,
                 std::string_view text) {
  const ControlEntry& entry = usable(screen_name, name, index);
  auto* const* box = std::get_if<TextBox*>(&entry.control);
  if (box == nullptr) throw RobotFailure{std::string(name) + " is no text box"};
  (*box)->text = text;
  if (entry.change) entry.change();
}

void Robot::give_focus(std::string_view screen_name, std::string_view name) {
  const ControlEntry& entry = usable(screen_name, name, 0);
  screen(screen_name).note_focus(std::string(name), 0);
  if (entry.got_focus) entry.got_focus();
}

void Robot::move_mouse(std::string_view screen_name, std::string_view name, double x, double y) {
  const ControlEntry& entry = usable(screen_name, name, 0);
  if (entry.mouse_move) entry.mouse_move(x, y);
}

void Robot::press_key(std::string_view screen_name, int key_code) {
  const auto [name, index] = screen(screen_name).focus();
  if (name.empty()) throw RobotFailure{"nothing has the focus on " + std::string(screen_name)};
  const ControlEntry& entry = usable(screen_name, name, index);
  if (entry.key_down) entry.key_down(key_code);
}

void Robot::select(std::string_view screen_name, std::string_view name, int chosen, bool also) {
  const ControlEntry& entry = usable(screen_name, name, 0);
  auto* const* list = std::get_if<ListBox*>(&entry.control);
  if (list == nullptr) throw RobotFailure{std::string(name) + " is no list"};
  ListBox& box = **list;
  if (chosen < 0 || chosen >= static_cast<int>(box.items.size())) {
    throw RobotFailure{std::string(name) + " has no entry " + std::to_string(chosen)};
  }
  box.list_index = chosen;
  if (box.multi_select) {
    box.selected.resize(box.items.size());
    if (!also) std::fill(box.selected.begin(), box.selected.end(), false);
    box.selected[static_cast<std::size_t>(chosen)] = true;
  }
  if (entry.click) entry.click();
}

html::Document& Robot::page() {
  const auto page_of = [](const Screen& shown) -> html::Document* {
    for (const ControlEntry& entry : shown.controls()) {
      if (auto* const* view = std::get_if<HtmlView*>(&entry.control)) {
        return &(*view)->view.document;
      }
    }
    return nullptr;
  };
  if (const Screen* front = program().forms.in_front()) {
    if (html::Document* found = page_of(*front)) return *found;
    throw RobotFailure{"the screen " + front->form_name + " shows no page"};
  }
  // What stood in front is closed, and the screen behind it is to be seen again.
  for (const Form form : {Form::quest, Form::Diagram}) {
    const Screen* shown = program().forms.find(form);
    if (shown == nullptr || !shown->visible) continue;
    if (html::Document* found = page_of(*shown)) return *found;
  }
  throw RobotFailure{"no screen with a page is shown"};
}

void Robot::choose(std::string_view input, int n) {
  html::Input* found = page().input(input, n - 1);
  if (found == nullptr || found->kind != html::InputKind::radio) {
    throw RobotFailure{"the page has no choice " + std::to_string(n) + " of " + quoted(input)};
  }
  page().set_checked(*found, true);
}

void Robot::tick(std::string_view input, bool checked) {
  html::Input* found = page().input(input);
  if (found == nullptr || found->kind != html::InputKind::checkbox) {
    throw RobotFailure{"the page has no check box " + quoted(input)};
  }
  page().set_checked(*found, checked);
}

void Robot::type_on_page(std::string_view input, std::string_view text) {
  html::Input* found = page().input(input);
  if (found == nullptr || found->kind != html::InputKind::text) {
    throw RobotFailure{"the page has no text box " + quoted(input)};
  }
  found->value = text;
}

void Robot::click_element(std::string_view id) {
  html::Node* element = page().element_by_id(id);
  if (element == nullptr) throw RobotFailure{"the page has no element " + quoted(id)};
  if (!element->onclick) throw RobotFailure{quoted(id) + " does not answer to a click"};
  element->onclick();
}

void Robot::answer_rightly() {
  const Question& question = program().current_question;
  const std::string& question_kind = run().question_kind;
  if (question_kind == kind::fill_in) {
    type_on_page("txt_fill", question.answers[1]);
  } else if (question_kind == kind::sim) {
    std::string result = "[general]\r\n";
    for (int i = 1; i <= 6; ++i) result.append(question.answers[i]).append(crlf);
    world.files.write("\\program\\out.ini", result);
  } else if (is_simulator_marker(question.diagrams[1])) {
    world.files.write(result_file(program(), question.diagrams[1]),
                      "[Answer]\r\nresult=Success\r\n");
  } else {
    for (int i = 1; i <= 6; ++i) {
      if (question.answer_correct[i] != 1) continue;
      if (question_kind == kind::radio_button) choose("radio1", i);
      if (question_kind == kind::check_box) tick("ans" + std::to_string(i));
    }
  }
}

void Robot::pass(double seconds) {
  constexpr std::int64_t step = 100;
  for (auto left = static_cast<std::int64_t>(seconds * 1000); left > 0; left -= step) {
    world.clock.milliseconds += std::min(step, left);
    tick_due_timers(std::min(step, left));
  }
}

void Robot::tick_due_timers(std::int64_t step) {
  for (Screen* owner : program().forms.all()) {
    if (owner == nullptr) continue;
    for (const ControlEntry& entry : owner->controls()) {
      auto* const* timer = std::get_if<Timer*>(&entry.control);
      if (timer == nullptr) continue;
      std::int64_t& waited = waited_[{owner->form_name, entry.name}];
      if (!owner->loaded || !(*timer)->enabled || (*timer)->interval <= 0) {
        waited = 0;
        continue;
      }
      for (waited += step; waited >= (*timer)->interval; waited -= (*timer)->interval) {
        if (entry.click) entry.click();
        if (!owner->loaded || !(*timer)->enabled) break;
      }
    }
  }
}

void Robot::tick_timer(std::string_view screen_name, std::string_view name) {
  const ControlEntry& entry = control(screen_name, name);
  if (!std::holds_alternative<Timer*>(entry.control)) {
    throw RobotFailure{std::string(name) + " is no timer"};
  }
  if (entry.click) entry.click();
}

void Robot::close_answers() {
  world.stage.modal_user = [this](Screen& shown) { click(shown.form_name, "Closeb"); };
}

}  // namespace practice::robot
