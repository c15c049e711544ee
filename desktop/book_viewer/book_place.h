// A place in a book, the same at every size of its pages.
#pragma once

namespace practice::desktop {

struct BookPlace {
  /// Counted from 0.
  int page = 0;
  /// In points below the page's upper edge; less than 0 in the room above it.
  double down = 0;
};

}  // namespace practice::desktop
