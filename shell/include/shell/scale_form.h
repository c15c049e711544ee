// Fitting a form to a screen of more pixels per inch.
#pragma once

#include "platform/screen.h"
#include "session/program.h"

namespace practice {

/// Divides the places and sizes of a form and its controls by the screen's pixels per inch over 96,
/// so that the form takes as many pixels as on an ordinary screen. On a desktop that draws forms at
/// their real size this changes nothing. Fonts are the desktop's own, which fit by themselves.
void scale_form_for_dpi(const Program& program, Screen& screen);

}  // namespace practice
