// The help window with the real guide in it, used as a student uses it.
#include <QAccessible>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPdfDocument>
#include <QPrinter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextLayout>
#include <QTextTable>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <algorithm>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "help_window.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

const QString guide_path = QStringLiteral(PRACTICE_EXAM_GUIDE);

struct Heading {
  int level;
  QString text;
};

/// Where a link stands in the text, and what it leads to.
struct Link {
  int position;
  QString target;
};

class HelpViewer : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder.isValid()); }

  void show(const QString& path) {
    window.open(path);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  /// A help file of a test's own.
  QString written(const QByteArray& content, const QString& name = u"help.md"_s) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
  }

  template <class Widget>
  Widget& part(const QString& name) {
    return *window.findChild<Widget*>(name);
  }
  QTextBrowser& text() { return part<QTextBrowser>(u"text"_s); }
  QTreeWidget& contents() { return part<QTreeWidget>(u"contents"_s); }
  QLineEdit& wanted() { return part<QLineEdit>(u"wanted"_s); }
  QString found() { return part<QLabel>(u"found"_s).text(); }
  QScrollBar& bar() { return *text().verticalScrollBar(); }

  void key(Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(window.focusWidget(), pressed, with);
  }
  void search_for(const QString& words) {
    key(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&wanted(), words);
  }

  void click_contents(QTreeWidgetItem& item) {
    contents().scrollToItem(&item);
    QTest::mouseClick(contents().viewport(), Qt::LeftButton, {},
                      contents().visualItemRect(&item).center());
  }
  QTreeWidgetItem& item_of(const QString& heading) {
    return *contents().findItems(heading, Qt::MatchExactly | Qt::MatchRecursive).at(0);
  }

  /// The heading's first line is at the top of the text, or as near as the end of the text lets it.
  bool is_at_the_top(const QString& heading) {
    QTextBlock block = text().document()->begin();
    while (block.isValid() && (block.blockFormat().headingLevel() == 0 || block.text() != heading))
      block = block.next();
    const int top = text().cursorRect(QTextCursor(block)).top();
    const bool is_near = top >= 0 && top < text().fontMetrics().lineSpacing();
    return is_near || (bar().value() == bar().maximum() && top >= 0);
  }

  std::vector<Link> links() {
    std::vector<Link> all;
    for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next()) {
      for (auto run = block.begin(); !run.atEnd(); ++run) {
        const QString target = run.fragment().charFormat().anchorHref();
        if (!target.isEmpty()) all.push_back({run.fragment().position(), target});
      }
    }
    return all;
  }

  void click_link(const Link& link) {
    QTextCursor place(text().document());
    place.setPosition(link.position);
    bar().setValue(bar().value() + text().cursorRect(place).top() - 40);
    // The cursor stands before the first letter.
    const QPoint on_the_letter = text().cursorRect(place).center() + QPoint(2, 0);
    QTest::mouseClick(text().viewport(), Qt::LeftButton, {}, on_the_letter);
  }

  QTemporaryDir folder;
  HelpWindow window;
};

