#include "page_look.h"

#include <QFontMetricsF>
#include <QTextDocument>
#include <QTextOption>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr double least_points = 7;
constexpr double most_points = 36;

QColor mixed(const QColor& front, const QColor& back, double part) {
  const auto mix = [part](int a, int b) { return static_cast<int>(a * part + b * (1 - part)); };
  return {mix(front.red(), back.red()), mix(front.green(), back.green()),
          mix(front.blue(), back.blue())};
}

}  // namespace

Colours colours_of(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Text);
  const QColor base = palette.color(QPalette::Base);
  const bool is_dark = base.lightness() < 128;
  return {text, mixed(text, base, is_dark ? 0.7 : 0.62), QColor(is_dark ? 0x8cc4ea : 0x1f5f8b),
          mixed(text, base, 0.22), mixed(text, base, is_dark ? 0.75 : 0.28)};
}

Colours paper_colours() {
  return {QColor(Qt::black), QColor(0x444444), QColor(0x1f5f8b), QColor(0x999999),
          QColor(0xb7b7b7)};
}

QFont page_font(const html::Style& style, const QFont& fallback) {
  QFont font = fallback;
  if (!style.font_family.empty()) {
    font.setFamily(qt_text(style.font_family));
    const bool has_serifs = font.family().contains("times"_L1, Qt::CaseInsensitive);
    font.setStyleHint(has_serifs ? QFont::Serif : QFont::AnyStyle);
  }
  if (std::isfinite(style.font_points) && style.font_points > 0) {
    font.setPointSizeF(std::clamp(style.font_points, least_points, most_points));
  } else if (font.pointSizeF() <= 0) {
    font.setPointSizeF(12);
  }
  return font;
}

Look look_of(const QFont& font, double scale, int indicator, const Colours& colours) {
  const QFontMetricsF metrics(font);
  Look look;
  look.scale = scale;
  look.font_points = font.pointSizeF();
  const double letter = metrics.horizontalAdvance(u"D.)"_s) + 0.3 * metrics.height();
  look.hang = static_cast<int>(std::ceil(std::max(letter, indicator + 10 * scale)));
  look.mark_height = std::max(1, static_cast<int>(metrics.ascent()) - 1);
  look.character_width = static_cast<int>(std::ceil(metrics.averageCharWidth()));
  look.text_colour = colours.text.name();
  look.quiet_colour = colours.quiet.name();
  look.link_colour = colours.link.name();
  look.rule_colour = colours.rule.name();
  return look;
}

void prepare(QTextDocument& document, const Look& look, double scale) {
  document.setUndoRedoEnabled(false);
  if (document.documentMargin() != page_margin * scale) {
    document.setDocumentMargin(page_margin * scale);
  }
  QTextOption option = document.defaultTextOption();
  if (option.tabStopDistance() == look.hang) return;
  option.setTabStopDistance(look.hang);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document.setDefaultTextOption(option);
}

}  // namespace practice::desktop
