// A screen of one large control with something centred below it: what a resize keeps.
#pragma once

#include "platform/screen.h"

namespace practice {

class KeptGaps {
 public:
  /// Takes the distances of the design, twips; at load.
  void take(const Screen& screen, const Control& main, const Control& below);
  /// Raises the screen to its least size and lays both controls out in it. Nothing while minimised.
  void lay_out(Screen& screen, Control& main, Control& below) const;

 private:
  double width_ = 0;
  double height_ = 0;
  double below_ = 0;
};

}  // namespace practice
