// A slice is what a page takes whole: a line, a row of a table, a figure with its caption. A
// chapter is a row of slices from top to bottom before it is cut into pages.
#pragma once

#include <functional>
#include <vector>

class QPainter;

namespace practice::books {

/// Draws at these coordinates of the page: the left edge of the text, the upper edge of the slice.
using Drawing = std::function<void(QPainter& painter, double left, double top)>;

/// How bad it is to begin a page with a slice.
enum class Break { free, in_paragraph, in_group, never };

struct Slice {
  double height = 0;
  /// Free above the slice; at the top of a page nothing is.
  double space = 0;
  Break before = Break::free;
  /// May stand at the top of the next page, with the text that follows it before it.
  bool floats = false;
  /// Neighbours with the same number above 0 lie on one ground.
  int ground = 0;
  /// A place of the book that a page number is wanted of: its index, or -1.
  int mark = -1;
  /// Repeated above this slice when a page begins with it: the head of a table, or nothing.
  std::vector<Slice> repeated{};
  Drawing draw{};
};

using Slices = std::vector<Slice>;

}  // namespace practice::books
