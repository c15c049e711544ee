#include "platform/html/view.h"

#include "platform/values/fault.h"
#include "platform/values/text.h"

namespace practice::html {
namespace {

constexpr std::string_view file_scheme = "FILE://";

bool is_page(std::string_view path) {
  const std::string name = lower(path);
  return name.ends_with(".htm") || name.ends_with(".html");
}

}  // namespace

void View::navigate(std::string_view address) {
  address_ = address;
  navigating_ = true;
  busy = true;
}

void View::finish_navigation(Files& files) {
  if (!navigating_) return;
  navigating_ = false;
  std::string_view path = address_;
  if (upper(path.substr(0, file_scheme.size())) == file_scheme) path.remove_prefix(file_scheme.size());
  const bool found = files.exists(path);
  picture_.clear();
  document.open();
  if (!found) {
    document.write("<html><body><p>The page cannot be displayed.</p></body></html>");
  } else if (is_page(path)) {
    document.write(files.read(path));
  } else {
    picture_ = path;
  }
  document.close();
  if (!found) return;
  if (document_complete) document_complete();
  if (navigate_complete) navigate_complete();
}

}  // namespace practice::html
