// Text helpers. Text is UTF-8; where characters are counted, code points are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace practice {

inline constexpr std::string_view crlf = "\r\n";

/// Without the blanks at both ends. Only the blank counts, not tabs or line ends.
std::string_view trim(std::string_view text);

/// Letter by letter, so the number of code points stays: Latin, Greek and Cyrillic.
std::string upper(std::string_view text);
std::string lower(std::string_view text);

std::string replace_all(std::string_view text, std::string_view what, std::string_view with);

bool contains(std::string_view text, std::string_view what);

/// The number that the text begins with, blanks skipped; 0 when there is none. "12 min" is 12.
double number_in(std::string_view text);

/// number_in as an int, rounded to nearest even as an assignment to a whole number does.
/// Raises fault 6 outside -32768..32767.
int integer_in(std::string_view text);

/// " 12" and "-12": one leading blank when not negative.
std::string text_form(int number);
/// " 59.9", at most one decimal digit, behind the decimal point given.
std::string text_form_tenths(double number, std::string_view decimal_point);
/// "59.9" and "60.0": one decimal digit, half away from zero.
std::string with_one_decimal(double number, std::string_view decimal_point);
/// "12"
std::string trimmed_text_form(int number);

/// The first `count` code points of the text.
std::string_view first_characters(std::string_view text, std::size_t count);
std::size_t character_count(std::string_view text);

/// True when the first four letters, in upper case, are "FILL".
bool is_fill_in(std::string_view question_type);

}  // namespace practice
