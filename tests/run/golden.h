// Whole pages that are compared byte for byte.
#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace practice {

inline std::string golden_file(std::string_view name) {
  std::ifstream file(std::string(RUN_TESTS_FOLDER "/golden/").append(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// With CR and tab made visible.
inline std::string line_at(std::string_view text, std::size_t place) {
  const auto start = place == 0 ? std::string_view::npos : text.rfind('\n', place - 1);
  const auto begin = start == std::string_view::npos ? 0 : start + 1;
  std::string result;
  for (const char c : text.substr(begin, text.find('\n', place) - begin)) {
    result += c == '\r' ? "\\r" : c == '\t' ? "\\t" : std::string(1, c);
  }
  return result;
}

/// Tells the first line that differs.
inline testing::AssertionResult is_golden(std::string_view page, std::string_view name) {
  const std::string golden = golden_file(name);
  if (golden.empty()) return testing::AssertionFailure() << name << " is not there";
  if (page == golden) return testing::AssertionSuccess();
  const auto place =
      static_cast<std::size_t>(std::ranges::mismatch(page, golden).in1 - page.begin());
  const auto line = std::count(golden.begin(), golden.begin() + static_cast<long>(place), '\n') + 1;
  return testing::AssertionFailure()
         << name << ", line " << line << "\n  wanted: " << line_at(golden, place)
         << "\n  page:   " << line_at(page, place);
}

}  // namespace practice
