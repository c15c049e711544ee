// The menus of the question screen, opened and clicked with the mouse.
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPdfDocument>
#include <QPrinter>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

class MenusOfATest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    start("46000");
    click("Welcome", "Image4", 0);
    click("pick_a_quiz", "Command1");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window("quest")));
  }

  static QAction* entry_of(const QList<QAction*>& entries, const char* caption) {
    for (QAction* entry : entries) {
      if (entry->text() == QLatin1String(caption)) return entry;
    }
    return nullptr;
  }

  /// Opens the menu and clicks the entry, through a submenu if there are two.
  void choose(const char* menu, std::initializer_list<const char*> captions) {
    QMenuBar* bar = window("quest")->menuBar();
    QAction* top = entry_of(bar->actions(), menu);
    ASSERT_NE(top, nullptr) << menu;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
    QMenu* open = top->menu();
    for (const char* caption : captions) {
      ASSERT_TRUE(QTest::qWaitFor([&] { return open->isVisible(); }, 2'000)) << caption;
      QAction* entry = entry_of(open->actions(), caption);
      ASSERT_NE(entry, nullptr) << caption;
      ASSERT_TRUE(entry->isVisible()) << caption;
      QTest::mouseClick(open, Qt::LeftButton, {}, open->actionGeometry(entry).center());
      if (entry->menu() != nullptr) open = entry->menu();
    }
    QTest::qWait(0);
  }

  bool is_checked(const char* menu, const char* caption) {
    const QAction* top = entry_of(window("quest")->menuBar()->actions(), menu);
    return entry_of(top->menu()->actions(), caption)->isChecked();
  }

  const std::string& page() { return application->program().pages.current_page; }
  bool page_has(const char* text) { return page().find(text) != std::string::npos; }
  Options& options() { return application->program().options; }

  QString text_of_pdf(const QString& file) {
    QPdfDocument document;
    EXPECT_EQ(document.load(file), QPdfDocument::Error::None);
    QString text;
    for (int sheet = 0; sheet < document.pageCount(); ++sheet) {
      text += document.getAllText(sheet).text();
    }
    return text;
  }
};

TEST_F(MenusOfATest, FontsAndSizesShowTheSameQuestionAnew) {
  options().show_answer_when_wrong = 0;
  click("quest", "cmd_buttons", 0);
  const int position = run().question_position;
  const int row = run().current_row;
  choose("For&mat Font", {"Arial"});
  EXPECT_TRUE(page_has("BODY{font-family:Arial}"));
  EXPECT_TRUE(is_checked("For&mat Font", "Arial"));
  EXPECT_FALSE(is_checked("For&mat Font", "Times New Roman"));
  choose("For&mat Font", {"Size 14"});
  EXPECT_TRUE(page_has("BODY{font-size: 14 pt}"));
  choose("For&mat Font", {"Size 20"});
  EXPECT_TRUE(page_has("BODY{font-size: 18 pt}"));
  EXPECT_TRUE(is_checked("For&mat Font", "Size 20"));
  EXPECT_EQ(run().question_position, position);
  EXPECT_EQ(run().current_row, row);
  EXPECT_EQ(static_cast<QLabel*>(widget("quest", "question_number"))->text(),
            QStringLiteral(" %1").arg(position));
}

TEST_F(MenusOfATest, TogglesTakeEffect) {
  ASSERT_TRUE(widget("quest", "cmd_buttons", 1)->isVisible());
  choose("&Options", {"Back Button"});
  EXPECT_FALSE(widget("quest", "cmd_buttons", 1)->isVisible());
  EXPECT_FALSE(is_checked("&Options", "Back Button"));
  choose("&Options", {"Back Button"});
  EXPECT_TRUE(widget("quest", "cmd_buttons", 1)->isVisible());

  choose("&Options", {"Show Answer when Wrong"});
  EXPECT_EQ(options().show_answer_when_wrong, 0);
  choose("&Options", {"Show # of Answers"});
  EXPECT_EQ(options().show_answer_count, 1);
  choose("&Options", {"When Showing Answer", "Put Correct Answer near bottom"});
  EXPECT_EQ(options().answer_position, "bottom");
  EXPECT_EQ(settings.get("marlotest", "stuff", "putanswer", "top"), "bottom");
}

TEST_F(MenusOfATest, TheAnswerPageIsPrintedAsRealText) {
  const QString pdf = folder.filePath(QStringLiteral("page.pdf"));
  desk->choose_printer = [&](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    return true;
  };
  choose("F&ile", {"&Print Question"});
  const QString text = text_of_pdf(pdf);
  EXPECT_TRUE(text.contains(QStringLiteral("The correct answer(s):"))) << text.toStdString();
  EXPECT_TRUE(text.contains(QStringLiteral("QID:")));
  EXPECT_EQ(run().question_position, 1);
  EXPECT_FALSE(window("theanswer")->isVisible());
}

TEST_F(MenusOfATest, APrinterThatIsNotChosenPrintsNothingAndTheTestGoesOn) {
  bool asked = false;
  desk->choose_printer = [&](QPrinter&) {
    asked = true;
    return false;
  };
  choose("F&ile", {"&Print Question"});
  EXPECT_TRUE(asked);
  EXPECT_EQ(run().print_mode, 1);
  EXPECT_TRUE(window("quest")->isVisible());
}

TEST_F(MenusOfATest, GradingEndsTheTestWithAllItsQuestions) {
  choose("F&ile", {"&End and Grade This Quiz"});
  EXPECT_TRUE(window("finalscore")->isVisible());
  EXPECT_FALSE(window("quest")->isVisible());
  EXPECT_EQ(application->finalscore().tot.caption, "50");
  EXPECT_TRUE(files.exists("46000.STUDENT.results"));
}

TEST_F(MenusOfATest, ExitAsksFirstAndNoLeavesTheTestAsItWas) {
  messages.answers = {Answer::no};
  const std::string before = page();
  choose("F&ile", {"E&xit Program"});
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].text, "Are you sure you want to exit the program?");
  EXPECT_TRUE(window("quest")->isVisible());
  EXPECT_EQ(page(), before);
  EXPECT_FALSE(application->has_ended());
}

TEST_F(MenusOfATest, ExitWithYesEndsTheProgramWithoutResults) {
  messages.answers = {Answer::yes};
  choose("F&ile", {"E&xit Program"});
  EXPECT_TRUE(application->has_ended());
  EXPECT_FALSE(window("quest")->isVisible());
  EXPECT_FALSE(files.exists("46000.STUDENT.results"));
}

TEST_F(MenusOfATest, HiddenEntriesAreNotInTheMenus) {
  const QMenuBar* bar = window("quest")->menuBar();
  EXPECT_FALSE(entry_of(bar->actions(), "Email Se&ttings")->isVisible());
  const QAction* file = entry_of(bar->actions(), "F&ile");
  EXPECT_FALSE(entry_of(file->menu()->actions(), "Back to Options Menu (Quit Test)")->isVisible());
}

}  // namespace
}  // namespace practice::desktop
