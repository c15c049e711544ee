// What the screens with an HTML view share about their pages.
#pragma once

#include <string>

#include "platform/values/integer.h"

namespace practice {

struct PageState {
  /// 123 once the question view holds its blank page and the guard scripts exist.
  Integer page_scripts_state;
  /// The guard scripts that stand in front of every page.
  std::string page_scripts;
  /// Set by a view's completion events.
  bool page_loaded = false;
  /// The question page written last.
  std::string current_page;
  /// The page text of the book reference opened last.
  std::string book_page;
  /// The web link of the last answer page.
  std::string jump_link;
};

}  // namespace practice
