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
  if (upper(path.substr(0, file_scheme.size())) == file_scheme)
    path.remove_prefix(file_scheme.size());
  bool found = files.exists(path);
  std::string page;
  picture_.clear();
  if (found && is_page(path)) {
    try {
      page = files.read(path);
    } catch (const Fault&) {
      // A page that can not be read is as good as none.
      found = false;
    }
  } else if (found) {
    picture_ = path;
  }
  if (!found) page = "<html><body><p>The page cannot be displayed.</p></body></html>";
  document.open();
  document.write(page);
  document.close();
  if (!found) return;
  if (document_complete) document_complete();
  if (navigate_complete) navigate_complete();
}

}  // namespace practice::html
