#include "book_setting/page_breaks.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "book_setting/block_setter.h"
#include "book_setting/book.h"
#include "book_setting/table_setter.h"

namespace practice::books {
namespace {

constexpr double height = 1400;  // Ten lines.

Slice line(Break before = Break::free, double space = 0) {
  return {.height = 140, .space = space, .before = before};
}

Slice figure(double tall) { return {.height = tall, .space = 50, .floats = true}; }

void add_paragraph(Slices& slices, int lines, double space = 60) {
  for (int i = 0; i < lines; ++i) {
    const bool edge = i == 1 || i + 1 == lines;
    slices.push_back(i == 0 ? line(Break::free, space)
                            : line(edge ? Break::never : Break::in_paragraph));
  }
}

std::vector<std::size_t> indices(const Slices& slices, const PlacedSlices& page) {
  std::vector<std::size_t> result;
  for (const Placed& placed : page) {
    result.push_back(static_cast<std::size_t>(placed.slice - slices.data()));
  }
  return result;
}

TEST(PageBreaksTest, ThePageTakesNoSpaceAtItsTop) {
  const Slices slices{line(Break::free, 300)};
  EXPECT_EQ(cut_into_pages(slices, height)[0][0].top, 0);
}

TEST(PageBreaksTest, AHeadingGoesOnWithItsText) {
  Slices slices;
  add_paragraph(slices, 8);
  slices.push_back(line(Break::free, 60));
  slices.push_back(line(Break::never));
  slices.push_back(line(Break::never));
  add_paragraph(slices, 4);
  const auto pages = cut_into_pages(slices, height);
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_EQ(indices(slices, pages[1]), (std::vector<std::size_t>{8, 9, 10, 11, 12, 13, 14}));
}

TEST(PageBreaksTest, NoLineOfAParagraphIsLeftAlone) {
  // Nine lines of one paragraph, then five of another, of which one alone would have room.
  Slices slices;
  add_paragraph(slices, 9, 0);
  add_paragraph(slices, 5, 0);
  const auto pages = cut_into_pages(slices, height);
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_EQ(pages[0].size(), 9u);
  EXPECT_EQ(pages[1].size(), 5u);
}

// Nine lines and two spaces on the first page; the page is full when a space is 70.
void expect_even_spaces(double space) {
  Slices slices;
  for (int i = 0; i < 5; ++i) add_paragraph(slices, 3, space);
  const auto pages = cut_into_pages(slices, height);
  ASSERT_EQ(pages.size(), 2u);
  ASSERT_EQ(pages[0].size(), 9u);
  EXPECT_NEAR(pages[0][3].top, 3 * 140 + 70, 0.01);
  EXPECT_NEAR(pages[0][6].top, 6 * 140 + 2 * 70, 0.01);
  EXPECT_NEAR(pages[0][8].top + 140, height, 0.01);
  // The last page is not stretched.
  EXPECT_EQ(pages[1][2].top, 2 * 140);
}

TEST(PageBreaksTest, WhatAPageLacksIsSharedOutAmongItsSpaces) { expect_even_spaces(60); }

TEST(PageBreaksTest, SpacesShrinkALittleToTakeALineMore) { expect_even_spaces(75); }

TEST(PageBreaksTest, AFigureWithoutRoomComesToTheTopOfTheNextPage) {
  Slices slices;
  add_paragraph(slices, 5, 0);
  slices.push_back(figure(900));
  add_paragraph(slices, 6, 0);
  const auto pages = cut_into_pages(slices, height);
  ASSERT_EQ(pages.size(), 2u);
  // The text behind the figure fills the first page.
  EXPECT_EQ(indices(slices, pages[0]), (std::vector<std::size_t>{0, 1, 2, 3, 4, 6, 7, 8, 9}));
  EXPECT_EQ(indices(slices, pages[1]), (std::vector<std::size_t>{5, 10, 11}));
}

TEST(PageBreaksTest, ACutTableRepeatsItsHead) {
  Slices slices{line()};
  for (int i = 0; i < 14; ++i) {
    slices.push_back(line(i < 2 || i == 13 ? Break::never : Break::in_group));
    slices.back().repeated = {slices[0]};
  }
  const auto pages = cut_into_pages(slices, height);
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_EQ(pages[0].size() + pages[1].size(), 16u);
  EXPECT_EQ(pages[1][0].slice, &pages[1][1].slice->repeated[0]);
}

TEST(PageBreaksTest, WhatIsHigherThanAPageHasOneOfItsOwn) {
  Slices slices;
  add_paragraph(slices, 2);
  slices.push_back({.height = 2 * height});
  add_paragraph(slices, 2);
  EXPECT_EQ(cut_into_pages(slices, height).size(), 3u);
}

// A chapter made up by chance: paragraphs, headings, figures.
Slices any_chapter(std::mt19937& random) {
  const auto any = [&](int low, int high) {
    return std::uniform_int_distribution(low, high)(random);
  };
  Slices slices;
  for (int blocks = any(1, 40); blocks > 0; --blocks) {
    const int kind = any(0, 9);
    if (kind == 0) {
      slices.push_back(figure(any(200, 1300)));
    } else if (kind < 3) {
      slices.push_back(line(Break::free, 150));
      slices.push_back(line(Break::never, 60));
      slices.push_back(line(Break::never));
    } else {
      add_paragraph(slices, any(1, 9));
    }
  }
  return slices;
}

TEST(PageBreaksTest, EverySliceStandsOnceInOrderInsideItsPage) {
  std::mt19937 random(20261101);
  for (int round = 0; round < 300; ++round) {
    const Slices slices = any_chapter(random);
    std::vector<std::size_t> text;
    std::vector<std::size_t> figures;
    for (const PlacedSlices& page : cut_into_pages(slices, height)) {
      ASSERT_FALSE(page.empty());
      double end = 0;
      for (const Placed& placed : page) {
        EXPECT_GE(placed.top, end - 0.01);
        end = placed.top + placed.slice->height;
        EXPECT_LE(end, height + 0.01);
      }
      for (const std::size_t index : indices(slices, page)) {
        (slices[index].floats ? figures : text).push_back(index);
      }
    }
    EXPECT_TRUE(std::ranges::is_sorted(text));
    EXPECT_TRUE(std::ranges::is_sorted(figures));
    EXPECT_EQ(text.size() + figures.size(), slices.size());
    EXPECT_EQ(std::ranges::adjacent_find(text), text.end());
  }
}

TEST(PageBreaksTest, NoPageBeginsWhereItMustNot) {
  std::mt19937 random(9);
  for (int round = 0; round < 300; ++round) {
    const Slices slices = any_chapter(random);
    for (const PlacedSlices& page : cut_into_pages(slices, height)) {
      const auto first =
          std::ranges::find_if(page, [](const Placed& placed) { return !placed.slice->floats; });
      const bool wrong = first != page.end() && first->slice->before == Break::never;
      EXPECT_FALSE(wrong) << "round " << round;
    }
  }
}

TEST(PageBreaksTest, NoFigureStandsOnAPageBeforeTheTextInFrontOfIt) {
  std::mt19937 random(31);
  for (int round = 0; round < 300; ++round) {
    const Slices slices = any_chapter(random);
    std::size_t texts_placed = 0;
    for (const PlacedSlices& page : cut_into_pages(slices, height)) {
      const auto placed = indices(slices, page);
      const auto floats = [&](std::size_t index) { return slices[index].floats; };
      texts_placed +=
          placed.size() - static_cast<std::size_t>(std::ranges::count_if(placed, floats));
      for (const std::size_t index : placed) {
        if (!floats(index)) continue;
        const auto before = std::count_if(slices.begin(), slices.begin() + static_cast<long>(index),
                                          [](const Slice& slice) { return !slice.floats; });
        EXPECT_LE(static_cast<std::size_t>(before), texts_placed) << "round " << round;
      }
    }
  }
}

// Of a chapter that the setter makes, by the text of its source.
Slices chapter_of(std::vector<Block> blocks) {
  compiler::Faults faults;
  const Chapter chapter{.title = "Title", .blocks = std::move(blocks)};
  Slices slices = set_chapter(chapter, 1, 0, "", compiler::Reporter("01.md", faults));
  EXPECT_TRUE(faults.empty());
  return slices;
}

Paragraph paragraph(const std::string& text) { return {.spans = {{.text = text}}, .line = 1}; }

TEST(ChapterSlicesTest, TwoLinesStayBehindAHeadingWhateverFollows) {
  const List list{.items = {{.text = paragraph("One.")}, {.text = paragraph("Two.")}}};
  const Slices slices =
      chapter_of({paragraph("Text."), paragraph("More."), SectionHeading{.text = "Heading"}, list});
  ASSERT_EQ(slices.size(), 6u);
  EXPECT_EQ(slices[3].before, Break::free);
  EXPECT_EQ(slices[4].before, Break::never);
  EXPECT_EQ(slices[5].before, Break::never);
  EXPECT_EQ(slices[3].mark, 1);
}

TEST(ChapterSlicesTest, WhatAColonAnnouncesStandsBelowIt) {
  const Slices slices = chapter_of({paragraph("Text."), paragraph("More."), paragraph("Like this:"),
                                    Listing{.lines = {"show vlan"}}, paragraph("End.")});
  ASSERT_EQ(slices.size(), 6u);
  EXPECT_EQ(slices[4].before, Break::in_group);
  EXPECT_EQ(slices[5].before, Break::free);
  EXPECT_GT(slices[4].ground, 0);
  EXPECT_EQ(slices[5].ground, 0);
}

TEST(ChapterSlicesTest, TheEdgesOfAListingStayTogether) {
  const Slices slices = chapter_of({paragraph("Text."), paragraph("More."),
                                    Listing{.lines = std::vector<std::string>(12, "x")}});
  std::vector<Break> breaks;
  for (std::size_t i = 4; i < slices.size(); ++i) breaks.push_back(slices[i].before);
  EXPECT_EQ(std::ranges::count(breaks, Break::in_group), 5);
  EXPECT_EQ(breaks.front(), Break::never);
  EXPECT_EQ(breaks.back(), Break::never);
}

Table table_of(int rows) {
  Table table{.alignments = {ColumnAlignment::left, ColumnAlignment::right}};
  for (int i = 0; i < rows; ++i) {
    table.rows.push_back({paragraph("Row " + std::to_string(i)), paragraph("1")});
  }
  return table;
}

TEST(ChapterSlicesTest, ASmallTableIsNotCutAndALongOneRepeatsItsHead) {
  compiler::Faults faults;
  const compiler::Reporter report("01.md", faults);
  for (const Slice& row : set_table(table_of(9), report)) {
    EXPECT_NE(row.before, Break::in_group);
  }
  const Slices rows = set_table(table_of(40), report);
  ASSERT_EQ(rows.size(), 40u);
  EXPECT_EQ(rows[2].before, Break::never);
  EXPECT_EQ(rows[20].before, Break::in_group);
  EXPECT_EQ(rows[39].before, Break::never);
  EXPECT_EQ(rows[20].repeated.size(), 1u);
  EXPECT_TRUE(faults.empty());
}

}  // namespace
}  // namespace practice::books
