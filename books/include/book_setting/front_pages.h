// The pages before the first chapter: title, imprint, contents.
#pragma once

#include <string>
#include <vector>

#include "book_setting/book.h"
#include "book_setting/slice.h"

namespace practice::books {

/// A chapter or a section, and where it begins.
struct Place {
  /// 0 for a section.
  int chapter = 0;
  std::string heading{};
  /// From 1; 0 while it is not known.
  int page = 0;
};

using Places = std::vector<Place>;

Slices title_page(const BookHead& head);

Slices imprint_page(const BookHead& head);

/// Has the same number of lines whatever the page numbers are.
Slices contents(const Places& places);

}  // namespace practice::books