QString source_of_the_guide() {
  QFile file(guide_path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return QString::fromUtf8(file.readAll());
}

std::vector<Heading> headings_of_the_source() {
  std::vector<Heading> headings;
  bool is_code = false;
  for (const QString& line : source_of_the_guide().split(u'\n')) {
    if (line.startsWith(u"```")) is_code = !is_code;
    const auto level = line.indexOf(u' ');
    if (is_code || !line.startsWith(u'#') || line.count(u'#') != level) continue;
    headings.push_back({static_cast<int>(level), line.mid(level + 1)});
  }
  return headings;
}

TEST_F(HelpViewer, ShowsTheGuidesHeadingsInTheirOrderAndUnderEachOther) {
  show(guide_path);
  const std::vector<Heading> expected = headings_of_the_source();
  ASSERT_GT(expected.size(), 10u);
  std::size_t i = 0;
  for (QTreeWidgetItemIterator item(&contents()); *item != nullptr; ++item, ++i) {
    ASSERT_LT(i, expected.size());
    EXPECT_EQ((*item)->text(0), expected[i].text);
    EXPECT_EQ((*item)->parent() != nullptr, expected[i].level > 2)
        << expected[i].text.toStdString();
  }
  EXPECT_EQ(i, expected.size());
}

TEST_F(HelpViewer, ReadsMarkdownAsTextAndTables) {
  show(guide_path);
  const QString source = source_of_the_guide();
  const QString shown = text().toPlainText();
  EXPECT_FALSE(shown.contains(u"**"));
  EXPECT_FALSE(shown.contains(u"]("));
  EXPECT_FALSE(shown.contains(u"| "));
  int tables = 0;
  for (QTextFrame* frame : text().document()->rootFrame()->childFrames()) {
    if (qobject_cast<QTextTable*>(frame) != nullptr) ++tables;
  }
  EXPECT_EQ(tables, source.count(u"\n| ---"_s));
  EXPECT_GT(tables, 0);
  EXPECT_EQ(bar().value(), 0);
}

TEST_F(HelpViewer, EachLinkOfTheGuideLeadsSomewhere) {
  std::vector<QUrl> opened;
  window.open_address = [&](const QUrl& address) { opened.push_back(address); };
  show(guide_path);
  const std::vector<Link> all = links();
  EXPECT_EQ(static_cast<qsizetype>(all.size()), source_of_the_guide().count(u"]("_s));
  ASSERT_FALSE(all.empty());
  for (const Link& link : all) {
    opened.clear();
    click_link(link);
    if (!link.target.startsWith(u'#')) {
      EXPECT_EQ(opened, std::vector<QUrl>{QUrl(link.target)}) << link.target.toStdString();
      continue;
    }
    const QTreeWidgetItem* item = contents().currentItem();
    ASSERT_NE(item, nullptr) << link.target.toStdString();
    EXPECT_EQ(item->data(0, Qt::UserRole).toString(), link.target.mid(1));
    EXPECT_TRUE(is_at_the_top(item->text(0))) << link.target.toStdString();
  }
}

TEST_F(HelpViewer, AClickInTheContentsScrollsThereAndBackReturns) {
  show(guide_path);
  click_contents(item_of(u"The Time Limit"_s));
  EXPECT_TRUE(is_at_the_top(u"The Time Limit"_s));
  const int first_place = bar().value();
  EXPECT_GT(first_place, 0);
  click_contents(item_of(u"Your Name"_s));
  EXPECT_TRUE(is_at_the_top(u"Your Name"_s));

  key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(bar().value(), first_place);
  EXPECT_EQ(contents().currentItem()->text(0), u"The Time Limit"_s);
  key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(bar().value(), 0);
  key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(bar().value(), first_place);
}

TEST_F(HelpViewer, EnterInTheContentsScrollsThere) {
  show(guide_path);
  contents().setFocus();
  contents().setCurrentItem(&item_of(u"The Answer View"_s));
  EXPECT_FALSE(is_at_the_top(u"The Answer View"_s));
  key(Qt::Key_Return);
  EXPECT_TRUE(is_at_the_top(u"The Answer View"_s));
}

TEST_F(HelpViewer, FindsWordsForwardsAndBackwardsAndGoesOnAtTheOtherEnd) {
  show(guide_path);
  const auto count = text().toPlainText().count(u"history"_s, Qt::CaseInsensitive);
  ASSERT_GT(count, 2);
  const auto place = [&](qsizetype i) { return u"%1 of %2"_s.arg(i).arg(count); };
  search_for(u"history"_s);
  EXPECT_EQ(found(), place(1));
  key(Qt::Key_F3);
  EXPECT_EQ(found(), place(2));
  const QRect match = text().cursorRect();
  EXPECT_TRUE(text().viewport()->rect().contains(match));
  key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(found(), place(1));
  key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(found(), place(count));
  key(Qt::Key_Return);
  EXPECT_EQ(found(), place(1));
  key(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(found(), place(count));
  EXPECT_EQ(text().extraSelections().size(), count);
}

TEST_F(HelpViewer, SearchesFromWhereTheStudentReads) {
  show(guide_path);
  click_contents(item_of(u"The Final Score"_s));
  search_for(u"the"_s);
  EXPECT_FALSE(found().startsWith(u"1 of "_s)) << found().toStdString();
  EXPECT_TRUE(text().viewport()->rect().contains(text().cursorRect()));
}

TEST_F(HelpViewer, TellsThatAWordIsNotThere) {
  show(guide_path);
  search_for(u"xyzzy"_s);
  EXPECT_EQ(found(), u"Not found"_s);
  key(Qt::Key_F3);
  EXPECT_EQ(found(), u"Not found"_s);
}

TEST_F(HelpViewer, EscapeClosesTheSearchAndThenTheWindow) {
  show(guide_path);
  search_for(u"simulator"_s);
  key(Qt::Key_Escape);
  EXPECT_FALSE(wanted().isVisible());
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(text().textCursor().selectedText().toLower(), u"simulator"_s);
  EXPECT_TRUE(text().extraSelections().isEmpty());
  key(Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(HelpViewer, ZoomsTheTextAndKeepsThePlace) {
  show(guide_path);
  const double usual = text().font().pointSizeF();
  key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(bar().value(), 0);
  key(Qt::Key_0, Qt::ControlModifier);
  click_contents(item_of(u"The Time Limit"_s));
  for (int i = 0; i < 4; ++i) key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(text().font().pointSizeF(), usual * 1.3);
  EXPECT_TRUE(is_at_the_top(u"The Time Limit"_s));
  key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_LT(text().font().pointSizeF(), usual * 1.4);
  key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(text().font().pointSizeF(), usual);
  for (int i = 0; i < 100; ++i) key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_GE(text().font().pointSizeF(), usual * 0.5);
}

TEST_F(HelpViewer, LinesAreOfAReadableLengthInAWideWindowAtEverySize) {
  show(guide_path);
  window.resize(3'000, 900);
  for (const int zooms : {0, 5}) {
    for (int i = 0; i < zooms; ++i) key(Qt::Key_Plus, Qt::ControlModifier);
    qsizetype longest = 0;
    for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next()) {
      if (QTextCursor(block).currentTable() != nullptr) continue;
      for (int i = 0; i + 1 < block.layout()->lineCount(); ++i) {
        longest = std::max<qsizetype>(longest, block.layout()->lineAt(i).textLength());
      }
    }
    EXPECT_LE(longest, 88);
    EXPECT_GE(longest, 60);
  }
}

TEST_F(HelpViewer, ANarrowWindowNeedsNoScrollingToTheSide) {
  show(guide_path);
  window.resize(500, 400);
  EXPECT_LT(text().viewport()->width(), 500);
  EXPECT_LE(text().lineWrapColumnOrWidth(), text().viewport()->width());
}

TEST_F(HelpViewer, OpensWebLinksWithTheDesktopsBrowserOnly) {
  std::vector<QUrl> opened;
  window.open_address = [&](const QUrl& address) { opened.push_back(address); };
  show(
      written("# Help\n\n[Web](http://www.marlo.example/page) [Mail](mailto:a@marlo.example) "
              "[Gone](#nowhere) [File](file:///etc/hostname) [Near](other.md)\n"));
  const QString before = text().toPlainText();
  ASSERT_EQ(links().size(), 5u);
  for (const Link& link : links()) click_link(link);
  const std::vector<QUrl> expected{QUrl(u"http://www.marlo.example/page"_s),
                                   QUrl(u"mailto:a@marlo.example"_s)};
  EXPECT_EQ(opened, expected);
  EXPECT_EQ(text().toPlainText(), before);
}

TEST_F(HelpViewer, TellsHeadingsOfTheSameWordsApart) {
  show(written("# Help\n\n## Wrong, or right?\n\none\n\n## Wrong, or right?\n\ntwo\n"));
  EXPECT_TRUE(window.go_to(u"wrong-or-right"_s));
  EXPECT_TRUE(window.go_to(u"wrong-or-right-1"_s));
  EXPECT_EQ(contents().currentItem(), contents().topLevelItem(2));
  EXPECT_FALSE(window.go_to(u"wrong-or-right-2"_s));
}

TEST_F(HelpViewer, PrintsTheGuide) {
  const QString file = folder.filePath(u"guide.pdf"_s);
  window.choose_printer = [&](QPrinter& printer) {
    printer.setOutputFileName(file);
    return true;
  };
  show(guide_path);
  key(Qt::Key_P, Qt::ControlModifier);
  QPdfDocument paper;
  ASSERT_EQ(paper.load(file), QPdfDocument::Error::None);
  QString printed;
  for (int page = 0; page < paper.pageCount(); ++page) printed += paper.getAllText(page).text();
  for (const Heading& heading : headings_of_the_source()) {
    EXPECT_TRUE(printed.contains(heading.text)) << heading.text.toStdString();
  }
}

TEST_F(HelpViewer, TabReachesEveryPartAndEachHasAName) {
  show(guide_path);
  key(Qt::Key_F, Qt::ControlModifier);
  std::set<QString> expected;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || !widget->isEnabled()) continue;
    if (!(widget->focusPolicy() & Qt::TabFocus)) continue;
    const QString name = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))
                             ->text(QAccessible::Name);
    EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className();
    expected.insert(name);
  }
  for (const QString& name : {u"Contents"_s, u"Help text"_s, u"Search for"_s, u"Find"_s})
    EXPECT_TRUE(expected.contains(name)) << name.toStdString();
  std::set<QString> reached;
  for (std::size_t i = 0; i < expected.size() + links().size() + 2; ++i) {
    key(Qt::Key_Tab);
    reached.insert(
        QAccessible::queryAccessibleInterface(window.focusWidget())->text(QAccessible::Name));
  }
  EXPECT_EQ(reached, expected);
}

