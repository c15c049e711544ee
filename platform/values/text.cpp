#include "platform/values/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <system_error>

#include "platform/values/integer.h"

namespace practice {
namespace {

constexpr char32_t last_code_point = 0x10FFFF;

// The code point at `place`, which moves behind it. A byte that begins no valid sequence stands
// for itself, so that broken input passes through unchanged.
char32_t next_code_point(std::string_view text, std::size_t& place, bool& valid) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(place);
  std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
  valid = length > 0 && lead < 0xF8 && place + length <= text.size();
  if (!valid || length == 1) {
    ++place;
    return lead;
  }
  char32_t code = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    valid = valid && (byte(place + i) & 0xC0) == 0x80;
    code = (code << 6) | (byte(place + i) & 0x3Fu);
  }
  const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
  const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
  valid = valid && code >= least && code <= last_code_point && !is_surrogate;
  place += valid ? length : 1;
  return valid ? code : lead;
}

void append_code_point(std::string& text, char32_t code) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | (code >> 6));
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

// Alphabets in which a capital at an even place is followed by its small letter.
bool is_in_even_pair(char32_t c) {
  return (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177) || (c >= 0x1F8 && c <= 0x21F) ||
         (c >= 0x222 && c <= 0x233) || (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) ||
         (c >= 0x4D0 && c <= 0x52F);
}

char32_t to_upper(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
  if (c == 0xFF) return 0x178;
  if (c == 0x131) return 'I';
  if (is_in_even_pair(c)) return c & ~char32_t{1};
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c & 1 ? c : c - 1;
  if (c == 0x3AC) return 0x386;
  if (c >= 0x3AD && c <= 0x3AF) return c - 37;
  if (c == 0x3C2) return 0x3A3;
  if (c >= 0x3B1 && c <= 0x3CB) return c - 32;
  if (c == 0x3CC) return 0x38C;
  if (c == 0x3CD || c == 0x3CE) return c - 63;
  if (c >= 0x430 && c <= 0x44F) return c - 32;
  if (c >= 0x450 && c <= 0x45F) return c - 80;
  return c;
}

char32_t to_lower(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  if (c == 0x178) return 0xFF;
  if (c == 0x130) return 'i';
  if (is_in_even_pair(c)) return c | 1;
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c & 1 ? c + 1 : c;
  if (c == 0x386) return 0x3AC;
  if (c >= 0x388 && c <= 0x38A) return c + 37;
  if (c >= 0x391 && c <= 0x3AB && c != 0x3A2) return c + 32;
  if (c == 0x38C) return 0x3CC;
  if (c == 0x38E || c == 0x38F) return c + 63;
  if (c >= 0x410 && c <= 0x42F) return c + 32;
  if (c >= 0x400 && c <= 0x40F) return c + 80;
  return c;
}

template <class Map>
std::string mapped(std::string_view text, Map map) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t start = place;
    bool valid = false;
    const char32_t code = next_code_point(text, place, valid);
    if (valid) {
      append_code_point(result, map(code));
    } else {
      result += text[start];
    }
  }
  return result;
}

// What a number stands for that is too large or too close to 0 for a double.
double out_of_range_number(std::string_view digits) {
  const std::size_t exponent = digits.find_first_of("eE");
  const bool is_tiny = exponent == std::string_view::npos
                           ? digits.find_first_of("123456789") > digits.find('.')
                           : digits[exponent + 1] == '-';
  if (is_tiny) return 0;
  return digits.starts_with('-') ? -HUGE_VAL : HUGE_VAL;
}

}  // namespace

std::string_view trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upper(std::string_view text) { return mapped(text, to_upper); }
std::string lower(std::string_view text) { return mapped(text, to_lower); }

std::string replace_all(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  std::size_t place = 0;
  for (std::size_t hit; !what.empty() && (hit = text.find(what, place)) != std::string_view::npos;
       place = hit + what.size()) {
    result.append(text, place, hit - place).append(with);
  }
  return result.append(text, place);
}

bool contains(std::string_view text, std::string_view what) {
  return text.find(what) != std::string_view::npos;
}

double number_in(std::string_view text) {
  text = text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  // from_chars would read "inf" and "nan" as numbers.
  if (digits.empty() || !(digits[0] == '.' || (digits[0] >= '0' && digits[0] <= '9'))) return 0;
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) {
    return out_of_range_number(text.substr(0, static_cast<std::size_t>(end - text.data())));
  }
  return number;
}

int integer_in(std::string_view text) {
  const double number = std::nearbyint(number_in(text));
  if (number < Integer::lowest || number > Integer::highest) throw Fault::overflow();
  return static_cast<int>(number);
}

std::string text_form(int number) {
  return number < 0 ? std::to_string(number) : ' ' + std::to_string(number);
}

std::string with_one_decimal(double number, std::string_view decimal_point) {
  // Not by printf, which takes its decimal point from the process.
  const long long tenths = std::llround(number * 10);
  const long long size = std::llabs(tenths);
  std::string result = tenths < 0 ? "-" : "";
  result += std::to_string(size / 10);
  return result.append(decimal_point).append(std::to_string(size % 10));
}

std::string text_form_tenths(double number, std::string_view decimal_point) {
  std::string result = with_one_decimal(number, decimal_point);
  if (result.ends_with('0')) result.resize(result.size() - 1 - decimal_point.size());
  return result.starts_with('-') ? result : ' ' + result;
}

std::string trimmed_text_form(int number) { return std::to_string(number); }

std::string_view first_characters(std::string_view text, std::size_t count) {
  std::size_t place = 0;
  for (bool valid = false; count > 0 && place < text.size(); --count) {
    next_code_point(text, place, valid);
  }
  return text.substr(0, place);
}

std::size_t character_count(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t place = 0; place < text.size(); ++count) {
    bool valid = false;
    next_code_point(text, place, valid);
  }
  return count;
}

bool is_fill_in(std::string_view question_type) {
  return upper(question_type.substr(0, 4)) == "FILL";
}

}  // namespace practice
