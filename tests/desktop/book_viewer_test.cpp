// The book window with books made for it, used as a student uses it; and book_viewer itself, as
// Practice Exam starts it.
#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWheelEvent>
#include <functional>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book_pages.h"
#include "book_search.h"
#include "book_window.h"
#include "one_window.h"
#include "results/book.h"
#include "viewer_page.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

const QString viewer = QStringLiteral(BOOK_VIEWER);

QByteArray content_of(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

void write(const QString& path, const QByteArray& content) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

qsizetype last_number_after(const QByteArray& content, const QString& words) {
  auto all = QRegularExpression(words + u"\\s+(\\d+)"_s).globalMatch(QString::fromLatin1(content));
  qsizetype number = -1;
  while (all.hasNext()) number = all.next().captured(1).toLongLong();
  return number;
}

/// Adds objects to a PDF file, and entries to its catalogue and trailer, as an update at its end.
/// The first object has the number that `first_free` told.
qsizetype first_free(const QByteArray& pdf) { return last_number_after(pdf, u"/Size"_s); }

QByteArray updated(QByteArray pdf, const QList<QByteArray>& objects, const QByteArray& to_catalogue,
                   const QByteArray& to_trailer) {
  const auto before = last_number_after(pdf, u"startxref"_s);
  const auto first = first_free(pdf);
  const auto root = last_number_after(pdf, u"/Root"_s);
  const QByteArray opening = '\n' + QByteArray::number(root) + " 0 obj\n<<";
  const auto start = pdf.indexOf(opening) + opening.size();
  const QByteArray catalogue = pdf.mid(start, pdf.indexOf(">>", start) - start);
  QByteArray places = "xref\n";
  const auto add = [&](qsizetype number, const QByteArray& object) {
    places += QByteArray::number(number) + " 1\n" +
              QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
    pdf += QByteArray::number(number) + " 0 obj\n<<" + object + ">>\nendobj\n";
  };
  pdf += '\n';
  add(root, catalogue + to_catalogue);
  for (qsizetype i = 0; i < objects.size(); ++i) add(first + i, objects[i]);
  const auto place = pdf.size();
  pdf += places + "trailer\n<</Size " + QByteArray::number(first + objects.size()) + " /Root " +
         QByteArray::number(root) + " 0 R /Prev " + QByteArray::number(before) + to_trailer +
         ">>\nstartxref\n" + QByteArray::number(place) + "\n%%EOF\n";
  return pdf;
}

class BookViewer : public testing::Test {
 protected:
  static void SetUpTestSuite() { BookSearch::hush_qt(); }
  void SetUp() override { ASSERT_TRUE(folder.isValid()); }

  /// A book whose pages tell their numbers; on every tenth page stands "Spanning Tree", below the
  /// middle. The third page is a wide one.
  QString make_book(int pages, const QString& name = u"book_falco.pdf"_s) {
    const QString path = folder.filePath(name);
    QPdfWriter writer(path);
    writer.setResolution(72);
    writer.setPageSize(QPageSize(QPageSize::Letter));
    writer.setPageMargins({});
    QPainter painter(&writer);
    painter.setFont(QFont(u"Liberation Serif"_s, 12));
    for (int page = 1; page <= pages; ++page) {
      if (page == 3) writer.setPageOrientation(QPageLayout::Landscape);
      if (page == 4) writer.setPageOrientation(QPageLayout::Portrait);
      if (page > 1) writer.newPage();
      painter.drawText(100, 100, u"This is page %1 of the book."_s.arg(page));
      if (page % 10 == 0) painter.drawText(300, 500, u"Spanning Tree"_s);
    }
    return path;
  }

  /// Two chapters, on pages 2 and 20, the first with a section halfway down page 5.
  void add_bookmarks(const QString& book) {
    const QByteArray pdf = content_of(book);
    const auto outline = first_free(pdf);
    const auto number = [&](int i) { return QByteArray::number(outline + i) + " 0 R"; };
    write(book,
          updated(
              pdf,
              {"/Type /Outlines /First " + number(1) + " /Last " + number(3) + " /Count 2",
               "/Title (Frames) /Parent " + number(0) + " /Next " + number(3) + " /First " +
                   number(2) + " /Last " + number(2) + " /Count -1 /Dest [1 /XYZ null null null]",
               "/Title (Ports) /Parent " + number(1) + " /Dest [4 /XYZ 0 392 null]",
               "/Title (Trunks) /Parent " + number(0) + " /Prev " + number(1) + " /Dest [19 /Fit]"},
              "/Outlines " + number(0), {}));
  }

  QString make_page(const QString& book, const QString& page) {
    const QString path = book + u".hta"_s;
    write(path, QByteArray::fromStdString(
                    practice::pdf_page(page.toStdString(), book.toStdString()) + "\r\n"));
    return path;
  }

  bool show(const QString& file) {
    const bool is_shown = window.open(read_request(file));
    // Wide enough for all tools, whatever the screen.
    window.resize(1'200, 800);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return is_shown;
  }
  /// The book of so many pages at a page.
  void show_book(int pages, int page) {
    EXPECT_TRUE(show(make_page(make_book(pages), QString::number(page))));
  }

  template <class Widget>
  Widget& part(const QString& name) {
    return *window.findChild<Widget*>(name);
  }
  BookPages& pages() { return *dynamic_cast<BookPages*>(window.findChild<QWidget*>(u"pages"_s)); }
  QLineEdit& box() { return part<QLineEdit>(u"page"_s); }
  QLineEdit& wanted() { return part<QLineEdit>(u"wanted"_s); }
  QTreeWidget& contents() { return part<QTreeWidget>(u"contents"_s); }
  QString text_of(const QString& label) { return part<QLabel>(label).text(); }
  QScrollBar& bar() { return *pages().verticalScrollBar(); }
  QToolButton& tool(const QString& name) {
    for (auto* button : window.findChildren<QToolButton*>()) {
      if (button->text() == name) return *button;
    }
    ADD_FAILURE() << name.toStdString();
    return *window.findChild<QToolButton*>();
  }
  void click(const QString& name) {
    ASSERT_TRUE(tool(name).isVisible() && tool(name).isEnabled()) << name.toStdString();
    QTest::mouseClick(&tool(name), Qt::LeftButton);
  }
  void key(Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(window.focusWidget(), pressed, with);
  }
  void go_to(const QString& number) {
    key(Qt::Key_G, Qt::ControlModifier);
    QTest::keyClicks(&box(), number);
    key(Qt::Key_Return);
  }
  void search_for(const QString& words) {
    key(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&wanted(), words);
  }
  bool tells(const QString& found) {
    return QTest::qWaitFor([&] { return text_of(u"found"_s) == found; });
  }

  /// The page's upper edge is the first thing in the window.
  bool is_at_the_top(int page) {
    const double down = pages().place().down * pages().zoom() / 100;
    return pages().page() == page - 1 && down <= 0 && down > -20;
  }

  /// Where pixels of a kind stand in the pages' window, or in a part of it.
  QRectF area_where(const std::function<bool(QColor)>& is_wanted, const QRectF& part) {
    const QImage shown = pages().viewport()->grab().toImage();
    const double sharpness = shown.devicePixelRatio();
    QRectF area;
    for (int y = 0; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width(); ++x) {
        const QRectF pixel(QPointF(x, y) / sharpness, QSizeF(1, 1) / sharpness);
        if (part.contains(pixel) && is_wanted(shown.pixelColor(x, y))) area |= pixel;
      }
    }
    return area;
  }
  QRectF area_of(const QColor& colour) {
    return area_where([&](const QColor& pixel) { return pixel == colour; },
                      pages().viewport()->rect());
  }
  QRectF ink_in(const QRectF& part) {
    return area_where([](const QColor& pixel) { return pixel.lightness() < 100; }, part);
  }

  QTemporaryDir folder;
  BookWindow window{viewer};
};

const QColor current_hit(255, 165, 0);
const QColor other_hit(255, 240, 150);

TEST(ViewerPage, TellsWhatPracticeExamWrites) {
  const ViewerPage page = viewer_page_of(QString::fromStdString(
      practice::pdf_page(" 284 ", "/home/anna/practice exam\\book_falco.pdf")));
  EXPECT_EQ(page.file, u"/home/anna/practice exam\\book_falco.pdf"_s);
  EXPECT_EQ(page.title, u"Brightwater Press PDF Viewer"_s);
  EXPECT_EQ(page.page, 284);
  EXPECT_EQ(page.layout, PageLayout::one_column);
  EXPECT_EQ(page.zoom, 100);
  EXPECT_TRUE(page.has_scroll_bars);
}

TEST(ViewerPage, ReadsPathsWithQuotesAndSettingsInThem) {
  for (const char* path :
       {"/home/O'Brien/book_falco.pdf", "/home/a \"b\" 'c'/book_falco.pdf", "/x'>/book_falco.pdf",
        "/home/\xc3\xa4/book.PDF", "/PDF.setCurrentPage(7);/book_falco.pdf",
        "/a&amp;b/book_falco.pdf", "/home/anna/book_falco"}) {
    const ViewerPage page = viewer_page_of(QString::fromStdString(practice::pdf_page("12", path)));
    EXPECT_EQ(page.file.toStdString(), path);
    EXPECT_EQ(page.page, 12) << path;
  }
}

TEST(ViewerPage, HasDefaultsForWhatIsMissing) {
  for (const QString& text : {QString(), u"nothing to read"_s, u"PDF.setCurrentPage();"_s,
                              u"PDF.setZoom('wide'); setShowScrollbars()"_s}) {
    const ViewerPage page = viewer_page_of(text);
    EXPECT_TRUE(page.file.isEmpty()) << text.toStdString();
    EXPECT_TRUE(page.title.isEmpty());
    EXPECT_EQ(page.page, 1);
    EXPECT_EQ(page.zoom, 100);
    EXPECT_EQ(page.layout, PageLayout::one_column);
    EXPECT_TRUE(page.has_scroll_bars);
  }
}

TEST(ViewerPage, ReadsOtherSpellingsAndValues) {
  const ViewerPage page = viewer_page_of(
      u"before <Title>My \n book</TITLE> <param name=\"src\" value=\"books/b.pdf\" /> between\n"
      "x.SETZOOM( 87.5 ) pdf.setLayoutMode(\"PDFLayoutSinglePage\");setShowScrollBars( 'False' );"
      "setCurrentPage('-3') after"_s);
  EXPECT_EQ(page.title, u"My book"_s);
  EXPECT_EQ(page.file, u"books/b.pdf"_s);
  EXPECT_EQ(page.zoom, 87.5);
  EXPECT_EQ(page.layout, PageLayout::single_page);
  EXPECT_FALSE(page.has_scroll_bars);
  EXPECT_EQ(page.page, -3);
  EXPECT_EQ(viewer_page_of(u"setCurrentPage(99999999999)"_s).page, std::numeric_limits<int>::max());
}

TEST_F(BookViewer, FindsTheBookThatAViewerPageMeans) {
  const QString book = make_book(1, u"Book_Falco.pdf"_s);
  const QString page = folder.filePath(u"page.hta"_s);
  for (const QString& told :
       {book, folder.path() + u"\\book_falco.pdf"_s, u"BOOK_FALCO.PDF"_s, u".\\Book_Falco.pdf"_s}) {
    write(page, QByteArray::fromStdString(practice::pdf_page("1", told.toStdString())));
    EXPECT_EQ(read_request(page).book, book) << told.toStdString();
  }
  // One that is not where the page says, or that it does not name, stands beside it.
  const QString beside = folder.filePath(u"Book_Falco.pdf.hta"_s);
  for (const char* content : {"<PARAM NAME='SRC' VALUE='C:\\exam\\Book_Falco.pdf'>", ""}) {
    write(beside, content);
    EXPECT_EQ(read_request(beside).book, book);
  }
}

TEST_F(BookViewer, OpensAtThePageInOneColumnAtItsOwnSizeWithScrollBars) {
  show_book(40, 24);
  EXPECT_EQ(window.windowTitle(), u"Brightwater Press PDF Viewer"_s);
  EXPECT_TRUE(is_at_the_top(24));
  EXPECT_EQ(box().text(), u"24"_s);
  EXPECT_EQ(text_of(u"page_count"_s), u"of 40"_s);
  EXPECT_EQ(text_of(u"zoom"_s), u"100 %"_s);
  EXPECT_TRUE(bar().isVisible());
  EXPECT_GT(bar().maximum(), 40 * 11 * pages().logicalDpiY() - pages().height());
}

TEST_F(BookViewer, BeginsWideEnoughForThePageIfTheScreenIs) {
  EXPECT_TRUE(window.open(read_request(make_book(2))));
  const QSize screen = window.screen()->availableSize();
  EXPECT_LE(window.width(), screen.width());
  EXPECT_LE(window.height(), screen.height());
  window.show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !contents().isVisible(); }));
  const int page = qRound(8.5 * pages().logicalDpiX());
  if (page + 60 < screen.width() * 0.98) {
    EXPECT_EQ(pages().horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(pages().viewport()->width(), page);
  } else {
    EXPECT_GT(window.width(), screen.width() * 0.9);
  }
}

