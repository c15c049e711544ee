// Whole texts that are compared byte for byte with files of the tests' folder.
#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace practice::robot {

/// The text around a place, with CR, LF and tab made visible.
inline std::string around(std::string_view text, std::size_t place) {
  constexpr std::size_t before = 40;
  const std::size_t begin = place < before ? 0 : place - before;
  std::string result;
  for (const char c : text.substr(begin, 2 * before)) {
    result += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
  }
  return result;
}

/// Tells the first place that differs.
inline testing::AssertionResult is_golden(std::string_view text, const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return testing::AssertionFailure() << path << " is not there";
  const std::string golden{std::istreambuf_iterator<char>(file), {}};
  if (text == golden) return testing::AssertionSuccess();
  const auto place =
      static_cast<std::size_t>(std::ranges::mismatch(text, golden).in1 - text.begin());
  const auto line = std::count(golden.begin(), golden.begin() + static_cast<long>(place), '\n') + 1;
  return testing::AssertionFailure()
         << path << ", line " << line << "\n  wanted: " << around(golden, place)
         << "\n  text:   " << around(text, place);
}

}  // namespace practice::robot
