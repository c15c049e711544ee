#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include <toml++/toml.h>

#include "bank_compiler/plan.h"
#include "bank_compiler/text_form.h"
#include "book_setting/book_reader.h"
#include "book_setting/spans.h"

namespace practice::books {
namespace {

using compiler::in_quotes;

constexpr std::array<std::string_view, 9> known_keys{"exam",      "title",         "subtitle",
                                                     "publisher", "edition",       "date",
                                                     "imprint",   "category_form", "categories"};

int line_of(const toml::node& node) { return static_cast<int>(node.source().begin.line); }

class HeadReader {
 public:
  HeadReader(const toml::table& table, const compiler::Reporter& report)
      : table_(table), report_(report) {}

  BookHead read(std::string_view folder_name) {
    check_keys();
    take_text("exam", head_.exam);
    take_text("title", head_.title);
    take_text("subtitle", head_.subtitle);
    take_text("publisher", head_.publisher);
    take_text("edition", head_.edition);
    take_date();
    take_imprint();
    if (table_.contains("category_form")) take_text("category_form", head_.category_form);
    take_categories();
    check_exam(folder_name);
    return std::move(head_);
  }

 private:
  void check_keys() const {
    for (const auto& [key, value] : table_) {
      if (std::ranges::find(known_keys, key.str()) == known_keys.end()) {
        report_(line_of(value), "no other keys than those of a book", in_quotes(key.str()));
      }
    }
  }

  // Null, and reported, when the key is not there.
  const toml::node* required(std::string_view key) const {
    const toml::node* node = table_.get(key);
    if (node == nullptr) report_(1, "book.toml has every key of a book", in_quotes(key));
    return node;
  }

  std::optional<std::string> text_in(const toml::node& node, std::string_view key) const {
    const auto text = node.value_exact<std::string>();
    if (text && !compiler::is_blank(*text) && !compiler::find_control(*text)) return text;
    report_(line_of(node), "this must be a line of text", in_quotes(key));
    return std::nullopt;
  }

  void take_text(std::string_view key, std::string& text) const {
    const toml::node* node = required(key);
    if (node == nullptr) return;
    if (auto found = text_in(*node, key)) text = *std::move(found);
  }

  void take_date() {
    const toml::node* node = required("date");
    if (node == nullptr) return;
    if (const auto date = node->value_exact<toml::date>()) {
      head_.date = {.year = date->year, .month = date->month, .day = date->day};
    } else {
      report_(line_of(*node), "the date is a day such as 2026-11-01", in_quotes("date"));
    }
  }

  void take_imprint() {
    const toml::node* node = required("imprint");
    if (node == nullptr) return;
    const toml::array* list = node->as_array();
    if (list == nullptr || list->empty()) {
      report_(line_of(*node), "the imprint is a list of texts", in_quotes("imprint"));
      return;
    }
    for (const toml::node& entry : *list) {
      if (const auto text = text_in(entry, "imprint")) {
        const int line = line_of(entry);
        head_.imprint.push_back({.spans = read_spans(*text, line, report_), .line = line});
      }
    }
  }

  void take_categories() {
    const toml::node* node = table_.get("categories");
    if (node == nullptr) return;
    const toml::table* names = node->as_table();
    if (names == nullptr) {
      report_(line_of(*node), "categories are a table of names", in_quotes("categories"));
      return;
    }
    for (const auto& [key, value] : *names) {
      const std::string_view number = key.str();
      const bool is_number = !number.empty() && number.size() < 3 && number[0] != '0' &&
                             number.find_first_not_of("0123456789") == number.npos;
      if (!is_number) {
        report_(line_of(value), "a category belongs to the number of a chapter", in_quotes(number));
      } else if (const auto name = text_in(value, number)) {
        head_.categories.emplace(std::stoi(std::string(number)), *name);
      }
    }
  }

  void check_exam(std::string_view folder_name) const {
    const toml::node* node = table_.get("exam");
    if (head_.exam.empty() || node == nullptr) return;
    if (head_.exam != folder_name || compiler::plan_of(head_.exam) == nullptr) {
      report_(line_of(*node), "the exam is that of the book's folder", in_quotes(head_.exam));
    }
  }

  const toml::table& table_;
  const compiler::Reporter& report_;
  BookHead head_{};
};

}  // namespace

BookHead read_head(std::string_view text, std::string_view folder_name,
                   const compiler::Reporter& report) {
  try {
    const toml::table table = toml::parse(text);
    return HeadReader(table, report).read(folder_name);
  } catch (const toml::parse_error& error) {
    report(static_cast<int>(error.source().begin.line), "book.toml must be TOML",
           error.description());
    return {};
  }
}

}  // namespace practice::books
