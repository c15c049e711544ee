// The small interfaces of the platform, answered by Qt. The stage, where screens are shown, is the
// desk's.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>

#include "platform/platform.h"

class QSettings;
class QWidget;

namespace practice::desktop {

/// A file is written under a name of its own beside the one that it replaces, such as
/// "practice-exam-aBcDeF.unfinished". What a killed process left of these goes with a later write
/// into the same folder, a minute old or more.
class QtFiles : public Files {
 public:
  bool exists(std::string_view path) const override;
  std::string read(std::string_view path) const override;
  std::string read_start(std::string_view path, std::size_t bytes) const override;
  void write(std::string_view path, std::string_view content) override;
  void append(std::string_view path, std::string_view content) override;
  void remove(std::string_view path) override;
};

/// One INI file per application under the user's configuration folder. A damaged one is copied to
/// its name and ".damaged" at its first use.
class QtSettings : public Settings {
 public:
  std::string get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view default_value) const override;
  void save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;

 private:
  std::unique_ptr<QSettings> store(std::string_view application) const;

  mutable std::set<std::string, std::less<>> checked_;
};

class QtShell : public Shell {
 public:
  /// Our own viewer, which shows the help file, and plain pages where the desktop has no program.
  QString viewer = QCoreApplication::applicationDirPath() + QStringLiteral("/help_viewer");
  /// Shows the exam's book at a page, from the viewer page that the program writes.
  QString book_viewer = QCoreApplication::applicationDirPath() + QStringLiteral("/book_viewer");

  /// Where XScreenSaver keeps a student's list.
  QString saver_list = QDir::homePath() + QStringLiteral("/.xscreensaver");

  int open(std::string_view target, std::string_view folder, WindowShow show) override;
  void start(std::string_view command_line) override;
  void send_media_command(std::string_view command) override;
  std::string class_of(std::string_view extension) const override;
  std::string find_on_path(std::string_view name) const override;
  void make_screen_saver(std::string_view path) override;
  void close_windows(std::string_view title) override;

 private:
  static int open_with(const QString& program, const QString& file);
  int open_page(const QString& file);
};

/// One transfer at a time. What does not come within the time limit does not come.
class QtInternet : public Internet {
 public:
  std::chrono::milliseconds time_limit{10'000};

  std::string get(std::string_view address) override;
};

class QtClipboard : public Clipboard {
 public:
  void clear() override;
  void set_text(std::string_view text) override;
};

class QtClock : public Clock {
 public:
  std::int64_t seconds() const override;
  std::string date_and_time() const override;
  std::string weekday() const override;
};

class QtRandom : public Random {
 public:
  void seed_from_clock() override;
  float next() override;

 private:
  std::minstd_rand generator_;
};

class QtMessages : public Messages {
 public:
  /// Draws the screens and tells which window a box belongs to; needed from the first box on.
  std::function<QWidget*()> before_a_box = [] { return nullptr; };

  Answer show(const MessageBox& box) override;
  std::string ask(const InputBox& box) override;
};

}  // namespace practice::desktop