TEST_F(BookViewer, DrawsThePageInItsOwnSize) {
  show_book(2, 2);
  const double pixels_in_a_point = pages().logicalDpiX() / 72.0;
  const QSizeF size = QSizeF(612, 792) * pixels_in_a_point;
  const int margin = pages().fontMetrics().height() / 2;
  const QSize room = pages().viewport()->size();
  const double left =
      (std::max<double>(room.width(), size.width() + 2 * margin) - size.width()) / 2 -
      pages().horizontalScrollBar()->value();
  QPdfDocument book;
  book.load(folder.filePath(u"book_falco.pdf"_s));
  const QRectF printed = book.getAllText(1).boundingRectangle();
  ASSERT_GT(printed.width(), 100);
  const QRectF expected(printed.topLeft() * pixels_in_a_point + QPointF(left, margin),
                        printed.size() * pixels_in_a_point);
  const QRectF ink = ink_in(expected.adjusted(-20, -20, 20, 20));
  EXPECT_NEAR(ink.left(), expected.left(), 5);
  EXPECT_NEAR(ink.right(), expected.right(), 5);
  EXPECT_NEAR(ink.top(), expected.top(), 5);
  EXPECT_NEAR(ink.bottom(), expected.bottom(), 5);
}

TEST_F(BookViewer, APageOutOfRangeIsTheNearest) {
  const QString book = make_book(4);
  const struct {
    QString told;
    int page;
  } cases[] = {{u"0"_s, 1}, {u"-5"_s, 1}, {u"4"_s, 4}, {u"284"_s, 4}, {u"99999999999"_s, 4}};
  for (const auto& [told, page] : cases) {
    EXPECT_TRUE(show(make_page(book, told)));
    EXPECT_EQ(box().text(), QString::number(page)) << told.toStdString();
  }
}