TEST_F(HelpViewer, ShowsAPageWithoutItsTags) {
  show(
      written("<html><center><h2> History Report for ANNA </h2></center><hr><p><b> FALCO Book "
              "Quiz Results:</b><br>80%&nbsp;&nbsp;(40/50)</html>",
              u"history.46000.ANNA.htm"_s));
  EXPECT_EQ(window.windowTitle(), u"history.46000.ANNA.htm"_s);
  const QString shown = text().toPlainText();
  EXPECT_TRUE(shown.contains(u"80%"_s)) << shown.toStdString();
  EXPECT_FALSE(shown.contains(u'<')) << shown.toStdString();
  EXPECT_EQ(contents().topLevelItem(0)->text(0).trimmed(), u"History Report for ANNA"_s);
}

TEST_F(HelpViewer, KeepsTheLinesAndColumnsOfAPlainText) {
  const QByteArray row =
      QByteArray("10   users      active    Fa0/1, Fa0/2, ") + QByteArray(90, '*');
  show(written("# no heading\r\n" + row + "\r\n<cr>\r\n", u"x101.TXT"_s));
  EXPECT_EQ(text().toPlainText(), u"# no heading\n"_s + QString::fromLatin1(row) + u"\n<cr>\n"_s);
  EXPECT_FALSE(contents().isVisible());
  EXPECT_EQ(text().document()->findBlockByNumber(1).layout()->lineCount(), 1);
  const QFontMetricsF letter(text().document()->defaultFont());
  EXPECT_EQ(letter.horizontalAdvance(u'i'), letter.horizontalAdvance(u'M'));
  key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(text().document()->findBlockByNumber(1).layout()->lineCount(), 1);
}

