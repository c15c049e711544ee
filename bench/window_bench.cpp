// From the click on Next to the page painted, against a window that changes one label on a key.
//   window_bench PROGRAM_FOLDER [SAMPLES]
//
// Both windows live in this process, have the same size, and take turns. Time runs from the event
// until Qt has painted and handed over the picture; what the display server then does with it is
// not in it (bench/measure has that). PROGRAM_FOLDER is where practice_exam was installed.
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "desk.h"
#include "empty_window.h"
#include "platform_qt/qt_platform.h"
#include "screen_window.h"
#include "shell/application.h"
#include "text.h"

namespace practice::bench {
namespace {

using Clock = std::chrono::steady_clock;
constexpr double budget = 2;
constexpr int warm_up = 10;

[[noreturn]] void fail(const std::string& what) {
  std::cerr << "window_bench: " << what << '\n';
  std::_Exit(1);
}

double milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

// Notes when the painting of a widget reached the window system.
class WatchedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  void watch(const QWidget* widget) {
    watched_ = widget;
    painted_ = handed_over_ = false;
  }
  bool is_handed_over() const { return handed_over_; }
  Clock::time_point when() const { return when_; }

  bool notify(QObject* receiver, QEvent* event) override {
    const QEvent::Type type = event->type();
    const bool result = QApplication::notify(receiver, event);
    if (receiver == watched_ && type == QEvent::Paint) painted_ = true;
    const bool ends_a_paint = type == QEvent::UpdateRequest && painted_;
    if (ends_a_paint && !handed_over_) {
      handed_over_ = true;
      when_ = Clock::now();
    }
    return result;
  }

 private:
  const QWidget* watched_ = nullptr;
  bool painted_ = false;
  bool handed_over_ = false;
  Clock::time_point when_;
};

void settle() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

// The program as its main() puts it together, but for boxes, which nobody would answer here.
class NoMessages : public Messages {
 public:
  Answer show(const MessageBox& box) override { fail("a box was shown: " + box.text); }
  std::string ask(const InputBox& box) override { fail("a question was asked: " + box.text); }
};

struct ProgramUnderTest {
  explicit ProgramUnderTest(const QString& folder)
      : platform{files,    settings, shell,  internet, clipboard,
                 messages, clock,    random, desk,     desktop::from_qt(folder),
                 "."},
        application(platform, "46000") {
    desk.show_screens_of(application.program().forms);
    desk.enter([this] { application.start(); });
  }

  QAbstractButton& button(Screen& screen, const char* name, int index = 0) {
    desktop::ScreenWindow* window = desk.window_of(screen);
    QWidget* widget = window == nullptr ? nullptr : window->widget(name, index);
    auto* found = qobject_cast<QAbstractButton*>(widget);
    if (found == nullptr || !found->isVisibleTo(window) || !found->isEnabled()) {
      fail(std::string("there is no button to press: ") + name);
    }
    return *found;
  }

