// The study saver and the flash cards in their windows.
#include <QLabel>
#include <QPlainTextEdit>

#include "desktop_student.h"
#include "platform_qt/screen_saver_list.h"

namespace practice::desktop {
namespace {

class SaverWindow : public DesktopTest {
 protected:
  void start_saver(const char* command_line = "aaaa46000") {
    launch(command_line);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window("Security")));
  }
  void tick(int times = 1) {
    for (int i = 0; i < times; ++i) {
      desk->enter([&] { application->security().find("FadeTimer")->click(); });
    }
  }
  QColor text_colour(const char* label, int index = 0) {
    return widget("Security", label, index)->palette().color(QPalette::WindowText);
  }
};

TEST_F(SaverWindow, CoversTheScreenAndHidesThePointer) {
  start_saver();
  const QWidget* saver = window("Security");
  EXPECT_EQ(saver->geometry(), QGuiApplication::primaryScreen()->geometry());
  EXPECT_TRUE(saver->windowFlags().testFlag(Qt::FramelessWindowHint));
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
  EXPECT_FALSE(widget("Security", "text1")->visibleRegion().contains(QPoint(5, 5)));
}

TEST_F(SaverWindow, FadesInAndOutInPicturesThatAreSeen) {
  start_saver();
  std::vector<QColor> seen;
  class Watcher : public QObject {
   public:
    std::function<void()> painted;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) painted();
      return false;
    }
  } watcher;
  watcher.painted = [&] { seen.push_back(text_colour("lblQuestion")); };
  widget("Security", "lblQuestion")->installEventFilter(&watcher);
  QElapsedTimer time;
  time.start();
  tick(3);
  EXPECT_LT(time.elapsed(), 3000) << "about a second, on a busy machine too";
  EXPECT_GE(time.elapsed(), 700);
  EXPECT_GT(seen.size(), 40u);
  EXPECT_TRUE(
      std::ranges::any_of(seen, [](const QColor& c) { return c.green() == 0 && c.red() > 99; }));
  EXPECT_TRUE(
      std::ranges::any_of(seen, [](const QColor& c) { return c.green() > 99 && c.blue() == 0; }));
  EXPECT_EQ(text_colour("lblQuestion"), QColor(Qt::white));
  seen.clear();
  tick(12);
  EXPECT_EQ(text_colour("lblQuestion"), QColor(Qt::black));
  EXPECT_GT(seen.size(), 10u);
}

TEST_F(SaverWindow, ShowsTheAnswersBelowTheWholeQuestionAndLightsTheRightOne) {
  start_saver();
  tick(12);
  const auto* question = static_cast<QLabel*>(widget("Security", "lblQuestion"));
  const auto* first = static_cast<QLabel*>(widget("Security", "lblAnswer", 1));
  EXPECT_GE(question->height(), question->heightForWidth(question->width()));
  EXPECT_GT(first->y(), question->geometry().bottom());
  EXPECT_GE(first->height(), first->heightForWidth(first->width()));
  int lit = 0;
  for (int i = 1; i <= 6; ++i) {
    const QColor ground = widget("Security", "lblAnswer", i)->palette().color(QPalette::Window);
    lit += ground == QColor(0, 204, 0) ? 1 : 0;
  }
  EXPECT_EQ(lit, 1);
}

TEST_F(SaverWindow, AnyKeyEndsItAndGivesThePointerBack) {
  for (const Qt::Key key :
       {Qt::Key_A, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Shift}) {
    start_saver();
    QTest::keyClick(window("Security")->focusWidget(), key);
    EXPECT_TRUE(application->has_ended()) << key;
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << key;
    end();
  }
}

TEST_F(SaverWindow, AHandOnTheMouseEndsItAndATremblingTableDoesNot) {
  start_saver();
  QWidget* ground = widget("Security", "Frame1");
  for (const QPoint place : {QPoint(100, 100), QPoint(103, 101), QPoint(99, 98), QPoint(102, 99)}) {
    QTest::mouseMove(ground, place);
    QTest::qWait(1);
    EXPECT_FALSE(application->has_ended());
  }
  QTest::mouseMove(ground, QPoint(130, 99));
  QTest::qWait(1);
  EXPECT_TRUE(application->has_ended());
}

