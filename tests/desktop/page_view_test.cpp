// The drawing of pages: what a student sees, clicks and types, in a real window.
#include "page_view/page_view.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextLayout>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "page_view/pictures.h"
#include "page_view/rich_text.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

const std::string page_opening =
    "<html><script language=javascript>document.oncontextmenu = stop</script>"
    "<head><title>Practice Exam</title></head><body><form name=frm>\r\n<style>\r\n"
    "BODY{font-size: 12 pt}\r\nTABLE{font-size: 12 pt}\r\nBODY{font-family:Times New Roman}\r\n"
    "</style>\r\n<table border=0 cellpadding=0 cellspacing=0 width=100% height=100% >"
    "<tr><td align=top height=2></td></tr><tr><td valign=top> 3.) Which one is it?<p>"
    "<SCRIPT LANGUAGE=VBScript>\r\nvarcount=4\r\n questiontype=\"radio\" </SCRIPT>\r\n\r\n";
const std::string page_middle =
    "</td></tr><tr><td ><p align=center>Select the 1 Best Answer.<zzexplanation></td></tr></td>"
    "</tr></table>\r\n<script language=javascript>frm.item(0).focus()</script>\r\n";
const std::string page_ending = "</BODY></body></html>";

std::string radio(char letter, const std::string& text, const std::string& more = {}) {
  const auto key = static_cast<char>(letter - 'A' + 'a');
  return std::string("<input ") + more + " type=radio accesskey=\"" + key +
         "\"  name=\"radio1\" value=V" + letter + ">" + letter + ".\t" + text + "</option><br>\r\n";
}

std::string check_box(char letter, const std::string& text) {
  const auto key = static_cast<char>(letter - 'A' + 'a');
  const std::string number(1, static_cast<char>(letter - 'A' + '1'));
  return std::string("<input type=checkbox accesskey=\"") + key + "\"  name=ans" + number +
         " value=1>" + letter + ".\t" + text + "</option><br>\r\n";
}

const std::string text_field =
    "<p>&nbsp;</p><p align=center><input type=text name=txt_fill size=40 value=\"\">"
    "</p onblur=alert(\"hi\")><p align=center><b>Please Type Answer In Box Above</b></p><br>";
const std::string exhibit_link =
    "<hr><a href=\"javascript:; void(' ');\"id=\"Exhibit1\"onclick=myfunction()>"
    "Exhibit #  1 Click Here</a><br>";

std::string page(const std::string& inputs, const std::string& tail = {}) {
  return page_opening + inputs + page_middle + tail + page_ending;
}

const std::string three_radios = radio('A', "First") + radio('B', "Second") + radio('C', "Third");

void write_picture(const QString& path, QColor colour, QSize size = QSize(60, 40)) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  ASSERT_TRUE(image.save(path, "PNG"));
}

class PageViewTest : public testing::Test {
 protected:
  PageViewTest() {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(&before_);
    layout->addWidget(&page_, 1);
    layout->addWidget(&next_);
    before_.setAutoDefault(false);
    next_.setDefault(true);
    QObject::connect(&next_, &QPushButton::clicked, [this] { ++presses_; });
    page_.edited = [this] { ++edits_; };
    page_.element_clicked = [this](html::Node& node) {
      clicked_.emplace_back(node.attribute("id"));
    };
    page_.open_address = [this](const QString& address) { opened_.push_back(address); };
    window_.resize(760, 560);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  ~PageViewTest() override { page_.forget(); }

  void write(const std::string& markup) {
    view_.document.open();
    view_.document.write(markup);
    view_.document.close();
    view_.busy = true;
    page_.show_view(view_);
    QCoreApplication::processEvents();
  }

  QTextBrowser& browser() { return *page_.findChild<QTextBrowser*>(); }

  /// The widgets in use, from the top of the page.
  template <class Widget>
  std::vector<Widget*> shown() {
    std::vector<Widget*> widgets;
    for (Widget* widget : browser().viewport()->findChildren<Widget*>()) {
      if (!widget->isHidden()) widgets.push_back(widget);
    }
    std::sort(widgets.begin(), widgets.end(),
              [](const Widget* a, const Widget* b) { return a->y() < b->y(); });
    return widgets;
  }

  html::Input& input(const char* name, int index = 0) { return *view_.document.input(name, index); }

  void click(QPoint point) {
    QTest::mouseMove(browser().viewport(), point);
    QTest::mouseClick(browser().viewport(), Qt::LeftButton, {}, point);
  }
  /// Behind the mark, in the middle of the line.
  void click_line_of(const QWidget& mark) { click(mark.geometry().center() + QPoint(200, 0)); }

  /// The middle of the first place that holds the text.
  QPoint place_of(const QString& text) {
    QTextCursor cursor = browser().document()->find(text);
    EXPECT_FALSE(cursor.isNull()) << text.toStdString();
    cursor.setPosition(cursor.selectionStart() + 1);
    return browser().cursorRect(cursor).center();
  }

  bool shows_colour(QColor colour) {
    const QImage image = window_.grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  }

  std::string printed() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"page.pdf"_s);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    page_.print(printer);
    QPdfDocument pdf;
    EXPECT_EQ(pdf.load(file), QPdfDocument::Error::None);
    std::string text;
    for (int i = 0; i < pdf.pageCount(); ++i) {
      text += pdf.getAllText(i).text().simplified().toStdString() + " ";
    }
    return text;
  }

  QDialog window_;
  QPushButton before_;
  QPushButton next_;
  PageView page_;
  html::View view_;
  int presses_ = 0;
  int edits_ = 0;
  std::vector<std::string> clicked_;
  std::vector<QString> opened_;
};

