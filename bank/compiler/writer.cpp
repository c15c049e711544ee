#include "bank_compiler/writer.h"

#include <array>
#include <cstdint>

#include "bank_compiler/reference.h"
#include "bank_compiler/row_form.h"
#include "bank_compiler/text_rules.h"

namespace practice::compiler {
namespace {

// A view of no bytes needs no literal.
std::string view(std::string_view text) { return text.empty() ? "{}" : literal(text).append("sv"); }

std::string view(const TextEntry& entry) { return view(entry.value.value_or("")); }

// Empty entries at the end are left out.
std::string views(const TextList& list) {
  std::size_t count = list.entries.size();
  while (count > 0 && entry_of(list, count).empty()) --count;
  std::string text = "{";
  for (std::size_t i = 1; i <= count; ++i) {
    text.append(i == 1 ? "" : ", ").append(view(entry_of(list, i)));
  }
  return text.append("}");
}

std::string flags(const NumberList& correct) {
  unsigned bits = 0;
  for (const NumberEntry& entry : correct.entries) {
    const std::int64_t position = entry.value.value_or(0);
    if (position >= 1 && position <= 6) bits |= 1u << (position - 1);
  }
  std::string text = "0b";
  for (int bit = 5; bit >= 0; --bit) text += (bits >> bit & 1u) == 0 ? '0' : '1';
  return text;
}

std::string row_in_cpp(const RowSource& row, const Chapters& chapters) {
  return "    {.question_text = " + view(row.question) +
         ",\n     .answers = " + views(row.answers) + ",\n     .correct = " + flags(row.correct) +
         ",\n     .explanation = " + view(row.explanation) +
         ",\n     .question_type = " + view(row.type) +
         ",\n     .diagrams = " + views(row.diagrams) +
         ",\n     .exhibits = " + views(row.exhibits) +
         ",\n     .clue = " + view(with_crlf(row.clue.value.value_or(""))) +
         ",\n     .book_reference = " + view(reference_of(row, chapters)) +
         ",\n     .category = " + std::to_string(row.category.value.value_or(1)) + "},\n";
}

// "constexpr std::array<TYPE, 2> NAME{{\n...}};"; an empty one has no inner braces.
std::string array_in_cpp(std::string_view type, const std::string& name, std::size_t count,
                         const std::string& entries) {
  const std::string opening =
      "constexpr std::array<" + std::string(type) + ", " + std::to_string(count) + "> " + name;
  return count == 0 ? opening + "{};\n\n" : opening + "{{\n" + entries + "}};\n\n";
}

std::string categories_in_cpp(const BankSource& bank) {
  std::string entries;
  for (const TextEntry& entry : bank.head.categories.entries) {
    entries.append("    ").append(view(entry)).append(",\n");
  }
  return array_in_cpp("std::string_view", std::string(name_of(bank.kind)) + "_categories",
                      bank.head.categories.entries.size(), entries);
}

std::string rows_in_cpp(const BankSource& bank, const Chapters& chapters) {
  std::string entries;
  for (const RowSource& row : bank.rows) entries += row_in_cpp(row, chapters);
  return array_in_cpp("BankRow", std::string(name_of(bank.kind)) + "_rows", bank.rows.size(),
                      entries);
}

std::string changes_in_cpp(const BankSource& bank) {
  std::string entries;
  for (const ChangeSource& change : bank.changes) {
    entries += "    {.extra_row = " + std::to_string(change.extra_row.value.value_or(1)) +
               ", .category = " + std::to_string(change.category.value.value_or(1)) + "},\n";
  }
  return array_in_cpp("CategoryChange", "full_changes", bank.changes.size(), entries);
}

std::string head_in_cpp(const BankSource& bank) {
  const HeadSource& head = bank.head;
  const std::string name(name_of(bank.kind));
  return "    ." + name + "_head = {.author_address = " + view(head.author_address) +
         ",\n        .test_description = " + view(head.test_description) +
         ",\n        .exam_title = " + view(head.exam_title) +
         ",\n        .exam_version = " + view(head.exam_version) + ",\n        .has_categories = " +
         (head.has_categories.value.value_or(true) ? "true" : "false") +
         ",\n        .categories = " + name + "_categories},\n";
}

}  // namespace

std::string literal(std::string_view text) {
  std::string result = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      result += {'\\', c};
    } else if (c == '?' && i > 0 && text[i - 1] == '?') {
      // Two question marks would begin a trigraph.
      result += "\\?";
    } else if (c == '\r') {
      result += "\\r";
    } else if (c == '\n') {
      result += "\\n";
    } else if (byte < 0x20 || byte == 0x7F) {
      // Three octal digits end by themselves, whatever follows; a hexadecimal escape would not.
      const auto digit = [&](int shift) { return static_cast<char>('0' + (byte >> shift & 7)); };
      result += {'\\', digit(6), digit(3), digit(0)};
    } else {
      result += c;
    }
  }
  return result.append("\"");
}

std::string write_tables(const ExamSource& exam, const ExamPlan& plan) {
  std::string text =
      "// Written by the compiler of bank sources. Change the sources, not this file.\n"
      "#include <array>\n"
      "#include <string_view>\n\n"
      "#include \"bank/tables.h\"\n\n"
      "namespace practice {\n"
      "namespace {\n\n"
      "using namespace std::string_view_literals;\n\n";
  for (const BankSource* bank : {&exam.book, &exam.extra, &exam.full}) {
    text += categories_in_cpp(*bank);
  }
  text += rows_in_cpp(exam.book, exam.chapters) + rows_in_cpp(exam.extra, exam.chapters) +
          changes_in_cpp(exam.full);
  text += "}  // namespace\n\nconstinit const ExamBanks " + std::string(plan.exam) + "_banks{\n";
  for (const BankSource* bank : {&exam.book, &exam.extra, &exam.full}) text += head_in_cpp(*bank);
  return text +
         "    .book_rows = book_rows,\n"
         "    .extra_rows = extra_rows,\n"
         "    .full_changes = full_changes,\n"
         "};\n\n"
         "}  // namespace practice\n";
}

}  // namespace practice::compiler