TEST_F(SaverWindow, TheMouseIsFeltOverAQuestionToo) {
  start_saver();
  tick(6);
  QWidget* ground = widget("Security", "Frame1");
  const QPoint over = widget("Security", "lblQuestion")->geometry().center();
  EXPECT_EQ(ground->childAt(over), nullptr) << "what lies on the ground lets the mouse through";
}

class FlashCards : public DesktopTest {
 protected:
  void open() {
    start("46000");
    key("Welcome", Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window("pick_a_quiz")));
    click("pick_a_quiz", "cmd_flashcards");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window("Security")));
  }
  QString card() {
    return static_cast<QPlainTextEdit*>(widget("Security", "text1"))->toPlainText();
  }
};

TEST_F(FlashCards, AreTurnedByOneKey) {
  open();
  EXPECT_EQ(messages.shown.back().title, "Flash Cards");
  EXPECT_TRUE(card().startsWith(QStringLiteral("Question # ")));
  QWidget* button = widget("Security", "cmd_main");
  EXPECT_EQ(static_cast<QPushButton*>(button)->text(), QStringLiteral("Show Answer"));
  const QString question = card();
  key("Security", Qt::Key_Return);
  EXPECT_TRUE(card().contains(QStringLiteral("Correct answer(s): ")));
  EXPECT_EQ(static_cast<QPushButton*>(button)->text(), QStringLiteral("Show Next Question"));
  key("Security", Qt::Key_Return);
  EXPECT_TRUE(card().startsWith(QStringLiteral("Question # ")));
  EXPECT_NE(card(), question);
  EXPECT_FALSE(widget("Security", "cmd_next")->isVisible());
  for (const char* part : {"Frame1", "Label3", "lblQuestion", "Picture1"}) {
    EXPECT_FALSE(widget("Security", part)->isVisible()) << part;
  }
}

TEST_F(FlashCards, TheCardGivesTheKeyboardBackToItsButton) {
  open();
  QTest::mouseClick(static_cast<QPlainTextEdit*>(widget("Security", "text1"))->viewport(),
                    Qt::LeftButton);
  EXPECT_EQ(window("Security")->focusWidget(), widget("Security", "cmd_main"));
}

TEST_F(FlashCards, ExitLeadsBackToTheOptions) {
  open();
  click("Security", "Command3");
  EXPECT_FALSE(window("Security")->isVisible());
  EXPECT_TRUE(window("pick_a_quiz")->isVisible());
}

TEST(TheListOfSavers, TakesOursFirstAndSelectsIt) {
  EXPECT_EQ(with_our_saver("", "/opt/exam/brightwater_press_study_saver.scr"),
            "programs:\t\\\n  \"Practice Exam Study Saver\" "
            "/opt/exam/brightwater_press_study_saver.scr --root \\n\\\n\nmode:\t\tone\n"
            "selected:\t0\n");
}

TEST(TheListOfSavers, KeepsAllElseThatStandsInIt) {
  const std::string list = with_our_saver(
      "# XScreenSaver Preferences File\n\ntimeout:\t0:10:00\nmode:\t\trandom\nselected:\t7\n"
      "programs:\t\\\n\t\"Maze\" maze --root\t\\n\\\n-\tGL:\tcubes --root\t\\n\\\n\nlock:\tTrue\n",
      "/opt/our saver/it's_study_saver.scr");
  EXPECT_TRUE(list.starts_with("# XScreenSaver Preferences File\n\ntimeout:\t0:10:00\n")) << list;
  EXPECT_NE(
      list.find("\nmode:\t\tone\nselected:\t0\nprograms:\t\\\n"
                "  \"Practice Exam Study Saver\" "
                "'/opt/our saver/it'\\''s_study_saver.scr' --root \\n\\\n"
                "  \"Maze\" maze --root \\n\\\n  -\tGL:\tcubes --root \\n\\\n\nlock:\tTrue\n"),
      std::string::npos)
      << list;
}

TEST(TheListOfSavers, HoldsOursOnceHoweverOftenItIsChosen) {
  const std::string once = with_our_saver("mode:\toff\n", "/a/brightwater_press_study_saver.scr");
  const std::string twice = with_our_saver(once, "/b/brightwater_press_study_saver.scr");
  EXPECT_EQ(twice.find("/a/"), std::string::npos);
  EXPECT_NE(twice.find("/b/"), std::string::npos);
  EXPECT_EQ(with_our_saver(twice, "/b/brightwater_press_study_saver.scr"), twice);
}

}  // namespace
}  // namespace practice::desktop
