#include "run/html_event.h"

#include <memory>
#include <utility>

#include "session/fault_patterns.h"

namespace practice {

void clsHTMLEvent::Event_Details(Screen& target, std::string method, std::string argument) {
  target_ = &target;
  method_ = std::move(method);
  argument_ = std::move(argument);
}

void clsHTMLEvent::HTML_Event() const {
  if (target_ == nullptr) throw Fault::object_required();
  target_->call_by_name(method_, argument_);
}

void wire_exhibit_links(html::Document& document, Screen& target, const std::string& method) {
  for (int number = 1; number <= 3; ++number) {
    skip([&] {
      const std::string text = std::to_string(number);
      html::Node* element = document.element_by_id("Exhibit" + text);
      if (element == nullptr) return;
      clsHTMLEvent event;
      event.Event_Details(target, method, text);
      element->onclick = [event] { event.HTML_Event(); };
    });
  }
}

}  // namespace practice
