#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sample_book.h"

namespace practice::books {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// One change, and the whole of what the setter then says.
struct Broken {
  std::string_view name;
  std::string_view file;
  std::string_view before;
  std::string_view after;
  std::string_view faults;
};

void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.name; }

std::string name_of(const testing::TestParamInfo<Broken>& info) {
  return std::string(info.param.name);
}

class RuleTest : public testing::TestWithParam<Broken> {};

TEST_P(RuleTest, NamesFileLineAndRule) {
  const Broken& broken = GetParam();
  const SampleBook book;
  book.change(std::string(broken.file), broken.before, broken.after);
  const Outcome outcome = book.check();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, broken.faults);
  EXPECT_EQ(outcome.out, "");
}

constexpr std::string_view flag = "A frame begins and ends with a flag.";

constexpr Broken broken_headings[] = {
    {"no_title", "02.md", "# Framing\n", "Framing\n",
     "02.md:1: the first line of a chapter is \"# \" and its title: \"Framing\"\n"},
    {"second_title", "02.md", "## Flags and Stuffing", "# Flags and Stuffing",
     "02.md:3: a chapter has one title: \"# Flags and Stuffing\"\n"},
    {"deep_heading", "02.md", "## Flags and Stuffing", "### Flags and Stuffing",
     "02.md:3: this is not part of a book's markup: a heading other than \"## \": \"### Flags and "
     "Stuffing\"\n"},
    {"heading_twice", "02.md", "## Flags and Stuffing", "## Cables",
     "02.md:3: a heading stands once in a book: \"Cables\" as in 01.md:20\n"},
    {"heading_like_a_title", "02.md", "## Flags and Stuffing", "## Serial Lines",
     "02.md:3: a heading stands once in a book: \"Serial Lines\" as in 01.md:1\n"},
    {"marked_heading", "02.md", "## Flags and Stuffing", "## The `flag`",
     "02.md:3: a heading has no marks in it: \"The `flag`\"\n"},
    {"empty_section", "02.md", "## Flags", "## Nothing\n\n## Flags",
     "02.md:3: a section has text: \"Nothing\"\n"},
    {"empty_last_section", "02.md", flag, "",
     "02.md:3: a section has text: \"Flags and Stuffing\"\n"},
    {"empty_chapter", "02.md", "\n## Flags and Stuffing\n\nA frame begins and ends with a flag.\n",
     "", "02.md:1: a chapter has text: \"Framing\"\n"},
};

constexpr Broken broken_listings[] = {
    {"long_line", "01.md", "R1(config-if)# clock rate 64000",
     "12345678901234567890123456789012345678901234567890123456789012345678901234567",
     "01.md:10: a line of a listing has at most 76 columns: 77 in "
     "\"123456789012345678901234567890123456789012345678901234567890...\"\n"},
    {"open_fence", "02.md", flag, "```\nflag", "02.md:5: a fence must be closed: \"```\"\n"},
    {"blank_listing", "02.md", flag, "```\n\n```",
     "02.md:5: a listing must not be blank: \"```\"\n"},
    {"talkative_fence", "02.md", flag, "```text wide\nflag\n```",
     "02.md:5: this is not part of a book's markup: a fence with more than a language behind it: "
     "\"```text wide\"\n"},
    {"tab", "01.md", "R1(config-if)# clock", "R1(config-if)#\tclock",
     "01.md:10: a line has no tabs and no control characters: \"\\x09\"\n"},
};

constexpr Broken broken_figures[] = {
    {"missing_figure", "01.md", "(line.svg)", "(lines.svg)",
     "01.md:18: a figure lies in the book's folder of figures: \"lines.svg\"\n"},
    {"not_svg", "figures/line.svg", "<svg", "<html",
     "01.md:18: a figure is an SVG picture with plain texts: \"line.svg\"\n"},
    {"nested_label", "figures/line.svg", ">clock<", "><tspan>clock</tspan><",
     "01.md:18: a figure is an SVG picture with plain texts: \"line.svg\"\n"},
    {"no_full_stop", "01.md", "A line and its clock.", "A line and its clock",
     "01.md:18: a figure's caption ends in a full stop: \"A line and its clock\"\n"},
    {"text_behind_figure", "01.md", "(line.svg)", "(line.svg) and more",
     "01.md:18: a figure is ![Caption.](file.svg) on a line of its own: \"![A line and its clock.]"
     "(line.svg) and more\"\n"},
    {"figure_in_text", "02.md", "with a flag", "with ![a flag.](line.svg)",
     "02.md:5: this is not part of a book's markup: an image inside a text: \"[a flag.](line.svg)."
     "\"\n"},
};

