// What the program asks of a desktop: a handful of small interfaces. The core calls them and
// never knows who answers; the desktop implements them on Qt, the robot in memory.
//
// Paths may hold backslashes and slashes alike, and a name is found whatever its case. A path
// without a folder lies in the working folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

struct Screen;
struct TextFont;

struct TextSize {
  double width = 0;
  double height = 0;
};

namespace html {
class View;
}

class Files {
 public:
  virtual ~Files() = default;
  virtual bool exists(std::string_view path) const = 0;
  /// The whole content. Raises fault 53 when there is no such file, 70 or 75 when it can not be
  /// read.
  virtual std::string read(std::string_view path) const = 0;
  /// The first bytes of a file, at most as many as told: for files that others write, whatever
  /// their size. Raises what read() raises.
  virtual std::string read_start(std::string_view path, std::size_t bytes) const = 0;
  /// Replaces the file as a whole: a crash or a full disk leaves the old one. Raises 61, 70,
  /// 75, 76.
  virtual void write(std::string_view path, std::string_view content) = 0;
  /// On disk when the call returns. Raises 61, 70, 75, 76.
  virtual void append(std::string_view path, std::string_view content) = 0;
  /// Raises fault 53 when there is no such file.
  virtual void remove(std::string_view path) = 0;
};

class Settings {
 public:
  virtual ~Settings() = default;
  virtual std::string get(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view default_value) const = 0;
  virtual void save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) = 0;
};

enum class WindowShow { normal = 1, maximised = 3 };

class Shell {
 public:
  virtual ~Shell() = default;
  /// Opens a file or address with the desktop's program for it. Above 32 means success; 31 that
  /// the desktop knows no program for it.
  virtual int open(std::string_view target, std::string_view folder, WindowShow show) = 0;
  /// Starts a program and returns at once. The program's name is the longest existing path in
  /// front of a blank; "X.exe" also finds "X". Raises fault 53 when there is none.
  virtual void start(std::string_view command_line) = 0;
  /// A command to the desktop's media player: "play ", an address and two blanks.
  virtual void send_media_command(std::string_view command) = 0;
  /// The desktop's class of files with that ending, such as "AcroExch.Document" where our book
  /// viewer opens ".pdf".
  virtual std::string class_of(std::string_view extension) const = 0;
  /// The full path of a file along the desktop's search path; empty when it is nowhere.
  virtual std::string find_on_path(std::string_view name) const = 0;
  /// Makes a program the student's screen saver and shows the desktop's own settings for it. An
  /// empty path changes nothing there.
  virtual void make_screen_saver(std::string_view path) = 0;
  /// Asks every window whose title contains the text to close.
  virtual void close_windows(std::string_view title) = 0;
};

class Internet {
 public:
  virtual ~Internet() = default;
  /// The text at an address; returns when it is there, or empty when it can not be had in a few
  /// seconds.
  virtual std::string get(std::string_view address) = 0;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void clear() = 0;
  virtual void set_text(std::string_view text) = 0;
};

enum class Buttons { ok, ok_cancel, yes_no };
enum class Icon { none, stop, question, information };
enum class Answer { ok, cancel, yes, no };

struct MessageBox {
  std::string text;
  std::string title;
  Buttons buttons = Buttons::ok;
  Icon icon = Icon::none;
};

struct InputBox {
  std::string text;
  std::string title;
  /// Stands in the field at first.
  std::string default_text;
};

class Messages {
 public:
  virtual ~Messages() = default;
  /// Returns when the student has answered. Closing the box is Cancel, or No, or OK where that is
  /// the only button.
  virtual Answer show(const MessageBox& box) = 0;
  /// Returns what the student typed; empty when the box was cancelled.
  virtual std::string ask(const InputBox& box) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  /// Whole seconds of a clock that never jumps with the time zone.
  virtual std::int64_t seconds() const = 0;
  /// Now, in the desktop's short date and long time form.
  virtual std::string date_and_time() const = 0;
  /// Full name of today, in the desktop's language.
  virtual std::string weekday() const = 0;
};

class Random {
 public:
  virtual ~Random() = default;
  virtual void seed_from_clock() = 0;
  /// Uniform, 0 included, 1 excluded.
  virtual float next() = 0;
};

/// Where screens are shown.
class Stage {
 public:
  virtual ~Stage() = default;
  /// Draws what has changed and lets pending events run.
  virtual void pump() = 0;
  /// Returns when the screen is hidden or unloaded.
  virtual void run_modal(Screen& screen) = 0;
  /// Asks the student for a printer and prints the page. Raises fault 5 when that fails.
  virtual void print(html::View& view) = 0;
  /// Width and height of the screen in twips, and its horizontal pixels per inch.
  virtual double width() const = 0;
  virtual double height() const = 0;
  virtual int pixels_per_inch() const = 0;
  /// Pixels per inch that a form has to fit itself to: 96 where the desktop draws a form at its
  /// real size whatever the screen.
  virtual int form_pixels_per_inch() const = 0;
  /// Width of a text in the screens' own font, twips.
  virtual double text_width(std::string_view text) const = 0;
  /// Size of a text whose lines are broken at that width, twips; a width of 0 breaks none.
  virtual TextSize text_size(std::string_view text, const TextFont& font, double width) const = 0;
  /// Draws a screen at once while nothing else runs. Returns after about a millisecond, so that
  /// steps of colour follow each other slowly enough to be seen.
  virtual void paint_step(Screen& screen) = 0;
  virtual void show_pointer(bool shown) = 0;
  /// The process ends after the current event.
  virtual void end_process() = 0;
};

struct Platform {
  Files& files;
  Settings& settings;
  Shell& shell;
  Internet& internet;
  Clipboard& clipboard;
  Messages& messages;
  Clock& clock;
  Random& random;
  Stage& stage;
  /// The folder of the program, with or without a separator at its end.
  std::string program_folder;
  /// Stands in front of the decimals of a number that a student reads.
  std::string decimal_point = ".";
  /// The program's own file name.
  std::string program_file = "practice_exam";
};

}  // namespace practice
