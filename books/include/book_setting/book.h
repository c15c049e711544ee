// A book as its authors wrote it: chapters of blocks, with the line of the source beside everything
// that a fault can be found in. Texts are UTF-8; marks such as "**" are gone from them.
#pragma once

#include <array>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace practice::books {

/// A stretch of text in one style. Code has no other style.
struct Span {
  std::string text{};
  bool bold = false;
  bool italic = false;
  bool code = false;

  bool operator==(const Span&) const = default;
};

using Spans = std::vector<Span>;

struct Paragraph {
  Spans spans{};
  int line = 0;
};

struct SectionHeading {
  std::string text{};
  int line = 0;
};

struct List;

struct ListItem {
  Paragraph text{};
  /// None or one, which nests no further.
  std::vector<List> nested{};
};

struct List {
  bool numbered = false;
  int first_number = 1;
  std::vector<ListItem> items{};
};

/// A fenced block, line by line.
struct Listing {
  std::vector<std::string> lines{};
  /// Of the opening fence.
  int line = 0;
};

enum class ColumnAlignment { left, centre, right };

/// All rows have as many cells as `alignments` has entries; the first one is the head.
struct Table {
  std::vector<ColumnAlignment> alignments{};
  std::vector<std::vector<Paragraph>> rows{};
  int line = 0;
};

struct Figure {
  Paragraph caption{};
  /// A name in the book's folder of figures.
  std::string file{};
};

using Block = std::variant<SectionHeading, Paragraph, List, Listing, Table, Figure>;

struct Chapter {
  std::string title{};
  int title_line = 0;
  std::vector<Block> blocks{};
  /// The path that faults name.
  std::string file{};
};

struct CalendarDay {
  int year = 0;
  int month = 0;
  int day = 0;
};

/// What book.toml tells.
struct BookHead {
  std::string exam{};
  std::string title{};
  std::string subtitle{};
  std::string publisher{};
  /// Such as "First edition, November 2026".
  std::string edition{};
  CalendarDay date{};
  std::vector<Paragraph> imprint{};
  /// A category's name, in which "{number}" and "{title}" stand for those of the chapter.
  std::string category_form = "{title}";
  /// Names of categories that do not have that form, by the number of the chapter.
  std::map<int, std::string> categories{};
};

struct Book {
  BookHead head{};
  std::vector<Chapter> chapters{};
  /// Path of book.toml, and of the folder of figures.
  std::string head_file{};
  std::string figure_folder{};
};

/// The category in the exam's banks that the chapter, counted from 1, goes with.
std::string category_of(const Book& book, std::size_t chapter);

}  // namespace practice::books