TEST_F(BookViewer, ABookItselfOpensAtItsFirstPage) {
  EXPECT_TRUE(show(make_book(6)));
  EXPECT_TRUE(is_at_the_top(1));
  EXPECT_EQ(window.windowTitle(), u"book_falco.pdf"_s);
}

TEST_F(BookViewer, TurnsPagesByKeysButtonsAndTheBox) {
  show_book(30, 24);
  key(Qt::Key_PageDown);
  EXPECT_TRUE(is_at_the_top(25));
  key(Qt::Key_PageUp);
  key(Qt::Key_PageUp);
  EXPECT_TRUE(is_at_the_top(23));
  click(u"Next"_s);
  EXPECT_EQ(box().text(), u"24"_s);
  click(u"Previous"_s);
  EXPECT_TRUE(is_at_the_top(23));
  go_to(u"7"_s);
  EXPECT_TRUE(is_at_the_top(7));
  EXPECT_TRUE(pages().hasFocus());
  go_to(u"700"_s);
  EXPECT_EQ(box().text(), u"30"_s);
  EXPECT_FALSE(tool(u"Next"_s).isEnabled());
  go_to(u"0"_s);
  EXPECT_TRUE(is_at_the_top(1));
  EXPECT_FALSE(tool(u"Previous"_s).isEnabled());
  key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(box().text(), u"30"_s);
  key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_TRUE(is_at_the_top(1));
}

