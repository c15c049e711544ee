// A picture file on show: scaled to fit, never beyond its own size, until the student zooms.
#pragma once

#include <QAbstractScrollArea>
#include <QPixmap>
#include <QPoint>

namespace practice::desktop {

class PictureArea : public QAbstractScrollArea {
 public:
  explicit PictureArea(QWidget* parent);

  /// `scale`: device pixels for one pixel of the picture at its own size. Fits it anew.
  void show_picture(const QPixmap& picture, double scale);

  const QPixmap& picture() const { return picture_; }
  /// Of the picture's own size; 1 is that size.
  double zoom() const;
  bool fits() const { return fits_; }
  /// Steps larger or smaller, the picture's point at `anchor` (of the viewport) staying there.
  void zoom_by(int steps, QPoint anchor);
  void zoom_to_fit();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QSize drawn_size() const;
  double fitting_zoom() const;
  QPoint top_left() const;
  void update_bars();

  QPixmap picture_;
  double scale_ = 1;
  bool fits_ = true;
  double zoom_ = 1;
  QPoint grabbed_;
};

}  // namespace practice::desktop
