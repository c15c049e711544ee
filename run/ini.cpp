#include "run/ini.h"

#include "platform/values/text.h"

namespace practice {
namespace {

std::string_view strip(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string_view without_quotes(std::string_view text) {
  if (text.size() >= 2 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'')) {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

}  // namespace

std::optional<std::string> ini_value(std::string_view ini, std::string_view section,
                                     std::string_view key) {
  const std::string wanted_section = upper(strip(section));
  const std::string wanted_key = upper(strip(key));
  bool inside = false;
  while (!ini.empty()) {
    const auto end = ini.find('\n');
    const std::string_view line = strip(ini.substr(0, end));
    ini.remove_prefix(end == std::string_view::npos ? ini.size() : end + 1);
    if (line.starts_with('[')) {
      if (inside) return {};
      const auto close = line.find(']');
      inside = close != std::string_view::npos &&
               upper(strip(line.substr(1, close - 1))) == wanted_section;
    } else if (inside && !line.starts_with(';')) {
      const auto equals = line.find('=');
      if (equals != std::string_view::npos && upper(strip(line.substr(0, equals))) == wanted_key) {
        return std::string(without_quotes(strip(line.substr(equals + 1))));
      }
    }
  }
  return {};
}

}  // namespace practice
