// A student in front of the real windows, on Qt, in a folder of his own: what the tests of the
// desktop share.
#pragma once

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <deque>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "desk.h"
#include "page_view/page_view.h"
#include "platform_qt/qt_platform.h"
#include "saver_host.h"
#include "screen_window.h"
#include "shell/application.h"
#include "text.h"

namespace practice::desktop {

/// Boxes answered without being shown; the tests of the boxes themselves use QtMessages.
class AnsweredMessages : public Messages {
 public:
  std::deque<Answer> answers;
  std::vector<MessageBox> shown;
  /// What the student types into an input box.
  std::string typed;

  std::string ask(const InputBox&) override { return typed; }

  Answer show(const MessageBox& box) override {
    shown.push_back(box);
    if (answers.empty()) return box.buttons == Buttons::yes_no ? Answer::yes : Answer::ok;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

class DesktopTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       folder.filePath(QStringLiteral("config")));
    copy_distribution();
    QDir::setCurrent(folder.path());
  }

  void TearDown() override {
    end();
    QDir::setCurrent(QDir::tempPath());
  }

  /// Ends the program; start() may follow in the same folder.
  void end() {
    if (desk) desk->take_down();
    application.reset();
    desk.reset();
  }

  /// Starts the program without waiting for its window.
  void launch(const std::string& command_line) {
    desk = std::make_unique<Desk>(files);
    platform =
        std::make_unique<Platform>(Platform{files, settings, shell, internet, clipboard, messages,
                                            clock, random, *desk, from_qt(folder.path()), "."});
    if (is_saver_start(command_line)) give_the_saver_its_place(*desk);
    application = std::make_unique<Application>(*platform, command_line);
    desk->show_screens_of(application->program().forms);
    desk->enter([&] { application->start(); });
  }

  void start(const std::string& command_line) {
    launch(command_line);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window("Welcome")));
  }

  ScreenWindow* window(std::string_view screen) {
    return desk->window_of(*application->program().forms.find(screen));
  }

  QWidget* widget(std::string_view screen, std::string_view name, int index = 0) {
    return window(screen)->widget(name, index);
  }

  void click(std::string_view screen, std::string_view name, int index = 0) {
    QWidget* target = widget(screen, name, index);
    ASSERT_TRUE(target->isVisible()) << name;
    // Radio buttons and check boxes answer at their mark and their text.
    const QPoint place = target->inherits("QPushButton") || target->height() > 40
                             ? target->rect().center()
                             : QPoint(8, target->height() / 2);
    QTest::mouseClick(target, Qt::LeftButton, {}, place);
  }

  void key(std::string_view screen, Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    QWidget* focused = window(screen)->focusWidget();
    QTest::keyClick(focused != nullptr ? focused : window(screen), pressed, with);
    QTest::qWait(0);
  }

  /// Turns to a tab of the options screen, from 0.
  void turn_to_tab(int tab) {
    static_cast<QTabWidget*>(widget("pick_a_quiz", "SSTab1"))->setCurrentIndex(tab);
  }

  Quest& quest() { return application->quest(); }
  TestRun& run() { return application->program().test_run; }

  QTemporaryDir folder;
  QtFiles files;
  QtSettings settings;
  QtShell shell;
  QtInternet internet;
  QtClipboard clipboard;
  QtClock clock;
  QtRandom random;
  AnsweredMessages messages;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Platform> platform;
  std::unique_ptr<Application> application;

 private:
  static void copy_all(const QString& from, const QString& to, const QStringList& patterns) {
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList(patterns, QDir::Files)) {
      ASSERT_TRUE(QFile::copy(from + u'/' + name, to + u'/' + name)) << name.toStdString();
    }
  }

  void copy_distribution() {
    const QString data = QStringLiteral(PRACTICE_EXAM_DATA);
    const QStringList pictures{QStringLiteral("*.jpg"), QStringLiteral("*.png")};
    copy_all(data + QStringLiteral("/distribution"), folder.path(), {QStringLiteral("*.ini")});
    copy_all(data + QStringLiteral("/pictures"), folder.path(), pictures);
    for (const Exam& exam : exams()) {
      const QString name = to_qt(exam.name).toLower();
      const QString content = folder.filePath(QStringLiteral("bw_") + name);
      copy_all(data + QStringLiteral("/distribution"), content, {QStringLiteral("*.htm")});
      copy_all(data + QStringLiteral("/pictures"), content, {QStringLiteral("*.gif")});
      copy_all(data + QStringLiteral("/exams/") + name, content,
               {QStringLiteral("*.png"), QStringLiteral("*.txt")});
    }
  }
};

}  // namespace practice::desktop
