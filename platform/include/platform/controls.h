// The controls of a screen: plain state, which the desktop mirrors into widgets and the robot
// reads and operates. Sizes are twips, 15 to a pixel at 96 dots an inch.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/html/view.h"
#include "platform/values/integer.h"

namespace practice {

struct Bounds {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  friend bool operator==(const Bounds&, const Bounds&) = default;
};

struct Control {
  bool visible = true;
  bool enabled = true;
  Bounds bounds;
  std::string tool_tip;
};

struct TextFont {
  /// 0 leaves the desktop's own size.
  double points = 0;
  bool bold = false;
  friend bool operator==(const TextFont&, const TextFont&) = default;
};

struct Letters {
  TextFont font;
  /// 0xRRGGBB; nothing leaves the desktop's own.
  std::optional<unsigned> fore_rgb;
  std::optional<unsigned> back_rgb;
  friend bool operator==(const Letters&, const Letters&) = default;
};

/// An "&" in a caption marks the access key, but not where the label has letters of its own.
struct Label : Control {
  std::string caption;
  Letters letters;
};

struct Button : Control {
  std::string caption;
  /// Pressed by Enter from anywhere on the screen.
  bool is_default = false;
};

struct CheckBox : Control {
  std::string caption;
  /// 1 ticked, 0 clear.
  Integer value = 0;
};

/// One of a control array of which at most one is set.
struct OptionButton : Control {
  std::string caption;
  bool value = false;
};

struct TextBox : Control {
  std::string text;
  bool multi_line = false;
};

struct ListBox : Control {
  std::vector<std::string> items;
  /// Index of the entry with the focus, from 0; -1 for none.
  int list_index = -1;
  bool multi_select = false;
  /// One flag per entry, where multi_select is on.
  std::vector<bool> selected;
  /// Pixels that can be scrolled to at least; 0 for none.
  int scroll_extent = 0;
};

struct ScrollBar : Control {
  int lowest = 0;
  int highest = 100;
  int value = 0;
};

/// A picture from a file; an empty path shows nothing.
struct Picture : Control {
  std::string file;
  /// Shown while the mouse is over the picture and pressed; empty for none.
  std::string pressed_file;
};

/// A plain bar.
struct Shape : Control {
  unsigned rgb = 0;
};

struct Frame : Control {
  std::string caption;
};

struct Tabs : Control {
  std::vector<std::string> captions;
  /// By tab: a tab that is off can not be seen or chosen.
  std::vector<bool> tab_on;
  int tab = 0;
};

struct MenuEntry : Control {
  std::string caption;
  bool checked = false;
};

struct Timer : Control {
  /// Milliseconds.
  int interval = 0;
};

struct HtmlView : Control {
  html::View view;
};

}  // namespace practice
