#include "toml_table.h"

#include <exception>

#include "bank_compiler/raw_text.h"

namespace practice::compiler {

std::optional<Obstacle> parse_toml(std::string_view text, std::string_view what,
                                   toml::table& root) {
  const std::string rule = std::string(what) + " must be valid TOML";
  if (const auto hazard = find_hazard(text)) {
    return Obstacle{hazard->line, std::string(hazard->rule), hazard->found};
  }
  try {
    root = toml::parse(text);
    return std::nullopt;
  } catch (const toml::parse_error& error) {
    return Obstacle{line_of(error.source()), rule, std::string(error.description())};
  } catch (const std::exception& error) {
    return Obstacle{0, rule, error.what()};
  }
}

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

}  // namespace practice::compiler