constexpr Broken broken_marks[] = {
    {"open_bold", "02.md", "with a flag", "with a **flag",
     "02.md:5: a mark must be closed: \"**\"\n"},
    {"open_italic", "02.md", "with a flag", "with a *flag",
     "02.md:5: a mark must be closed: \"*\"\n"},
    {"open_code", "02.md", "with a flag", "with a `flag",
     "02.md:5: a mark must be closed: \"`\"\n"},
    {"loose_bold", "02.md", "a flag", "** flag **",
     "02.md:5: a mark must touch the text that it marks: \"**\"\n"
     "02.md:5: a mark must touch the text that it marks: \"**\"\n"},
    {"double_backtick", "02.md", "a flag", "``flag``",
     "02.md:5: this is not part of a book's markup: a mark of more than one backtick\n"
     "02.md:5: this is not part of a book's markup: a mark of more than one backtick\n"},
    {"four_stars", "02.md", "a flag", "****flag",
     "02.md:5: this is not part of a book's markup: more than three asterisks\n"},
    {"underscores", "02.md", "a flag", "a _flag_",
     "02.md:5: this is not part of a book's markup: a mark of underscores: \"_flag_.\"\n"},
    {"struck_out", "02.md", "a flag", "~~flags~~",
     "02.md:5: this is not part of a book's markup: text that is struck out: \"~~flags~~.\"\n"
     "02.md:5: this is not part of a book's markup: text that is struck out: \"~~.\"\n"},
    {"link", "02.md", "a flag", "[flags](02.md)",
     "02.md:5: this is not part of a book's markup: a link: \"[flags](02.md).\"\n"},
    {"footnote", "02.md", "a flag", "flags[^1]",
     "02.md:5: this is not part of a book's markup: a footnote: \"[^1].\"\n"},
    {"html", "02.md", "a flag", "a<br>flag",
     "02.md:5: this is not part of a book's markup: an HTML tag: \"<br>flag.\"\n"},
    {"entity", "02.md", "a flag", "a&nbsp;flag",
     "02.md:5: this is not part of a book's markup: an HTML entity: \"&nbsp;flag.\"\n"},
    {"fault_in_second_line", "02.md", "with a flag", "with\n<b>flags",
     "02.md:6: this is not part of a book's markup: an HTML tag: \"<b>flags.\"\n"},
};

