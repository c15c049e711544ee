#include "page_tags.h"

#include <cctype>
#include <charconv>
#include <system_error>
#include <unordered_map>

namespace practice::desktop {
namespace {

void collect_rows(const html::Node& node, std::vector<html::Node*>& rows, int depth) {
  for (const auto& child : node.children) {
    if (child->tag == "tr") {
      rows.push_back(child.get());
    } else if (depth == 0 && child->tag.size() == 5 && child->tag.front() == 't') {
      collect_rows(*child, rows, depth + 1);
    }
  }
}

}  // namespace

Tag tag_of(const std::string& name) {
  static const std::unordered_map<std::string, Tag> tags = {
      {"head", Tag::hidden},      {"title", Tag::hidden},      {"script", Tag::hidden},
      {"style", Tag::hidden},     {"noscript", Tag::hidden},   {"template", Tag::hidden},
      {"select", Tag::hidden},    {"object", Tag::hidden},     {"applet", Tag::hidden},
      {"iframe", Tag::hidden},    {"p", Tag::paragraph},       {"div", Tag::division},
      {"form", Tag::division},    {"body", Tag::division},     {"html", Tag::division},
      {"address", Tag::division}, {"fieldset", Tag::division}, {"caption", Tag::division},
      {"dl", Tag::paragraph},     {"dt", Tag::division},       {"dd", Tag::quote},
      {"center", Tag::centre},    {"h1", Tag::heading},        {"h2", Tag::heading},
      {"h3", Tag::heading},       {"h4", Tag::heading},        {"h5", Tag::heading},
      {"h6", Tag::heading},       {"blockquote", Tag::quote},  {"pre", Tag::preformatted},
      {"hr", Tag::rule},          {"br", Tag::line_break},     {"img", Tag::image},
      {"input", Tag::input},      {"a", Tag::anchor},          {"b", Tag::bold},
      {"strong", Tag::bold},      {"i", Tag::italic},          {"em", Tag::italic},
      {"cite", Tag::italic},      {"var", Tag::italic},        {"u", Tag::underlined},
      {"ins", Tag::underlined},   {"s", Tag::struck},          {"strike", Tag::struck},
      {"del", Tag::struck},       {"sub", Tag::subscript},     {"sup", Tag::superscript},
      {"tt", Tag::typewriter},    {"code", Tag::typewriter},   {"kbd", Tag::typewriter},
      {"samp", Tag::typewriter},  {"big", Tag::larger},        {"small", Tag::smaller},
      {"font", Tag::font},        {"ul", Tag::bullets},        {"menu", Tag::bullets},
      {"ol", Tag::numbers},       {"li", Tag::item},           {"table", Tag::table},
      {"tr", Tag::row},           {"td", Tag::cell},           {"th", Tag::cell},
  };
  const auto found = tags.find(name);
  return found == tags.end() ? Tag::flat : found->second;
}

int number_of(std::string_view attribute) {
  int number = -1;
  const auto [end, error] =
      std::from_chars(attribute.data(), attribute.data() + attribute.size(), number);
  const bool is_share = end != attribute.data() + attribute.size() && *end == '%';
  return error == std::errc() && number >= 0 && !is_share ? number : -1;
}

Align align_of(const html::Node& node, Align inherited) {
  std::string align(node.attribute("align"));
  for (char& c : align) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (align == "center" || align == "middle") return Align::centre;
  if (align == "right") return Align::right;
  return align == "left" || align == "justify" ? Align::left : inherited;
}

std::vector<html::Node*> rows_of(const html::Node& table) {
  std::vector<html::Node*> rows;
  collect_rows(table, rows, 0);
  return rows;
}

std::vector<html::Node*> cells_of(const html::Node& row) {
  std::vector<html::Node*> cells;
  for (const auto& child : row.children) {
    if (child->tag == "td" || child->tag == "th") cells.push_back(child.get());
  }
  return cells;
}

}  // namespace practice::desktop
