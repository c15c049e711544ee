#include <algorithm>
#include <string>

#include "bank_compiler/labs.h"
#include "bank_compiler/row_form.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

void check_conditions(const RowSource& row, const std::string& name, const Lab& lab,
                      const Reporter& report) {
  for (const TextEntry& answer : row.answers.entries) {
    if (!answer.value) continue;
    const auto [key, value] = condition_in(*answer.value);
    // What is no condition is told elsewhere.
    if (is_blank(key) || is_blank(value)) continue;
    const ResultVerdict verdict = verdict_on(key, value, lab);
    if (verdict == ResultVerdict::no_such_key) {
      report(answer.line, "the lab " + name + " has no such key", in_quotes(key));
    } else if (verdict == ResultVerdict::no_such_value) {
      report(answer.line, "the lab " + name + " gives this key no such value",
             in_quotes(*answer.value));
    }
  }
}

void check_exercise_number(const RowSource& row, const Exercises& exercises,
                           const Reporter& report) {
  const auto number = number_of(entry_of(row.answers, 1));
  if (!number || row.answers.entries.size() != 1) return;
  const bool known = std::ranges::any_of(exercises.list, [&](const Exercise& exercise) {
    // A number of the wrong type may have been meant for this one.
    return !exercise.number.value || *exercise.number.value == *number;
  });
  if (!known) report(row.answers.line, "no exercise of that number", std::to_string(*number));
}

}  // namespace

std::set<std::string> labs_of(const ExamSource& exam) {
  std::set<std::string> names;
  for (const BankSource* bank : {&exam.book, &exam.extra}) {
    for (const RowSource& row : bank->rows) {
      const std::string_view name = entry_of(row.exhibits, 2);
      if (kind_of(row) == RowKind::simulator && is_lab(name)) names.emplace(name);
    }
  }
  return names;
}

void check_labs(const ExamSource& exam, const ExamPlan& plan, Faults& faults,
                Shortfalls& shortfalls) {
  if (exam.labs == nullptr) return;
  const auto& labs = exam.labs->by_name;
  const auto exercises = exam.labs->exercises_by_exam.find(plan.exam);
  const bool exercises_exist = exercises != exam.labs->exercises_by_exam.end();
  std::set<std::string> missing;
  for (const BankSource* bank : {&exam.book, &exam.extra}) {
    const Reporter report(bank->file, faults);
    for (const RowSource& row : bank->rows) {
      const RowKind kind = kind_of(row);
      const std::string name(entry_of(row.exhibits, 2));
      if (kind == RowKind::drag_and_drop && !exercises_exist) {
        missing.insert(std::string(plan.exam) + "_drag");
      } else if (kind == RowKind::drag_and_drop && exercises->second.whole) {
        check_exercise_number(row, exercises->second, report);
      } else if (kind == RowKind::simulator && is_lab(name)) {
        const auto lab = labs.find(name);
        if (lab == labs.end()) {
          missing.insert(name);
        } else if (lab->second.whole) {
          check_conditions(row, name, lab->second, report);
        }
      }
    }
  }
  for (const std::string& name : missing) {
    shortfalls.push_back(std::string(plan.exam) + " labs: " + name + " is missing");
  }
}

}  // namespace practice::compiler
