#include <QFontMetricsF>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <toml++/toml.h>

#include "book_setting/design.h"
#include "book_setting/typography.h"
#include "sample_book.h"

namespace practice::books {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

struct Entry {
  std::string heading;
  int page = 0;
  bool chapter = false;
};

QString to_print(const std::string& text) { return QString::fromStdString(polished(text)); }

// A book that has been set, as its readers get it: the PDF and the page index.
class FinishedBook {
 public:
  explicit FinishedBook(const std::filesystem::path& folder) {
    const Outcome outcome = run_setter(
        {"--book", folder.string(), "--output", file("book.pdf"), "--pages", file("pages.toml")});
    if (outcome.code != 0) throw std::runtime_error(outcome.err);
    index_ = toml::parse(bytes_of(file("pages.toml")));
    document_.load(QString::fromStdString(file("book.pdf")));
    for (int page = 0; page < document_.pageCount(); ++page) {
      texts_.push_back(document_.getAllText(page).text());
    }
  }

  std::string file(const std::string& name) const {
    return (std::filesystem::path(directory_.path().toStdString()) / name).string();
  }

  const toml::table& index() const { return index_; }
  int page_count() const { return document_.pageCount(); }
  QString title() const {
    return document_.metaData(QPdfDocument::MetaDataField::Title).toString();
  }
  QString date() const {
    return document_.metaData(QPdfDocument::MetaDataField::CreationDate)
        .toDateTime()
        .toUTC()
        .toString(Qt::ISODate);
  }

  /// Of a page, counted from 1, as one line: where the PDF's lines end is a matter of opinion.
  QString text(int page) const {
    return texts_.at(static_cast<std::size_t>(page) - 1).simplified();
  }

  /// The part of a page, in points, that the words at this place of its text take up.
  QRectF box(int page, qsizetype place, qsizetype length) {
    return document_
        .getSelectionAtIndex(page - 1, static_cast<int>(place), static_cast<int>(length))
        .boundingRectangle();
  }
  QRectF first_box(int page, qsizetype length) { return box(page, 0, length); }
  QRectF last_box(int page, qsizetype length) {
    return box(page, texts_.at(static_cast<std::size_t>(page) - 1).size() - length, length);
  }

  std::vector<Entry> entries() const {
    std::vector<Entry> entries;
    for (const toml::node& node : *index_["chapter"].as_array()) {
      const toml::table& chapter = *node.as_table();
      entries.push_back({.heading = chapter["title"].value_or(std::string()),
                         .page = chapter["page"].value_or(0),
                         .chapter = true});
      const toml::array* sections = chapter["sections"].as_array();
      for (std::size_t i = 0; sections != nullptr && i < sections->size(); ++i) {
        const toml::table& section = *sections->get(i)->as_table();
        entries.push_back({.heading = section["heading"].value_or(std::string()),
                           .page = section["page"].value_or(0)});
      }
    }
    return entries;
  }

  /// The pages on which the words stand as large as a section's heading, at the text's left edge,
  /// and are not the beginning of a longer heading.
  std::vector<int> pages_with_heading(const std::string& heading) {
    const QString words = to_print(heading);
    const TextStyle& style = styles::section;
    const double wide =
        QFontMetricsF(font_of(style.face, style.size, true, false)).horizontalAdvance(words) / 10;
    std::vector<int> pages;
    for (int page = 1; page <= page_count(); ++page) {
      const QString& found = texts_.at(static_cast<std::size_t>(page) - 1);
      for (auto place = found.indexOf(words); place >= 0; place = found.indexOf(words, place + 1)) {
        const QRectF part = box(page, place, words.size());
        const bool at_edge = std::abs(part.left() - design::margin / 10) < 3;
        if (!at_edge || std::abs(part.width() - wide) > 4) continue;
        if (!begins_longer_heading(QStringView(found).mid(place), words)) pages.push_back(page);
      }
    }
    return pages;
  }

 private:
  bool begins_longer_heading(QStringView text, const QString& words) const {
    return std::ranges::any_of(entries(), [&](const Entry& entry) {
      const QString other = to_print(entry.heading);
      return other.size() > words.size() && text.startsWith(other);
    });
  }

