#include "book_setting/figure_picture.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <array>

#include "book_setting/design.h"

namespace practice::books {
namespace {

// A text with any other attribute is left to the SVG library.
constexpr std::array<QStringView, 6> known_attributes{u"x",    u"y",           u"font-size",
                                                      u"fill", u"text-anchor", u"font-weight"};

bool is_plain(const QXmlStreamAttributes& attributes) {
  return std::ranges::all_of(attributes, [](const QXmlStreamAttribute& attribute) {
    return std::ranges::find(known_attributes, attribute.name()) != known_attributes.end();
  });
}

// The first of a list such as "DejaVu Sans, sans-serif".
QString first_family(QStringView families) {
  QString family = families.split(u',').front().trimmed().toString();
  family.remove(u'"').remove(u'\'');
  return family;
}

}  // namespace

FigurePicture::FigurePicture(const QString& file) : shapes_(std::make_unique<QSvgRenderer>()) {
  QFile source(file);
  if (source.open(QIODevice::ReadOnly)) shapes_->load(without_labels(source.readAll()));
}

FigurePicture::~FigurePicture() = default;

QSizeF FigurePicture::size() const {
  return shapes_->isValid() ? shapes_->viewBoxF().size() : QSizeF();
}

// Empty when the source is no XML.
QByteArray FigurePicture::without_labels(const QByteArray& source) {
  QByteArray rest;
  QXmlStreamReader reader(source);
  QXmlStreamWriter writer(&rest);
  QString family;
  int depth = 0;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartElement()) {
      if (depth == 0)
        family = first_family(reader.attributes().value(QLatin1String("font-family")));
      // Deeper ones may be moved or turned by the group around them.
      const bool label = depth == 1 && reader.name() == u"text" && !family.isEmpty();
      if (label && is_plain(reader.attributes())) {
        if (read_label(reader, family)) continue;
        return {};
      }
      ++depth;
    } else if (reader.isEndElement()) {
      --depth;
    }
    if (!reader.hasError()) writer.writeCurrentToken(reader);
  }
  return reader.hasError() ? QByteArray() : rest;
}

// False when there is more in it than text.
bool FigurePicture::read_label(QXmlStreamReader& reader, const QString& family) {
  const QXmlStreamAttributes attributes = reader.attributes();
  const QStringView anchor = attributes.value(QLatin1String("text-anchor"));
  const QStringView fill = attributes.value(QLatin1String("fill"));
  labels_.push_back({.point = {attributes.value(QLatin1String("x")).toDouble(),
                               attributes.value(QLatin1String("y")).toDouble()},
                     .left = anchor == u"end"      ? 1.0
                             : anchor == u"middle" ? 0.5
                                                   : 0.0,
                     .size = attributes.value(QLatin1String("font-size")).toDouble(),
                     .bold = attributes.value(QLatin1String("font-weight")) == u"bold",
                     .family = family,
                     .ink = QColor(fill.isEmpty() ? QStringLiteral("black") : fill.toString())});
  labels_.back().text = reader.readElementText().simplified();
  return !reader.hasError() && labels_.back().size > 0 && labels_.back().ink.isValid();
}

void FigurePicture::draw(QPainter& painter, const QRectF& place) const {
  painter.save();
  shapes_->render(&painter, place);
  const QRectF box = shapes_->viewBoxF();
  const double scale = place.width() / box.width();
  for (const Label& label : labels_) {
    draw_label(painter, label, scale, place.topLeft() - box.topLeft() * scale);
  }
  painter.restore();
}

void FigurePicture::draw_label(QPainter& painter, const Label& label, double scale,
                               QPointF corner) const {
  QFont font = font_of(Face::sans, qRound(label.size * scale), label.bold, false);
  font.setFamilies({label.family});
  const double width = QFontMetricsF(font).horizontalAdvance(label.text);
  painter.setFont(font);
  painter.setPen(label.ink);
  painter.drawText(corner + label.point * scale - QPointF(label.left * width, 0), label.text);
}

}  // namespace practice::books
