#include "book_setting/spans.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "bank_compiler/text_form.h"

namespace practice::books {
namespace {

using compiler::in_quotes;

constexpr std::string_view escapable = "\\`*_[]<>&|#~-!";

bool is_letter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
bool is_space(char c) { return c == ' ' || c == '\n'; }

// Walks once through a text and cuts it where the style changes.
class SpanReader {
 public:
  SpanReader(std::string_view text, int line, const compiler::Reporter& report)
      : text_(text), line_(line), report_(report) {}

  Spans read() {
    while (place_ < text_.size()) read_next();
    cut();
    if (bold_line_ > 0) report_(bold_line_, "a mark must be closed", in_quotes("**"));
    if (italic_line_ > 0) report_(italic_line_, "a mark must be closed", in_quotes("*"));
    return std::move(spans_);
  }

 private:
  char at(std::size_t place) const { return place < text_.size() ? text_[place] : '\0'; }
  char before() const { return place_ > 0 ? text_[place_ - 1] : '\0'; }
  bool comes(std::string_view what) const { return text_.substr(place_).starts_with(what); }

  void read_next() {
    const char c = text_[place_];
    if (c == '\\' && escapable.find(at(place_ + 1)) != escapable.npos) {
      current_ += at(place_ + 1);
      place_ += 2;
    } else if (c == '`') {
      read_code();
    } else if (c == '*') {
      read_stars();
    } else {
      check_construct();
      if (c == '\n') ++line_;
      current_ += c == '\n' ? ' ' : c;
      ++place_;
    }
  }

  void read_code() {
    const auto end = text_.find_first_of("`\n", place_ + 1);
    if (end == text_.npos || text_[end] == '\n') {
      report_(line_, "a mark must be closed", in_quotes("`"));
      ++place_;
      return;
    }
    if (end == place_ + 1) {
      report_(line_, unknown_construct, "a mark of more than one backtick");
      while (at(place_) == '`') ++place_;
      return;
    }
    cut();
    std::string code(text_.substr(place_ + 1, end - place_ - 1));
    // Inside a table a bar is escaped in code as well.
    for (auto bar = code.find("\\|"); bar != code.npos; bar = code.find("\\|", bar)) {
      code.erase(bar, 1);
    }
    spans_.push_back({.text = std::move(code), .code = true});
    place_ = end + 1;
  }

  void read_stars() {
    const std::size_t end = std::min(text_.find_first_not_of('*', place_), text_.size());
    std::size_t count = end - place_;
    const bool opens = end < text_.size() && !is_space(text_[end]);
    const bool closes = place_ > 0 && !is_space(before());
    if (!opens && !closes && count == 1) {
      current_ += '*';
    } else if (count > 3) {
      report_(line_, unknown_construct, "more than three asterisks");
    } else {
      cut();
      // The inner mark closes first and opens last.
      const bool closes_italic = count != 2 && italic_line_ > 0;
      if (closes_italic) flip(italic_line_, closes, "*");
      if (closes_italic) --count;
      if (count >= 2) flip(bold_line_, bold_line_ > 0 ? closes : opens, "**");
      if (count % 2 == 1) flip(italic_line_, opens, "*");
    }
    place_ = end;
  }

  void flip(int& opened, bool fits, std::string_view mark) {
    if (!fits) report_(line_, "a mark must touch the text that it marks", in_quotes(mark));
    opened = opened > 0 ? 0 : line_;
  }

  void check_construct() {
    const char c = text_[place_];
    const char next = at(place_ + 1);
    if (c == '<' && (is_letter(next) || next == '/' || next == '!' || next == '?')) {
      report_found("an HTML tag");
    } else if (c == '&' && is_entity()) {
      report_found("an HTML entity");
    } else if (c == '[' && is_link()) {
      report_found(before() == '!' ? "an image inside a text" : "a link");
    } else if (c == '[' && next == '^') {
      report_found("a footnote");
    } else if (c == '\\' && (next == '\n' || next == '\0')) {
      report_(line_, unknown_construct, "a line break by a backslash");
    } else if (c == '~' && next == '~' && before() != '~') {
      report_found("text that is struck out");
    } else if (c == '_' && is_underscore_mark()) {
      report_found("a mark of underscores");
    }
  }

  bool is_entity() const {
    std::size_t end = place_ + 1;
    while (is_letter(at(end)) || is_digit(at(end)) || at(end) == '#') ++end;
    return end > place_ + 1 && at(end) == ';';
  }

  bool is_link() const {
    const auto end = text_.find(']', place_);
    return end != text_.npos && (at(end + 1) == '(' || at(end + 1) == '[');
  }

  // "_word" with a closing one behind it; a name such as route_map has letters on both sides.
  bool is_underscore_mark() const {
    if (before() == '_' || is_letter(before()) || is_digit(before())) return false;
    const auto begin = text_.find_first_not_of('_', place_);
    if (begin == text_.npos || is_space(text_[begin])) return false;
    for (auto end = text_.find('_', begin); end != text_.npos; end = text_.find('_', end + 1)) {
      const char behind = at(end + 1);
      if (!is_space(text_[end - 1]) && !is_letter(behind) && !is_digit(behind)) return true;
    }
    return false;
  }

  void report_found(std::string_view what) const {
    report_(line_, unknown_construct,
            std::string(what).append(": ").append(in_quotes(text_.substr(place_, 24))));
  }

  void cut() {
    if (current_.empty()) return;
    const bool bold = bold_line_ > 0;
    const bool italic = italic_line_ > 0;
    spans_.push_back({.text = std::exchange(current_, {}), .bold = bold, .italic = italic});
  }

  std::string_view text_;
  int line_;
  const compiler::Reporter& report_;
  std::size_t place_ = 0;
  std::string current_{};
  // Where the mark that holds was opened; 0 when none holds.
  int bold_line_ = 0;
  int italic_line_ = 0;
  Spans spans_{};
};

}  // namespace

Spans read_spans(std::string_view text, int line, const compiler::Reporter& report) {
  return SpanReader(text, line, report).read();
}

std::string plain_text(const Spans& spans) {
  std::string text;
  for (const Span& span : spans) text += span.text;
  return text;
}

}  // namespace practice::books