  QTemporaryDir directory_{};
  toml::table index_{};
  QPdfDocument document_{};
  std::vector<QString> texts_{};
};

// The book of the FALCO exam, set once for all tests.
class FalcoBookTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    book_ = std::make_unique<FinishedBook>(std::filesystem::path(PRACTICE_EXAM_BOOKS) / "falco");
  }
  static void TearDownTestSuite() { book_.reset(); }

  static std::unique_ptr<FinishedBook> book_;
};

std::unique_ptr<FinishedBook> FalcoBookTest::book_;

TEST_F(FalcoBookTest, EverySectionStandsOnThePageOfTheIndexAndOnNoOther) {
  int sections = 0;
  for (const Entry& entry : book_->entries()) {
    if (entry.chapter) continue;
    EXPECT_THAT(book_->pages_with_heading(entry.heading), ElementsAre(entry.page)) << entry.heading;
    ++sections;
  }
  EXPECT_GT(sections, 200);
}

TEST_F(FalcoBookTest, EveryChapterOpensThePageOfTheIndex) {
  int chapter = 0;
  for (const Entry& entry : book_->entries()) {
    if (!entry.chapter) continue;
    ++chapter;
    const std::string opening = "CHAPTER " + std::to_string(chapter) + " " + entry.heading;
    EXPECT_THAT(book_->text(entry.page).toStdString(), StartsWith(polished(opening)));
  }
  EXPECT_EQ(chapter, 20);
}

TEST_F(FalcoBookTest, TheContentsListEveryHeadingWithItsPageInOrder) {
  const std::vector<Entry> entries = book_->entries();
  QStringList listed;
  for (int page = 3; page < entries.front().page; ++page) {
    QString text = book_->text(page);
    const QString head = page == 3 || page % 2 == 1
                             ? QStringLiteral("Contents ")
                             : QStringLiteral("JASPER FALCO: Campus Switching ");
    ASSERT_TRUE(text.startsWith(head)) << page;
    text.remove(0, head.size());
    text.chop(QString::number(page).size());
    listed += text.trimmed();
  }
  QStringList expected;
  int chapter = 0;
  for (const Entry& entry : entries) {
    if (entry.chapter) expected += QString::number(++chapter);
    expected += to_print(entry.heading);
    expected += QString::number(entry.page);
  }
  EXPECT_EQ(listed.join(QLatin1Char(' ')).toStdString(),
            expected.join(QLatin1Char(' ')).toStdString());
}

TEST_F(FalcoBookTest, EveryPageButTheFirstTwoShowsItsNumberAtItsFoot) {
  EXPECT_EQ(book_->index()["pages"].value_or(0), book_->page_count());
  for (int page = 1; page <= book_->page_count(); ++page) {
    const QString number = QString::number(page);
    const QRectF last = book_->last_box(page, number.size());
    const bool at_foot = last.bottom() > (design::text_top + design::text_height) / 10 + 20;
    EXPECT_EQ(at_foot, page > 2) << page;
    if (page < 3) continue;
    EXPECT_TRUE(book_->text(page).endsWith(QLatin1Char(' ') + number)) << page;
    EXPECT_NEAR(last.center().x(), design::page_width / 20, 1) << page;
  }
}

TEST_F(FalcoBookTest, LeftPagesNameTheBookAndRightPagesTheChapter) {
  std::map<int, std::string> openings;
  for (const Entry& entry : book_->entries()) {
    if (entry.chapter) openings[entry.page] = entry.heading;
  }
  for (int page = openings.begin()->first; page <= book_->page_count(); ++page) {
    if (openings.contains(page)) continue;
    const std::string chapter = std::prev(openings.upper_bound(page))->second;
    const std::string head = page % 2 == 0 ? "JASPER FALCO: Campus Switching" : polished(chapter);
    EXPECT_THAT(book_->text(page).toStdString(), StartsWith(head + " ")) << page;
    const QRectF box = book_->first_box(page, QString::fromStdString(head).size());
    EXPECT_LT(box.bottom(), design::text_top / 10 - 10) << page;
    const double outer = page % 2 == 0 ? box.left() - design::margin / 10
                                       : (design::page_width - design::margin) / 10 - box.right();
    EXPECT_NEAR(outer, 0, 2) << page;
  }
}

