#include "book_setting/markdown.h"

#include <string>
#include <string_view>
#include <variant>

#include <gtest/gtest.h>

#include "bank_compiler/fault.h"
#include "book_setting/spans.h"

namespace practice::books {
namespace {

Chapter read(std::string_view text) {
  compiler::Faults faults;
  Chapter chapter = read_chapter(text, compiler::Reporter("01.md", faults));
  for (const compiler::Fault& fault : faults) ADD_FAILURE() << to_text(fault);
  return chapter;
}

Spans spans_of(std::string_view text) {
  compiler::Faults faults;
  Spans spans = read_spans(text, 1, compiler::Reporter("01.md", faults));
  for (const compiler::Fault& fault : faults) ADD_FAILURE() << to_text(fault);
  return spans;
}

TEST(SpansTest, MarksCutATextIntoStyles) {
  EXPECT_EQ(spans_of("A **bold** and *slanted* `code`."),
            (Spans{{.text = "A "},
                   {.text = "bold", .bold = true},
                   {.text = " and "},
                   {.text = "slanted", .italic = true},
                   {.text = " "},
                   {.text = "code", .code = true},
                   {.text = "."}}));
}

TEST(SpansTest, MarksAreNested) {
  EXPECT_EQ(spans_of("**a *b***"),
            (Spans{{.text = "a ", .bold = true}, {.text = "b", .bold = true, .italic = true}}));
  EXPECT_EQ(spans_of("***a** b*"),
            (Spans{{.text = "a", .bold = true, .italic = true}, {.text = " b", .italic = true}}));
}

TEST(SpansTest, WhatLooksLikeAMarkMayStandForItself) {
  EXPECT_EQ(plain_text(spans_of("2 * 3, route_map_a, a < b, R&D, [110/21], n(n - 1)")),
            "2 * 3, route_map_a, a < b, R&D, [110/21], n(n - 1)");
  EXPECT_EQ(plain_text(spans_of("\\*a\\* \\`b\\` \\<c\\>")), "*a* `b` <c>");
}

TEST(SpansTest, CodeHoldsNoMarks) {
  EXPECT_EQ(spans_of("`<189> **x** _y_`"), (Spans{{.text = "<189> **x** _y_", .code = true}}));
  EXPECT_EQ(spans_of("`a \\| b`"), (Spans{{.text = "a | b", .code = true}}));
}

TEST(MarkdownTest, LinesOfAParagraphBecomeOneText) {
  const Chapter chapter = read("# T\n\nOne\ntwo.\n\nThree.\n");
  EXPECT_EQ(chapter.title, "T");
  ASSERT_EQ(chapter.blocks.size(), 2u);
  EXPECT_EQ(plain_text(std::get<Paragraph>(chapter.blocks[0]).spans), "One two.");
  EXPECT_EQ(std::get<Paragraph>(chapter.blocks[1]).line, 6);
}

TEST(MarkdownTest, BlocksNeedNoBlankLineBetweenThem) {
  const Chapter chapter = read("# T\nText:\n- one\n- two\n\n## S\n```\nx\n```\nEnd.\n");
  ASSERT_EQ(chapter.blocks.size(), 5u);
  EXPECT_EQ(std::get<List>(chapter.blocks[1]).items.size(), 2u);
  EXPECT_EQ(std::get<SectionHeading>(chapter.blocks[2]).line, 6);
  EXPECT_EQ(std::get<Listing>(chapter.blocks[3]).lines, std::vector<std::string>{"x"});
}

TEST(MarkdownTest, AListKeepsItsNumbersItsLinesAndItsList) {
  const Chapter chapter = read("# T\n\n3. one\n   more\n\n4. two\n   - a\n   - b\n5. three\n");
  ASSERT_EQ(chapter.blocks.size(), 1u);
  const List& list = std::get<List>(chapter.blocks[0]);
  EXPECT_TRUE(list.numbered);
  EXPECT_EQ(list.first_number, 3);
  ASSERT_EQ(list.items.size(), 3u);
  EXPECT_EQ(plain_text(list.items[0].text.spans), "one more");
  EXPECT_TRUE(list.items[0].nested.empty());
  ASSERT_EQ(list.items[1].nested.size(), 1u);
  EXPECT_FALSE(list.items[1].nested[0].numbered);
  EXPECT_EQ(plain_text(list.items[1].nested[0].items[1].text.spans), "b");
}

TEST(MarkdownTest, AListingKeepsItsBlanksAndItsMarks) {
  const Chapter chapter = read("# T\n\n```text\n  # a **b**\n\n| c\n```\n");
  EXPECT_EQ(std::get<Listing>(chapter.blocks[0]).lines,
            (std::vector<std::string>{"  # a **b**", "", "| c"}));
}

TEST(MarkdownTest, AListingMayFillAllItsColumns) {
  const std::string widest(most_columns, 'x');
  const Chapter chapter = read("# T\n\n```\n" + widest + "\n```\n");
  EXPECT_EQ(std::get<Listing>(chapter.blocks[0]).lines.front(), widest);
}

TEST(MarkdownTest, ATableHasAlignedColumnsAndMarkedCells) {
  const Chapter chapter =
      read("# T\n\n| a | b | c |\n| --- | ---: | :---: |\n| `x \\| y` | **2** | |\n");
  const Table& table = std::get<Table>(chapter.blocks[0]);
  EXPECT_EQ(table.alignments,
            (std::vector{ColumnAlignment::left, ColumnAlignment::right, ColumnAlignment::centre}));
  ASSERT_EQ(table.rows.size(), 2u);
  EXPECT_EQ(table.rows[1][0].spans, (Spans{{.text = "x | y", .code = true}}));
  EXPECT_EQ(table.rows[1][1].spans, (Spans{{.text = "2", .bold = true}}));
  EXPECT_TRUE(table.rows[1][2].spans.empty());
  EXPECT_EQ(table.rows[1][0].line, 5);
}

TEST(MarkdownTest, AFigureHasACaptionAndAFile) {
  const Chapter chapter = read("# T\n\n![The `TCI`, in bits.](06_tag.svg)\n");
  const Figure& figure = std::get<Figure>(chapter.blocks[0]);
  EXPECT_EQ(plain_text(figure.caption.spans), "The TCI, in bits.");
  EXPECT_EQ(figure.file, "06_tag.svg");
}

}  // namespace
}  // namespace practice::books
