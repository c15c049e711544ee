// An SVG file as a picture of lines, shapes and text. The SVG library draws text as outlines, which
// no search finds and which make up most of a book's bytes; so plain labels are taken out of the
// file and drawn as text.
#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <memory>
#include <vector>

class QPainter;
class QRectF;
class QSvgRenderer;
class QXmlStreamReader;

namespace practice::books {

class FigurePicture {
 public:
  explicit FigurePicture(const QString& file);
  ~FigurePicture();

  FigurePicture(const FigurePicture&) = delete;
  FigurePicture& operator=(const FigurePicture&) = delete;

  /// In the file's own measure; empty when the file is no picture.
  QSizeF size() const;

  void draw(QPainter& painter, const QRectF& place) const;

 private:
  // Text that begins, ends or is centred at a point of its baseline.
  struct Label {
    QString text{};
    QPointF point{};
    /// The part of the text's width that lies left of the point.
    double left = 0;
    double size = 0;
    bool bold = false;
    QString family{};
    QColor ink{};
  };

  QByteArray without_labels(const QByteArray& source);
  bool read_label(QXmlStreamReader& reader, const QString& family);
  void draw_label(QPainter& painter, const Label& label, double scale, QPointF corner) const;

  std::unique_ptr<QSvgRenderer> shapes_;
  std::vector<Label> labels_{};
};

}  // namespace practice::books
