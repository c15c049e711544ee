#include "platform/screen.h"

#include <algorithm>

namespace practice {

Control& base_of(const ControlRef& control) {
  return std::visit([](auto* kind) -> Control& { return *kind; }, control);
}

void Screen::call_by_name(std::string_view, std::string_view) { throw Fault::no_such_member(); }

void Screen::set_focus(std::string control_name, int index) {
  focus_ = {std::move(control_name), index};
  focus_request_ = focus_;
}

std::pair<std::string, int> Screen::take_focus_request() {
  return std::exchange(focus_request_, {});
}

const ControlEntry* Screen::find(std::string_view control_name, int index) const {
  const auto entry = std::ranges::find_if(controls_, [&](const ControlEntry& candidate) {
    return candidate.name == control_name && candidate.index == index;
  });
  return entry == controls_.end() ? nullptr : &*entry;
}

}  // namespace practice
