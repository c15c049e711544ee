#include "robot/json.h"

#include <cstdio>

namespace practice::robot {

std::string json_text(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else if (c == '\n') {
      result += "\\n";
    } else if (c == '\r') {
      result += "\\r";
    } else if (c == '\t') {
      result += "\\t";
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      result += escape;
    } else {
      result += c;
    }
  }
  return result + '"';
}

JsonObject& JsonObject::add_raw(std::string_view name, std::string_view json) {
  if (!members_.empty()) members_ += ",";
  members_.append(json_text(name)).append(":").append(json);
  return *this;
}

JsonObject& JsonObject::add(std::string_view name, std::string_view text) {
  return add_raw(name, json_text(text));
}

JsonObject& JsonObject::add(std::string_view name, const char* text) {
  return add_raw(name, json_text(text));
}

JsonObject& JsonObject::add(std::string_view name, int number) {
  return add_raw(name, std::to_string(number));
}

JsonObject& JsonObject::add(std::string_view name, bool flag) {
  return add_raw(name, flag ? "true" : "false");
}

JsonObject& JsonObject::add(std::string_view name, const std::vector<std::string>& texts) {
  std::string list = "[";
  for (const std::string& text : texts) {
    if (list.size() > 1) list += ",";
    list += json_text(text);
  }
  return add_raw(name, list + "]");
}

}  // namespace practice::robot
