#include "bank_compiler/lab.h"

#include <algorithm>
#include <utility>

#include "bank_compiler/raw_text.h"
#include "bank_compiler/text_form.h"
#include "toml_table.h"

namespace practice::compiler {
namespace {

constexpr std::string_view digits = "0123456789";

std::string text_in(const toml::table& table, std::string_view key) {
  return in_lower_case(table[key].value_or(std::string_view()));
}

std::vector<std::string> texts_in(const toml::table& table, std::string_view key) {
  std::vector<std::string> texts;
  const toml::array* array = table[key].as_array();
  if (array == nullptr) return texts;
  for (const toml::node& node : *array) {
    if (const auto text = node.value<std::string_view>()) texts.push_back(in_lower_case(*text));
  }
  return texts;
}

template <typename Use>
void for_each_table(const toml::table& table, std::string_view key, Use use) {
  const toml::array* array = table[key].as_array();
  if (array == nullptr) return;
  for (const toml::node& node : *array) {
    if (const toml::table* entry = node.as_table()) use(*entry);
  }
}

LabInterfaces interfaces_of(const toml::table& table) {
  LabInterfaces interfaces{
      .kind = text_in(table, "kind"),
      .key = pattern_of(text_in(table, "device") + "_" + text_in(table, "key")),
      .short_name = pattern_of(text_in(table, "short")),
  };
  // The range is what stands behind the last character that can not be part of it.
  const std::string n = text_in(table, "n");
  const auto before = n.find_last_not_of(std::string(digits) + "-");
  const std::size_t start = before == n.npos ? 0 : before + 1;
  interfaces.number_start = n.substr(0, start);
  const std::string range = n.substr(start);
  interfaces.range = range_of(range.find('-') == range.npos ? range + "-" + range : range)
                         .value_or(NumberRange{0, -1});
  return interfaces;
}

// Of "port channel where {if}_vlan=1"; none when it is keys that are gone through.
std::vector<std::string> kinds_of_each(std::string_view each) {
  std::vector<std::string> kinds;
  std::string_view rest = each.substr(0, each.find(" where "));
  while (!(rest = trimmed(rest)).empty()) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    if (word.find('{') != word.npos) return {};
    kinds.emplace_back(word);
    rest.remove_prefix(word.size());
  }
  return kinds;
}

// A stated key tells its values; a derived one takes the last text of a case, or collects items.
void add_key(const toml::table& table, Lab& lab) {
  if (!table["result"].value_or(true)) return;
  LabKey key{.key = pattern_of(text_in(table, "key")), .kinds = texts_in(table, "on")};
  key.value_kinds = key.kinds;
  for (const std::string& value : texts_in(table, "values")) {
    key.values.push_back(pattern_of(value));
  }
  if (const toml::array* cases = table["cases"].as_array()) {
    for (const toml::node& node : *cases) {
      const toml::array* one = node.as_array();
      if (one == nullptr || one->empty()) continue;
      const auto value = one->back().value<std::string_view>();
      if (value && !value->empty()) key.values.push_back(pattern_of(in_lower_case(*value)));
    }
  }
  if (table.contains("each")) {
    key.is_list = true;
    key.value_kinds = kinds_of_each(text_in(table, "each"));
    key.values.push_back(pattern_of(text_in(table, "item")));
    key.runs = text_in(table, "join") == "runs";
    key.separator = key.runs ? "," : text_in(table, "join");
  }
  lab.keys.push_back(std::move(key));
}

bool is_number_of(const LabInterfaces& interfaces, std::string_view text, bool in_key) {
  std::string start = interfaces.number_start;
  if (in_key) std::ranges::replace(start, '/', '_');
  if (!text.starts_with(start)) return false;
  const auto number = number_of(text.substr(start.size()));
  return number && *number >= interfaces.range.first && *number <= interfaces.range.last;
}

bool is_interface(const LabInterfaces& interfaces, std::string_view text, bool as_key) {
  return fits(as_key ? interfaces.key : interfaces.short_name, text,
              [&](std::string_view name, std::string_view part) {
                return name == "n" && is_number_of(interfaces, part, as_key);
              });
}

enum class Naming { key, short_name, number };

// Whether the text names an interface of these kinds; of any kind when there is none.
bool names_interface(const Lab& lab, const std::vector<std::string>& kinds, std::string_view text,
                     Naming naming) {
  return std::ranges::any_of(lab.interfaces, [&](const LabInterfaces& interfaces) {
    if (!kinds.empty() && std::ranges::find(kinds, interfaces.kind) == kinds.end()) return false;
    return naming == Naming::number ? is_number_of(interfaces, text, false)
                                    : is_interface(interfaces, text, naming == Naming::key);
  });
}

// What a slot takes in a key as well as in a value.
bool slot_takes(const Lab& lab, std::string_view name, std::string_view text) {
  if (name == "dev") return std::ranges::find(lab.devices, text) != lab.devices.end();
  const auto form = lab.forms.find(name);
  if (form == lab.forms.end()) return !is_blank(text);
  return form->second == "interface" ? names_interface(lab, {}, text, Naming::short_name)
                                     : is_of_form(text, form->second);
}

bool is_key(const LabKey& key, const Lab& lab, std::string_view text) {
  return fits(key.key, text, [&](std::string_view name, std::string_view part) {
    if (name == "if") return names_interface(lab, key.kinds, part, Naming::key);
    // Else the underscore would not tell where the variable ends.
    const bool may_have_underscore = name == "dev";
    return (may_have_underscore || part.find('_') == part.npos) && slot_takes(lab, name, part);
  });
}

bool is_one_value(const LabKey& key, const Lab& lab, std::string_view text) {
  const SlotTakes takes = [&](std::string_view name, std::string_view part) {
    if (name == "if") return names_interface(lab, {}, part, Naming::key);
    if (name == "short") return names_interface(lab, key.value_kinds, part, Naming::short_name);
    if (name == "n") return names_interface(lab, key.value_kinds, part, Naming::number);
    return slot_takes(lab, name, part);
  };
  return std::ranges::any_of(key.values,
                             [&](const Pattern& value) { return fits(value, text, takes); });
}

// "fa0/1-3", of fa0/1, fa0/2 and fa0/3; two in a row are no run.
bool is_run(const LabKey& key, const Lab& lab, std::string_view text) {
  const auto dash = text.rfind('-');
  if (dash == text.npos) return false;
  const std::string_view first = text.substr(0, dash);
  const std::size_t start = first.find_last_not_of(digits) + 1;
  const auto first_number = number_of(first.substr(start));
  const auto last_number = number_of(text.substr(dash + 1));
  if (!first_number || !last_number || *last_number < *first_number + 2) return false;
  const std::string last = std::string(first.substr(0, start)) + std::to_string(*last_number);
  return is_one_value(key, lab, first) && is_one_value(key, lab, last);
}

bool is_value(const LabKey& key, const Lab& lab, std::string_view text) {
  if (!key.is_list) return is_one_value(key, lab, text);
  while (true) {
    const auto end = key.separator.empty() ? text.npos : text.find(key.separator);
    const std::string_view part = text.substr(0, end);
    if (!is_one_value(key, lab, part) && !(key.runs && is_run(key, lab, part))) return false;
    if (end == text.npos) return true;
    text.remove_prefix(end + key.separator.size());
  }
}

}  // namespace