TEST_F(BookViewer, ANumberThatIsNotEnteredIsForgotten) {
  show_book(9, 4);
  key(Qt::Key_G, Qt::ControlModifier);
  QTest::keyClicks(&box(), u"8"_s);
  key(Qt::Key_Escape);
  EXPECT_EQ(box().text(), u"4"_s);
  EXPECT_TRUE(is_at_the_top(4));
}

TEST_F(BookViewer, TheBoxFollowsScrolling) {
  show_book(30, 5);
  const int page_height = qRound(11.0 * pages().logicalDpiY());
  bar().setValue(bar().value() + page_height);
  EXPECT_EQ(box().text(), u"6"_s);
  bar().setValue(0);
  EXPECT_EQ(box().text(), u"1"_s);
  bar().setValue(bar().maximum());
  EXPECT_EQ(box().text(), u"30"_s);
  // Space turns a windowful, less some lines.
  const int end = bar().value();
  const int room = pages().viewport()->height();
  key(Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_LT(bar().value(), end - room / 2);
  EXPECT_GT(bar().value(), end - room);
  key(Qt::Key_Space);
  EXPECT_EQ(bar().value(), end);
}

TEST_F(BookViewer, BackAndForwardGoWhereTheStudentRead) {
  show_book(30, 5);
  EXPECT_FALSE(tool(u"Back"_s).isEnabled());
  bar().setValue(bar().value() + 200);
  const int read = bar().value();
  go_to(u"20"_s);
  go_to(u"12"_s);
  click(u"Back"_s);
  EXPECT_TRUE(is_at_the_top(20));
  key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(bar().value(), read);
  EXPECT_EQ(box().text(), u"5"_s);
  EXPECT_FALSE(tool(u"Back"_s).isEnabled());
  key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_TRUE(is_at_the_top(20));
  click(u"Forward"_s);
  EXPECT_TRUE(is_at_the_top(12));
  EXPECT_FALSE(tool(u"Forward"_s).isEnabled());
  // A new way leaves the old one.
  click(u"Back"_s);
  go_to(u"2"_s);
  EXPECT_FALSE(tool(u"Forward"_s).isEnabled());
  // Going where one is leads nowhere.
  go_to(u"2"_s);
  click(u"Back"_s);
  EXPECT_TRUE(is_at_the_top(20));
}

TEST_F(BookViewer, ZoomsAndKeepsThePlace) {
  show_book(30, 17);
  key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(text_of(u"zoom"_s), u"125 %"_s);
  EXPECT_EQ(box().text(), u"17"_s);
  key(Qt::Key_Equal, Qt::ControlModifier);
  key(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(text_of(u"zoom"_s), u"195 %"_s);
  EXPECT_TRUE(is_at_the_top(17));
  key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(text_of(u"zoom"_s), u"156 %"_s);
  click(u"100 %"_s);
  EXPECT_EQ(text_of(u"zoom"_s), u"100 %"_s);
  EXPECT_TRUE(is_at_the_top(17));
  for (int i = 0; i < 20; ++i) click(u"+"_s);
  EXPECT_EQ(text_of(u"zoom"_s), u"300 %"_s);
  for (int i = 0; i < 40; ++i) click(u"\u2212"_s);
  EXPECT_EQ(text_of(u"zoom"_s), u"25 %"_s);
  EXPECT_EQ(box().text(), u"17"_s);
  key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_TRUE(is_at_the_top(17));
  const QPointF middle = pages().viewport()->rect().center();
  QWheelEvent turned(middle, pages().viewport()->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                     Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(pages().viewport(), &turned);
  EXPECT_EQ(text_of(u"zoom"_s), u"125 %"_s);
}

TEST_F(BookViewer, FitsThePageIntoTheWindowsWidthAtEverySize) {
  show_book(12, 9);
  click(u"Fit Width"_s);
  for (const int width : {900, 600, 1'100}) {
    window.resize(width, 700);
    QApplication::processEvents();
    const double page = 8.5 * pages().logicalDpiX() * pages().zoom() / 100;
    const int room = pages().viewport()->width();
    EXPECT_LT(page, room);
    EXPECT_GT(page, room - 40);
    EXPECT_TRUE(is_at_the_top(9));
  }
  key(Qt::Key_0, Qt::ControlModifier);
  window.resize(800, 700);
  EXPECT_EQ(text_of(u"zoom"_s), u"100 %"_s);
}

TEST_F(BookViewer, FindsWordsForwardsAndBackwardsAndGoesOnAtTheOtherEnd) {
  show_book(45, 24);
  search_for(u"spanning tree"_s);
  EXPECT_TRUE(tells(u"3 of 4"_s)) << text_of(u"found"_s).toStdString();
  EXPECT_EQ(box().text(), u"30"_s);
  key(Qt::Key_F3);
  EXPECT_EQ(box().text(), u"40"_s);
  EXPECT_TRUE(tells(u"4 of 4"_s));
  key(Qt::Key_Return);
  EXPECT_EQ(box().text(), u"10"_s);
  EXPECT_TRUE(tells(u"1 of 4"_s));
  key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(box().text(), u"40"_s);
  key(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(box().text(), u"30"_s);
  EXPECT_TRUE(tells(u"3 of 4"_s));
  // All of it was one step.
  key(Qt::Key_Escape);
  EXPECT_FALSE(wanted().isVisible());
  click(u"Back"_s);
  EXPECT_TRUE(is_at_the_top(24));
  EXPECT_FALSE(tool(u"Back"_s).isEnabled());
}

TEST_F(BookViewer, SearchesFromWhereTheStudentReadsOnThePage) {
  show_book(25, 10);
  pages().go_to({9, 520});
  search_for(u"Spanning"_s);
  EXPECT_TRUE(tells(u"2 of 2"_s)) << text_of(u"found"_s).toStdString();
  key(Qt::Key_Escape);
  pages().go_to({9, 400});
  const int before = bar().value();
  search_for(u"Spanning"_s);
  EXPECT_TRUE(tells(u"1 of 2"_s)) << text_of(u"found"_s).toStdString();
  // It was in view.
  EXPECT_EQ(bar().value(), before);
}

TEST_F(BookViewer, MarksTheHitWhereItIsPrinted) {
  show_book(12, 1);
  EXPECT_FALSE(area_of(current_hit).isValid());
  for (const double zoom : {100.0, 60.0, 180.0}) {
    pages().zoom_to(zoom);
    search_for(u"Spanning Tree"_s);
    ASSERT_TRUE(tells(u"1 of 1"_s));
    const QRectF mark = area_of(current_hit);
    ASSERT_TRUE(mark.isValid());
    key(Qt::Key_Escape);
    EXPECT_FALSE(area_of(current_hit).isValid());
    // Nothing else is printed near it.
    const QRectF ink = ink_in(mark.adjusted(-30, -15, 30, 15));
    EXPECT_TRUE(mark.adjusted(-1, -1, 1, 1).contains(ink)) << zoom;
    EXPECT_GT(ink.width(), mark.width() * 0.8) << zoom;
  }
}

TEST_F(BookViewer, MarksOtherHitsInAnotherColour) {
  show_book(21, 1);
  pages().zoom_to(25);
  search_for(u"book."_s);
  ASSERT_TRUE(tells(u"1 of 21"_s)) << text_of(u"found"_s).toStdString();
  EXPECT_TRUE(area_of(current_hit).isValid());
  EXPECT_TRUE(area_of(other_hit).isValid());
  EXPECT_GT(area_of(other_hit).top(), area_of(current_hit).bottom());
}

TEST_F(BookViewer, TellsThatAWordIsNotThere) {
  show_book(12, 1);
  search_for(u"xyzzy"_s);
  EXPECT_TRUE(tells(u"Not found"_s));
  key(Qt::Key_F3);
  EXPECT_EQ(text_of(u"found"_s), u"Not found"_s);
  EXPECT_EQ(box().text(), u"1"_s);
  wanted().selectAll();
  key(Qt::Key_Delete);
  EXPECT_EQ(text_of(u"found"_s), QString());
}

TEST_F(BookViewer, StopsCountingWhatIsEverywhere) {
  const QString book = folder.filePath(u"letters.pdf"_s);
  {
    QPdfWriter writer(book);
    writer.setResolution(72);
    QPainter painter(&writer);
    for (int page = 0; page < 8; ++page) {
      if (page > 0) writer.newPage();
      for (int line = 0; line < 40; ++line) painter.drawText(0, 20 + line * 16, QString(50, u'e'));
    }
  }
  EXPECT_TRUE(show(make_page(book, u"2"_s)));
  search_for(u"e"_s);
  EXPECT_TRUE(tells(u"Over 5000 hits"_s)) << text_of(u"found"_s).toStdString();
  EXPECT_EQ(box().text(), u"2"_s);
  key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return box().text() == u"1"_s; }));
}

TEST_F(BookViewer, TheContentsLeadIntoTheBookAndFollowIt) {
  const QString book = make_book(30);
  add_bookmarks(book);
  EXPECT_TRUE(show(make_page(book, u"1"_s)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return contents().topLevelItemCount() > 0; }));
  ASSERT_EQ(contents().topLevelItemCount(), 2);
  if (!contents().isVisible()) click(u"Contents"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return contents().width() > 0; }));
  EXPECT_TRUE(contents().isVisible());
  EXPECT_EQ(contents().currentItem(), nullptr);
  QTreeWidgetItem* frames = contents().topLevelItem(0);
  QTreeWidgetItem* trunks = contents().topLevelItem(1);
  EXPECT_EQ(frames->text(0), u"Frames"_s);
  EXPECT_EQ(trunks->text(0), u"Trunks"_s);
  ASSERT_EQ(frames->childCount(), 1);
  EXPECT_EQ(frames->child(0)->text(0), u"Ports"_s);

  const auto click_item = [&](QTreeWidgetItem* item) {
    contents().scrollToItem(item);
    QTest::mouseClick(contents().viewport(), Qt::LeftButton, {},
                      contents().visualItemRect(item).center());
  };
  click_item(trunks);
  EXPECT_TRUE(is_at_the_top(20));
  click_item(frames);
  EXPECT_TRUE(is_at_the_top(2));
  frames->setExpanded(true);
  click_item(frames->child(0));
  EXPECT_EQ(pages().page(), 4);
  // 792 points high, and told from below.
  EXPECT_NEAR(pages().place().down, 400, 2);
  key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(is_at_the_top(2));
  EXPECT_EQ(contents().currentItem(), frames);
  go_to(u"25"_s);
  EXPECT_EQ(contents().currentItem(), trunks);
  go_to(u"9"_s);
  EXPECT_EQ(contents().currentItem(), frames->child(0));
  contents().setFocus();
  contents().setCurrentItem(trunks);
  key(Qt::Key_Return);
  EXPECT_TRUE(is_at_the_top(20));
  click(u"Contents"_s);
  EXPECT_FALSE(contents().isVisible());
  key(Qt::Key_F9);
  EXPECT_TRUE(contents().isVisible());
}

