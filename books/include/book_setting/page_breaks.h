// Cuts slices into pages: of all ways the one whose pages, taken together, are best filled. What a
// page lacks is shared out among the spaces on it, as far as that does not show.
#pragma once

#include <vector>

#include "book_setting/slice.h"

namespace practice::books {

/// A slice on its page, with the free space that it got.
struct Placed {
  /// Points into the slices that were cut.
  const Slice* slice = nullptr;
  /// From the top of the text.
  double top = 0;
};

using PlacedSlices = std::vector<Placed>;

/// The slices must outlive the pages. A slice that floats never passes one that floats before it.
std::vector<PlacedSlices> cut_into_pages(const Slices& slices, double height);

}  // namespace practice::books
