// JSON lines, as the robot shows what it sees. Writing only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace practice::robot {

std::string json_text(std::string_view text);

/// An object on one line, members in the order they were added.
class JsonObject {
 public:
  JsonObject& add(std::string_view name, std::string_view text);
  JsonObject& add(std::string_view name, const char* text);
  JsonObject& add(std::string_view name, int number);
  JsonObject& add(std::string_view name, bool flag);
  JsonObject& add(std::string_view name, const std::vector<std::string>& texts);
  JsonObject& add_raw(std::string_view name, std::string_view json);

  std::string text() const { return "{" + members_ + "}"; }

 private:
  std::string members_;
};

}  // namespace practice::robot