constexpr Broken broken_lines[] = {
    {"quote", "02.md", flag, "> Framed.",
     "02.md:3: a section has text: \"Flags and Stuffing\"\n"
     "02.md:5: this is not part of a book's markup: a block quote: \"> Framed.\"\n"},
    {"rule", "02.md", "flag.\n", "flag.\n\n---\n",
     "02.md:7: this is not part of a book's markup: a rule or an underlined heading: \"---\"\n"},
    {"star_bullet", "02.md", "flag.\n", "flag.\n\n* One.\n",
     "02.md:7: this is not part of a book's markup: a bullet other than \"-\": \"* One.\"\n"},
    {"bracket_number", "02.md", "flag.\n", "flag.\n\n1) One.\n",
     "02.md:7: this is not part of a book's markup: a number with a bracket: \"1) One.\"\n"},
    {"tasks", "02.md", "flag.\n", "flag.\n\n- [ ] One.\n",
     "02.md:7: this is not part of a book's markup: a list of tasks: \"- [ ] One.\"\n"},
    {"indented", "02.md", "flag.\n", "flag.\n\n    One.\n",
     "02.md:7: text outside of lists and listings is not indented: \"    One.\"\n"},
    {"blank_end", "02.md", "flag.\n", "flag. \n",
     "02.md:5: a line does not end in a blank: \"A frame begins and ends with a flag. \"\n"},
    {"backslash_end", "02.md", "flag.\n", "flag\\\n",
     "02.md:5: this is not part of a book's markup: a line break by a backslash\n"},
    {"backslash_inside", "02.md", "begins and ends", "begins\\\nand ends",
     "02.md:5: this is not part of a book's markup: a line break by a backslash\n"},
    {"no_blank_after_list", "01.md", "  2. it answers.\n", "  2. it answers.\nAnd so on.\n",
     "01.md:17: a blank line ends a list: \"And so on.\"\n"},
    {"numbers", "01.md", "2. it answers", "3. it answers",
     "01.md:16: the numbers of a list rise by one: 3 instead of 2\n"},
    {"nested_twice", "01.md", "  1. it listens,\n", "  1. it listens,\n     - hard,\n",
     "01.md:16: a list is nested once, and all of its items alike: \"     - hard,\"\n"},
    {"listing_in_list", "01.md", "  2. it answers.\n", "  2. it answers.\n     ```\n",
     "01.md:17: an item of a list holds text and a list, nothing else: \"     ```\"\n"},
    {"cells", "01.md", "| X.21 | 15 |", "| X.21 |",
     "01.md:25: all rows of a table have as many cells as its head: 1 instead of 2\n"},
    {"open_row", "01.md", "| X.21 | 15 |", "| X.21 | 15 | ISO",
     "01.md:25: a row of a table ends in a bar: \"| X.21 | 15 | ISO\"\n"},
    {"no_dashes", "01.md", "| --- | ---: |", "| - | ---: |",
     "01.md:23: the second line of a table is made of dashes: \"-\"\n"},
    {"no_rows", "01.md", "| V.35 | 34 |\n| X.21 | 15 |\n", "",
     "01.md:22: a table has a head, a line of dashes and a row: \"| Cable | Pins |\"\n"},
    {"not_utf8", "02.md", "a flag", "a \xFFlag", "02.md:5: text must be UTF-8: \"\\xFF\"\n"},
};

constexpr std::string_view wide_word =
    "anunbrokenwordthatiswiderthanalineofthebookanunbrokenwordthatiswiderthanalineofthebook";

constexpr Broken broken_pages[] = {
    {"wide_word", "02.md", "a flag", wide_word,
     "02.md:5: a word fits the width of its line: "
     "\"anunbrokenwordthatiswiderthanalineofthebookanunbrokenwordtha...\"\n"},
    {"wide_table", "01.md", "| V.35 | 34 |",
     "| anunbrokenwordthatiswiderthanalineofthebookanunbrokenwordthatiswiderthanalineofit | 34 |",
     "01.md:22: a table fits the width of a page: 27 points too wide\n"},
    {"missing_sign", "02.md", "a flag", "a \xE6\x97\x97",
     "02.md:5: the book's faces have every sign of its text: \"\xE6\x97\x97\" in Liberation "
     "Serif\n"},
};

constexpr Broken broken_heads[] = {
    {"missing_key", "book.toml", "subtitle = \"Wide-Area Links\"\n", "",
     "book.toml:1: book.toml has every key of a book: \"subtitle\"\n"},
    {"unknown_key", "book.toml", "edition =", "price = 3\nedition =",
     "book.toml:5: no other keys than those of a book: \"price\"\n"},
    {"no_text", "book.toml", "\"First edition, 2026\"", "1",
     "book.toml:5: this must be a line of text: \"edition\"\n"},
    {"no_day", "book.toml", "2026-11-01", "\"2026-11-01\"",
     "book.toml:6: the date is a day such as 2026-11-01: \"date\"\n"},
    {"no_imprint", "book.toml", "[\"All *rights* are the reader's.\"]", "[]",
     "book.toml:7: the imprint is a list of texts: \"imprint\"\n"},
    {"other_exam", "book.toml", "\"heron\"", "\"lark\"",
     "book.toml:1: the exam is that of the book's folder: \"lark\"\n"},
    {"no_such_chapter", "book.toml", "imprint", "categories = { 3 = \"Third\" }\nimprint",
     "book.toml: a category belongs to the number of a chapter: 3\n"},
    {"no_chapter_number", "book.toml", "imprint", "categories = { x = \"Third\" }\nimprint",
     "book.toml:7: a category belongs to the number of a chapter: \"x\"\n"},
};

