#include "bank_compiler/text_rules.h"

#include <algorithm>
#include <array>
#include <vector>

#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

constexpr std::array<std::string_view, 5> named_entities{"lt", "gt", "amp", "quot", "nbsp"};
constexpr std::string_view line_break_tag = "<br>";

bool all_in(std::string_view text, std::string_view letters) {
  return !text.empty() && text.find_first_not_of(letters) == std::string_view::npos;
}

// What stands between "&" and ";".
bool is_entity(std::string_view name) {
  if (std::ranges::find(named_entities, name) != named_entities.end()) return true;
  if (!name.starts_with('#')) return false;
  name.remove_prefix(1);
  if (!name.starts_with('x') && !name.starts_with('X')) return all_in(name, "0123456789");
  return all_in(name.substr(1), "0123456789abcdefABCDEF");
}

void check_tags(std::string_view text, int line, const std::string& name, const Reporter& report) {
  for (std::size_t place = 0; (place = text.find_first_of("<>", place)) != text.npos;) {
    if (text.substr(place).starts_with(line_break_tag)) {
      place += line_break_tag.size();
    } else {
      report(line, "the only tag is <br>, other angle brackets are &lt; and &gt;",
             name + " has " + in_quotes(text.substr(place)));
      ++place;
    }
  }
}

void check_entities(std::string_view text, int line, const std::string& name,
                    const Reporter& report) {
  for (std::size_t place = 0; (place = text.find('&', place)) != text.npos; ++place) {
    const auto end = text.find(';', place);
    if (end != text.npos && is_entity(text.substr(place + 1, end - place - 1))) continue;
    report(line, "an ampersand begins &lt; &gt; &amp; &quot; &nbsp; or a number, else it is &amp;",
           name + " has " + in_quotes(text.substr(place)));
  }
}

// Every character, once, that a text of this kind can not have.
std::vector<std::string_view> wrong_controls(std::string_view text, bool line_breaks) {
  std::vector<std::string_view> wrong;
  std::size_t begin = 0;
  while (const auto place = find_control(text.substr(begin))) {
    begin += *place;
    const std::string_view rest = text.substr(begin);
    const std::size_t line_break = rest.starts_with("\r\n") ? 2 : rest.starts_with('\n') ? 1 : 0;
    const std::string_view control = rest.substr(0, character_length(rest, 0));
    const bool seen = std::ranges::find(wrong, control) != wrong.end();
    if (!seen && (!line_breaks || line_break == 0)) wrong.push_back(control);
    begin += std::max(line_break, control.size());
  }
  return wrong;
}

void check_controls(std::string_view text, int line, const TextRules& rules,
                    const Reporter& report) {
  for (const std::string_view control : wrong_controls(text, rules.line_breaks)) {
    if (control == "\r" && rules.line_breaks) {
      report(line, "a line ends in LF or CR LF", rules.name + " has a CR alone");
    } else if (control == "\r" || control == "\n") {
      report(line, "only a clue has line breaks", rules.name + " has " + in_quotes(control));
    } else {
      report(line, "text must have no tab or control character",
             rules.name + " has " + in_quotes(control));
    }
  }
}

}  // namespace

void check_text(const TextEntry& entry, const TextRules& rules, const Reporter& report) {
  if (!entry.value) return;
  const std::string& text = *entry.value;
  const int line = entry.line;
  if (!is_utf8(text)) {
    report(line, "text must be UTF-8", rules.name);
    return;
  }
  check_controls(text, line, rules, report);
  if (rules.tags) check_tags(text, line, rules.name, report);
  if (rules.entities) check_entities(text, line, rules.name, report);
  const std::size_t length = character_count(rules.line_breaks ? with_crlf(text) : text);
  if (rules.most_characters > 0 && length > rules.most_characters) {
    report(line,
           rules.name + " has at most " + std::to_string(rules.most_characters) + " characters",
           std::to_string(length));
  }
}

std::string with_crlf(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 32);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) result += '\r';
    result += text[i];
  }
  return result;
}

}  // namespace practice::compiler
