#include <array>
#include <string>

#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"
#include "bank_compiler/text_rules.h"

namespace practice::compiler {
namespace {

constexpr std::size_t most_name_characters = 50;
constexpr std::string_view address_end = ".example";

int planned_categories(const ExamPlan& plan, BankKind kind) {
  constexpr std::array counts{&ExamPlan::book_categories, &ExamPlan::extra_categories,
                              &ExamPlan::full_categories};
  return plan.*counts[static_cast<std::size_t>(kind)];
}

// The plain texts of a head are shown in labels, so they are no HTML.
void check_head_text(const TextEntry& entry, const char* key, const Reporter& report) {
  check_text(entry, {.name = key, .tags = false, .entities = false}, report);
  if (entry.value && is_blank(*entry.value)) {
    report(entry.line, "a text of the head must not be blank", key);
  }
}

void check_name(const TextEntry& entry, std::size_t number, bool chapter, const ExamPlan& plan,
                const Reporter& report) {
  if (!entry.value) return;
  const std::string& name = *entry.value;
  const std::string which = "category " + std::to_string(number);
  check_text(entry,
             {.name = which,
              .most_characters = plan.numbered_chapters ? 0 : most_name_characters,
              .tags = false,
              .entities = false},
             report);
  if (is_blank(name)) {
    report(entry.line, "a category must have a name", which);
  } else if (trimmed(name) != name) {
    report(entry.line, "a category must not begin or end in a blank", in_quotes(name));
  }
  const std::string prefix = "Chapter " + std::to_string(number) + " ";
  if (chapter && (!name.starts_with(prefix) || is_blank(name.substr(prefix.size())))) {
    report(entry.line, "a chapter's category begins with " + in_quotes(prefix) + " and has a name",
           in_quotes(name));
  }
}

void check_fixed_name(const TextList& list, std::size_t number, std::string_view name,
                      const Reporter& report) {
  if (number < 1 || number > list.entries.size()) return;
  const TextEntry& entry = list.entries[number - 1];
  if (!entry.value || *entry.value == name) return;
  report(entry.line, "category " + std::to_string(number) + " must be " + in_quotes(name),
         in_quotes(*entry.value));
}

void check_categories(const BankSource& bank, const ExamPlan& plan, const Reporter& report) {
  const TextList& list = bank.head.categories;
  if (list.line == 0 || !list.is_list) return;
  const std::size_t count = list.entries.size();
  const int planned = planned_categories(plan, bank.kind);
  if (count != static_cast<std::size_t>(planned)) {
    report(list.line, "the list must have " + std::to_string(planned) + " categories",
           std::to_string(count));
  }
  for (std::size_t i = 1; i <= count; ++i) {
    const bool chapter = plan.numbered_chapters && (bank.kind == BankKind::book || i < count);
    check_name(list.entries[i - 1], i, chapter, plan, report);
  }
  for (const FixedCategory& fixed : plan.fixed_categories) {
    check_fixed_name(list, fixed.number, fixed.name, report);
  }
  const bool numbered_full = plan.numbered_chapters && bank.kind == BankKind::full;
  if (bank.kind == BankKind::extra || numbered_full) {
    check_fixed_name(list, count, plan.last_extra_category, report);
  }
  if (bank.kind == BankKind::extra && plan.general_before_last && count > 1) {
    check_fixed_name(list, count - 1, "General", report);
  }
}

}  // namespace

void check_head(const BankSource& bank, const ExamPlan& plan, Faults& faults) {
  const Reporter report(bank.file, faults);
  const HeadSource& head = bank.head;
  // Without a head there is one fault, and that is reported.
  if (head.line == 0) return;
  check_head_text(head.author_address, "author_address", report);
  check_head_text(head.test_description, "test_description", report);
  check_head_text(head.exam_title, "exam_title", report);
  check_head_text(head.exam_version, "exam_version", report);
  if (head.author_address.value && !head.author_address.value->ends_with(address_end)) {
    report(head.author_address.line, "the author's address must end in " + in_quotes(address_end),
           in_quotes(*head.author_address.value));
  }
  const bool described = bank.kind != BankKind::full || plan.full_has_description;
  if (described && head.test_description.line == 0) {
    report(head.line, "[head] must have every key that is not optional",
           "\"test_description\" is missing");
  } else if (!described && head.test_description.line > 0) {
    report(head.test_description.line, "this head must leave its description out",
           "\"test_description\"");
  }
  const bool categories = bank.kind != BankKind::extra || plan.extra_has_categories;
  if (head.has_categories.value && *head.has_categories.value != categories) {
    report(head.has_categories.line,
           std::string("has_categories must be ") + (categories ? "true" : "false") + " here",
           categories ? "false" : "true");
  }
  check_categories(bank, plan, report);
}

}  // namespace practice::compiler
