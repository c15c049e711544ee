#include "bank_compiler/source.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include <toml++/toml.h>

#include "bank_compiler/raw_text.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

// More than that is no bank with slips in it but something else.
constexpr int most_syntax_errors = 50;

template <typename T>
constexpr std::string_view wanted = "";
template <>
constexpr std::string_view wanted<std::string> = "a text";
template <>
constexpr std::string_view wanted<std::int64_t> = "a whole number";
template <>
constexpr std::string_view wanted<bool> = "true or false";

int line_of(const toml::source_region& region) { return static_cast<int>(region.begin.line); }

std::string in_words(toml::node_type type) {
  switch (type) {
    case toml::node_type::table:
      return "a table";
    case toml::node_type::array:
      return "a list";
    case toml::node_type::string:
      return "a text";
    case toml::node_type::integer:
      return "a whole number";
    case toml::node_type::floating_point:
      return "a number with a point";
    case toml::node_type::boolean:
      return "true or false";
    default:
      return "a date or time";
  }
}

enum class Need { required, optional };

// Takes the known keys out of one table of the source.
class TableReader {
 public:
  TableReader(const toml::table& table, int line, std::string_view name, const Reporter& report)
      : table_(table), line_(line), name_(name), report_(report) {}

  template <typename T>
  void take(std::string_view key, Need need, Entry<T>& entry) {
    if (const toml::node* node = find(key, need)) entry = read<T>(*node, key);
  }

  template <typename T>
  void take(std::string_view key, Need need, ListEntry<T>& list) {
    const toml::node* node = find(key, need);
    if (node == nullptr) return;
    list.line = line_of(node->source());
    const toml::array* array = node->as_array();
    list.is_list = array != nullptr;
    if (array == nullptr) {
      wrong_type(*node, key, "a list");
      return;
    }
    for (const toml::node& element : *array) list.entries.push_back(read<T>(element, key));
  }

  // The tables under a key: one, or those of a list.
  template <typename Use>
  void take_tables(std::string_view key, Need need, bool list, Use use) {
    const toml::node* node = find(key, need);
    if (node == nullptr) return;
    const toml::array* array = node->as_array();
    if (list && array == nullptr) {
      wrong_type(*node, key, "a list of tables");
    } else if (list) {
      for (const toml::node& element : *array) use_table(element, key, use);
    } else {
      use_table(*node, key, use);
    }
  }

  void report_unknown_keys() const {
    for (const auto& [key, node] : table_) {
      if (std::ranges::find(known_, key.str()) != known_.end()) continue;
      report_(line_of(key.source()), "unknown key in " + std::string(name_), in_quotes(key.str()));
    }
  }

 private:
  const toml::node* find(std::string_view key, Need need) {
    known_.push_back(key);
    const toml::node* node = table_.get(key);
    if (node == nullptr && need == Need::required) {
      report_(line_, std::string(name_) + " must have every key that is not optional",
              in_quotes(key) + " is missing");
    }
    return node;
  }

  void wrong_type(const toml::node& node, std::string_view key, std::string_view type) const {
    report_(line_of(node.source()), in_quotes(key) + " must be " + std::string(type),
            in_words(node.type()));
  }

  template <typename T>
  Entry<T> read(const toml::node& node, std::string_view key) const {
    Entry<T> entry{.line = line_of(node.source()), .value = std::nullopt};
    if (const auto* value = node.as<T>()) {
      entry.value = value->get();
    } else {
      wrong_type(node, key, wanted<T>);
    }
    return entry;
  }

  template <typename Use>
  void use_table(const toml::node& node, std::string_view key, Use& use) const {
    const toml::table* table = node.as_table();
    if (table == nullptr) {
      wrong_type(node, key, "a table");
    } else {
      use(*table, line_of(node.source()));
    }
  }

  const toml::table& table_;
  int line_;
  std::string_view name_;
  const Reporter& report_;
  std::vector<std::string_view> known_;
};

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

// What keeps a text from being parsed.
struct Obstacle {
  int line = 0;
  std::string rule{};
  std::string found{};
};

std::optional<Obstacle> parse(std::string_view text, toml::table& root) {
  constexpr std::string_view rule = "a bank source must be valid TOML";
  if (const auto hazard = find_hazard(text)) {
    return Obstacle{hazard->line, std::string(hazard->rule), hazard->found};
  }
  try {
    root = toml::parse(text);
    return std::nullopt;
  } catch (const toml::parse_error& error) {
    return Obstacle{line_of(error.source()), std::string(rule), std::string(error.description())};
  } catch (const std::exception& error) {
    return Obstacle{0, std::string(rule), error.what()};
  }
}

// Parses again and again, without the block in which an error was found, until no error is left.
std::optional<toml::table> parse_what_can_be(std::string text, bool& whole,
                                             const Reporter& report) {
  toml::table root;
  for (int errors = 0; errors < most_syntax_errors; ++errors) {
    const auto obstacle = parse(text, root);
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
