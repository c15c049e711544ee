// The one default instance of each screen, and the verbs that put it on the desk and take it away.
//
// A screen is loaded at its first use, stays loaded while hidden, and has its design state again
// when it is loaded after an unload. Screens are never destroyed while the program lives, so a
// handler may unload its own screen and still return.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/platform.h"
#include "platform/screen.h"

namespace practice {

enum class Form {
  About1,
  Diagram,
  Exhibit,
  finalscore,
  pick_a_quiz,
  quest,
  Security,
  theanswer,
  Welcome,
  loading,
  count_
};

class Forms {
 public:
  explicit Forms(Stage& stage) : stage_(stage) {}

  /// The screen must outlive this object.
  void enlist(Form form, Screen& screen);

  bool is_loaded(Form form) const;
  /// Nothing when it is loaded already or when this program has no such screen.
  void load(Form form);
  /// Loads, shows and, when it was not in front, activates.
  void show(Form form);
  /// Loads, shows, and returns when the screen is hidden or unloaded.
  void show_modal(Form form);
  void hide(Form form);
  void unload(Form form);

  /// The desktop says that the student brought a screen to the front.
  void came_to_front(Screen& screen);
  /// Null while no screen is in front.
  Screen* in_front() const { return in_front_; }
  /// Null when this program has no such screen.
  Screen* find(Form form) const;
  Screen* find(std::string_view name) const;

  /// All enlisted screens; entries may be null.
  const std::array<Screen*, static_cast<std::size_t>(Form::count_)>& all() const {
    return screens_;
  }

 private:
  void leave_front(Screen& screen);

  Stage& stage_;
  std::array<Screen*, static_cast<std::size_t>(Form::count_)> screens_{};
  Screen* in_front_ = nullptr;
};

}  // namespace practice
