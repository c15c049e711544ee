// A window that mirrors a screen: each widget takes the state of its control where the two differ,
// and a user's edit goes into the control before its handler runs.
//
// A screen's own window class arranges the widgets; what they show and do is done here for all.
#pragma once

#include <QFont>
#include <QMainWindow>
#include <QMenu>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/screen.h"

class QTimer;

namespace practice::desktop {

class Desk;
class PageView;

class ScreenWindow : public QMainWindow {
 public:
  ScreenWindow(Screen& screen, Desk& desk);
  ~ScreenWindow() override;

  /// Builds the widgets and arranges them; once.
  void build();
  void mirror();
  void carry_out_focus();

  /// The window's page view; null when it has none.
  PageView* page() const { return page_; }
  /// The same if it draws that view.
  PageView* page_of(const html::View& view) const;
  /// Null when the screen has no such control, or one that is no widget.
  QWidget* widget(std::string_view name, int index = 0) const;
  Screen& screen() { return screen_; }

  /// Runs when the window has been hidden.
  std::function<void()> on_hidden;

 protected:
  /// Puts the widgets into layouts or, with place(), where their bounds say.
  virtual void arrange() = 0;
  /// What the window shows beyond its controls.
  virtual void mirror_more() {}

  /// From now on the widget lies in `parent` where its control's bounds say.
  void place(std::string_view name, int index = 0, QWidget* parent = nullptr);
  double scale() const;
  Desk& desk() { return desk_; }

  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Part {
    const ControlEntry* entry = nullptr;
    QWidget* widget = nullptr;
    bool placed = false;
    /// Takes the control's state over into the widget.
    std::function<void()> mirror;
  };

  void make_parts();
  void make_menus();
  Part make_part(const ControlEntry& entry);
  void mirror_part(Part& part);
  void mirror_geometry();
  void stay_above_the_others();
  void run(const Handler& handler);

  QWidget* make(const ControlEntry& entry, Label& control, Part& part);
  QWidget* make_link(const ControlEntry& entry, Label& control, Part& part);
  QWidget* make(const ControlEntry& entry, Button& control, Part& part);
  QWidget* make(const ControlEntry& entry, CheckBox& control, Part& part);
  QWidget* make(const ControlEntry& entry, OptionButton& control, Part& part);
  QWidget* make(const ControlEntry& entry, TextBox& control, Part& part);
  QWidget* make(const ControlEntry& entry, ListBox& control, Part& part);
  QWidget* make(const ControlEntry& entry, ScrollBar& control, Part& part);
  QWidget* make(const ControlEntry& entry, Picture& control, Part& part);
  QWidget* make(const ControlEntry& entry, Shape& control, Part& part);
  QWidget* make(const ControlEntry& entry, Frame& control, Part& part);
  QWidget* make(const ControlEntry& entry, Tabs& control, Part& part);
  QWidget* make(const ControlEntry& entry, MenuEntry& control, Part& part);
  QWidget* make(const ControlEntry& entry, Timer& control, Part& part);
  QWidget* make(const ControlEntry& entry, HtmlView& control, Part& part);

  Screen& screen_;
  Desk& desk_;
  std::vector<Part> parts_;
  std::map<std::string, QMenu*> menus_;
  PageView* page_ = nullptr;
  const html::View* page_source_ = nullptr;
  int shown_generation_ = 0;
  Bounds shown_bounds_;
};

/// The letters of a control.
QFont qt_font(const TextFont& font);

/// The window for a screen, built.
std::unique_ptr<ScreenWindow> make_window(Screen& screen, Desk& desk);

}  // namespace practice::desktop
