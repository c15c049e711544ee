// Parsing TOML, and taking the known keys out of one of its tables: what has the wrong type, what
// is missing and what nobody knows is reported with its line. For readers of sources only, as
// nobody else sees the parser.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <toml++/toml.h>

#include "bank_compiler/fault.h"
#include "bank_compiler/source.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {

/// What keeps a text from being parsed.
struct Obstacle {
  int line = 0;
  std::string rule{};
  std::string found{};
};

/// `what` names the source in the rule, such as "a lab".
std::optional<Obstacle> parse_toml(std::string_view text, std::string_view what, toml::table& root);

inline int line_of(const toml::source_region& region) {
  return static_cast<int>(region.begin.line);
}

/// "a table", "a whole number"
std::string in_words(toml::node_type type);

template <typename T>
constexpr std::string_view wanted = "";
template <>
inline constexpr std::string_view wanted<std::string> = "a text";
template <>
inline constexpr std::string_view wanted<std::int64_t> = "a whole number";
template <>
inline constexpr std::string_view wanted<bool> = "true or false";

enum class Need { required, optional };

/// Call report_unknown_keys() when all known keys are taken. Holds its arguments by reference.
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

  template <typename T>
  void take(std::string_view key, Need need, NestedEntry<T>& nested) {
    const toml::node* node = find(key, need);
    if (node == nullptr) return;
    nested.line = line_of(node->source());
    const toml::array* array = node->as_array();
    nested.is_list = array != nullptr;
    if (array == nullptr) {
      wrong_type(*node, key, "a list of lists");
      return;
    }
    for (const toml::node& element : *array) {
      const toml::array* inner = element.as_array();
      ListEntry<T>& list = nested.lists.emplace_back();
      list.line = line_of(element.source());
      list.is_list = inner != nullptr;
      if (inner == nullptr) {
        wrong_type(element, key, "a list of lists");
        continue;
      }
      for (const toml::node& entry : *inner) list.entries.push_back(read<T>(entry, key));
    }
  }

  /// The tables under a key: one, or those of a list.
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

}  // namespace practice::compiler
