#include <algorithm>
#include <string>

#include "bank_compiler/row_form.h"
#include "bank_compiler/rules.h"

namespace practice::compiler {
namespace {

std::string in_words(const ExamPlan& plan, BankKind kind, int count, int planned,
                     std::string_view what) {
  return std::string(plan.exam)
      .append(" ")
      .append(name_of(kind))
      .append(": ")
      .append(std::to_string(count))
      .append(" of ")
      .append(std::to_string(planned))
      .append(" ")
      .append(what);
}

// Counts the rows that `counts` picks; the first one too many is the fault.
template <typename Counts>
int count_rows(const BankSource& bank, int most, std::string_view what, Faults& faults,
               Counts counts) {
  int count = 0;
  int first_surplus_line = 0;
  for (const RowSource& row : bank.rows) {
    if (!counts(row)) continue;
    if (++count == most + 1) first_surplus_line = row.line;
  }
  if (count > most) {
    Reporter(bank.file, faults)(
        first_surplus_line,
        "the plan has " + std::to_string(most) + " " + std::string(what) + " here",
        std::to_string(count));
  }
  return count;
}

bool is_simulator(const RowSource& row) { return kind_of(row) == RowKind::simulator; }

void check_rows_planned(const BankSource& bank, const ExamPlan& plan, int planned, Faults& faults,
                        Shortfalls& shortfalls) {
  const int count =
      count_rows(bank, planned, "rows", faults, [](const RowSource&) { return true; });
  if (count < planned) shortfalls.push_back(in_words(plan, bank.kind, count, planned, "rows"));
}

}  // namespace

void check_counts(const ExamSource& exam, const ExamPlan& plan, Faults& faults,
                  Shortfalls& shortfalls) {
  check_rows_planned(exam.book, plan, plan.book_rows, faults, shortfalls);
  if (plan.first_chapter_rows > 0) {
    const int count = count_rows(exam.book, plan.first_chapter_rows, "rows in category 1", faults,
                                 [](const RowSource& row) { return row.category.value == 1; });
    if (count < plan.first_chapter_rows) {
      shortfalls.push_back(
          in_words(plan, BankKind::book, count, plan.first_chapter_rows, "rows in category 1"));
    }
  }
  // Before the bank is complete nobody can tell which rows are still to come.
  if (plan.book_explanations > 0 && static_cast<int>(exam.book.rows.size()) >= plan.book_rows) {
    const auto count = static_cast<int>(std::ranges::count_if(exam.book.rows, has_explanation));
    if (count < plan.book_explanations) {
      shortfalls.push_back(
          in_words(plan, BankKind::book, count, plan.book_explanations, "explanations"));
    }
  }
  check_rows_planned(exam.extra, plan, plan.extra_rows, faults, shortfalls);
  if (!plan.extra_has_categories) return;
  const int simulators =
      count_rows(exam.extra, simulator_rows + 1, "simulator rows", faults, is_simulator);
  if (simulators < simulator_rows) {
    shortfalls.push_back(
        in_words(plan, BankKind::extra, simulators, simulator_rows, "simulator rows"));
  }
}

void check_exam(const ExamSource& exam, const ExamPlan& plan, const ContentFiles& content,
                Faults& faults, Shortfalls& shortfalls) {
  for (const BankSource* bank : {&exam.book, &exam.extra, &exam.full}) {
    check_head(*bank, plan, faults);
    check_rows(*bank, plan, content, faults);
    check_evenness(*bank, faults);
  }
  check_full(exam, plan, faults);
  check_sections(exam, plan, faults, shortfalls);
  check_labs(exam, plan, faults, shortfalls);
  check_counts(exam, plan, faults, shortfalls);
}

void check_simulator_counts(const std::vector<ExamSource>& exams, Faults& faults,
                            Shortfalls& shortfalls) {
  int exams_with_one_more = 0;
  for (const ExamSource& exam : exams) {
    int count = 0;
    int surplus_line = 0;
    for (const RowSource& row : exam.extra.rows) {
      if (is_simulator(row) && ++count == simulator_rows + 1) surplus_line = row.line;
    }
    if (count <= simulator_rows || ++exams_with_one_more == 1) continue;
    Reporter(exam.extra.file, faults)(
        surplus_line, "only one exam has " + std::to_string(simulator_rows + 1) + " simulator rows",
        std::to_string(count) + " in one more exam");
  }
  if (exams_with_one_more == 0) {
    shortfalls.push_back("all exams: none has " + std::to_string(simulator_rows + 1) +
                         " simulator rows");
  }
}

}  // namespace practice::compiler
