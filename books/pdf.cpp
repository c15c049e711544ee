#include <QBuffer>
#include <QDateTime>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <stdexcept>

#include "book_setting/design.h"
#include "book_setting/lines.h"
#include "book_setting/typeset.h"

namespace practice::books {
namespace {

// Facing pages have the head at their outer edge, the number below the middle of the text.
void draw_page(QPainter& painter, const SetPage& page, int number) {
  const auto draw_text = [&](const QString& text, const TextStyle& style, Setting setting,
                             double baseline) {
    const SetText set =
        set_lines({{.text = text.toStdString()}}, style, design::text_width, setting);
    draw_line(painter, set.lines.front(), design::margin, baseline - set.lines.front().baseline);
  };
  if (!page.running_head.isEmpty()) {
    draw_text(page.running_head, styles::running_head,
              number % 2 == 0 ? Setting::left : Setting::right, design::head_baseline);
    painter.fillRect(
        QRectF(design::margin, design::head_baseline + 50, design::text_width, design::hairline),
        design::ground_edge);
  }
  const PlacedSlices& slices = page.slices;
  for (auto first = slices.begin(); first != slices.end();) {
    const int ground = first->slice->ground;
    const auto end = std::find_if(first, slices.end(), [ground](const Placed& placed) {
      return placed.slice->ground != ground;
    });
    if (ground > 0) {
      const double top = design::text_top + first->top - design::ground_padding;
      const double bottom =
          design::text_top + (end - 1)->top + (end - 1)->slice->height + design::ground_padding;
      painter.fillRect(QRectF(design::margin - design::ground_padding, top,
                              design::text_width + 2 * design::ground_padding, bottom - top),
                       design::ground);
    }
    first = end;
  }
  for (const Placed& placed : slices) {
    if (!placed.slice->draw) continue;
    placed.slice->draw(painter, design::margin, design::text_top + placed.top);
  }
  if (page.shows_number) {
    draw_text(QString::number(number), styles::folio, Setting::centred, design::folio_baseline);
  }
}

// The writer stamps the hour at which it runs. Ours takes its place, as long as the other one, so
// that all the offsets in the file stay true.
void put_date(QByteArray& pdf, const CalendarDay& date) {
  const QByteArray key = "/CreationDate (D:";
  const auto begin = pdf.lastIndexOf(key) + key.size();
  const auto length = pdf.indexOf(')', begin) - begin;
  const QByteArray stamp = QDate(date.year, date.month, date.day)
                               .toString(QStringLiteral("yyyyMMdd"))
                               .toLatin1()
                               .append("000000Z");
  if (stamp.size() != length) throw std::runtime_error("the date in the PDF is not one of UTC");
  pdf.replace(begin, length, stamp);
}

}  // namespace

QByteArray to_pdf(const SetBook& set, const BookHead& head) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(design::units_per_inch);
    writer.setPageSize(QPageSize(QSizeF(design::page_width / design::units_per_inch,
                                        design::page_height / design::units_per_inch),
                                 QPageSize::Inch, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    writer.setTitle(QString::fromStdString(head.title + ": " + head.subtitle));
    writer.setCreator(QStringLiteral("Practice Exam"));
    QPainter painter(&writer);
    for (std::size_t i = 0; i < set.pages.size(); ++i) {
      if (i > 0) writer.newPage();
      draw_page(painter, set.pages[i], static_cast<int>(i) + 1);
    }
  }
  QByteArray pdf = buffer.data();
  put_date(pdf, head.date);
  return pdf;
}

}  // namespace practice::books
