#include "bank_compiler/source.h"

#include <array>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "bank_compiler/raw_text.h"
#include "toml_table.h"

namespace practice::compiler {
namespace {

// More than that is no bank with slips in it but something else.
constexpr int most_syntax_errors = 50;

HeadSource read_head(const toml::table& table, int line, const Reporter& report) {
  HeadSource head{.line = line};
  TableReader reader(table, line, "[head]", report);
  reader.take("author_address", Need::required, head.author_address);
  // Whether the description may be missing is for the rules to say.
  reader.take("test_description", Need::optional, head.test_description);
  reader.take("exam_title", Need::required, head.exam_title);
  reader.take("exam_version", Need::required, head.exam_version);
  reader.take("has_categories", Need::required, head.has_categories);
  reader.take("categories", Need::required, head.categories);
  reader.report_unknown_keys();
  return head;
}

RowSource read_row(const toml::table& table, int line, const Reporter& report) {
  RowSource row{.line = line};
  TableReader reader(table, line, "[[row]]", report);
  reader.take("category", Need::required, row.category);
  reader.take("type", Need::required, row.type);
  reader.take("question", Need::required, row.question);
  reader.take("answers", Need::required, row.answers);
  reader.take("correct", Need::optional, row.correct);
  reader.take("section", Need::optional, row.section);
  reader.take("reference_form", Need::optional, row.reference_form);
  reader.take("explanation", Need::optional, row.explanation);
  reader.take("clue", Need::optional, row.clue);
  reader.take("exhibits", Need::optional, row.exhibits);
  reader.take("diagrams", Need::optional, row.diagrams);
  reader.report_unknown_keys();
  return row;
}

ChangeSource read_change(const toml::table& table, int line, const Reporter& report) {
  ChangeSource change{.line = line};
  TableReader reader(table, line, "[[change]]", report);
  reader.take("extra_row", Need::required, change.extra_row);
  reader.take("category", Need::required, change.category);
  reader.report_unknown_keys();
  return change;
}

// Parses again and again, without the block in which an error was found, until no error is left.
std::optional<toml::table> parse_what_can_be(std::string text, bool& whole,
                                             const Reporter& report) {
  toml::table root;
  for (int errors = 0; errors < most_syntax_errors; ++errors) {
    const auto obstacle = parse_toml(text, "a bank source", root);
    if (!obstacle) return root;
    whole = false;
    const bool more = blank_faulty_block(text, obstacle->line);
    // An error that comes again from an emptied block is the end of the text, already reported.
    if (more || errors == 0) report(obstacle->line, obstacle->rule, obstacle->found);
    if (!more) return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

std::string_view name_of(BankKind kind) {
  constexpr std::array<std::string_view, 3> names{"book", "extra", "full"};
  return names[static_cast<std::size_t>(kind)];
}

BankSource parse_bank(std::string_view text, std::string file, BankKind kind, Faults& faults) {
  const Reporter report(file, faults);
  BankSource bank{.file = std::move(file), .kind = kind};
  ReadableText readable = make_readable(text, report);
  bank.whole = readable.whole;
  if (readable.text.empty() && !readable.whole) return bank;
  const auto root = parse_what_can_be(std::move(readable.text), bank.whole, report);
  if (!root) return bank;
  const Need need = bank.whole ? Need::required : Need::optional;
  TableReader reader(*root, 1, "a bank", report);
  reader.take_tables("head", need, false, [&](const toml::table& table, int line) {
    bank.head = read_head(table, line, report);
  });
  if (kind == BankKind::full) {
    reader.take_tables("change", Need::optional, true, [&](const toml::table& table, int line) {
      bank.changes.push_back(read_change(table, line, report));
    });
  } else {
    reader.take_tables("row", Need::optional, true, [&](const toml::table& table, int line) {
      bank.rows.push_back(read_row(table, line, report));
    });
  }
  reader.report_unknown_keys();
  return bank;
}

BankSource read_bank(const std::filesystem::path& file, BankKind kind, Faults& faults) {
  const std::string name = file.generic_string();
  const auto unreadable = [&](std::string_view why) {
    Reporter(name, faults)(0, "a bank source must be a file that can be read", why);
    return BankSource{.file = name, .kind = kind, .whole = false};
  };
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return unreadable("no such file");
  // A folder opens like a file, and a pipe would be waited for.
  if (!std::filesystem::is_regular_file(file, error)) return unreadable("not a file");
  std::ifstream stream(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream.is_open() || stream.bad()) return unreadable("reading fails");
  return parse_bank(text, name, kind, faults);
}

}  // namespace practice::compiler
