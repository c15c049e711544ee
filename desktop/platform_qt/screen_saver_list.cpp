#include "platform_qt/screen_saver_list.h"

#include <vector>

#include "platform/values/text.h"

namespace practice::desktop {
namespace {

constexpr std::string_view file_name_end = "study_saver.scr";
constexpr std::string_view entry_end = "\\n";

struct Setting {
  std::string key{};
  /// As it stands, without the line breaks that a backslash takes back.
  std::string value{};
};

// Comments and what else has no colon are settings without a key.
std::vector<Setting> settings_in(std::string_view list) {
  std::vector<Setting> settings;
  while (!list.empty()) {
    std::string line;
    bool goes_on = true;
    while (goes_on && !list.empty()) {
      const auto end = list.find('\n');
      line += list.substr(0, end);
      list.remove_prefix(end == list.npos ? list.size() : end + 1);
      goes_on = line.ends_with('\\');
      if (goes_on) line.pop_back();
    }
    const auto colon = line.find(':');
    const bool has_key =
        colon != line.npos && !line.starts_with('#') && line.find_first_of(" \t") > colon;
    if (has_key) {
      settings.push_back({.key = line.substr(0, colon), .value = line.substr(colon + 1)});
    } else {
      settings.push_back({.key = {}, .value = line});
    }
  }
  return settings;
}

std::string& value_of(std::vector<Setting>& settings, std::string_view key) {
  for (Setting& setting : settings) {
    if (setting.key == key) return setting.value;
  }
  return settings.emplace_back(Setting{.key = std::string(key), .value = {}}).value;
}

std::string_view without_blanks(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  const auto first = text.find_first_not_of(blanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> entries_in(std::string_view programs) {
  std::vector<std::string> entries;
  while (!programs.empty()) {
    const auto end = programs.find(entry_end);
    const std::string_view entry = without_blanks(programs.substr(0, end));
    programs.remove_prefix(end == programs.npos ? programs.size() : end + entry_end.size());
    if (!entry.empty()) entries.emplace_back(entry);
  }
  return entries;
}

// As the shell reads it back, which starts the programs whose lines have quotes in them.
std::string quoted(std::string_view path) {
  if (path.find_first_of(" '\"$`\\") == path.npos) return std::string(path);
  return "'" + replace_all(path, "'", "'\\''") + "'";
}

}  // namespace

std::string with_our_saver(std::string_view list, std::string_view program) {
  std::vector<Setting> settings = settings_in(list);
  std::string& programs = value_of(settings, "programs");
  std::string lines = "\\\n  \"Practice Exam Study Saver\" " + quoted(program) + " --root \\n\\\n";
  for (const std::string& entry : entries_in(programs)) {
    if (!contains(entry, file_name_end)) lines += "  " + entry + " \\n\\\n";
  }
  programs = "\t" + lines;
  value_of(settings, "mode") = "\t\tone";
  value_of(settings, "selected") = "\t0";
  std::string text;
  for (const Setting& setting : settings) {
    if (!setting.key.empty()) text += setting.key + ":";
    text += setting.value + "\n";
  }
  return text;
}

}  // namespace practice::desktop