TEST_F(PageViewTest, IsNotBusyOnceDrawn) {
  write(page(three_radios));
  EXPECT_FALSE(view_.busy);
  EXPECT_EQ(shown<QRadioButton>().size(), 3U);
}

TEST_F(PageViewTest, StaysBusyWhileAnAddressIsStillToCome) {
  view_.navigate("other.htm");
  page_.show_view(view_);
  EXPECT_TRUE(view_.busy);
}

TEST_F(PageViewTest, AClickOnTheTextChoosesAndGivesTheFocus) {
  write(page(three_radios));
  const auto radios = shown<QRadioButton>();
  click_line_of(*radios[1]);
  EXPECT_TRUE(input("radio1", 1).checked);
  EXPECT_TRUE(radios[1]->isChecked());
  EXPECT_TRUE(radios[1]->hasFocus());
  EXPECT_EQ(edits_, 1);
}

TEST_F(PageViewTest, AClickOnTheMarkChooses) {
  write(page(three_radios));
  const auto radios = shown<QRadioButton>();
  QTest::mouseClick(radios[2], Qt::LeftButton);
  EXPECT_TRUE(input("radio1", 2).checked);
  QTest::mouseClick(radios[2], Qt::LeftButton);
  EXPECT_TRUE(input("radio1", 2).checked);
  EXPECT_TRUE(radios[2]->isChecked());
}

TEST_F(PageViewTest, OneRadioExcludesTheOthers) {
  write(page(three_radios));
  const auto radios = shown<QRadioButton>();
  click_line_of(*radios[0]);
  click_line_of(*radios[2]);
  EXPECT_FALSE(input("radio1", 0).checked);
  EXPECT_FALSE(radios[0]->isChecked());
  EXPECT_TRUE(radios[2]->isChecked());
}

TEST_F(PageViewTest, TwoGroupsOnAPageDoNotExcludeEachOther) {
  write(
      "<body><input type=radio name=one checked>A.\tx<br><input type=radio name=one>B.\tx<br>"
      "<input type=radio name=two>A.\tx<br><input type=radio name=two>B.\tx</body>");
  const auto radios = shown<QRadioButton>();
  click_line_of(*radios[3]);
  EXPECT_TRUE(radios[0]->isChecked());
  EXPECT_TRUE(radios[3]->isChecked());
}

TEST_F(PageViewTest, AClickOnALineTicksAndClearsACheckBox) {
  write(page(check_box('A', "First") + check_box('B', "Second, which<br>has two lines")));
  const auto boxes = shown<QCheckBox>();
  ASSERT_EQ(boxes.size(), 2U);
  click_line_of(*boxes[0]);
  click(place_of(u"has two lines"_s));
  EXPECT_TRUE(input("ans1").checked);
  EXPECT_TRUE(input("ans2").checked);
  EXPECT_TRUE(boxes[1]->isChecked());
  click_line_of(*boxes[0]);
  EXPECT_FALSE(input("ans1").checked);
  EXPECT_FALSE(boxes[0]->isChecked());
  EXPECT_EQ(edits_, 3);
}

TEST_F(PageViewTest, ADragFromLineToLineChoosesNothing) {
  write(page(three_radios));
  const auto radios = shown<QRadioButton>();
  const QPoint across(200, 0);
  QTest::mousePress(browser().viewport(), Qt::LeftButton, {},
                    radios[0]->geometry().center() + across);
  QTest::mouseRelease(browser().viewport(), Qt::LeftButton, {},
                      radios[1]->geometry().center() + across);
  EXPECT_EQ(edits_, 0);
  EXPECT_FALSE(browser().textCursor().hasSelection());
}

TEST_F(PageViewTest, AClickBesideTheLinesChoosesNothing) {
  write(page(three_radios));
  click(place_of(u"Which one"_s));
  EXPECT_EQ(edits_, 0);
}

TEST_F(PageViewTest, TheProgramsChangesAreMirrored) {
  write(page(three_radios + text_field));
  const auto radios = shown<QRadioButton>();
  view_.document.set_checked(input("radio1", 1), true);
  input("txt_fill").value = "typed by the program";
  page_.show_view(view_);
  EXPECT_TRUE(radios[1]->isChecked());
  EXPECT_EQ(shown<QLineEdit>()[0]->text(), u"typed by the program");
  view_.document.set_checked(input("radio1", 1), false);
  page_.show_view(view_);
  EXPECT_FALSE(radios[1]->isChecked());
  EXPECT_EQ(edits_, 0);
}

TEST_F(PageViewTest, AnUnchangedPageKeepsCursorAndScrolling) {
  write(page(text_field));
  QLineEdit& line_edit = *shown<QLineEdit>()[0];
  QTest::keyClicks(&line_edit, u"route"_s);
  line_edit.setCursorPosition(2);
  page_.show_view(view_);
  EXPECT_EQ(line_edit.cursorPosition(), 2);
}

TEST_F(PageViewTest, TypedTextIsInTheInputBeforeTheCallback) {
  write(page(text_field));
  std::string seen;
  page_.edited = [&] { seen = input("txt_fill").value; };
  QTest::keyClicks(shown<QLineEdit>()[0], u"show ip"_s);
  EXPECT_EQ(seen, "show ip");
}

