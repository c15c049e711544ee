// The rules of content. Every check looks at all there is and reports each fault with its line;
// none stops at the first. check_exam() runs them all for one exam.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "bank_compiler/chapters.h"
#include "bank_compiler/fault.h"
#include "bank_compiler/plan.h"
#include "bank_compiler/source.h"

namespace practice::compiler {

struct Labs;

struct ExamSource {
  BankSource book{.kind = BankKind::book};
  BankSource extra{.kind = BankKind::extra};
  BankSource full{.kind = BankKind::full};
  Chapters chapters{};
  /// Null when nothing is to be held against labs and exercises.
  const Labs* labs = nullptr;
};

/// Names of the files in the exam's content folder.
using ContentFiles = std::set<std::string, std::less<>>;

enum class RowKind { choice, fill_in, drag_and_drop, simulator };
RowKind kind_of(const RowSource& row);

void check_head(const BankSource& bank, const ExamPlan& plan, Faults& faults);

/// Each row for itself, and what the rows of one bank must not do together.
void check_rows(const BankSource& bank, const ExamPlan& plan, const ContentFiles& content,
                Faults& faults);

/// The section that each row names. While chapters are missing, any will do.
void check_sections(const ExamSource& exam, const ExamPlan& plan, Faults& faults,
                    Shortfalls& shortfalls);

/// The full bank against the extra bank, and no question twice in the two banks it joins.
void check_full(const ExamSource& exam, const ExamPlan& plan, Faults& faults);

/// The names of the labs that the exam's simulator questions need, as far as such labs are planned.
std::set<std::string> labs_of(const ExamSource& exam);

/// Each simulator question against its lab, each drag and drop question against the exercises. What
/// is not written yet is a shortfall.
void check_labs(const ExamSource& exam, const ExamPlan& plan, Faults& faults,
                Shortfalls& shortfalls);

/// In a bank that is large enough to tell, the place and the length of the right choice give no
/// hint.
void check_evenness(const BankSource& bank, Faults& faults);

/// More than planned is a fault, less a shortfall.
void check_counts(const ExamSource& exam, const ExamPlan& plan, Faults& faults,
                  Shortfalls& shortfalls);

void check_exam(const ExamSource& exam, const ExamPlan& plan, const ContentFiles& content,
                Faults& faults, Shortfalls& shortfalls);

/// Across all exams: one of them, and no more, has a simulator question above the usual number.
void check_simulator_counts(const std::vector<ExamSource>& exams, Faults& faults,
                            Shortfalls& shortfalls);

/// Across all exams: no two questions that differ in a few words only.
void check_likeness(const std::vector<ExamSource>& exams, Faults& faults);

}  // namespace practice::compiler