TEST_F(BookViewer, ABookWithoutBookmarksHasNoContents) {
  show_book(5, 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !contents().isVisible(); }));
  EXPECT_FALSE(tool(u"Contents"_s).isEnabled());
}

TEST_F(BookViewer, ShowsTheBookWhenItsBookmarksCanNotBeRead) {
  BookWindow other(folder.filePath(u"no_such_program"_s));
  EXPECT_TRUE(other.open(read_request(make_book(5))));
  other.show();
  auto* tree = other.findChild<QTreeWidget*>(u"contents"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !tree->isVisible(); }));
  EXPECT_EQ(other.findChild<QLabel*>(u"page_count"_s)->text(), u"of 5"_s);
}

TEST_F(BookViewer, ShowsOnePageAtATimeWhereThePageSaysSo) {
  const QString page = make_page(make_book(12), u"5"_s);
  write(page, content_of(page)
                  .replace("OneColumn", "SinglePage")
                  .replace("Scrollbars(true)", "Scrollbars(false)")
                  .replace("'100'", "'50'"));
  EXPECT_TRUE(show(page));
  EXPECT_EQ(text_of(u"zoom"_s), u"50 %"_s);
  EXPECT_FALSE(bar().isVisible());
  EXPECT_LT(bar().maximum(), 11 * pages().logicalDpiY());
  key(Qt::Key_PageDown);
  EXPECT_EQ(box().text(), u"6"_s);
  search_for(u"Spanning"_s);
  EXPECT_TRUE(tells(u"1 of 1"_s));
  EXPECT_EQ(box().text(), u"10"_s);
  EXPECT_TRUE(area_of(current_hit).isValid());
}

