#include "bank_compiler/row_form.h"

#include <algorithm>
#include <array>
#include <string>

#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

constexpr std::string_view drag_and_drop_marker = "xxxdnd";
constexpr std::string_view simulator_marker = "xxsim";
constexpr std::array<std::string_view, 4> markers{drag_and_drop_marker, simulator_marker,
                                                  "xxxmssim", "xxxmssim2"};
constexpr std::array<std::string_view, 7> labs{"3550",        "2950",     "basicip", "noip",
                                               "basic_frame", "bgproute", "lark"};
constexpr std::string_view digits = "0123456789";
constexpr std::string_view key_letters = "abcdefghijklmnopqrstuvwxyz0123456789_./-";
// The test run reads a longer value cut, and it would never match.
constexpr std::size_t most_value_bytes = 59;

bool is_key(std::string_view text) {
  return !text.empty() && text.find_first_not_of(key_letters) == text.npos;
}

// A "]" ends the key for the test run wherever it stands, so a value can not have one.
bool is_value(std::string_view text) { return !is_blank(text) && text.find(']') == text.npos; }

void check_condition(const TextEntry& answer, const Reporter& report) {
  if (!answer.value) return;
  const auto [key, value] = condition_in(*answer.value);
  // The brackets are there for keys with other letters in them.
  const bool key_stands = answer.value->starts_with('[') ? !is_blank(key) : is_key(key);
  if (!key_stands || !is_value(value) || trimmed(*answer.value) != *answer.value) {
    report(answer.line, "an answer of a simulator question is key=value or [key]value",
           in_quotes(*answer.value));
  } else if (trimmed(value).size() > most_value_bytes) {
    report(answer.line, "a value of a simulator's result has at most 59 bytes",
           std::to_string(trimmed(value).size()));
  }
}

void check_type_and_flags(const RowSource& row, const char* name, const Reporter& report) {
  if (row.type.value && *row.type.value != "single_answer") {
    report(row.type.line, std::string("a ") + name + " question is a single_answer",
           in_quotes(*row.type.value));
  }
  if (!row.correct.entries.empty()) {
    report(row.correct.line, std::string("a ") + name + " question has no correct answers",
           std::to_string(row.correct.entries.size()));
  }
}

void check_file(const TextEntry& entry, const char* list, bool text_file,
                const ContentFiles& content, const Reporter& report) {
  if (!entry.value || entry.value->empty()) return;
  const std::string& name = *entry.value;
  if (name.find_first_of("/\\") != name.npos) {
    report(entry.line, std::string(list) + " names a file without a folder", in_quotes(name));
  } else if (!content.contains(name)) {
    report(entry.line, std::string(list) + " names a file in the exam's folder", in_quotes(name));
  }
  if (text_file && !name.ends_with(".txt")) {
    report(entry.line, "an exhibit ends in .txt", in_quotes(name));
  }
}

void check_list_length(const TextList& list, const char* name, const Reporter& report) {
  if (list.entries.size() <= 3) return;
  report(list.line, std::string("a question has up to three ") + name,
         std::to_string(list.entries.size()));
}

// A question that sends a student to an exhibit or a diagram has one.
void check_mention(const RowSource& row, std::string_view words, const TextList& files,
                   const Reporter& report) {
  if (!row.question.value || row.question.value->find(words) == std::string::npos) return;
  if (std::ranges::any_of(files.entries, [](const TextEntry& entry) {
        return entry.value && !entry.value->empty();
      })) {
    return;
  }
  report(row.question.line, "a question that refers to it has it", in_quotes(words));
}

}  // namespace

std::string_view entry_of(const TextList& list, std::size_t number) {
  if (number > list.entries.size()) return {};
  const TextEntry& entry = list.entries[number - 1];
  return entry.value ? std::string_view(*entry.value) : std::string_view{};
}

Condition condition_in(std::string_view answer) {
  const bool bracketed = answer.starts_with('[');
  const auto end = answer.find(bracketed ? ']' : '=');
  if (end == answer.npos) return {};
  return {.key = answer.substr(bracketed ? 1 : 0, end - (bracketed ? 1 : 0)),
          .value = answer.substr(end + 1)};
}

bool is_lab(std::string_view name) { return std::ranges::find(labs, name) != labs.end(); }

bool is_marker(std::string_view diagram) {
  return std::ranges::find(markers, diagram) != markers.end();
}

RowKind kind_of(const RowSource& row) {
  const std::string_view marker = entry_of(row.diagrams, 1);
  if (marker == drag_and_drop_marker) return RowKind::drag_and_drop;
  if (marker == simulator_marker) return RowKind::simulator;
  return row.type.value == "fill_in_the_blank" ? RowKind::fill_in : RowKind::choice;
}

bool has_explanation(const RowSource& row) {
  return row.explanation.value && !is_blank(*row.explanation.value);
}

void check_files(const RowSource& row, const ContentFiles& content, const Reporter& report) {
  check_mention(row, "Refer to the exhibit", row.exhibits, report);
  check_mention(row, "Refer to the diagram", row.diagrams, report);
  check_list_length(row.exhibits, "exhibits", report);
  check_list_length(row.diagrams, "diagrams", report);
  const RowKind kind = kind_of(row);
  for (std::size_t i = 1; i <= row.exhibits.entries.size(); ++i) {
    if (i == 2 && kind == RowKind::simulator) continue;
    check_file(row.exhibits.entries[i - 1], "exhibits", true, content, report);
  }
  for (std::size_t i = 1; i <= row.diagrams.entries.size(); ++i) {
    const TextEntry& diagram = row.diagrams.entries[i - 1];
    const bool marker = i == 1 && is_marker(entry_of(row.diagrams, 1));
    if (!marker) check_file(diagram, "diagrams", false, content, report);
  }
}

void check_drag_and_drop(const RowSource& row, const Reporter& report) {
  check_type_and_flags(row, "drag and drop", report);
  const std::string_view number = entry_of(row.answers, 1);
  const bool is_number = !number.empty() && !number.starts_with('0') &&
                         number.find_first_not_of(digits) == number.npos;
  if (row.answers.line == 0 || !row.answers.is_list ||
      (row.answers.entries.size() == 1 && is_number))
    return;
  report(row.answers.line, "a drag and drop question has one answer, the number of the exercise",
         row.answers.entries.size() == 1 ? in_quotes(number)
                                         : std::to_string(row.answers.entries.size()) + " answers");
}

void check_simulator(const RowSource& row, const Reporter& report) {
  check_type_and_flags(row, "simulator", report);
  const std::string_view lab = entry_of(row.exhibits, 2);
  const int lab_line = row.exhibits.line > 0 ? row.exhibits.line : row.line;
  if (row.exhibits.is_list && lab.empty()) {
    report(lab_line, "exhibits of a simulator question name a lab in entry 2", in_quotes(lab));
  } else if (row.exhibits.is_list && !is_lab(lab)) {
    report(lab_line, "no lab of that name", in_quotes(lab));
  }
  if (row.clue.line == 0 || (row.clue.value && is_blank(*row.clue.value))) {
    report(row.clue.line > 0 ? row.clue.line : row.line, "a simulator question has a clue", "none");
  }
  for (const TextEntry& answer : row.answers.entries) check_condition(answer, report);
}

}  // namespace practice::compiler
