#include "results/kept_gaps.h"

#include <algorithm>

namespace practice {

void KeptGaps::take(const Screen& screen, const Control& main, const Control& below) {
  width_ = screen.bounds.width - main.bounds.width;
  height_ = screen.bounds.height - main.bounds.height;
  below_ = screen.bounds.height - below.bounds.top;
}

void KeptGaps::lay_out(Screen& screen, Control& main, Control& below) const {
  if (screen.window_state == WindowState::minimised) return;
  Bounds& form = screen.bounds;
  form.width = std::max(form.width, screen.least_width);
  form.height = std::max(form.height, screen.least_height);
  main.bounds.width = form.width - width_;
  main.bounds.height = form.height - height_;
  below.bounds.top = form.height - below_;
  below.bounds.left = (form.width - below.bounds.width) / 2;
}

}  // namespace practice