INSTANTIATE_TEST_SUITE_P(Headings, RuleTest, testing::ValuesIn(broken_headings), name_of);
INSTANTIATE_TEST_SUITE_P(Listings, RuleTest, testing::ValuesIn(broken_listings), name_of);
INSTANTIATE_TEST_SUITE_P(Figures, RuleTest, testing::ValuesIn(broken_figures), name_of);
INSTANTIATE_TEST_SUITE_P(Marks, RuleTest, testing::ValuesIn(broken_marks), name_of);
INSTANTIATE_TEST_SUITE_P(Lines, RuleTest, testing::ValuesIn(broken_lines), name_of);
INSTANTIATE_TEST_SUITE_P(Pages, RuleTest, testing::ValuesIn(broken_pages), name_of);
INSTANTIATE_TEST_SUITE_P(Heads, RuleTest, testing::ValuesIn(broken_heads), name_of);

TEST(RulesTest, ABookWithoutFaultsIsCounted) {
  const Outcome outcome = SampleBook().check();
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "HERON: 2 chapters, 3 sections, 5 pages, no rule broken\n");
  EXPECT_EQ(outcome.code, 0);
}

TEST(RulesTest, OneRunTellsTheFaultsOfAllFilesInOrder) {
  const SampleBook book;
  book.change("02.md", "a flag", "a **flag");
  book.change("01.md", "clock rate 64000", "clock\trate 64000");
  book.change("01.md", "| X.21 | 15 |", "| X.21 |");
  book.change("book.toml", "date = 2026-11-01\n", "");
  const Outcome outcome = book.check();
  EXPECT_EQ(outcome.err,
            "01.md:10: a line has no tabs and no control characters: \"\\x09\"\n"
            "01.md:25: all rows of a table have as many cells as its head: 1 instead of 2\n"
            "02.md:5: a mark must be closed: \"**\"\n"
            "book.toml:1: book.toml has every key of a book: \"date\"\n");
}

TEST(RulesTest, ChaptersAreNumberedWithoutAGap) {
  const SampleBook book;
  std::filesystem::rename(book.folder() / "02.md", book.folder() / "03.md");
  EXPECT_EQ(book.check().err,
            "book.toml: chapters are called 01.md, 02.md and so on, without a gap: \"03.md\"\n");
}

TEST(RulesTest, AChapterHasANumberForAName) {
  const SampleBook book;
  book.write("notes.md", "# Notes\n\nTo be written.\n");
  EXPECT_EQ(book.check().err,
            "book.toml: chapters are called 01.md, 02.md and so on, without a gap: \"notes.md\"\n");
}

TEST(RulesTest, AMissingHeadIsAFaultAmongOthers) {
  const SampleBook book;
  std::filesystem::remove(book.folder() / "book.toml");
  book.change("02.md", "a flag", "a **flag");
  EXPECT_EQ(book.check().err,
            "02.md:5: a mark must be closed: \"**\"\n"
            "book.toml: this file can be read, and is not empty: \"book.toml\"\n");
}

TEST(RulesTest, AnUnreadableHeadNamesItsLine) {
  const SampleBook book;
  book.change("book.toml", "title = \"HERON\"", "title = HERON");
  EXPECT_THAT(book.check().err, StartsWith("book.toml:2: book.toml must be TOML: "));
}

TEST(RulesTest, AFaultLeavesNoBookBehind) {
  const SampleBook book;
  const std::string pdf = (book.root() / "out" / "book.pdf").string();
  const std::string pages = (book.root() / "out" / "pages.toml").string();
  const std::vector<std::string> call{"--book", book.folder().string(), "--output", pdf, "--pages",
                                      pages};
  ASSERT_EQ(run_setter(call).code, 0);
  ASSERT_TRUE(std::filesystem::exists(pdf));
  book.change("02.md", "a flag", "a **flag");
  EXPECT_EQ(run_setter(call).code, 1);
  EXPECT_FALSE(std::filesystem::exists(pdf));
  EXPECT_FALSE(std::filesystem::exists(pages));
}

TEST(RulesTest, AWrongCallIsAnsweredWithTheRightOnes) {
  for (const std::vector<std::string>& call : std::vector<std::vector<std::string>>{
           {}, {"--book", "x"}, {"--check"}, {"--check", "x", "--check", "y"}, {"x", "y"}}) {
    const Outcome outcome = run_setter(call);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_THAT(outcome.err, HasSubstr("book_setter --check FOLDER"));
  }
  EXPECT_THAT(run_setter({"--help"}).out, HasSubstr("book_setter --check FOLDER"));
}

}  // namespace
}  // namespace practice::books