Lab parse_lab(std::string_view text, const std::string& file, Faults& faults) {
  const Reporter report(file, faults);
  Lab lab;
  const ReadableText readable = make_readable(text, report);
  toml::table root;
  if (!readable.whole) return lab;
  if (const auto obstacle = parse_toml(readable.text, "a lab", root)) {
    report(obstacle->line, obstacle->rule, obstacle->found);
    return lab;
  }
  lab.whole = true;
  for_each_table(root, "device", [&](const toml::table& device) {
    lab.devices.push_back(text_in(device, "name"));
  });
  for_each_table(root, "interface", [&](const toml::table& interfaces) {
    lab.interfaces.push_back(interfaces_of(interfaces));
  });
  for_each_table(root, "key", [&](const toml::table& key) { add_key(key, lab); });
  for_each_table(root, "derive", [&](const toml::table& key) { add_key(key, lab); });
  if (const toml::table* forms = root["form"].as_table()) {
    for (const auto& [name, form] : *forms) {
      lab.forms.emplace(in_lower_case(name.str()),
                        in_lower_case(form.value_or(std::string_view())));
    }
  }
  return lab;
}

ResultVerdict verdict_on(std::string_view key, std::string_view value, const Lab& lab) {
  const std::string wanted_key = in_lower_case(trimmed(key));
  const std::string wanted_value = in_lower_case(trimmed(value));
  ResultVerdict verdict = ResultVerdict::no_such_key;
  for (const LabKey& candidate : lab.keys) {
    if (!is_key(candidate, lab, wanted_key)) continue;
    if (is_value(candidate, lab, wanted_value)) return ResultVerdict::possible;
    verdict = ResultVerdict::no_such_value;
  }
  return verdict;
}

}  // namespace practice::compiler