TEST_F(HelpViewer, TellsWhatIsWrongWithAFileThatItCanNotShow) {
  const struct {
    QString path;
    QString reason;
  } cases[] = {
      {folder.filePath(u"missing.chm"_s), u"There is no file"_s},
      {folder.path(), u"can not be read"_s},
      {written(QByteArray("ITSF\x03\0\0\0", 8)), u"is no text"_s},
  };
  for (const auto& [path, reason] : cases) {
    HelpWindow other;
    EXPECT_FALSE(other.open(path));
    other.show();
    const QString told = other.findChild<QTextBrowser*>(u"text"_s)->toPlainText();
    EXPECT_TRUE(told.contains(reason)) << told.toStdString();
    EXPECT_TRUE(told.contains(path)) << told.toStdString();
    EXPECT_FALSE(other.findChild<QTreeWidget*>(u"contents"_s)->isVisible());
  }
}

TEST_F(HelpViewer, TellsOfLatinAndOfEmptyFilesToo) {
  EXPECT_FALSE(window.open(written("# Caf\xe9\n")));
  EXPECT_TRUE(text().toPlainText().contains(u"is no text"_s));
  EXPECT_FALSE(window.open(written(" \n")));
  EXPECT_TRUE(text().toPlainText().contains(u"is empty"_s));
}

TEST_F(HelpViewer, AMessageCanNotBeSearched) {
  show(folder.filePath(u"missing.chm"_s));
  key(Qt::Key_F, Qt::ControlModifier);
  key(Qt::Key_F3);
  EXPECT_FALSE(wanted().isVisible());
  key(Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace practice::desktop
