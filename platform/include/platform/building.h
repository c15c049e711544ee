// Short forms for a screen's design(): controls with their text and place in one line.
#pragma once

#include <string>
#include <utility>

#include "platform/controls.h"

namespace practice {

/// A control with a caption. Bounds in twips.
template <class Kind>
Kind captioned(std::string caption, Bounds bounds = {}) {
  Kind control;
  control.caption = std::move(caption);
  control.bounds = bounds;
  return control;
}

template <class Kind>
Kind placed(Bounds bounds) {
  Kind control;
  control.bounds = bounds;
  return control;
}

template <class Kind>
Kind hidden(Kind control) {
  control.visible = false;
  return control;
}

template <class Kind>
Kind with_tip(Kind control, std::string tool_tip) {
  control.tool_tip = std::move(tool_tip);
  return control;
}

}  // namespace practice