  desktop::QtFiles files;
  desktop::QtSettings settings;
  desktop::QtShell shell;
  desktop::QtInternet internet;
  desktop::QtClipboard clipboard;
  NoMessages messages;
  desktop::QtClock clock;
  desktop::QtRandom random;
  desktop::Desk desk{files};
  Platform platform;
  Application application;
};

// Into a test of all questions of the full bank, in which no answer is shown.
void start_test(ProgramUnderTest& program) {
  Application& app = program.application;
  program.button(app.welcome(), "Image4").click();
  settle();
  program.button(app.pick_a_quiz(), "which_quiz", 3).click();
  if (app.pick_a_quiz().answer_when_wrong.value == 1) {
    auto* window = program.desk.window_of(app.pick_a_quiz());
    qobject_cast<QAbstractButton*>(window->widget("answer_when_wrong"))->click();
  }
  auto* window = program.desk.window_of(app.pick_a_quiz());
  qobject_cast<QAbstractButton*>(window->widget("cmd_start_cat_quiz"))->click();
  settle();
  if (!app.quest().visible) fail("the test did not start");
}

double time_to_paint(WatchedApplication& qt, const QWidget* widget,
                     const std::function<void()>& act) {
  settle();
  qt.watch(widget);
  const auto start = Clock::now();
  act();
  const auto deadline = start + std::chrono::seconds(5);
  while (!qt.is_handed_over()) {
    if (Clock::now() > deadline) fail("nothing was painted");
    QCoreApplication::processEvents();
  }
  return milliseconds(qt.when() - start);
}

double at(std::vector<double>& values, double share) {
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

// A screen capture of a device that talked for hours, as the exhibit of the question on show.
double open_exhibit(WatchedApplication& qt, ProgramUnderTest& program) {
  constexpr std::size_t size = 10'000'000;
  std::string lines;
  while (lines.size() < size) lines += "Switch1# show mac address-table dynamic\r\n";
  program.files.write("huge.txt", lines);
  Program& state = program.application.program();
  state.catalogue.content_dir = desktop::from_qt(QDir::currentPath()) + "/";
  state.current_question.exhibits[1] = "huge.txt";
  program.desk.enter([&] { program.application.exhibit().open_exhibit(1); });
  program.desk.enter([&] { state.forms.unload(Form::Exhibit); });
  const QWidget* text = program.desk.window_of(program.application.exhibit())->widget("text1");
  return time_to_paint(qt, static_cast<const QAbstractScrollArea*>(text)->viewport(), [&] {
    program.desk.enter([&] { program.application.exhibit().open_exhibit(1); });
  });
}

void run(WatchedApplication& qt, const QString& folder, int samples) {
  ProgramUnderTest program(folder);
  start_test(program);
  Quest& quest = program.application.quest();
  TestRun& test = program.application.program().test_run;
  desktop::ScreenWindow* window = program.desk.window_of(quest);
  auto* view = window->widget("WebBrowser1")->findChild<QTextBrowser*>();
  if (view == nullptr) fail("the page has no view");

  EmptyWindow empty;
  empty.resize(window->size());
  empty.show();
  settle();

  std::vector<double> next_times;
  std::vector<double> label_times;
  for (int i = -warm_up; i < samples; ++i) {
    if (test.question_position == test.question_total) {
      program.desk.enter([&] {
        test.question_position = 0;
        quest.show_quest();
      });
    }
    const double next = time_to_paint(qt, view->viewport(),
                                      [&] { program.button(quest, "cmd_buttons", 0).click(); });
    const double label = time_to_paint(qt, empty.centralWidget(), [&] {
      QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
      QCoreApplication::sendEvent(&empty, &key);
    });
    if (i < 0) continue;
    next_times.push_back(next);
    label_times.push_back(label);
  }
  const double next = at(next_times, 0.5);
  const double label = at(label_times, 0.5);
  std::printf("on %s, %d times, window of %d x %d\n", qPrintable(QGuiApplication::platformName()),
              samples, window->width(), window->height());
  std::printf("  Next to page painted    median %.2f ms, 9 of 10 within %.2f ms\n", next,
              at(next_times, 0.9));
  std::printf("  key to label painted    median %.2f ms, 9 of 10 within %.2f ms\n", label,
              at(label_times, 0.9));
  std::printf("  ratio %.2f (budget %.1f)\n", next / label, budget);
  std::printf("  exhibit of 10 MB opened        %.0f ms (budget 1000 ms)\n",
              open_exhibit(qt, program));
  program.desk.take_down();
}

}  // namespace
}  // namespace practice::bench

int main(int argc, char** argv) {
  using namespace practice::bench;
  WatchedApplication qt(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) fail("usage: window_bench PROGRAM_FOLDER [SAMPLES]");
  const QString folder = QDir(arguments[1]).absolutePath();
  if (!QFile::exists(folder + QStringLiteral("/q_bottom.ini"))) {
    fail("practice_exam is not installed in that folder");
  }
  // A student's files and settings stay as they are.
  const QTemporaryDir scratch;
  QDir::setCurrent(scratch.path());
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, scratch.path());
  run(qt, folder, arguments.size() > 2 ? std::max(1, arguments[2].toInt()) : 300);
}