TEST_F(BookViewer, TellsInPlainWordsWhatIsWrongWithABook) {
  const QString good = make_book(3);
  const QString broken = folder.filePath(u"broken.pdf"_s);
  write(broken, "%PDF-1.4\nand nothing that belongs in one\n");
  const QString empty = folder.filePath(u"empty.pdf"_s);
  write(empty, {});
  const QString locked = folder.filePath(u"locked.pdf"_s);
  const QByteArray key_of_nobody = '<' + QByteArray(64, '5') + '>';
  const QByteArray pdf = content_of(good);
  write(locked,
        updated(pdf,
                {"/Filter /Standard /V 1 /R 2 /P -4 /O " + key_of_nobody + " /U " + key_of_nobody},
                {},
                "/Encrypt " + QByteArray::number(first_free(pdf)) + " 0 R /ID [" + key_of_nobody +
                    key_of_nobody + ']'));
  const QString gone = folder.filePath(u"gone.pdf"_s);
  const QString no_name = folder.filePath(u"no_name.hta"_s);
  write(no_name, "<html></html>");
  const struct {
    QString file;
    QString reason;
    QString named;
  } cases[] = {
      {gone, u"There is no book"_s, gone},
      {make_page(gone, u"3"_s), u"There is no book"_s, gone},
      {folder.filePath(u"gone.hta"_s), u"There is no file"_s, u"gone.hta"_s},
      {folder.path(), u"can not be read"_s, folder.path()},
      {no_name, u"names no book"_s, no_name},
      {broken, u"is damaged"_s, broken},
      {empty, u"is damaged"_s, empty},
      {locked, u"locked with a password"_s, locked},
  };
  for (const auto& [file, reason, named] : cases) {
    EXPECT_FALSE(show(file)) << file.toStdString();
    const auto& message = part<QLabel>(u"message"_s);
    EXPECT_TRUE(message.isVisible());
    EXPECT_TRUE(message.text().contains(reason)) << message.text().toStdString();
    EXPECT_TRUE(message.text().contains(named)) << message.text().toStdString();
    EXPECT_FALSE(pages().isVisible());
    EXPECT_FALSE(contents().isVisible());
    for (const QString& name : {u"Next"_s, u"Find"_s, u"Fit Width"_s, u"Back"_s})
      EXPECT_FALSE(tool(name).isEnabled());
    EXPECT_FALSE(box().isEnabled());
    key(Qt::Key_F3);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_FALSE(wanted().isVisible());
  }
}

