// The platform in memory: a disk, settings, a clock, a random source, a shell, a user's answers,
// all of which a test scripts and inspects. What nobody scripted fails loudly.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "platform/platform.h"
#include "session/forms.h"

namespace practice::robot {

/// Something the script did not provide for. Not a std::exception, so that no trap of the program
/// takes it for a fault.
struct RobotFailure {
  std::string text;
};

/// A disk. Names are found whatever their case, and backslashes are slashes.
class MemoryFiles : public Files {
 public:
  std::string working_folder = "\\program";
  /// What was asked to go, in order and as it was named, whether it was there or not.
  std::vector<std::string> removed;

  bool exists(std::string_view path) const override;
  std::string read(std::string_view path) const override;
  std::string read_start(std::string_view path, std::size_t bytes) const override;
  void write(std::string_view path, std::string_view content) override;
  void append(std::string_view path, std::string_view content) override;
  void remove(std::string_view path) override;

  /// Writing to this path raises permission denied from now on.
  void protect(std::string_view path);
  /// Replacing this file raises permission denied from now on, adding to it does not, as in a
  /// folder that can not be written to.
  void keep(std::string_view path);
  /// Reading from this path raises permission denied from now on, until it is opened.
  void seal(std::string_view path);
  void open(std::string_view path);
  /// Names as they were first written, by rising normal form.
  std::vector<std::string> names() const;

 private:
  struct File {
    std::string name;
    std::string content;
  };
  std::string key(std::string_view path) const;
  File& writable(std::string_view path);

  std::map<std::string, File> files_;
  std::map<std::string, bool> protected_;
  std::map<std::string, bool> kept_;
  std::map<std::string, bool> sealed_;
};

class MemorySettings : public Settings {
 public:
  using Key = std::tuple<std::string, std::string, std::string>;
  /// Application, section and key to value.
  std::map<Key, std::string> values;
  /// Saving raises disk full from now on.
  bool is_full = false;

  std::string get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view default_value) const override;
  void save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;
};

class RecordedShell : public Shell {
 public:
  struct Opened {
    std::string target;
    std::string folder;
    WindowShow show;
  };
  /// What was asked for, in order: "open TARGET", "start COMMAND LINE", "media COMMAND", "make
  /// screen saver PATH" and "close windows TITLE".
  std::vector<std::string> calls;
  /// What was opened, in order, and how.
  std::vector<Opened> opened;
  /// Result of the next opens.
  int result = 42;
  std::string pdf_class;
  /// Runs at each start of a program, in its place; without it a start raises fault 53.
  std::function<void(const std::string& command_line)> program;

  int open(std::string_view target, std::string_view folder, WindowShow show) override;
  void start(std::string_view command_line) override;
  void send_media_command(std::string_view command) override;
  std::string class_of(std::string_view extension) const override;
  std::string find_on_path(std::string_view name) const override;
  void make_screen_saver(std::string_view path) override {
    calls.push_back("make screen saver " + std::string(path));
  }
  void close_windows(std::string_view title) override {
    calls.push_back("close windows " + std::string(title));
  }

  /// Files along the search path, name to full path.
  std::map<std::string, std::string, std::less<>> on_path;
};

class ScriptedInternet : public Internet {
 public:
  /// What is answered, to any address.
  std::string body;
  std::vector<std::string> asked;
  /// Runs while the text is on its way.
  std::function<void()> while_asked;

  std::string get(std::string_view address) override {
    asked.emplace_back(address);
    if (while_asked) while_asked();
    return body;
  }
};

class MemoryClipboard : public Clipboard {
 public:
  std::string text;

  void clear() override { text.clear(); }
  void set_text(std::string_view new_text) override { text = new_text; }
};

class ScriptedMessages : public Messages {
 public:
  /// Answers to the next boxes that ask something. A box with one button needs none.
  std::deque<Answer> answers;
  std::vector<MessageBox> shown;
  /// What the student types into the next input boxes; an empty text cancels.
  std::deque<std::string> typed;
  std::vector<InputBox> asked;
  /// Runs while a box is open.
  std::function<void()> while_open;

  Answer show(const MessageBox& box) override;
  std::string ask(const InputBox& box) override;
};

class ScriptedClock : public Clock {
 public:
  /// Since the robot's morning.
  std::int64_t milliseconds = 1'000'000'000;

  std::int64_t seconds() const override { return milliseconds / 1000; }
  std::string date_and_time() const override;
  std::string weekday() const override { return "Saturday"; }
};

class ScriptedRandom : public Random {
 public:
  /// The next draws; after these a fixed sequence goes on.
  std::deque<float> draws;
  int seeds = 0;

  void seed_from_clock() override { ++seeds; }
  float next() override;

 private:
  std::uint32_t state_ = 20'260'117;
};

class MemoryStage : public Stage {
 public:
  MemoryStage(Files& files, ScriptedClock& clock) : files_(files), clock_(clock) {}

  /// The screens whose views are served; set once the program exists.
  Forms* forms = nullptr;
  /// Runs in each pump, as a click of the student or a timer would.
  std::function<void()> during_pump;
  /// What the student does with a modal screen.
  std::function<void(Screen&)> modal_user;
  /// The pages printed.
  std::vector<std::string> printed;
  bool ended = false;
  /// Of the screen, pixels of 15 twips.
  int pixels_wide = 1920;
  int pixels_high = 1080;
  bool pointer_shown = true;
  /// Runs at each step of colour.
  std::function<void(Screen&)> during_paint;
  int dots_per_inch = 96;
  int form_dots_per_inch = 96;

  void pump() override;
  void run_modal(Screen& screen) override;
  void print(html::View& view) override;
  double width() const override { return pixels_wide * 15; }
  double height() const override { return pixels_high * 15; }
  int pixels_per_inch() const override { return dots_per_inch; }
  int form_pixels_per_inch() const override { return form_dots_per_inch; }
  double text_width(std::string_view text) const override;
  /// Each character is half as wide as its size, and a line 1.2 times as high.
  TextSize text_size(std::string_view text, const TextFont& font, double width) const override;
  void paint_step(Screen& screen) override {
    if (during_paint) during_paint(screen);
  }
  void show_pointer(bool shown) override { pointer_shown = shown; }
  void end_process() override { ended = true; }

 private:
  Files& files_;
  ScriptedClock& clock_;
};

struct World {
  MemoryFiles files;
  MemorySettings settings;
  RecordedShell shell;
  ScriptedInternet internet;
  MemoryClipboard clipboard;
  ScriptedMessages messages;
  ScriptedClock clock;
  ScriptedRandom random;
  MemoryStage stage{files, clock};
  Platform platform{files,    settings, shell,  internet, clipboard,
                    messages, clock,    random, stage,    "\\program"};

  World() = default;
  World(const World&) = delete;
  World& operator=(const World&) = delete;
};

}  // namespace practice::robot
