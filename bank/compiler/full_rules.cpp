#include <algorithm>
#include <map>
#include <optional>
#include <string>

#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

using Changes = std::map<std::int64_t, const ChangeSource*>;

std::optional<std::string> name_at(const TextList& list, std::int64_t number) {
  if (number < 1 || number > static_cast<std::int64_t>(list.entries.size())) return std::nullopt;
  return list.entries[static_cast<std::size_t>(number) - 1].value;
}

bool has_name(const TextList& list, const std::string& name) {
  return std::ranges::any_of(list.entries,
                             [&](const TextEntry& entry) { return entry.value == name; });
}

const RowSource* row_at(const BankSource& bank, std::int64_t number) {
  if (number < 1 || number > static_cast<std::int64_t>(bank.rows.size())) return nullptr;
  return &bank.rows[static_cast<std::size_t>(number) - 1];
}

void check_category(const ChangeSource& change, const ExamSource& exam, const Reporter& report) {
  const std::int64_t category = *change.category.value;
  const std::size_t count = exam.full.head.categories.entries.size();
  if (count > 0 && !name_at(exam.full.head.categories, category)) {
    report(change.category.line, "a category must be 1 to " + std::to_string(count),
           std::to_string(category));
  }
  if (!change.extra_row.value) return;
  const RowSource* row = row_at(exam.extra, *change.extra_row.value);
  if (row != nullptr && row->category.value == category) {
    report(change.category.line, "a change gives the row another category than its own",
           std::to_string(category));
  }
}

// The changes that name a row, each checked for itself and against the one before.
Changes check_changes(const ExamSource& exam, const Reporter& report) {
  Changes changes;
  std::int64_t last = 0;
  for (const ChangeSource& change : exam.full.changes) {
    if (change.category.value && exam.extra.whole) check_category(change, exam, report);
    if (!change.extra_row.value) continue;
    const std::int64_t number = *change.extra_row.value;
    const int line = change.extra_row.line;
    if (exam.extra.whole && row_at(exam.extra, number) == nullptr) {
      report(line, "extra_row must be 1 to " + std::to_string(exam.extra.rows.size()),
             std::to_string(number));
    }
    if (number == last) {
      report(line, "an extra row is changed once", std::to_string(number));
    } else if (number < last) {
      report(line, "changes stand by rising extra_row",
             std::to_string(number) + " after " + std::to_string(last));
    }
    last = number;
    changes.try_emplace(number, &change);
  }
  return changes;
}

std::string in_words(const RowSource& row, std::size_t number, const std::string& category) {
  return "extra row " + std::to_string(number) + " of line " + std::to_string(row.line) +
         " is in " + in_quotes(category);
}

// In the full bank a row stands under the name that it has in the extra bank.
void check_name(const ExamSource& exam, std::size_t number, const ChangeSource* change,
                const Reporter& report) {
  const RowSource& row = exam.extra.rows[number - 1];
  const TextList& full_list = exam.full.head.categories;
  if (!row.category.value || (change != nullptr && !change->category.value)) return;
  const auto own_name = name_at(exam.extra.head.categories, *row.category.value);
  if (!own_name) return;
  const auto full_name = name_at(full_list, *row.category.value);
  const auto changed_name =
      change != nullptr ? name_at(full_list, *change->category.value) : std::nullopt;
  const std::string what = in_words(row, number, *own_name);
  const bool known = has_name(full_list, *own_name);
  if (!known && kind_of(row) != RowKind::simulator) {
    report(full_list.line, "the full list has every category but that of simulator questions",
           what);
  } else if (change == nullptr && full_name != own_name) {
    report(full_list.line, "a row whose category has another number here needs a [[change]]", what);
  } else if (change != nullptr && known && changed_name && changed_name != own_name) {
    report(change->category.line, "a change leads to the category of the same name",
           what + ", the change leads to " + in_quotes(*changed_name));
  }
}

void check_questions_of_both(const ExamSource& exam, Faults& faults) {
  const Reporter report(exam.extra.file, faults);
  std::map<std::string_view, int> lines_in_book;
  for (const RowSource& row : exam.book.rows) {
    if (row.question.value) lines_in_book.try_emplace(*row.question.value, row.line);
  }
  for (const RowSource& row : exam.extra.rows) {
    if (!row.question.value) continue;
    const auto place = lines_in_book.find(*row.question.value);
    if (place == lines_in_book.end()) continue;
    report(row.question.line, "no question stands in the book bank and in the extra bank",
           "the same text in the book bank's row of line " + std::to_string(place->second));
  }
}

}  // namespace

void check_full(const ExamSource& exam, const ExamPlan& plan, Faults& faults) {
  const Reporter report(exam.full.file, faults);
  check_questions_of_both(exam, faults);
  if (!plan.extra_has_categories) {
    for (const ChangeSource& change : exam.full.changes) {
      report(change.line, "the full bank of this exam has no changes", "a change");
    }
    return;
  }
  const Changes changes = check_changes(exam, report);
  if (!exam.full.whole || !exam.extra.whole || exam.full.head.categories.line == 0) return;
  for (std::size_t number = 1; number <= exam.extra.rows.size(); ++number) {
    const auto change = changes.find(static_cast<std::int64_t>(number));
    check_name(exam, number, change == changes.end() ? nullptr : change->second, report);
  }
}

}  // namespace practice::compiler
