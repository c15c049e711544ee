#include "bank_compiler/text_form.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace practice::compiler {
namespace {

constexpr std::size_t most_quoted = 60;

bool is_between(std::string_view text, std::size_t place, unsigned low, unsigned high) {
  if (place >= text.size()) return false;
  const auto byte = static_cast<unsigned char>(text[place]);
  return byte >= low && byte <= high;
}

}  // namespace

std::size_t character_length(std::string_view text, std::size_t place) {
  if (place >= text.size()) return 0;
  const auto lead = static_cast<unsigned char>(text[place]);
  if (lead < 0x80) return 1;
  // The second byte has bounds of its own where overlong forms, surrogates or numbers above
  // U+10FFFF would begin.
  const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (lead < 0xC2 || lead > 0xF4 || !is_between(text, place + 1, low, high)) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  for (std::size_t i = 2; i < length; ++i) {
    if (!is_between(text, place + i, 0x80, 0xBF)) return 0;
  }
  return length;
}

bool is_utf8(std::string_view text) {
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t length = character_length(text, place);
    if (length == 0) return false;
    place += length;
  }
  return true;
}

std::size_t character_count(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

bool is_blank(std::string_view text) { return trimmed(text).empty(); }

std::string in_lower_case(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return result;
}

std::string shown_text(std::string_view html) {
  constexpr std::array<std::pair<std::string_view, char>, 6> pieces{{
      {"<br>", ' '},
      {"&lt;", '<'},
      {"&gt;", '>'},
      {"&amp;", '&'},
      {"&quot;", '"'},
      {"&nbsp;", ' '},
  }};
  std::string result;
  while (!html.empty()) {
    const auto piece = std::ranges::find_if(
        pieces, [&](const auto& known) { return html.starts_with(known.first); });
    const auto end = html.starts_with("&#") ? html.find(';') : html.npos;
    if (piece != pieces.end()) {
      result += piece->second;
      html.remove_prefix(piece->first.size());
    } else {
      result += end == html.npos ? html.front() : '?';
      html.remove_prefix(end == html.npos ? 1 : end + 1);
    }
  }
  return result;
}

std::optional<std::size_t> find_control(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x20 || byte == 0x7F) return i;
    // U+0080 to U+009F are control characters as well.
    if (byte == 0xC2 && is_between(text, i + 1, 0x80, 0x9F)) return i;
  }
  return std::nullopt;
}

std::string in_quotes(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result = "\"";
  std::size_t count = 0;
  for (std::size_t place = 0; place < text.size(); ++count) {
    if (count == most_quoted) return result.append("...\"");
    const std::size_t length = character_length(text, place);
    const std::string_view character = text.substr(place, length == 0 ? 1 : length);
    if (length == 0 || find_control(character)) {
      for (const char c : character) {
        const auto byte = static_cast<std::uint8_t>(c);
        result.append("\\x").append({digits[byte >> 4], digits[byte & 0xF]});
      }
    } else {
      result.append(character);
    }
    place += character.size();
  }
  return result.append("\"");
}

}  // namespace practice::compiler