TEST_F(PageViewTest, ThePageMayBeRewrittenFromTheCallback) {
  write(page(three_radios));
  page_.edited = [&] {
    if (view_.document.inputs().size() != 3) return;
    view_.document.open();
    view_.document.write(page(check_box('A', "Another page")));
    view_.document.close();
    page_.show_view(view_);
  };
  click_line_of(*shown<QRadioButton>()[1]);
  EXPECT_TRUE(shown<QRadioButton>().empty());
  ASSERT_EQ(shown<QCheckBox>().size(), 1U);
  EXPECT_TRUE(shown<QCheckBox>()[0]->hasFocus());
}

TEST_F(PageViewTest, AClickOnAPageThatWasRewrittenUnseenIsDropped) {
  write(page(three_radios));
  QRadioButton& radio_button = *shown<QRadioButton>()[1];
  view_.document.clear();
  click_line_of(radio_button);
  QTest::mouseClick(&radio_button, Qt::LeftButton);
  QTest::keyClick(&radio_button, Qt::Key_Down);
  EXPECT_EQ(edits_, 0);
}

// Access keys.

TEST_F(PageViewTest, AnAccessKeyChecksARadioAndGivesTheFocus) {
  write(page(three_radios));
  EXPECT_TRUE(page_.has_access_key('b'));
  EXPECT_TRUE(page_.take_access_key('B'));
  EXPECT_TRUE(input("radio1", 1).checked);
  EXPECT_TRUE(shown<QRadioButton>()[1]->hasFocus());
  EXPECT_EQ(edits_, 1);
}

TEST_F(PageViewTest, AnAccessKeyTogglesACheckBox) {
  write(page(check_box('A', "First") + check_box('B', "Second")));
  EXPECT_TRUE(page_.take_access_key('a'));
  EXPECT_TRUE(input("ans1").checked);
  EXPECT_TRUE(page_.take_access_key('a'));
  EXPECT_FALSE(input("ans1").checked);
}

TEST_F(PageViewTest, AnAccessKeyFocusesATextInput) {
  write(
      "<body><input type=radio name=r accesskey=a>A.\tx<br>"
      "<input type=text name=t accesskey=7></body>");
  EXPECT_TRUE(page_.take_access_key('7'));
  EXPECT_TRUE(shown<QLineEdit>()[0]->hasFocus());
  EXPECT_EQ(edits_, 0);
}

TEST_F(PageViewTest, AnUnknownAccessKeyIsNotTaken) {
  write(page(three_radios));
  EXPECT_FALSE(page_.has_access_key('d'));
  EXPECT_FALSE(page_.take_access_key('d'));
  EXPECT_EQ(edits_, 0);
}

// The keyboard.

TEST_F(PageViewTest, ThePagesFocusGoesToTheFirstInputOrTheCheckedOne) {
  write(page(three_radios));
  page_.setFocus();
  EXPECT_TRUE(shown<QRadioButton>()[0]->hasFocus());
  before_.setFocus();
  view_.document.set_checked(input("radio1", 2), true);
  page_.show_view(view_);
  page_.setFocus();
  EXPECT_TRUE(shown<QRadioButton>()[2]->hasFocus());
}

TEST_F(PageViewTest, ANewPageKeepsTheFocusWithin) {
  write(page(three_radios));
  page_.focus_first_input();
  QTest::keyClick(shown<QRadioButton>()[0], Qt::Key_Down);
  write(page(text_field));
  EXPECT_TRUE(shown<QLineEdit>()[0]->hasFocus());
  write("<body>No inputs</body>");
  EXPECT_TRUE(browser().hasFocus());
  write(page(three_radios));
  EXPECT_TRUE(shown<QRadioButton>()[0]->hasFocus());
}

TEST_F(PageViewTest, ANewPageTakesNoFocusFromElsewhere) {
  write(page(three_radios));
  next_.setFocus();
  write(page(text_field));
  EXPECT_TRUE(next_.hasFocus());
}

TEST_F(PageViewTest, TabFollowsThePageFromInputToLinkAndOut) {
  write(page(check_box('A', "First") + check_box('B', "Second"), exhibit_link));
  const auto boxes = shown<QCheckBox>();
  const auto tab = [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); };
  const auto back = [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab); };
  before_.setFocus();
  tab();
  EXPECT_TRUE(boxes[0]->hasFocus());
  tab();
  EXPECT_TRUE(boxes[1]->hasFocus());
  tab();
  EXPECT_TRUE(browser().hasFocus());
  tab();
  EXPECT_TRUE(next_.hasFocus());
  back();
  EXPECT_TRUE(browser().hasFocus());
  back();
  EXPECT_TRUE(boxes[1]->hasFocus());
  back();
  EXPECT_TRUE(boxes[0]->hasFocus());
  back();
  EXPECT_TRUE(before_.hasFocus());
}

