#include "shell/scale_form.h"

namespace practice {
namespace {

constexpr double ordinary_pixels_per_inch = 96;

void divide(Bounds& bounds, double ratio) {
  bounds.left /= ratio;
  bounds.top /= ratio;
  bounds.width /= ratio;
  bounds.height /= ratio;
}

}  // namespace

void scale_form_for_dpi(const Program& program, Screen& screen) {
  const double ratio = program.platform.stage.form_pixels_per_inch() / ordinary_pixels_per_inch;
  if (ratio == 1) return;
  for (const ControlEntry& entry : screen.controls()) divide(base_of(entry.control).bounds, ratio);
  screen.bounds.width /= ratio;
  screen.bounds.height /= ratio;
}

}  // namespace practice