TEST_F(FalcoBookTest, TheIndexNamesTheCategoryOfEachChapter) {
  const toml::array& chapters = *book_->index()["chapter"].as_array();
  EXPECT_EQ(chapters[0].as_table()->get("category")->value_or(std::string()),
            "Chapter 1 Ethernet Frames and Media");
  EXPECT_EQ(chapters[9].as_table()->get("title")->value_or(std::string()),
            "Spanning Tree Configuration");
  EXPECT_EQ(chapters[9].as_table()->get("category")->value_or(std::string()),
            "Chapter 10 Spannning Tree Configuration");
}

TEST_F(FalcoBookTest, TheSameBookIsTheSameBytes) {
  const FinishedBook again(std::filesystem::path(PRACTICE_EXAM_BOOKS) / "falco");
  EXPECT_EQ(bytes_of(again.file("book.pdf")), bytes_of(book_->file("book.pdf")));
  EXPECT_EQ(bytes_of(again.file("pages.toml")), bytes_of(book_->file("pages.toml")));
}

TEST_F(FalcoBookTest, EveryOffsetInThePdfLeadsToItsObject) {
  const std::string pdf = bytes_of(book_->file("book.pdf"));
  std::size_t place = std::stoul(pdf.substr(pdf.rfind("startxref") + 10));
  ASSERT_EQ(pdf.substr(place, 5), "xref\n");
  place = pdf.find('\n', place + 5) + 1;
  // Lines of twenty bytes; the first one is the head of the free objects.
  int objects = 0;
  for (place += 20; pdf[place + 17] == 'n'; place += 20) {
    const std::string object = std::to_string(++objects) + " 0 obj";
    const std::size_t offset = std::stoul(pdf.substr(place, 10));
    EXPECT_EQ(pdf.substr(offset, object.size()), object);
  }
  EXPECT_GT(objects, book_->page_count());
}

TEST_F(FalcoBookTest, ThePdfNamesItsBookAndItsEdition) {
  EXPECT_EQ(book_->title().toStdString(), "JASPER FALCO: Campus Switching");
  EXPECT_EQ(book_->date().toStdString(), "2026-11-01T00:00:00Z");
}

TEST(SmallBookTest, ItsPagesHoldWhatItsSourcesSay) {
  const SampleBook sample;
  const FinishedBook book(sample.folder());
  ASSERT_EQ(book.page_count(), 5);
  EXPECT_EQ(book.text(1).toStdString(),
            "HERON Wide-Area Links First edition, 2026 Brightwater Press");
  EXPECT_THAT(book.text(2).toStdString(), HasSubstr("All rights are the reader’s."));
  const std::string chapter = book.text(4).toStdString();
  EXPECT_THAT(chapter, HasSubstr("A line carries bits, one after the other."));
  EXPECT_THAT(chapter, HasSubstr("R1(config-if)# clock rate 64000"));
  EXPECT_THAT(chapter, HasSubstr("• The DCE sets it."));
  EXPECT_THAT(chapter, HasSubstr("2. it answers."));
  EXPECT_THAT(chapter, HasSubstr("Figure 1.1 A line and its clock."));
  EXPECT_THAT(chapter, HasSubstr("V.35 34"));
  // A label of the figure can be found like any text.
  EXPECT_THAT(chapter, HasSubstr("clock Figure 1.1"));
}

TEST(SmallBookTest, TheIndexIsWrittenForReadersToo) {
  const SampleBook sample;
  sample.change("book.toml", "date = ", "category_form = \"{number}. {title}\"\ndate = ");
  sample.write("book.toml", bytes_of(sample.folder() / "book.toml") +
                                "\n[categories]\n2 = \"Frames \\\"on the line\\\"\"\n");
  const FinishedBook book(sample.folder());
  EXPECT_EQ(bytes_of(book.file("pages.toml")), R"(exam = "heron"
pages = 5

[[chapter]]
number = 1
title = "Serial Lines"
category = "1. Serial Lines"
page = 4
sections = [
  { heading = "Clocks and Codes", page = 4 },
  { heading = "Cables", page = 4 },
]

[[chapter]]
number = 2
title = "Framing"
category = "Frames \"on the line\""
page = 5
sections = [
  { heading = "Flags and Stuffing", page = 5 },
]
)");
}

}  // namespace
}  // namespace practice::books
