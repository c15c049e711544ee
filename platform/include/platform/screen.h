// A screen: its controls, listed once by name and index, and its form events.
//
// A screen object lives as long as the program; load() brings it to its design state and runs its
// load event, unload() takes it from the desk. session/forms.h has the verbs. Handlers of controls
// are given where the controls are listed; setting a value in code never runs one.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/controls.h"

namespace practice {

using ControlRef =
    std::variant<Label*, Button*, CheckBox*, OptionButton*, TextBox*, ListBox*, ScrollBar*,
                 Picture*, Shape*, Frame*, Tabs*, MenuEntry*, Timer*, HtmlView*>;

using Handler = std::function<void()>;
/// Where the mouse is on the desk, pixels; a window that moves under it leaves it where it is.
using MouseHandler = std::function<void(double x, double y)>;

/// What the key handler is told for the Escape key; other keys have codes of their own.
inline constexpr int escape_key = 27;
using KeyHandler = std::function<void(int key_code)>;

/// A control as the mirror and the robot know it.
struct ControlEntry {
  std::string name;
  /// Index in a control array as the screen tells it; 0 for a single control.
  int index = 0;
  ControlRef control{static_cast<Label*>(nullptr)};
  /// Name of the menu that a menu entry stands in; empty for the menu bar itself.
  std::string menu;
  /// A click, a tick, a choice, a timer's tick.
  Handler click;
  Handler double_click;
  /// An edit of text, a scroll.
  Handler change;
  Handler got_focus;
  MouseHandler mouse_move;
  /// A key went down while the control had the focus.
  KeyHandler key_down;

  ControlEntry& on_click(Handler handler) {
    click = std::move(handler);
    return *this;
  }
  ControlEntry& on_double_click(Handler handler) {
    double_click = std::move(handler);
    return *this;
  }
  ControlEntry& on_change(Handler handler) {
    change = std::move(handler);
    return *this;
  }
  ControlEntry& on_focus(Handler handler) {
    got_focus = std::move(handler);
    return *this;
  }
  ControlEntry& on_mouse_move(MouseHandler handler) {
    mouse_move = std::move(handler);
    return *this;
  }
  ControlEntry& on_key(KeyHandler handler) {
    key_down = std::move(handler);
    return *this;
  }
};

/// The state common to all kinds.
Control& base_of(const ControlRef& control);

enum class Pointer { normal, hourglass };
enum class WindowState { normal, minimised, maximised };

struct Screen {
  explicit Screen(std::string the_name) : form_name(std::move(the_name)) {}
  virtual ~Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const std::string form_name;
  std::string caption;
  /// Place on the desk and size, twips; the size of the inner area.
  Bounds bounds;
  /// The smallest inner size that a resize allows, twips.
  double least_width = 0;
  double least_height = 0;
  WindowState window_state = WindowState::normal;
  /// A black window without a frame over the whole screen, in front of all others.
  bool covers_the_desk = false;
  Pointer pointer = Pointer::normal;
  bool loaded = false;
  bool visible = false;
  bool modal = false;
  /// Counts the loads, so that a window knows that its screen is a new one.
  int generation = 0;

  /// Gives every control its design value.
  virtual void design() = 0;
  virtual void load() {}
  virtual void activate() {}
  virtual void resize() {}
  /// Runs before the screen goes.
  virtual void unload() {}
  /// A key went down, before any control has seen it.
  virtual void key_down(bool with_alt) { static_cast<void>(with_alt); }
  /// The student closed the window by its frame.
  virtual void close_window() = 0;
  /// Calls a public method by its name. Raises fault 438 for an unknown one.
  virtual void call_by_name(std::string_view method, std::string_view argument);

  /// One-shot: the desktop raises the window at the next mirroring.
  void ask_for_front() { wants_front_ = true; }
  bool take_front_request() { return std::exchange(wants_front_, false); }

  /// One-shot: carried out by the desktop after the next mirroring.
  void set_focus(std::string control_name, int index = 0);
  /// The request, which is gone afterwards; an empty name when there is none.
  std::pair<std::string, int> take_focus_request();
  /// The control that was given the focus last, for the robot.
  const std::pair<std::string, int>& focus() const { return focus_; }
  void note_focus(std::string control_name, int index) {
    focus_ = {std::move(control_name), index};
  }

  const std::vector<ControlEntry>& controls() const { return controls_; }
  /// Null when the screen has no such control.
  const ControlEntry* find(std::string_view control_name, int index = 0) const;

 protected:
  template <class Kind>
  ControlEntry& list(std::string control_name, Kind& control, int index = 0) {
    ControlEntry& entry = controls_.emplace_back();
    entry.name = std::move(control_name);
    entry.index = index;
    entry.control = &control;
    return entry;
  }
  ControlEntry& list_menu(std::string menu, std::string control_name, MenuEntry& entry,
                          int index = 0) {
    ControlEntry& listed = list(std::move(control_name), entry, index);
    listed.menu = std::move(menu);
    return listed;
  }

 private:
  std::vector<ControlEntry> controls_;
  std::pair<std::string, int> focus_;
  std::pair<std::string, int> focus_request_;
  bool wants_front_ = false;
};

}  // namespace practice
