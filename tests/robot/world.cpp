#include "robot/world.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "platform/controls.h"
#include "platform/values/fault.h"
#include "platform/values/text.h"
#include "session/helpers.h"

namespace practice::robot {

std::string MemoryFiles::key(std::string_view path) const {
  std::string full(path);
  if (full.find_first_of("\\/") == std::string::npos) full = working_folder + "\\" + full;
  std::ranges::replace(full, '/', '\\');
  std::string result;
  for (const char c : lower(full)) {
    if (c != '\\' || !result.ends_with('\\')) result += c;
  }
  return result;
}

bool MemoryFiles::exists(std::string_view path) const { return files_.contains(key(path)); }

std::string MemoryFiles::read(std::string_view path) const {
  const auto file = files_.find(key(path));
  if (file == files_.end()) throw Fault::file_not_found();
  if (sealed_.contains(file->first)) throw Fault::permission_denied();
  return file->second.content;
}

std::string MemoryFiles::read_start(std::string_view path, std::size_t bytes) const {
  return read(path).substr(0, bytes);
}

MemoryFiles::File& MemoryFiles::writable(std::string_view path) {
  const std::string wanted = key(path);
  if (protected_.contains(wanted)) throw Fault::permission_denied();
  File& file = files_[wanted];
  if (file.name.empty()) file.name = path;
  return file;
}

void MemoryFiles::write(std::string_view path, std::string_view content) {
  if (kept_.contains(key(path))) throw Fault::permission_denied();
  writable(path).content = content;
}

void MemoryFiles::append(std::string_view path, std::string_view content) {
  writable(path).content += content;
}

void MemoryFiles::remove(std::string_view path) {
  removed.emplace_back(path);
  if (files_.erase(key(path)) == 0) throw Fault::file_not_found();
}

void MemoryFiles::protect(std::string_view path) { protected_[key(path)] = true; }

void MemoryFiles::keep(std::string_view path) { kept_[key(path)] = true; }

void MemoryFiles::seal(std::string_view path) { sealed_[key(path)] = true; }

void MemoryFiles::open(std::string_view path) { sealed_.erase(key(path)); }

std::vector<std::string> MemoryFiles::names() const {
  std::vector<std::string> result;
  for (const auto& [path, file] : files_) result.push_back(file.name);
  return result;
}

std::string MemorySettings::get(std::string_view application, std::string_view section,
                                std::string_view key, std::string_view default_value) const {
  const auto value =
      values.find({std::string(application), std::string(section), std::string(key)});
  return value == values.end() ? std::string(default_value) : value->second;
}

void MemorySettings::save(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view value) {
  if (is_full) throw Fault::disk_full();
  values[{std::string(application), std::string(section), std::string(key)}] = value;
}

int RecordedShell::open(std::string_view target, std::string_view folder, WindowShow show) {
  calls.push_back("open " + std::string(target));
  opened.push_back({std::string(target), std::string(folder), show});
  return result;
}

void RecordedShell::start(std::string_view command_line) {
  calls.push_back("start " + std::string(command_line));
  if (!program) throw Fault::file_not_found();
  program(std::string(command_line));
}

void RecordedShell::send_media_command(std::string_view command) {
  calls.push_back("media " + std::string(command));
}

std::string RecordedShell::class_of(std::string_view extension) const {
  return extension == ".pdf" ? pdf_class : std::string();
}

std::string RecordedShell::find_on_path(std::string_view name) const {
  const auto found = on_path.find(name);
  return found == on_path.end() ? std::string() : found->second;
}

Answer ScriptedMessages::show(const MessageBox& box) {
  shown.push_back(box);
  if (while_open) while_open();
  if (box.buttons == Buttons::ok) return Answer::ok;
  if (answers.empty()) throw RobotFailure{"nobody answers the box \"" + box.text + "\""};
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::string ScriptedMessages::ask(const InputBox& box) {
  asked.push_back(box);
  if (while_open) while_open();
  if (typed.empty()) throw RobotFailure{"nobody answers the question \"" + box.text + "\""};
  std::string answer = std::move(typed.front());
  typed.pop_front();
  return answer;
}

std::string ScriptedClock::date_and_time() const {
  const auto day_seconds = seconds() % 86'400;
  char text[32];
  std::snprintf(text, sizeof text, "11/21/26 %02d:%02d:%02d", static_cast<int>(day_seconds / 3600),
                static_cast<int>(day_seconds / 60 % 60), static_cast<int>(day_seconds % 60));
  return text;
}

float ScriptedRandom::next() {
  if (!draws.empty()) {
    const float draw = draws.front();
    draws.pop_front();
    return draw;
  }
  state_ = state_ * 1'664'525u + 1'013'904'223u;
  return static_cast<float>(state_ >> 8) / 16'777'216.0f;
}

void MemoryStage::pump() {
  clock_.milliseconds += 50;
  if (forms != nullptr) {
    for (Screen* screen : forms->all()) {
      if (screen == nullptr || !screen->loaded) continue;
      for (const ControlEntry& entry : screen->controls()) {
        if (auto* const* control = std::get_if<HtmlView*>(&entry.control)) {
          (*control)->view.finish_navigation(files_);
          (*control)->view.busy = false;
        }
      }
    }
  }
  if (during_pump) during_pump();
}

void MemoryStage::run_modal(Screen& screen) {
  if (!modal_user) throw RobotFailure{"nobody closes the screen " + screen.form_name};
  modal_user(screen);
  if (screen.visible) throw RobotFailure{"the screen " + screen.form_name + " was left open"};
}

void MemoryStage::print(html::View& view) { printed.push_back(view.document.written()); }

TextSize MemoryStage::text_size(std::string_view text, const TextFont& font, double width) const {
  constexpr double twips_per_point = 20;
  const double points = font.points > 0 ? font.points : 9;
  const double letter = points * twips_per_point / 2;
  TextSize size;
  for (const std::string& line : split_lines(text)) {
    const double length = letter * static_cast<double>(character_count(line));
    const double rows = width > 0 ? std::max(1.0, std::ceil(length / width)) : 1;
    size.width = std::max(size.width, width > 0 ? std::min(length, width) : length);
    size.height += rows * points * twips_per_point * 1.2;
  }
  return size;
}

double MemoryStage::text_width(std::string_view text) const {
  constexpr double twips_per_character = 105;
  return twips_per_character * static_cast<double>(character_count(text));
}

}  // namespace practice::robot
