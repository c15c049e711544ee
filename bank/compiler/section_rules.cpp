#include <string>

#include "bank_compiler/reference.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

void check_place_in_book(const RowSource& row, BankKind kind, const Chapters& chapters,
                         const Reporter& report) {
  const auto section = chapters.sections.find(*row.section.value);
  if (section == chapters.sections.end()) {
    report(row.section.line, "a question names a section of the book",
           in_quotes(*row.section.value));
  } else if (kind == BankKind::book && row.category.value &&
             section->second.chapter != *row.category.value) {
    report(
        row.section.line, "a question of a book bank names a section of its own chapter",
        in_quotes(*row.section.value) + " of chapter " + std::to_string(section->second.chapter));
  }
}

void check_bank(const BankSource& bank, bool book_is_written, const Chapters& chapters,
                Faults& faults) {
  const Reporter report(bank.file, faults);
  for (const RowSource& row : bank.rows) {
    if (row.section.line == 0 && bank.kind == BankKind::book) {
      report(row.line, "every question of a book bank names its section", "none");
    }
    if (row.section.value && book_is_written) {
      check_place_in_book(row, bank.kind, chapters, report);
    }
    if (!row.reference_form.value) continue;
    if (!reference_form_of(*row.reference_form.value)) {
      report(row.reference_form.line, "the form of a reference is heading, blank, page or none",
             in_quotes(*row.reference_form.value));
    } else if (row.section.line == 0) {
      report(row.reference_form.line, "the form of a reference needs a section", "none");
    }
  }
}

}  // namespace

void check_sections(const ExamSource& exam, const ExamPlan& plan, Faults& faults,
                    Shortfalls& shortfalls) {
  const int written = static_cast<int>(exam.chapters.files.size());
  if (written < plan.book_categories) {
    shortfalls.push_back(std::string(plan.exam) + " text: " + std::to_string(written) + " of " +
                         std::to_string(plan.book_categories) + " chapters");
  }
  const bool book_is_written = written >= plan.book_categories;
  check_bank(exam.book, book_is_written, exam.chapters, faults);
  check_bank(exam.extra, book_is_written, exam.chapters, faults);
}

}  // namespace practice::compiler
