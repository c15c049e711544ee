// Sets a text in lines. The breaks are chosen for the paragraph as a whole, so that the blanks of
// justified text are as even as the words allow.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "book_setting/book.h"
#include "book_setting/design.h"

class QPainter;
class QTextLayout;

namespace practice::books {

enum class Setting { justified, left, centred, right };

struct SetLine {
  std::shared_ptr<const QTextLayout> layout{};
  /// From the left edge of the space that the lines were set for.
  double x = 0;
  double width = 0;
  double leading = 0;
  /// From the top of the line.
  double baseline = 0;
};

struct SetText {
  std::vector<SetLine> lines{};
  /// The first line that does not fit; empty when all do.
  QString too_wide{};
};

SetText set_lines(const Spans& spans, const TextStyle& style, double width, Setting setting);

/// Width in one line, and that of the widest part that can not be broken.
struct TextWidths {
  double natural = 0;
  double least = 0;
};
TextWidths widths_of(const Spans& spans, const TextStyle& style);

void draw_line(QPainter& painter, const SetLine& line, double left, double top);

}  // namespace practice::books