TEST_F(PageViewTest, TabTakesAGroupWithACheckedRadioAsOneStop) {
  write(page(radio('A', "x") + radio('B', "x", "checked") + radio('C', "x")));
  before_.setFocus();
  QTest::keyClick(&before_, Qt::Key_Tab);
  EXPECT_TRUE(shown<QRadioButton>()[1]->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(next_.hasFocus());
  QTest::keyClick(&next_, Qt::Key_Backtab);
  EXPECT_TRUE(shown<QRadioButton>()[1]->hasFocus());
}

TEST_F(PageViewTest, APageWithoutStopsIsOneStop) {
  write("<body>Only text</body>");
  before_.setFocus();
  QTest::keyClick(&before_, Qt::Key_Tab);
  EXPECT_TRUE(browser().hasFocus());
  QTest::keyClick(&browser(), Qt::Key_Tab);
  EXPECT_TRUE(next_.hasFocus());
}

TEST_F(PageViewTest, ArrowsMoveInAGroupOfRadios) {
  write(page(three_radios));
  page_.focus_first_input();
  const auto radios = shown<QRadioButton>();
  QTest::keyClick(radios[0], Qt::Key_Down);
  EXPECT_TRUE(radios[1]->hasFocus());
  EXPECT_TRUE(input("radio1", 1).checked);
  QTest::keyClick(radios[1], Qt::Key_Right);
  EXPECT_TRUE(input("radio1", 2).checked);
  QTest::keyClick(radios[2], Qt::Key_Down);
  EXPECT_TRUE(radios[2]->hasFocus());
  QTest::keyClick(radios[2], Qt::Key_Up);
  EXPECT_TRUE(input("radio1", 1).checked);
  EXPECT_FALSE(input("radio1", 2).checked);
  EXPECT_EQ(edits_, 3);
}

TEST_F(PageViewTest, ArrowsMoveBetweenCheckBoxesWithoutTicking) {
  write(page(check_box('A', "First") + check_box('B', "Second")));
  page_.focus_first_input();
  QTest::keyClick(shown<QCheckBox>()[0], Qt::Key_Down);
  EXPECT_TRUE(shown<QCheckBox>()[1]->hasFocus());
  EXPECT_EQ(edits_, 0);
}

TEST_F(PageViewTest, SpaceChoosesAndToggles) {
  write(page(three_radios + check_box('D', "Fourth")));
  QTest::keyClick(shown<QRadioButton>()[1], Qt::Key_Space);
  EXPECT_TRUE(input("radio1", 1).checked);
  QTest::keyClick(shown<QCheckBox>()[0], Qt::Key_Space);
  EXPECT_TRUE(input("ans4").checked);
  QTest::keyClick(shown<QCheckBox>()[0], Qt::Key_Space);
  EXPECT_FALSE(input("ans4").checked);
}

TEST_F(PageViewTest, EnterReachesTheDefaultButton) {
  write(page(three_radios + check_box('D', "Fourth") + text_field));
  const std::vector<QWidget*> inputs = {shown<QRadioButton>()[0], shown<QCheckBox>()[0],
                                        shown<QLineEdit>()[0]};
  int presses = 0;
  for (QWidget* widget : inputs) {
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
    EXPECT_EQ(presses_, ++presses);
    QTest::keyClick(widget, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(presses_, ++presses);
  }
  EXPECT_EQ(edits_, 0);
}

TEST_F(PageViewTest, FocusBringsAnInputIntoSight) {
  std::string inputs;
  for (int i = 0; i < 40; ++i) inputs += "<input type=checkbox name=c>A.\tA choice<br>";
  write("<body>" + inputs + "</body>");
  const auto boxes = shown<QCheckBox>();
  ASSERT_EQ(boxes.size(), 40U);
  EXPECT_FALSE(browser().viewport()->rect().contains(boxes[39]->geometry()));
  QTest::keyClick(boxes[0], Qt::Key_Backtab);
  boxes[39]->setFocus();
  EXPECT_TRUE(browser().viewport()->rect().contains(boxes[39]->geometry()));
  EXPECT_GT(browser().verticalScrollBar()->value(), 0);
  click_line_of(*boxes[39]);
  EXPECT_TRUE(boxes[39]->isChecked());
}

TEST_F(PageViewTest, InputsFollowTheTextWhenItScrollsOrWraps) {
  std::string inputs;
  for (int i = 0; i < 30; ++i) {
    inputs += check_box('A', "A choice of many words that wraps when the window becomes narrow");
  }
  write("<body>" + inputs + "</body>");
  const auto lines_up = [&] {
    const auto boxes = shown<QCheckBox>();
    QTextCursor cursor(browser().document());
    for (const QCheckBox* box : boxes) {
      cursor = browser().document()->find(u"A choice"_s, cursor);
      QTextCursor start(cursor);
      start.setPosition(cursor.selectionStart());
      const int text = browser().cursorRect(start).center().y();
      EXPECT_NEAR(box->geometry().center().y(), text, 3);
    }
  };
  lines_up();
  browser().verticalScrollBar()->setValue(150);
  lines_up();
  window_.resize(380, 560);
  QCoreApplication::processEvents();
  lines_up();
}

// Links and handlers.

TEST_F(PageViewTest, AnExhibitLinkCallsItsHandler) {
  write(page(three_radios, exhibit_link));
  view_.document.element_by_id("Exhibit1")->onclick = [] {};
  click(place_of(u"Click Here"_s));
  EXPECT_EQ(clicked_, std::vector<std::string>{"Exhibit1"});
  EXPECT_TRUE(opened_.empty());
}

TEST_F(PageViewTest, AnExhibitLinkCanBeOperatedByKey) {
  write(page(check_box('A', "x"), exhibit_link));
  view_.document.element_by_id("Exhibit1")->onclick = [] {};
  page_.focus_first_input();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(clicked_, std::vector<std::string>{"Exhibit1"});
  EXPECT_EQ(presses_, 0);
}

TEST_F(PageViewTest, AScriptLinkWithoutHandlerDoesNothing) {
  write(page(three_radios, exhibit_link));
  click(place_of(u"Click Here"_s));
  EXPECT_TRUE(clicked_.empty());
  EXPECT_TRUE(opened_.empty());
}

TEST_F(PageViewTest, AHandlerWinsOverAnAddress) {
  write("<body><a id=x href=\"http://www.example.com/\">the link</a></body>");
  view_.document.element_by_id("x")->onclick = [] {};
  click(place_of(u"the link"_s));
  EXPECT_EQ(clicked_, std::vector<std::string>{"x"});
  EXPECT_TRUE(opened_.empty());
}

TEST_F(PageViewTest, TheHandlerOfAnElementAroundIsFound) {
  write("<body><div id=outer><p id=inner>some <b id=word>text</b></p></div></body>");
  view_.document.element_by_id("outer")->onclick = [] {};
  click(place_of(u"text"_s));
  EXPECT_EQ(clicked_, std::vector<std::string>{"outer"});
}

TEST_F(PageViewTest, AddressesAreOpenedAndNothingElse) {
  const struct {
    const char* link;
    const char* opened;
  } cases[] = {
      {"href=\"http://www.example.com/a?b=1&c=2\"", "http://www.example.com/a?b=1&c=2"},
      {"href=\" HTTPS://www.example.com \"", "HTTPS://www.example.com"},
      {"href=mailto:someone@example.com", "mailto:someone@example.com"},
      {"href=guide.htm target=_blank", "guide.htm"},
      {"href=\"javascript:go()\" target=_blank", ""},
      {"href=\"JavaScript:go()\"", ""},
      {"href=guide.htm", ""},
      {"href=\"file:///etc/passwd\"", ""},
      {"href=\"#top\"", ""},
  };
  for (const auto& each : cases) {
    write(std::string("<body><a ") + each.link + ">the link</a></body>");
    opened_.clear();
    click(place_of(u"the link"_s));
    const QString opened = opened_.empty() ? QString() : opened_.front();
    EXPECT_EQ(opened.toStdString(), each.opened) << each.link;
  }
}

TEST_F(PageViewTest, TheTabPictureDoesNothing) {
  const QTemporaryDir folder;
  write_picture(folder.filePath(u"tab.png"_s), QColor(1, 2, 250));
  view_.picture_folder = folder.path().toStdString() + "/";
  write("<body><img align=top onclick=\"tabclick(1)\" src=\"" + view_.picture_folder +
        "tab.png\"> words</body>");
  ASSERT_TRUE(shows_colour(QColor(1, 2, 250)));
  click(QPoint(40, 40));
  EXPECT_TRUE(clicked_.empty());
  EXPECT_EQ(browser().viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PageViewTest, TheHandShowsOverLinesAndLinks) {
  write(page(three_radios, exhibit_link));
  const auto shape_at = [&](QPoint point) {
    QTest::mouseMove(browser().viewport(), point);
    return browser().viewport()->cursor().shape();
  };
  EXPECT_EQ(shape_at(place_of(u"Second"_s)), Qt::PointingHandCursor);
  EXPECT_EQ(shape_at(place_of(u"Which one"_s)), Qt::ArrowCursor);
  EXPECT_EQ(shape_at(place_of(u"Click Here"_s)), Qt::PointingHandCursor);
}

// Pictures.

class PageViewPictureTest : public PageViewTest {
 protected:
  static constexpr QColor inside = QColor(10, 200, 30);
  static constexpr QColor outside = QColor(220, 10, 140);

  PageViewPictureTest() {
    EXPECT_TRUE(QDir(root_.path()).mkpath(u"exam/sub"_s));
    write_picture(root_.filePath(u"exam/d1.png"_s), inside);
    write_picture(root_.filePath(u"exam/sub/d2.png"_s), inside);
    write_picture(root_.filePath(u"x.png"_s), outside);
    EXPECT_TRUE(QFile::link(root_.filePath(u"x.png"_s), root_.filePath(u"exam/escape.png"_s)));
    EXPECT_TRUE(QFile::link(root_.path(), root_.filePath(u"exam/up"_s)));
    view_.picture_folder = exam() + "/";
  }
  std::string exam() const { return root_.filePath(u"exam"_s).toStdString(); }
  void write_image(const std::string& source) {
    write("<body>text <img src=\"" + source + "\"> text</body>");
  }

  const QTemporaryDir root_;
};

TEST_F(PageViewPictureTest, AreFoundInTheFolder) {
  std::string with_backslashes = exam() + "/d1.png";
  std::replace(with_backslashes.begin(), with_backslashes.end(), '/', '\\');
  for (const std::string& source :
       {exam() + "/d1.png", exam() + "/D1.PNG", exam() + "\\sub\\D2.png", exam() + "/Sub/D2.Png",
        exam() + "/./d1.png", with_backslashes, "file://" + exam() + "/d1.png"}) {
    write_image(source);
    EXPECT_TRUE(shows_colour(inside)) << source;
  }
}

TEST_F(PageViewPictureTest, AreRefusedElsewhere) {
  const std::string root = root_.path().toStdString();
  for (const std::string& source :
       {std::string("../x.png"), std::string("..\\x.png"), std::string("sub/../../x.png"),
        root + "/x.png", exam() + "/../x.png", "file://" + root + "/x.png",
        std::string("http://www.example.com/x.png"), exam() + "/escape.png", exam() + "/up/x.png",
        std::string("input:0"), std::string(":/x.png"), exam() + "/missing.png", exam() + "/sub",
        exam() + "/.", std::string("d1.png"), std::string("./d1.png")}) {
    write_image(source);
    EXPECT_FALSE(shows_colour(outside)) << source;
    EXPECT_FALSE(shows_colour(inside)) << source;
  }
}

TEST_F(PageViewPictureTest, NoFolderLetsNoPictureIn) {
  view_.picture_folder.clear();
  write_image(exam() + "/d1.png");
  EXPECT_FALSE(shows_colour(inside));
}

TEST_F(PageViewPictureTest, OnlyPlainPicturesOfSensibleSizeAreRead) {
  const auto store = [&](const QString& name, const QByteArray& bytes) {
    QFile file(root_.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(bytes);
    file.close();
    return read_picture(file.fileName());
  };
  EXPECT_TRUE(store(u"exam/text.png"_s, "no picture").isNull());
  EXPECT_TRUE(
      store(u"exam/icon.png"_s, "/* XPM */ static char* x[] = {\"1 1 1 1\",\"a c red\",\"a\"};")
          .isNull());
  QImage huge(5'000, 4'000, QImage::Format_Mono);
  huge.fill(0);
  ASSERT_TRUE(huge.save(root_.filePath(u"exam/huge.png"_s)));
  EXPECT_TRUE(read_picture(root_.filePath(u"exam/huge.png"_s)).isNull());
  write_picture(root_.filePath(u"exam/large.png"_s), inside, QSize(3000, 2000));
  const QImage large = read_picture(root_.filePath(u"exam/large.png"_s));
  EXPECT_FALSE(large.isNull());
  EXPECT_LE(large.width() * large.height(), 4'000'000);
  EXPECT_TRUE(read_picture(root_.path()).isNull());
}

TEST_F(PageViewPictureTest, AWidePictureFitsTheColumn) {
  write_picture(root_.filePath(u"exam/wide.png"_s), inside, QSize(2000, 100));
  write_image(exam() + "/wide.png");
  EXPECT_FALSE(browser().horizontalScrollBar()->isVisible());
  window_.resize(400, 560);
  QCoreApplication::processEvents();
  EXPECT_FALSE(browser().horizontalScrollBar()->isVisible());
  EXPECT_TRUE(shows_colour(inside));
}

class PictureFiles : public Files {
 public:
  bool exists(std::string_view path) const override {
    return !find_on_disk(qt_text(path)).isEmpty();
  }
  std::string read(std::string_view) const override { return {}; }
  std::string read_start(std::string_view, std::size_t) const override { return {}; }
  void write(std::string_view, std::string_view) override {}
  void append(std::string_view, std::string_view) override {}
  void remove(std::string_view) override {}
};

TEST_F(PageViewPictureTest, APictureFileIsShownToFitAndCanBeZoomed) {
  write_picture(root_.filePath(u"exam/Diagram.png"_s), inside, QSize(1500, 300));
  PictureFiles files;
  view_.navigate(exam() + "\\diagram.PNG");
  view_.finish_navigation(files);
  page_.show_view(view_);
  EXPECT_FALSE(view_.busy);
  ASSERT_FALSE(browser().isVisible());
  QAbstractScrollArea* area = nullptr;
  for (auto* each : page_.findChildren<QAbstractScrollArea*>()) {
    if (each->isVisible()) area = each;
  }
  ASSERT_NE(area, nullptr);
  EXPECT_TRUE(shows_colour(inside));
  EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);

  page_.setFocus();
  EXPECT_TRUE(area->hasFocus());
  QTest::keyClick(area, Qt::Key_Plus, Qt::ControlModifier);
  const int once = area->horizontalScrollBar()->maximum();
  EXPECT_GT(once, 0);
  const QPointF middle = area->viewport()->rect().center();
  QWheelEvent wheel(middle, area->viewport()->mapToGlobal(middle), {}, QPoint(0, 120), Qt::NoButton,
                    Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(area->viewport(), &wheel);
  EXPECT_GT(area->horizontalScrollBar()->maximum(), once);
  QTest::keyClick(area, Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(area->horizontalScrollBar()->maximum(), once);
  QTest::keyClick(area, Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
}

TEST_F(PageViewPictureTest, ASmallPictureFileKeepsItsSize) {
  PictureFiles files;
  view_.navigate(exam() + "/d1.png");
  view_.finish_navigation(files);
  page_.show_view(view_, 1);
  const QImage image = window_.grab().toImage();
  int width = 0;
  int widest = 0;
  for (int y = 0; y < image.height(); ++y, width = 0) {
    for (int x = 0; x < image.width(); ++x) width += image.pixelColor(x, y) == inside;
    widest = std::max(widest, width);
  }
  EXPECT_EQ(widest, qRound(60 * image.devicePixelRatio()));
}

TEST_F(PageViewPictureTest, AFileThatIsNoPictureShowsAFailurePage) {
  QFile file(root_.filePath(u"exam/broken.png"_s));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("no picture");
  file.close();
  PictureFiles files;
  view_.navigate(exam() + "/broken.png");
  view_.finish_navigation(files);
  page_.show_view(view_);
  EXPECT_EQ(browser().toPlainText(), u"The picture cannot be displayed.");
  EXPECT_TRUE(browser().isVisible());
  view_.navigate(exam() + "/missing.htm");
  view_.finish_navigation(files);
  page_.show_view(view_);
  EXPECT_EQ(browser().toPlainText(), u"The page cannot be displayed.");
  write(page(three_radios));
  EXPECT_EQ(shown<QRadioButton>().size(), 3U);
}

TEST_F(PageViewPictureTest, TheFocusStaysWithinBetweenPageAndPicture) {
  write(page(three_radios));
  page_.focus_first_input();
  PictureFiles files;
  view_.navigate(exam() + "/d1.png");
  view_.finish_navigation(files);
  page_.show_view(view_);
  const QWidget* focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr);
  EXPECT_TRUE(page_.isAncestorOf(focus));
  EXPECT_FALSE(page_.has_access_key('a'));
  view_.navigate("missing.htm");
  view_.finish_navigation(files);
  page_.show_view(view_);
  EXPECT_TRUE(browser().hasFocus());
}

// Paper.

TEST_F(PageViewTest, PrintsTextAndMarks) {
  write(page(radio('A', "First answer") + radio('B', "Second answer") +
                 check_box('C', "Third answer") + check_box('D', "Fourth answer") + text_field,
             exhibit_link));
  view_.document.set_checked(input("radio1", 1), true);
  view_.document.set_checked(input("ans3"), true);
  input("txt_fill").value = "show <ip> route";
  page_.show_view(view_);
  const std::string text = printed();
  for (const char* part :
       {"3.) Which one is it?", "( ) A. First answer", "(\u2022) B. Second answer",
        "[x] C. Third answer", "[ ] D. Fourth answer", "show <ip> route",
        "Select the 1 Best Answer.", "Exhibit # 1 Click Here"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
  }
  EXPECT_EQ(text.find("(\u2022) A."), std::string::npos);
  EXPECT_EQ(text.find("[x] D."), std::string::npos);
  EXPECT_EQ(text.find("questiontype"), std::string::npos);
}

TEST_F(PageViewPictureTest, PrintsPictures) {
  write_image(exam() + "/d1.png");
  const QTemporaryDir folder;
  const QString file = folder.filePath(u"page.pdf"_s);
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(file);
  page_.print(printer);
  QPdfDocument pdf;
  ASSERT_EQ(pdf.load(file), QPdfDocument::Error::None);
  const QImage sheet = pdf.render(0, QSize(600, 850));
  bool is_found = false;
  for (int y = 0; y < sheet.height(); ++y) {
    for (int x = 0; x < sheet.width(); ++x) is_found |= sheet.pixelColor(x, y) == inside;
  }
  EXPECT_TRUE(is_found);
}

// Accessibility.

TEST_F(PageViewTest, InputsAndPageHaveAccessibleNames) {
  write(page(three_radios + text_field));
  EXPECT_EQ(page_.accessibleName(), u"Practice Exam");
  EXPECT_EQ(browser().accessibleName(), u"Practice Exam");
  const auto radios = shown<QRadioButton>();
  EXPECT_EQ(radios[0]->accessibleName(), u"A. First");
  EXPECT_EQ(radios[2]->accessibleName(), u"C. Third");
  const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(radios[1]);
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->role(), QAccessible::RadioButton);
  EXPECT_EQ(face->text(QAccessible::Name), u"B. Second");
  EXPECT_FALSE(shown<QLineEdit>()[0]->accessibleName().isEmpty());
  write("<body>No title</body>");
  EXPECT_EQ(page_.accessibleName(), u"Question page");
}

// Looks.

TEST_F(PageViewTest, ThePagesFontIsUsed) {
  write(
      "<html><style>BODY{font-size: 15 pt}BODY{font-family:Liberation Sans}</style><body>text"
      "</body></html>");
  EXPECT_EQ(browser().document()->defaultFont().pointSizeF(), 15);
  EXPECT_EQ(browser().document()->defaultFont().family(), u"Liberation Sans");
}

TEST_F(PageViewTest, AnswersHangBehindTheirLetters) {
  write(page(radio('A', "First line<br>second line")));
  QTextCursor first = browser().document()->find(u"First line"_s);
  QTextCursor second = browser().document()->find(u"second line"_s);
  QTextCursor letter = browser().document()->find(u"A."_s);
  const auto left = [&](QTextCursor& cursor) {
    cursor.setPosition(cursor.selectionStart());
    return browser().cursorRect(cursor).left();
  };
  EXPECT_NEAR(left(first), left(second), 1);
  EXPECT_GT(left(first), left(letter) + 10);
  EXPECT_GT(left(letter), shown<QRadioButton>()[0]->geometry().right());
}

TEST_F(PageViewTest, LinesOfAWideWindowStayReadable) {
  std::string words;
  for (int i = 0; i < 200; ++i) words += "word ";
  window_.resize(2400, 600);
  write("<body>" + words + "</body>");
  const QTextLayout& layout = *browser().document()->begin().layout();
  EXPECT_GT(layout.lineCount(), 1);
  EXPECT_LT(layout.lineAt(0).naturalTextWidth(), 60 * browser().fontMetrics().height());
}

TEST_F(PageViewTest, ADarkPaletteIsFollowed) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  write(page(three_radios, exhibit_link));
  const auto colour_of = [&](const QString& text) {
    return browser().document()->find(text).charFormat().foreground().color();
  };
  EXPECT_EQ(colour_of(u"Exhibit"_s), QColor(0x1f5f8b));
  EXPECT_LT(colour_of(u"Select the"_s).lightness(), 120);
  window_.setPalette(dark);
  EXPECT_GT(colour_of(u"Exhibit"_s).lightness(), 150);
  EXPECT_GT(colour_of(u"Select the"_s).lightness(), 120);
  EXPECT_EQ(shown<QRadioButton>().size(), 3U);
}

// Rich text.

std::string text_of(const std::string& markup) {
  html::Document document;
  document.open();
  document.write(markup);
  document.close();
  return rich_text(document, Look()).html.toStdString();
}

TEST(RichText, LeavesOutWhatIsNotForReaders) {
  const std::string html = text_of(page(three_radios));
  for (const char* part :
       {"questiontype", "oncontextmenu", "font-size: 12", "Practice Exam", "<script"}) {
    EXPECT_EQ(html.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(html.find("<table"), std::string::npos);
  EXPECT_NE(html.find("A.\tFirst"), std::string::npos);
}

TEST(RichText, NumbersTheInputsInPageOrder) {
  html::Document document;
  document.open();
  document.write("<body><input type=hidden name=h><input type=radio name=r>A.\tx<p>" + text_field);
  document.close();
  const RichText text = rich_text(document, Look());
  ASSERT_EQ(text.fields.size(), 2U);
  EXPECT_EQ(document.inputs()[text.fields[0].input].kind, html::InputKind::radio);
  EXPECT_EQ(document.inputs()[text.fields[1].input].kind, html::InputKind::text);
  EXPECT_LT(text.html.indexOf(u"input:0"), text.html.indexOf(u"input:1"));
}

TEST(RichText, EscapesWhatThePageShowsAsText) {
  EXPECT_NE(text_of("<body>a &lt;b&gt; &amp; c</body>").find("a &lt;b&gt; &amp; c"),
            std::string::npos);
}

TEST(RichText, FoldsBlanksAndKeepsThemOutOfLinks) {
  EXPECT_NE(text_of("<body>a  \r\n <a href=x>b </a> c</body>").find(">a <a "), std::string::npos);
  EXPECT_NE(text_of("<body>a <a href=x>b </a> c</body>").find(">b</a> c"), std::string::npos);
}

TEST(RichText, FlattensUnknownTagsToTheirText) {
  EXPECT_NE(text_of("<body><zz>one <marquee>two</marquee></zz></body>").find("one two"),
            std::string::npos);
}

TEST(RichText, AnswersOfAnAnswerPageHang) {
  const std::string html =
      text_of("<body>Which?<br>A.)  first<br>B.)  second<br><br><br>Why.</body>");
  EXPECT_NE(html.find("A.)\tfirst</div>"), std::string::npos) << html;
  EXPECT_NE(html.find("B.)\tsecond</div>"), std::string::npos) << html;
  EXPECT_NE(html.find(">Why.</div>"), std::string::npos) << html;
}

TEST(RichText, OnlyInstructionsAreQuiet) {
  const std::string html = text_of(page(text_field));
  const std::string quiet = Look().quiet_colour.toStdString();
  const auto colour = html.find(quiet);
  ASSERT_NE(colour, std::string::npos);
  EXPECT_NE(html.find("Select the 1 Best Answer.", colour), std::string::npos);
  EXPECT_EQ(html.find(quiet, colour + 1), std::string::npos);
  EXPECT_LT(html.find("Please Type"), colour);
}

TEST(RichText, KeepsATableOfSeveralColumns) {
  const std::string html = text_of("<body><table border=1><tr><td>1%1<td>2</table>%2</body>");
  EXPECT_NE(html.find("<table"), std::string::npos);
  EXPECT_NE(html.find("1%1"), std::string::npos);
  EXPECT_NE(html.find("%2"), std::string::npos);
}

// Pages that mean no good.

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

struct Hostile {
  const char* name;
  std::string markup;
};

class HostilePageTest : public PageViewTest, public testing::WithParamInterface<Hostile> {};

TEST_P(HostilePageTest, IsDrawnWithoutHarm) {
  QElapsedTimer timer;
  timer.start();
  write(GetParam().markup);
  EXPECT_LE(browser().viewport()->findChildren<QWidget*>().size(),
            static_cast<qsizetype>(most_fields));
  window_.resize(300, 400);
  QCoreApplication::processEvents();
  page_.setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
  click(QPoint(100, 100));
  EXPECT_FALSE(window_.grab().isNull());
  EXPECT_FALSE(printed().empty());
  write(page(three_radios));
  EXPECT_EQ(shown<QRadioButton>().size(), 3U);
  RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
}

INSTANTIATE_TEST_SUITE_P(
    All, HostilePageTest,
    testing::Values(
        Hostile{"Empty", ""},
        Hostile{"Inputs", repeated("<input type=radio name=a>A.\tx<br>", 5'000)},
        Hostile{"TextInputs", repeated("<input type=text size=99999 value=x>", 3'000)},
        Hostile{"NestedTables", repeated("<table border=1><tr><td>a<td>", 300) + "x"},
        Hostile{"NestedTags", repeated("<div><b><i><font size=7>", 5'000) + "x"},
        Hostile{"WideTable",
                "<table>" + repeated("<tr>" + repeated("<td colspan=9999999>x", 25), 400)},
        Hostile{"HugeFont", "<style>BODY{font-size: 99999999 pt}</style><body><h1>" +
                                repeated("<big>", 50) + "<font size=+9>text"},
        Hostile{"NoFont", "<style>BODY{font-size: -5 pt}BODY{font-family:'\";}</style><body>x"},
        Hostile{"LongText", repeated("some words of text ", 60'000)},
        Hostile{"LongWord", repeated("word", 260'000)},
        Hostile{"Breaks", repeated("<br>", 200'000)},
        Hostile{"Paragraphs", repeated("<p>x", 50'000)},
        Hostile{"Links", repeated("<a href=http://www.example.com id=x>y</a> ", 3'000)},
        Hostile{"Pictures", repeated("<img src=a.png width=999999999 height=1>", 2'000)},
        Hostile{"StructuralCharacters",
                "<input type=radio "
                "name=a>A.\t\xEF\xB7\x90\xEF\xB7\x91\xE2\x80\xA9\xE2\x80\xA8\xEF\xBF\xBC"
                "\x01\x0B<td>\xEF\xB7\x91"},
        Hostile{"BrokenText", "<body>\xff\xfe\xc3\x28 \xf0\x9f</body>"},
        Hostile{"RichTextTricks",
                "<a href=\"node:99\" id=\"input:0\"><img src=\"input:7\">"
                "<img src=\"picture:3\">&lt;img src=input:0&gt;</a>"},
        Hostile{"Lists", repeated("<ul><li>", 400) + repeated("<ol><li>x", 400)},
        Hostile{"Rules", repeated("<hr>", 20'000)}),
    [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace practice::desktop
