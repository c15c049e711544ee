// The HTML view as the program drives it: a document, an address, busy and completion.
//
// navigate() only asks; the platform loads the page when it next pumps events, through
// finish_navigation(), which fires the two completion events. A view is busy from a write of its
// document until the platform has drawn it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/html/document.h"
#include "platform/platform.h"

namespace practice::html {

class View {
 public:
  std::function<void()> document_complete;
  std::function<void()> navigate_complete;

  Document document;
  /// Folder that the page's pictures may come from, with its ending separator. Pictures of any
  /// other folder are not drawn.
  std::string picture_folder;
  bool busy = false;

  /// Asks for an address, "FILE://" and a path or a bare path; page or picture file.
  void navigate(std::string_view address);
  /// The address navigated to last, as it was given.
  const std::string& address() const { return address_; }
  bool is_navigating() const { return navigating_; }
  /// The path of the picture file on show; empty while a page is.
  const std::string& picture() const { return picture_; }

  /// Loads the address asked for, if any. A file that is not there leaves a failure page and fires
  /// no event when it is a page.
  void finish_navigation(Files& files);

 private:
  std::string address_;
  std::string picture_;
  bool navigating_ = false;
};

}  // namespace practice::html
