// A callback from an element of a page to a public method of a screen.
#pragma once

#include <functional>
#include <string>

#include "platform/screen.h"

namespace practice {

class clsHTMLEvent {
 public:
  /// The target must outlive the page that the event hangs on.
  void Event_Details(Screen& target, std::string method, std::string argument);
  /// Calls the method by its name with the argument. Raises fault 438 when the target has no such
  /// method, 424 before Event_Details().
  void HTML_Event() const;

 private:
  Screen* target_ = nullptr;
  std::string method_;
  std::string argument_;
};

/// Wires the elements "Exhibit1" to "Exhibit3" of a page, as far as it has them, to the screen's
/// method, with the argument "1", "2" or "3".
void wire_exhibit_links(html::Document& document, Screen& target, const std::string& method);

}  // namespace practice
