#include "book_setting/typography.h"

#include <cctype>

namespace practice::books {
namespace {

constexpr std::string_view minus = "\u2212";
constexpr std::string_view times = "\u00D7";
// In front of these a quote opens.
constexpr std::string_view openers = " ([{/";

bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
bool ends_number(char c) { return is_digit(c) || c == ')'; }
bool begins_number(char c) { return is_digit(c) || c == '('; }

// Looks at one span between the last character before it and the first one behind it.
class Polisher {
 public:
  Polisher(std::string_view text, char before, char behind)
      : text_(text), before_(before), behind_(behind) {}

  std::string polish() {
    std::string result;
    for (std::size_t i = 0; i < text_.size(); ++i) {
      const std::string_view sign = sign_at(i);
      result.append(sign.empty() ? text_.substr(i, 1) : sign);
    }
    return result;
  }

 private:
  char at(std::size_t place) const {
    return place < text_.size() ? text_[place] : place == text_.size() ? behind_ : ' ';
  }
  char back(std::size_t place, std::size_t steps) const {
    return steps <= place ? text_[place - steps] : steps == place + 1 ? before_ : ' ';
  }

  // Empty when the character stays.
  std::string_view sign_at(std::size_t i) const {
    const bool spaced = back(i, 1) == ' ' && at(i + 1) == ' ';
    switch (text_[i]) {
      case '"':
        return openers.find(back(i, 1)) != openers.npos ? "\u201C" : "\u201D";
      case '\'':
        return openers.find(back(i, 1)) != openers.npos ? "\u2018" : "\u2019";
      case '-':
        if (spaced && (begins_number(at(i + 2)) || at(i + 2) == '-')) return minus;
        return is_digit(at(i + 1)) && (back(i, 1) == ' ' || back(i, 1) == '(') ? minus : "";
      case 'x':
        return spaced && ends_number(back(i, 2)) && begins_number(at(i + 2)) ? times : "";
      default:
        return {};
    }
  }

  std::string_view text_;
  char before_;
  char behind_;
};

}  // namespace

void polish(Spans& spans) {
  // The neighbours as they were written, before a sign of several bytes takes their place.
  const Spans written = spans;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (spans[i].code) continue;
    const char before = i > 0 ? written[i - 1].text.back() : ' ';
    const char behind = i + 1 < written.size() ? written[i + 1].text.front() : ' ';
    spans[i].text = Polisher(written[i].text, before, behind).polish();
  }
}

std::string polished(std::string_view text) {
  Spans spans{{.text = std::string(text)}};
  polish(spans);
  return spans.front().text;
}

}  // namespace practice::books
