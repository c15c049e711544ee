#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>

#include "bank_compiler/row_form.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"
#include "bank_compiler/text_rules.h"

namespace practice::compiler {
namespace {

constexpr std::array<std::string_view, 3> types{"single_answer", "multi_answer",
                                                "fill_in_the_blank"};

void check_category(const RowSource& row, const BankSource& bank, const Reporter& report) {
  const std::size_t count = bank.head.categories.entries.size();
  if (!row.category.value || count == 0) return;
  const std::int64_t category = *row.category.value;
  if (category >= 1 && category <= static_cast<std::int64_t>(count)) return;
  report(row.category.line, "a category must be 1 to " + std::to_string(count),
         std::to_string(category));
}

void check_texts(const RowSource& row, const Reporter& report) {
  check_text(row.question, {.name = "the question", .most_characters = 792}, report);
  if (row.question.value && is_blank(*row.question.value)) {
    report(row.question.line, "a question must not be blank", in_quotes(*row.question.value));
  }
  check_text(row.explanation, {.name = "the explanation", .most_characters = 8090}, report);
  check_text(row.section, {.name = "the section", .entities = false}, report);
  check_text(row.clue,
             {.name = "the clue", .most_characters = 5260, .entities = false, .line_breaks = true},
             report);
}

void check_answers(const RowSource& row, const Reporter& report) {
  const auto& answers = row.answers.entries;
  const bool counted = row.answers.line > 0 && row.answers.is_list;
  if (counted && (answers.empty() || answers.size() > 6)) {
    report(row.answers.line, "a question has one to six answers", std::to_string(answers.size()));
  }
  std::map<std::string_view, std::size_t> numbers_by_answer;
  for (std::size_t i = 0; i < answers.size(); ++i) {
    const TextEntry& answer = answers[i];
    const std::string name = "answer " + std::to_string(i + 1);
    check_text(answer, {.name = name, .most_characters = 272}, report);
    if (!answer.value) continue;
    if (is_blank(*answer.value)) report(answer.line, "an answer must not be blank", name);
    const auto [first, fresh] = numbers_by_answer.try_emplace(trimmed(*answer.value), i + 1);
    if (!fresh) {
      report(answer.line, "no two answers may be alike",
             name + " and answer " + std::to_string(first->second) + " are " +
                 in_quotes(*answer.value));
    }
  }
}

void check_correct(const RowSource& row, const Reporter& report) {
  const auto& correct = row.correct.entries;
  const auto count = static_cast<std::int64_t>(row.answers.entries.size());
  std::set<std::int64_t> positions;
  for (const NumberEntry& entry : correct) {
    if (!entry.value) continue;
    const std::int64_t position = *entry.value;
    if (count > 0 && (position < 1 || position > count)) {
      report(entry.line, "a correct position must be 1 to " + std::to_string(count),
             std::to_string(position));
    }
    if (!positions.insert(position).second) {
      report(entry.line, "a correct position stands once", std::to_string(position));
    }
  }
  const int line = row.correct.line > 0 ? row.correct.line : row.line;
  const bool choice = kind_of(row) == RowKind::choice && row.correct.is_list;
  if (choice && row.type.value == "single_answer" && correct.size() != 1) {
    report(line, "single_answer has exactly one correct answer", std::to_string(correct.size()));
  }
  if (choice && row.type.value == "multi_answer" && correct.size() < 2) {
    report(line, "multi_answer has two or more correct answers", std::to_string(correct.size()));
  }
}

void check_marker(const RowSource& row, const Reporter& report) {
  const std::string_view marker = entry_of(row.diagrams, 1);
  const RowKind kind = kind_of(row);
  if (is_marker(marker) && kind != RowKind::drag_and_drop && kind != RowKind::simulator) {
    report(row.diagrams.line, "no bank uses this marker", in_quotes(marker));
  }
  if (kind == RowKind::drag_and_drop) check_drag_and_drop(row, report);
  if (kind == RowKind::simulator) check_simulator(row, report);
  if (kind != RowKind::simulator && row.clue.value && !row.clue.value->empty()) {
    report(row.clue.line, "only a simulator question has a clue", "a clue");
  }
}

// Which kinds of questions a bank takes.
void check_place(const RowSource& row, const BankSource& bank, const ExamPlan& plan, int& fill_ins,
                 const Reporter& report) {
  const RowKind kind = kind_of(row);
  const bool book = bank.kind == BankKind::book;
  if (book && kind == RowKind::drag_and_drop) {
    report(row.line, "drag and drop questions stand in extra banks only",
           "a drag and drop question");
  }
  if (book && kind == RowKind::simulator) {
    report(row.line, "simulator questions stand in extra banks only", "a simulator question");
  }
  if (!book && kind == RowKind::simulator && !plan.extra_has_categories) {
    report(row.line, "this exam has no simulator questions", "a simulator question");
  }
  if (book && kind == RowKind::fill_in && ++fill_ins > plan.book_fill_ins) {
    report(
        row.line,
        "this book bank has at most " + std::to_string(plan.book_fill_ins) + " fill-in questions",
        "fill-in question " + std::to_string(fill_ins));
  }
}

void check_explanation(const RowSource& row, const BankSource& bank, const ExamPlan& plan,
                       int& explanations, const Reporter& report) {
  const bool explained = has_explanation(row);
  const bool required = bank.kind == BankKind::extra || plan.book_explanations == every_row;
  if (required && !explained && (row.explanation.line == 0 || row.explanation.value)) {
    report(row.explanation.line > 0 ? row.explanation.line : row.line,
           "every row of this bank has an explanation", "none");
  }
  if (required || !explained || ++explanations <= plan.book_explanations) return;
  report(row.explanation.line,
         plan.book_explanations == 0 ? "this book bank has no explanations"
                                     : "this book bank has at most " +
                                           std::to_string(plan.book_explanations) + " explanations",
         "explanation " + std::to_string(explanations));
}

// From row to row.
void check_order(const BankSource& bank, const Reporter& report) {
  std::int64_t last = 0;
  std::map<std::string_view, int> lines_by_question;
  for (const RowSource& row : bank.rows) {
    if (row.category.value) {
      if (bank.kind == BankKind::book && *row.category.value < last) {
        report(row.category.line, "the category never falls in a book bank",
               std::to_string(*row.category.value) + " after " + std::to_string(last));
      }
      last = *row.category.value;
    }
    if (!row.question.value) continue;
    const auto [place, fresh] = lines_by_question.try_emplace(*row.question.value, row.line);
    if (!fresh) {
      report(row.question.line, "no question stands twice in a bank",
             "the same text in the row of line " + std::to_string(place->second));
    }
  }
}

}  // namespace

void check_rows(const BankSource& bank, const ExamPlan& plan, const ContentFiles& content,
                Faults& faults) {
  const Reporter report(bank.file, faults);
  int fill_ins = 0;
  int explanations = 0;
  for (const RowSource& row : bank.rows) {
    check_category(row, bank, report);
    if (row.type.value && std::ranges::find(types, *row.type.value) == types.end()) {
      report(row.type.line, "the type is single_answer, multi_answer or fill_in_the_blank",
             in_quotes(*row.type.value));
    }
    check_texts(row, report);
    check_answers(row, report);
    check_correct(row, report);
    check_marker(row, report);
    check_files(row, content, report);
    check_place(row, bank, plan, fill_ins, report);
    check_explanation(row, bank, plan, explanations, report);
  }
  check_order(bank, report);
}

}  // namespace practice::compiler