TEST_F(BookViewer, TabReachesEveryPartAndEachHasAName) {
  const QString book = make_book(30);
  add_bookmarks(book);
  EXPECT_TRUE(show(make_page(book, u"5"_s)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return tool(u"Contents"_s).isEnabled(); }));
  if (!contents().isVisible()) click(u"Contents"_s);
  go_to(u"7"_s);
  go_to(u"6"_s);
  click(u"Back"_s);
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
  std::vector<QString> order;
  for (std::size_t i = 0; i < expected.size() + 3; ++i) {
    order.push_back(
        QAccessible::queryAccessibleInterface(window.focusWidget())->text(QAccessible::Name));
    key(Qt::Key_Tab);
  }
  EXPECT_EQ(std::set<QString>(order.begin(), order.end()), expected);
  const QStringList wanted_order{
      u"Search for"_s, u"Previous"_s,  u"Next"_s, u"Close"_s,    u"Contents"_s, u"Back"_s,
      u"Forward"_s,    u"Previous"_s,  u"Page"_s, u"Next"_s,     u"Zoom out"_s, u"Zoom in"_s,
      u"100 %"_s,      u"Fit Width"_s, u"Find"_s, u"Contents"_s, u"Book"_s};
  for (std::size_t i = 0; i < std::min<std::size_t>(order.size(), 17); ++i)
    EXPECT_EQ(order[i].toStdString(), wanted_order[static_cast<int>(i)].toStdString()) << i;
}

