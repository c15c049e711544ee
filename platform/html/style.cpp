#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>

#include "contents.h"
#include "platform/values/text.h"

namespace practice::html {
namespace {

constexpr double least_points = 1;
constexpr double most_points = 200;
constexpr double points_per_pixel = 0.75;

// The text in front of the separator, which is taken from `rest` together with it.
std::string_view take_until(std::string_view& rest, char separator) {
  const std::size_t end = std::min(rest.find(separator), rest.size());
  const std::string_view piece = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return piece;
}

std::string_view stripped(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool is_word(std::string_view text, std::string_view word) { return lower(text) == word; }

// Comments become blanks; the marks that hide rules from ancient browsers go as well.
std::string without_comments(std::string_view rules) {
  std::string result;
  for (std::size_t place = 0; place < rules.size();) {
    const std::size_t start = std::min(rules.find("/*", place), rules.size());
    result.append(rules, place, start - place);
    if (start == rules.size()) break;
    result += ' ';
    const std::size_t end = rules.find("*/", start + 2);
    place = end == std::string_view::npos ? rules.size() : end + 2;
  }
  return replace_all(replace_all(result, "<!--", " "), "-->", " ");
}

std::optional<double> points_in(std::string_view value) {
  // from_chars would read "inf" and "nan" as numbers.
  if (value.find_first_of(".0123456789") != 0) return std::nullopt;
  double number = 0;
  const char* const end = value.data() + value.size();
  const auto [behind, error] = std::from_chars(value.data(), end, number, std::chars_format::fixed);
  if (error != std::errc{}) return std::nullopt;
  const auto unit = stripped({behind, static_cast<std::size_t>(end - behind)});
  if (is_word(unit, "px")) {
    number *= points_per_pixel;
  } else if (!unit.empty() && !is_word(unit, "pt")) {
    return std::nullopt;
  }
  return std::clamp(number, least_points, most_points);
}

// The first name of the list, without its quotes.
std::string_view family_in(std::string_view value) {
  std::string_view name = stripped(take_until(value, ','));
  if (name.size() >= 2 && (name.front() == '"' || name.front() == '\'') &&
      name.back() == name.front()) {
    name = stripped(name.substr(1, name.size() - 2));
  }
  return name;
}

void apply_declaration(std::string_view declaration, Style& style) {
  const std::string_view property = stripped(take_until(declaration, ':'));
  const std::string_view value = stripped(take_until(declaration, '!'));
  if (is_word(property, "font-size")) {
    style.font_points = points_in(value).value_or(style.font_points);
  } else if (is_word(property, "font-family")) {
    if (const std::string_view family = family_in(value); !family.empty()) {
      style.font_family = family;
    }
  }
}

bool selects_body(std::string_view selectors) {
  while (!selectors.empty()) {
    if (is_word(stripped(take_until(selectors, ',')), "body")) return true;
  }
  return false;
}

}  // namespace

void apply_rules(std::string_view rules, Style& style) {
  const std::string text = without_comments(rules);
  for (std::string_view rest = text; !rest.empty();) {
    std::string_view selectors = take_until(rest, '{');
    // A brace too many closes nothing.
    selectors.remove_prefix(selectors.rfind('}') + 1);
    std::string_view block = take_until(rest, '}');
    if (!selects_body(selectors)) continue;
    while (!block.empty()) apply_declaration(take_until(block, ';'), style);
  }
}

}  // namespace practice::html
