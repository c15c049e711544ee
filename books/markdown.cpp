#include "book_setting/markdown.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "bank_compiler/text_form.h"
#include "book_setting/spans.h"
#include "book_setting/table_source.h"

namespace practice::books {
namespace {

using compiler::in_quotes;
using compiler::is_blank;
using compiler::trimmed;

constexpr std::string_view digits = "0123456789";
constexpr std::string_view fence = "```";

struct Construct {
  std::string_view begin;
  std::string_view name;
};

// What begins a line of other dialects.
constexpr std::array other_constructs{
    Construct{.begin = ">", .name = "a block quote"},
    Construct{.begin = "~~~", .name = "a fence of tildes"},
    Construct{.begin = "===", .name = "an underlined heading"},
    Construct{.begin = "---", .name = "a rule or an underlined heading"},
    Construct{.begin = "***", .name = "a rule"},
    Construct{.begin = "___", .name = "a rule"},
    Construct{.begin = "* ", .name = "a bullet other than \"-\""},
    Construct{.begin = "+ ", .name = "a bullet other than \"-\""},
    Construct{.begin = "- [ ]", .name = "a list of tasks"},
    Construct{.begin = "- [x]", .name = "a list of tasks"},
};

std::size_t indent_of(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

// "- text" or "12. text", without the blanks before it.
struct Marker {
  bool numbered = false;
  int number = 0;
  std::string_view text{};
};

std::optional<Marker> marker_in(std::string_view line) {
  line.remove_prefix(indent_of(line));
  if (line.starts_with("- ")) return Marker{.text = trimmed(line.substr(2))};
  const auto end = std::min(line.find_first_not_of(digits), line.size());
  if (end == 0 || end > 3 || !line.substr(end).starts_with(". ")) return std::nullopt;
  return Marker{.numbered = true,
                .number = std::stoi(std::string(line.substr(0, end))),
                .text = trimmed(line.substr(end + 2))};
}

// A number with a bracket, which other dialects take for a list.
bool is_bracket_marker(std::string_view line) {
  const auto end = line.find_first_not_of(digits);
  return end != line.npos && end > 0 && end <= 3 && line.substr(end).starts_with(") ");
}

std::optional<std::string_view> other_construct_in(std::string_view line) {
  for (const Construct& construct : other_constructs) {
    // "***both***" at the beginning of a paragraph is no rule.
    const bool rule = construct.begin.size() == 3 && construct.begin != "~~~";
    const bool whole = line.find_first_not_of(construct.begin.substr(0, 1)) == line.npos;
    if (line.starts_with(construct.begin) && (!rule || whole)) return construct.name;
  }
  if (is_bracket_marker(line)) return "a number with a bracket";
  return std::nullopt;
}

bool begins_block(std::string_view line) {
  return line.starts_with('#') || line.starts_with('|') || line.starts_with(fence) ||
         line.starts_with("![") || marker_in(line).has_value() ||
         other_construct_in(line).has_value();
}

class ChapterReader {
 public:
  ChapterReader(std::string_view text, const compiler::Reporter& report) : report_(report) {
    while (!text.empty()) {
      const auto end = std::min(text.find('\n'), text.size());
      lines_.push_back(text.substr(0, end));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
  }

  Chapter read() {
    check_lines();
    read_title();
    while (!at_end()) read_block();
    check_sections();
    return std::move(chapter_);
  }

 private:
  bool at_end() const { return next_ >= lines_.size(); }
  std::string_view line() const { return lines_[next_]; }
  int number() const { return static_cast<int>(next_) + 1; }

  void report_unknown(std::string_view name) const {
    report_(number(), unknown_construct, std::string(name).append(": ").append(in_quotes(line())));
  }

  // What holds for every line, in a listing or outside.
  void check_lines() const {
    int number = 0;
    for (const std::string_view line : lines_) {
      ++number;
      if (const auto place = compiler::find_control(line)) {
        report_(number, "a line has no tabs and no control characters",
                in_quotes(line.substr(*place, 1)));
      }
      if (line.ends_with(' ')) report_(number, "a line does not end in a blank", in_quotes(line));
    }
  }

  void read_title() {
    const std::string_view first = at_end() ? std::string_view() : line();
    if (first.starts_with("# ") && !is_blank(first.substr(2))) {
      chapter_.title = heading_text(first.substr(2));
      ++next_;
    } else {
      report_(1, "the first line of a chapter is \"# \" and its title", in_quotes(first));
    }
    chapter_.title_line = 1;
  }

  // References name a heading as it stands, so it has no marks in it.
  std::string heading_text(std::string_view source) const {
    const Spans spans = read_spans(trimmed(source), number(), report_);
    const bool plain = spans.size() <= 1 && (spans.empty() || spans[0] == Span{spans[0].text});
    if (!plain) report_(number(), "a heading has no marks in it", in_quotes(trimmed(source)));
    return plain_text(spans);
  }

  void read_block() {
    if (is_blank(line())) {
      ++next_;
    } else if (line().starts_with(fence)) {
      read_listing();
    } else if (line().starts_with('#')) {
      read_heading();
    } else if (line().starts_with('|')) {
      read_table();
    } else if (line().starts_with("![")) {
      read_figure();
    } else if (const auto other = other_construct_in(line())) {
      report_unknown(*other);
      ++next_;
    } else if (line().starts_with(' ')) {
      report_(number(), "text outside of lists and listings is not indented", in_quotes(line()));
      ++next_;
    } else if (marker_in(line())) {
      chapter_.blocks.emplace_back(read_list(0));
    } else {
      chapter_.blocks.emplace_back(read_paragraph());
    }
  }

  void read_heading() {
    if (line().starts_with("## ") && !is_blank(line().substr(3))) {
      chapter_.blocks.emplace_back(
          SectionHeading{.text = heading_text(line().substr(3)), .line = number()});
    } else if (line().starts_with("# ")) {
      report_(number(), "a chapter has one title", in_quotes(line()));
    } else {
      report_unknown("a heading other than \"## \"");
    }
    ++next_;
  }

  Paragraph read_paragraph() {
    const int first = number();
    std::string text(line());
    for (++next_; !at_end() && !is_blank(line()) && !begins_block(line()); ++next_) {
      if (line().starts_with(' ')) {
        report_(number(), "text outside of lists and listings is not indented", in_quotes(line()));
      }
      text.append("\n").append(trimmed(line()));
    }
    return read_text(text, first);
  }

  Paragraph read_text(std::string_view text, int first) const {
    return {.spans = read_spans(text, first, report_), .line = first};
  }

  void read_listing() {
    Listing listing{.line = number()};
    if (line().find_first_of(" `", fence.size()) != std::string_view::npos) {
      report_unknown("a fence with more than a language behind it");
    }
    for (++next_; !at_end() && line() != fence; ++next_) {
      const std::size_t columns = compiler::character_count(line());
      if (columns > most_columns) {
        report_(number(),
                "a line of a listing has at most " + std::to_string(most_columns) + " columns",
                std::to_string(columns) + " in " + in_quotes(line()));
      }
      listing.lines.emplace_back(line());
    }
    if (at_end()) {
      report_(listing.line, "a fence must be closed", in_quotes(fence));
    } else {
      ++next_;
    }
    if (std::ranges::all_of(listing.lines,
                            [](const std::string& text) { return is_blank(text); })) {
      report_(listing.line, "a listing must not be blank", in_quotes(fence));
    }
    chapter_.blocks.emplace_back(std::move(listing));
  }

  void read_table() {
    const int first = number();
    std::vector<std::string_view> rows;
    for (; !at_end() && line().starts_with('|'); ++next_) rows.push_back(line());
    chapter_.blocks.emplace_back(books::read_table(rows, first, report_));
  }

  void read_figure() {
    const auto middle = line().rfind("](");
    const bool whole = middle != line().npos && line().ends_with(')');
    if (!whole) {
      report_(number(), "a figure is ![Caption.](file.svg) on a line of its own",
              in_quotes(line()));
      ++next_;
      return;
    }
    const std::string_view caption = trimmed(line().substr(2, middle - 2));
    const std::string_view file = line().substr(middle + 2, line().size() - middle - 3);
    if (!caption.ends_with('.')) {
      report_(number(), "a figure's caption ends in a full stop", in_quotes(caption));
    }
    if (!file.ends_with(".svg") || file.find_first_of("/\\ ") != file.npos) {
      report_(number(), "a figure names an .svg file without a folder", in_quotes(file));
    }
    chapter_.blocks.emplace_back(
        Figure{.caption = read_text(caption, number()), .file = std::string(file)});
    ++next_;
  }

  List read_list(std::size_t indent) {
    const Marker first = *marker_in(line());
    List list{.numbered = first.numbered, .first_number = first.number};
    int expected = first.number;
    while (!at_end()) {
      const auto marker = marker_in(line());
      if (!marker || indent_of(line()) != indent || marker->numbered != list.numbered) break;
      if (list.numbered && marker->number != expected++) {
        report_(number(), "the numbers of a list rise by one",
                std::to_string(marker->number) + " instead of " + std::to_string(expected - 1));
      }
      list.items.push_back(read_item(*marker, indent));
      skip_blanks_inside_list(indent, list.numbered);
    }
    return list;
  }

  ListItem read_item(const Marker& marker, std::size_t indent) {
    const int first = number();
    if (const auto other = other_construct_in(line().substr(indent))) report_unknown(*other);
    std::string text(marker.text);
    for (++next_; !at_end() && !is_blank(line()); ++next_) {
      const std::size_t deeper = indent_of(line());
      if (marker_in(line())) break;
      if (deeper <= indent) {
        report_(number(), "a blank line ends a list", in_quotes(line()));
        break;
      }
      const bool block = begins_block(line().substr(deeper));
      if (block) {
        report_(number(), "an item of a list holds text and a list, nothing else",
                in_quotes(line()));
      }
      // Lines are counted in the text, so one that is no text leaves its end behind.
      text.append("\n").append(block ? std::string_view() : trimmed(line()));
    }
    ListItem item{.text = read_text(text, first)};
    while (!at_end() && !is_blank(line()) && indent_of(line()) > indent && marker_in(line())) {
      if (indent > 0 || !item.nested.empty()) {
        report_(number(), "a list is nested once, and all of its items alike", in_quotes(line()));
      }
      item.nested.push_back(read_list(indent_of(line())));
    }
    return item;
  }

  // A blank line between two items belongs to the list.
  void skip_blanks_inside_list(std::size_t indent, bool numbered) {
    std::size_t place = next_;
    while (place < lines_.size() && is_blank(lines_[place])) ++place;
    if (place == next_ || place == lines_.size()) return;
    const auto marker = marker_in(lines_[place]);
    if (marker && marker->numbered == numbered && indent_of(lines_[place]) == indent) next_ = place;
  }

  // A heading stands above text, so it needs some.
  void check_sections() const {
    const SectionHeading* open = nullptr;
    for (const Block& block : chapter_.blocks) {
      const auto* heading = std::get_if<SectionHeading>(&block);
      if (heading != nullptr && open != nullptr) report_empty(*open);
      open = heading;
    }
    if (open != nullptr) report_empty(*open);
    if (chapter_.blocks.empty()) report_(1, "a chapter has text", in_quotes(chapter_.title));
  }

  void report_empty(const SectionHeading& heading) const {
    report_(heading.line, "a section has text", in_quotes(heading.text));
  }

  const compiler::Reporter& report_;
  std::vector<std::string_view> lines_{};
  std::size_t next_ = 0;
  Chapter chapter_{};
};

}  // namespace

Chapter read_chapter(std::string_view text, const compiler::Reporter& report) {
  return ChapterReader(text, report).read();
}

}  // namespace practice::books
