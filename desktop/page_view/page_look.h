// Font, sizes and colours that a page is drawn with.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "page_view/rich_text.h"

class QTextDocument;

namespace practice::desktop {

/// Pixels at 96 dots an inch.
inline constexpr int page_margin = 20;
/// Lines longer than this many times the font's height are hard to read.
inline constexpr int widest_column = 50;

struct Colours {
  QColor text;
  QColor quiet;
  QColor link;
  QColor rule;
  /// For marks, in the role of the window: they outline themselves a third darker.
  QColor mark;
};

/// Dark and light palettes alike.
Colours colours_of(const QPalette& palette);
Colours paper_colours();

/// What the page asks for, within 7 to 36 points; the rest from `fallback`.
QFont page_font(const html::Style& style, const QFont& fallback);

/// Everything but the column and the pictures. `indicator` is the width of a radio button's mark.
Look look_of(const QFont& font, double scale, int indicator, const Colours& colours);

/// Wrapping and tab stops, which the rich text counts on.
void prepare(QTextDocument& document, const Look& look, double scale);

}  // namespace practice::desktop
