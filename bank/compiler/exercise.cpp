#include "bank_compiler/exercise.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

#include "bank_compiler/raw_text.h"
#include "bank_compiler/text_form.h"
#include "bank_compiler/text_rules.h"
#include "toml_table.h"

namespace practice::compiler {
namespace {

constexpr std::array<std::string_view, 3> kinds{"order", "match", "sort"};

Exercise read_exercise(const toml::table& table, int line, const Reporter& report) {
  Exercise exercise{.line = line};
  TableReader reader(table, line, "[[exercise]]", report);
  reader.take("number", Need::required, exercise.number);
  reader.take("title", Need::required, exercise.title);
  reader.take("kind", Need::required, exercise.kind);
  reader.take("instruction", Need::required, exercise.instruction);
  reader.take("items", Need::required, exercise.items);
  reader.take("targets", Need::required, exercise.targets);
  reader.take("right", Need::required, exercise.right);
  reader.report_unknown_keys();
  return exercise;
}

// The texts are no HTML.
void check_plain_text(const TextEntry& entry, const std::string& name, const Reporter& report) {
  check_text(entry, {.name = name, .tags = false, .entities = false}, report);
  if (entry.value && is_blank(*entry.value)) {
    report(entry.line, "a text of an exercise must not be blank", name);
  }
}

// `what` is "item" or "target".
void check_list(const TextList& list, const std::string& what, const Reporter& report) {
  if (list.line > 0 && list.is_list && list.entries.empty()) {
    report(list.line, "an exercise has " + what + "s", "none");
  }
  std::map<std::string, std::size_t> numbers_by_text;
  for (std::size_t i = 0; i < list.entries.size(); ++i) {
    const TextEntry& entry = list.entries[i];
    const std::string name = what + " " + std::to_string(i + 1);
    check_plain_text(entry, name, report);
    if (!entry.value) continue;
    const auto [first, fresh] =
        numbers_by_text.try_emplace(in_lower_case(trimmed(*entry.value)), i + 1);
    if (fresh) continue;
    report(entry.line, "no two " + what + "s of an exercise may be alike",
           name + " and " + what + " " + std::to_string(first->second) + " are " +
               in_quotes(*entry.value));
  }
}

// Whether the entry is the number of one of the texts.
bool is_number_in(const NumberEntry& entry, const TextList& list, std::string_view what,
                  const Reporter& report) {
  if (!entry.value) return false;
  const auto count = static_cast<std::int64_t>(list.entries.size());
  if (*entry.value >= 1 && *entry.value <= count) return true;
  report(entry.line,
         "the " + std::string(what) + " of a pair must be 1 to " + std::to_string(count),
         std::to_string(*entry.value));
  return false;
}

void check_right(const Exercise& exercise, const Reporter& report) {
  std::set<std::int64_t> items;
  std::set<std::int64_t> targets;
  const bool one_each = exercise.kind.value == "order" || exercise.kind.value == "match";
  bool all_read = exercise.targets.is_list && exercise.right.is_list && exercise.right.line > 0;
  for (const NumberList& pair : exercise.right.lists) {
    all_read = all_read && pair.is_list;
    if (!pair.is_list) continue;
    if (pair.entries.size() != 2) {
      report(pair.line, "a pair is an item and a target", std::to_string(pair.entries.size()));
      all_read = false;
      continue;
    }
    const NumberEntry& item = pair.entries[0];
    const NumberEntry& target = pair.entries[1];
    all_read = all_read && item.value && target.value;
    if (is_number_in(item, exercise.items, "item", report) && !items.insert(*item.value).second) {
      report(item.line, "an item belongs to one target only",
             "item " + std::to_string(*item.value));
    }
    if (is_number_in(target, exercise.targets, "target", report) &&
        !targets.insert(*target.value).second && one_each) {
      report(
          target.line, "a target of an exercise of this kind takes one item only",
          "target " + std::to_string(*target.value) + ", kind " + in_quotes(*exercise.kind.value));
    }
  }
  // A pair that is wrong in itself may be the one that is missed here.
  if (!all_read) return;
  for (std::size_t i = 1; i <= exercise.targets.entries.size(); ++i) {
    if (targets.contains(static_cast<std::int64_t>(i))) continue;
    report(exercise.targets.entries[i - 1].line, "every target has an item that belongs to it",
           "target " + std::to_string(i) + " has none");
  }
}

}  // namespace

Exercises parse_exercises(std::string_view text, std::string file, Faults& faults) {
  const Reporter report(file, faults);
  Exercises exercises{.file = std::move(file)};
  const ReadableText readable = make_readable(text, report);
  toml::table root;
  if (!readable.whole) return exercises;
  if (const auto obstacle = parse_toml(readable.text, "a file of exercises", root)) {
    report(obstacle->line, obstacle->rule, obstacle->found);
    return exercises;
  }
  exercises.whole = true;
  TableReader reader(root, 1, "a file of exercises", report);
  reader.take("exam", Need::required, exercises.exam);
  reader.take_tables("exercise", Need::optional, true, [&](const toml::table& table, int line) {
    exercises.list.push_back(read_exercise(table, line, report));
  });
  reader.report_unknown_keys();
  return exercises;
}

void check_exercises(const Exercises& exercises, std::string_view exam, Faults& faults) {
  const Reporter report(exercises.file, faults);
  if (exercises.exam.value && *exercises.exam.value != exam) {
    report(exercises.exam.line, "a file of exercises is named after its exam",
           in_quotes(*exercises.exam.value));
  }
  std::map<std::int64_t, int> lines_by_number;
  for (const Exercise& exercise : exercises.list) {
    check_plain_text(exercise.title, "the title", report);
    check_plain_text(exercise.instruction, "the instruction", report);
    check_list(exercise.items, "item", report);
    check_list(exercise.targets, "target", report);
    if (exercise.kind.value && std::ranges::find(kinds, *exercise.kind.value) == kinds.end()) {
      report(exercise.kind.line, "the kind of an exercise is order, match or sort",
             in_quotes(*exercise.kind.value));
    }
    check_right(exercise, report);
    if (!exercise.number.value) continue;
    const std::int64_t number = *exercise.number.value;
    if (number < 1) {
      report(exercise.number.line, "exercises are numbered from 1", std::to_string(number));
    }
    const auto [first, fresh] = lines_by_number.try_emplace(number, exercise.line);
    if (!fresh) {
      report(exercise.number.line, "no number of an exercise stands twice",
             std::to_string(number) + ", the number of the exercise of line " +
                 std::to_string(first->second));
    }
  }
}

}  // namespace practice::compiler
