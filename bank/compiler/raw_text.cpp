#include "bank_compiler/raw_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

// The parser walks nested tables by recursion, also when it frees them. A bank nests no deeper than
// two parts, so this leaves room enough.
constexpr int most_dots = 16;

constexpr std::array<std::string_view, 3> block_heads{"[head]", "[[row]]", "[[change]]"};

// Where a line begins and where its line feed or the end of the text is.
struct Line {
  std::size_t begin;
  std::size_t end;
};

std::vector<Line> lines_of(std::string_view text) {
  std::vector<Line> lines;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back({begin, end});
    begin = end + 1;
  }
  return lines;
}

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

enum class Piece { plain, dot, foreign, foreign_behind_backslash };

// Tells what is inside a text or a comment and what is not.
class Scanner {
 public:
  explicit Scanner(std::string_view text)
      : text_(text), place_(text.starts_with(byte_order_mark) ? byte_order_mark.size() : 0) {}

  // Moves behind the next piece: a comment, a text or a single byte.
  Piece next() {
    const char c = text_[place_];
    if (c == '#') {
      place_ = std::min(text_.find('\n', place_), text_.size());
    } else if (c == '"' || c == '\'') {
      return skip_string(c);
    } else {
      ++place_;
    }
    return c == '.' ? Piece::dot : is_ascii(c) ? Piece::plain : Piece::foreign;
  }

  bool at_end() const { return place_ >= text_.size(); }
  std::size_t place() const { return place_; }

 private:
  Piece skip_string(char quote) {
    const std::string triple(3, quote);
    const bool long_form = text_.substr(place_).starts_with(triple);
    const std::string_view end = std::string_view(triple).substr(0, long_form ? 3 : 1);
    place_ += end.size();
    while (!at_end() && (long_form || text_[place_] != '\n')) {
      if (text_.substr(place_).starts_with(end)) {
        place_ += end.size();
        // Up to two quotes may stand in front of the three that end a long text.
        for (int i = 0; long_form && i < 2 && !at_end(); ++i) place_ += text_[place_] == quote;
        return Piece::plain;
      }
      if (quote == '"' && text_[place_] == '\\') {
        const auto behind = std::min(text_.find_first_not_of(" \t\r\n", place_ + 1), text_.size());
        place_ = behind > place_ + 1 ? behind : std::min(place_ + 2, text_.size());
        if (behind < text_.size() && !is_ascii(text_[behind])) {
          place_ = behind;
          return Piece::foreign_behind_backslash;
        }
      } else {
        ++place_;
      }
    }
    return Piece::plain;
  }

  static constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

  std::string_view text_;
  std::size_t place_;
};

bool is_block_head(std::string_view line) {
  const std::string_view head = trimmed(line.substr(0, line.find('#')));
  return std::ranges::find(block_heads, head) != block_heads.end();
}

}  // namespace

ReadableText make_readable(std::string_view bytes, const Reporter& report) {
  ReadableText result{.text = std::string(bytes)};
  if (const auto nul = bytes.find('\0'); nul != std::string_view::npos) {
    const auto line = 1 + std::ranges::count(bytes.substr(0, nul), '\n');
    report(static_cast<int>(line), "a source must be text", "a byte of zero");
    return {.text = {}, .whole = false};
  }
  int line = 1;
  int reported = 0;
  for (std::size_t place = 0; place < bytes.size();) {
    const std::size_t length = character_length(bytes, place);
    if (length == 0) {
      if (reported != line) report(line, "text must be UTF-8", in_quotes(bytes.substr(place, 1)));
      reported = line;
      result.whole = false;
      result.text[place] = '?';
    }
    line += bytes[place] == '\n' ? 1 : 0;
    place += length == 0 ? 1 : length;
  }
  return result;
}

std::optional<Hazard> find_hazard(std::string_view text) {
  Scanner scanner(text);
  int line = 1;
  int dots = 0;
  while (!scanner.at_end()) {
    const std::size_t begin = scanner.place();
    const Piece piece = scanner.next();
    const auto passed = text.substr(begin, scanner.place() - begin);
    const auto line_feeds = static_cast<int>(std::ranges::count(passed, '\n'));
    const auto character = [&](std::size_t place) {
      return in_quotes(text.substr(place, character_length(text, place)));
    };
    if (piece == Piece::foreign) {
      return Hazard{line, "outside of texts and comments all characters are ASCII",
                    character(begin)};
    }
    if (piece == Piece::foreign_behind_backslash) {
      return Hazard{line + line_feeds, "an ASCII character follows a backslash and its line break",
                    character(scanner.place())};
    }
    if (line_feeds > 0) dots = 0;
    dots += piece == Piece::dot ? 1 : 0;
    line += line_feeds;
    if (dots > most_dots) {
      return Hazard{line, "a key must not have so many parts", "more than 16 dots in one line"};
    }
  }
  return std::nullopt;
}

bool blank_faulty_block(std::string& text, int line) {
  const auto lines = lines_of(text);
  const auto line_at = [&](std::size_t i) {
    return std::string_view(text).substr(lines[i].begin, lines[i].end - lines[i].begin);
  };
  const auto blank = [&](std::size_t first) {
    bool changed = false;
    for (std::size_t i = first; i < lines.size() && (i == first || !is_block_head(line_at(i)));
         ++i) {
      changed = changed || !is_blank(line_at(i));
      std::fill_n(text.begin() + static_cast<std::ptrdiff_t>(lines[i].begin),
                  lines[i].end - lines[i].begin, ' ');
    }
    return changed;
  };
  const auto head_before = [&](std::size_t i) {
    while (i > 0 && !is_block_head(line_at(i))) --i;
    return i;
  };
  const std::size_t wrong = std::min(static_cast<std::size_t>(std::max(line, 1)), lines.size()) - 1;
  const std::size_t head = head_before(wrong);
  // An error in the head line itself comes from something that the block before left open.
  if (head == wrong && head > 0 && blank(head_before(head - 1))) return true;
  return blank(head);
}

}  // namespace practice::compiler