// The program itself, with the user's folder for sockets beside the book.
class BookViewerStarted : public BookViewer {
 protected:
  void SetUp() override {
    BookViewer::SetUp();
    book = make_book(30);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"run"_s));
    run = folder.filePath(u"run"_s);
    QFile::setPermissions(run, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  void TearDown() override {
    for (const auto& process : processes) {
      process->kill();
      process->waitForFinished();
    }
  }

  QProcess& start(const QString& file, const QString& sockets) {
    auto& process = *processes.emplace_back(std::make_unique<QProcess>());
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_RUNTIME_DIR"_s, sockets);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    process.setProcessEnvironment(environment);
    process.start(viewer, {file});
    EXPECT_TRUE(process.waitForStarted());
    return process;
  }
  static bool ends(QProcess& process) {
    return QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 10'000);
  }
  bool listens() {
    return QTest::qWaitFor([&] { return OneWindow(run, book).hand_over(1); }, 10'000);
  }

  QString book;
  QString run;
  std::vector<std::unique_ptr<QProcess>> processes;
};

TEST_F(BookViewerStarted, ASecondStartTurnsTheOpenWindow) {
  EXPECT_TRUE(show(make_page(book, u"3"_s)));
  OneWindow one_window(run, book);
  ASSERT_TRUE(one_window.listen([&](int page) { window.turn_to(page); }));
  window.showMinimized();
  // The same book by another way.
  QProcess& second = start(make_page(folder.path() + u"/run/../book_falco.pdf"_s, u"17"_s), run);
  ASSERT_TRUE(ends(second));
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_TRUE(is_at_the_top(17));
  EXPECT_FALSE(window.isMinimized());
  click(u"Back"_s);
  EXPECT_TRUE(is_at_the_top(3));
}

TEST_F(BookViewerStarted, AStartedViewerListensAndEachBookHasItsWindow) {
  QProcess& first = start(make_page(book, u"3"_s), run);
  ASSERT_TRUE(listens());
  QProcess& second = start(make_page(book, u"9"_s), run);
  EXPECT_TRUE(ends(second));
  EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(first.state(), QProcess::Running);
  const QString other_book = make_book(4, u"book_robin.pdf"_s);
  QProcess& third = start(make_page(other_book, u"2"_s), run);
  EXPECT_TRUE(QTest::qWaitFor([&] { return OneWindow(run, other_book).hand_over(1); }, 10'000));
  EXPECT_EQ(third.state(), QProcess::Running);
}

TEST_F(BookViewerStarted, AViewerThatWasKilledLeavesNothingInTheWay) {
  QProcess& first = start(make_page(book, u"3"_s), run);
  ASSERT_TRUE(listens());
  first.kill();
  ASSERT_TRUE(ends(first));
  EXPECT_FALSE(QDir(run).entryList(QDir::System | QDir::NoDotAndDotDot).isEmpty());
  QProcess& second = start(make_page(book, u"9"_s), run);
  EXPECT_TRUE(listens());
  EXPECT_EQ(second.state(), QProcess::Running);
}

TEST_F(BookViewerStarted, HasAWindowOfItsOwnWhereTheOpenOneDoesNotAnswer) {
  OneWindow one_window(run, book);
  bool was_asked = false;
  ASSERT_TRUE(one_window.listen([&](int) { was_asked = true; }));
  // A window that hangs: this one does not come to answering.
  QProcess& second = start(make_page(book, u"9"_s), run);
  EXPECT_FALSE(second.waitForFinished(3'000));
  EXPECT_EQ(second.state(), QProcess::Running);
  EXPECT_FALSE(was_asked);
  // From now on, it is the one that listens.
  EXPECT_TRUE(OneWindow(run, book).hand_over(2));
}

TEST_F(BookViewerStarted, HasAWindowOfItsOwnWithoutAFolderForSockets) {
  // Longer than the address of a socket may be.
  const QString too_long = folder.filePath(QString(150, u'r'));
  QProcess& first = start(make_page(book, u"3"_s), too_long);
  QProcess& second = start(make_page(book, u"3"_s), too_long);
  EXPECT_FALSE(second.waitForFinished(1'500));
  EXPECT_EQ(first.state(), QProcess::Running);
  EXPECT_EQ(second.state(), QProcess::Running);
  EXPECT_FALSE(OneWindow({}, book).hand_over(1));
  EXPECT_FALSE(OneWindow({}, book).listen([](int) {}));
}

TEST_F(BookViewerStarted, TakesNoNonsenseFromTheSocket) {
  OneWindow one_window(run, book);
  std::vector<int> turned;
  ASSERT_TRUE(one_window.listen([&](int page) { turned.push_back(page); }));
  const QString name = QDir(run).entryList(QDir::System | QDir::NoDotAndDotDot).value(0);
  for (const QByteArray& nonsense :
       {QByteArray("page 3\n"), QByteArray("\n"), QByteArray(100'000, '1')}) {
    QLocalSocket socket;
    socket.connectToServer(QDir(run).filePath(name));
    ASSERT_TRUE(socket.waitForConnected());
    socket.write(nonsense);
    EXPECT_TRUE(QTest::qWaitFor([&] { return socket.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_EQ(socket.readAll(), QByteArray());
  }
  EXPECT_TRUE(turned.empty());
}

TEST_F(BookViewerStarted, ABookThatWasMissingIsShownOnceItIsThere) {
  const QString later = folder.filePath(u"later.pdf"_s);
  const QString page = make_page(later, u"2"_s);
  EXPECT_FALSE(show(page));
  QFile::copy(book, later);
  window.turn_to(6);
  EXPECT_TRUE(pages().isVisible());
  EXPECT_TRUE(is_at_the_top(6));
}

}  // namespace
}  // namespace practice::desktop
