// The desk: one window per screen, kept equal to its screen.
//
// Every entry from outside (a widget's signal, a timer, a page's callback) goes through enter():
// put the edit into the control first, then enter() runs the handler and mirrors all screens. A
// fault that reaches it is written to standard error and the program goes on.
#pragma once

#include <QObject>
#include <QRect>
#include <chrono>
#include <functional>
#include <map>
#include <memory>

#include "platform/platform.h"

class QKeyEvent;
class QPrinter;
class QWidget;
class QWindow;

namespace practice {
class Forms;
}

namespace practice::desktop {

class ScreenWindow;

class Desk : public QObject, public Stage {
 public:
  explicit Desk(Files& files);
  ~Desk() override;

  /// The screens to show; once, before the program starts.
  void show_screens_of(Forms& forms);
  /// Destroys all windows; before the screens go.
  void take_down();

  void enter(const std::function<void()>& handler);
  void came_to_front(Screen& screen);
  /// True while widgets take their state from the screens, whose signals then mean nothing.
  bool is_mirroring() const { return mirroring_; }
  void mirror_all();

  /// Pixels per twip on the primary screen.
  double pixels_per_twip() const;
  ScreenWindow* window_of(const Screen& screen) const;
  /// The window that a message box belongs to; null before the first is shown.
  QWidget* front_widget() const;
  Files& files() { return files_; }

  /// Chooses a printer, or returns false; a test injects its own.
  std::function<bool(QPrinter&)> choose_printer;
  /// Opens an address of a page with the desktop's program for it.
  std::function<void(const std::string&)> open_address;

  /// What the study saver covers, pixels, and the window of the screen saver host that it lies in,
  /// null when it covers the desk itself. Empty in the ordinary role.
  QRect saver_area;
  QWindow* saver_host = nullptr;

  void pump() override;
  void run_modal(Screen& screen) override;
  void print(html::View& view) override;
  double width() const override;
  double height() const override;
  int pixels_per_inch() const override;
  int form_pixels_per_inch() const override;
  double text_width(std::string_view text) const override;
  TextSize text_size(std::string_view text, const TextFont& font, double width) const override;
  void paint_step(Screen& screen) override;
  void show_pointer(bool shown) override;
  void end_process() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QRect area() const;
  void mirror_screen(Screen& screen);
  bool take_alt_key(ScreenWindow& window, QKeyEvent& key);

  Files& files_;
  Forms* forms_ = nullptr;
  std::map<const Screen*, std::unique_ptr<ScreenWindow>> windows_;
  bool mirroring_ = false;
  bool ended_ = false;
  std::chrono::steady_clock::time_point next_step_;
  int steps_ = 0;
};

}  // namespace practice::desktop
