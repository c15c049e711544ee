// The form of UTF-8 text, and how a piece of a source is quoted in a fault.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace practice::compiler {

/// Length in bytes, 1 to 4, of the character that begins at `place`; 0 when no valid one does.
/// Overlong forms, surrogates and numbers above U+10FFFF are not valid.
std::size_t character_length(std::string_view text, std::size_t place);

bool is_utf8(std::string_view text);

/// Number of code points of valid UTF-8.
std::size_t character_count(std::string_view text);

std::string_view trimmed(std::string_view text);
bool is_blank(std::string_view text);

/// ASCII letters only.
std::string in_lower_case(std::string_view text);

/// An HTML fragment as a reader sees it: a blank for <br>, and one character for an entity, which
/// is a question mark for those that are numbers.
std::string shown_text(std::string_view html);

/// Place of the first control character, tabs and line breaks among them.
std::optional<std::size_t> find_control(std::string_view text);

/// The text in quotes on one line, at most 60 characters of it, control characters as "\x0D".
std::string in_quotes(std::string_view text);

}  // namespace practice::compiler
