#include "book_setting/lines.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "book_setting/line_breaks.h"

namespace practice::books {
namespace {

constexpr double endless = 1e6;
// A blank grows by no more than this part of itself; beyond that a short line looks better than a
// gap.
constexpr double most_growth = 1.6;
// Too little to be seen.
constexpr double least_tracking = 0.02;

using Formats = QList<QTextLayout::FormatRange>;

QTextCharFormat format_of(const Span& span, const TextStyle& style) {
  const Face face = span.code ? Face::mono : style.face;
  const int size = span.code ? style.code_size : style.size;
  QFont font = font_of(face, size, span.bold || style.bold, span.italic);
  // Any spacing between letters keeps them from melting into one sign that no reader's search
  // would find.
  font.setLetterSpacing(QFont::AbsoluteSpacing, style.tracking + least_tracking);
  QTextCharFormat format;
  format.setFont(font);
  format.setForeground(style.ink);
  if (span.code) format.setProperty(code_property, true);
  return format;
}

std::unique_ptr<QTextLayout> one_line(const QString& text, const Formats& formats) {
  auto layout = std::make_unique<QTextLayout>(text);
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  option.setUseDesignMetrics(true);
  layout->setTextOption(option);
  layout->setFormats(formats);
  layout->setCacheEnabled(true);
  layout->beginLayout();
  QTextLine line = layout->createLine();
  if (line.isValid()) line.setLineWidth(endless);
  layout->endLayout();
  return layout;
}

MeasuredText measure(const Spans& spans, const TextStyle& style) {
  MeasuredText measured;
  int blanks = 0;
  for (const Span& span : spans) {
    const QString text = QString::fromStdString(span.text);
    measured.formats.append({.start = static_cast<int>(measured.text.size()),
                             .length = static_cast<int>(text.size()),
                             .format = format_of(span, style)});
    measured.text += text;
    for (const QChar sign : text) {
      measured.blanks.push_back(blanks);
      if (sign == QLatin1Char(' ') && !span.code) ++blanks;
    }
  }
  measured.blanks.push_back(blanks);
  const auto layout = one_line(measured.text, measured.formats);
  for (int i = 0; i <= measured.text.size(); ++i) {
    measured.places.push_back(layout->lineCount() > 0 ? layout->lineAt(0).cursorToX(i) : 0);
  }
  return measured;
}

Formats formats_between(const Formats& formats, int begin, int end, double word_spacing) {
  Formats result;
  for (QTextLayout::FormatRange range : formats) {
    const int from = std::max(range.start, begin);
    const int to = std::min(range.start + range.length, end);
    if (from >= to) continue;
    range.start = from - begin;
    range.length = to - from;
    const bool code = range.format.hasProperty(code_property);
    if (word_spacing != 0 && !code) range.format.setFontWordSpacing(word_spacing);
    result.append(range);
  }
  return result;
}

double left_of(Setting setting, double width, double line_width) {
  if (setting == Setting::centred) return (width - line_width) / 2;
  return setting == Setting::right ? width - line_width : 0;
}

}  // namespace

SetText set_lines(const Spans& spans, const TextStyle& style, double width, Setting setting) {
  const MeasuredText measured = measure(spans, style);
  const double blank = QFontMetricsF(font_of(style.face, style.size, style.bold, false))
                           .horizontalAdvance(QLatin1Char(' '));
  const bool justified = setting == Setting::justified;
  const LineShape shape{.width = width, .blank = blank, .justified = justified};
  SetText result;
  for (const auto& [begin, end, last, too_wide] : break_lines(measured, shape)) {
    const QString text = measured.text.mid(begin, end - begin);
    if (too_wide && result.too_wide.isEmpty()) result.too_wide = text;
    double line_width = measured.width_between(begin, end);
    const double blanks = measured.blanks_between(begin, end);
    double growth = 0;
    if (justified && blanks > 0 && (!last || line_width > width)) {
      growth = std::min((width - line_width) / blanks, blank * most_growth);
      line_width += growth * blanks;
    }
    result.lines.push_back(
        {.layout = one_line(text, formats_between(measured.formats, begin, end, growth)),
         .x = left_of(setting, width, line_width),
         .width = line_width,
         .leading = style.leading,
         .baseline = style.leading / 2 + 0.35 * style.size});
  }
  return result;
}

TextWidths widths_of(const Spans& spans, const TextStyle& style) {
  const MeasuredText measured = measure(spans, style);
  TextWidths widths{.natural = measured.places.back()};
  for (const LineRange& part : unbreakable_parts(measured.text)) {
    widths.least = std::max(widths.least, measured.width_between(part.begin, part.end));
  }
  return widths;
}

void draw_line(QPainter& painter, const SetLine& line, double left, double top) {
  if (line.layout->lineCount() == 0) return;
  const QTextLine text = line.layout->lineAt(0);
  text.draw(&painter, QPointF(left + line.x, top + line.baseline - text.ascent()));
}

}  // namespace practice::books
