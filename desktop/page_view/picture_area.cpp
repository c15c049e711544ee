#include "picture_area.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace practice::desktop {
namespace {

constexpr double zoom_step = 1.25;
constexpr double least_zoom = 0.1;
constexpr double greatest_zoom = 8;
constexpr int wheel_step = 120;

}  // namespace

PictureArea::PictureArea(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Base);
}

void PictureArea::show_picture(const QPixmap& picture, double scale) {
  picture_ = picture;
  scale_ = scale;
  zoom_to_fit();
}

double PictureArea::zoom() const { return fits_ ? fitting_zoom() : zoom_; }

double PictureArea::fitting_zoom() const {
  if (picture_.isNull()) return 1;
  const QSize room = maximumViewportSize();
  return std::clamp(std::min(room.width() / (picture_.width() * scale_),
                             room.height() / (picture_.height() * scale_)),
                    0.001, 1.0);
}

QSize PictureArea::drawn_size() const {
  const double factor = zoom() * scale_;
  return {std::max(1, static_cast<int>(picture_.width() * factor)),
          std::max(1, static_cast<int>(picture_.height() * factor))};
}

QPoint PictureArea::top_left() const {
  const QSize drawn = drawn_size();
  return {std::max(0, (viewport()->width() - drawn.width()) / 2) - horizontalScrollBar()->value(),
          std::max(0, (viewport()->height() - drawn.height()) / 2) - verticalScrollBar()->value()};
}

void PictureArea::zoom_by(int steps, QPoint anchor) {
  if (picture_.isNull() || steps == 0) return;
  const double before = zoom();
  const QPointF point = QPointF(anchor - top_left()) / before;
  fits_ = false;
  zoom_ = std::clamp(before * std::pow(zoom_step, steps), std::min(least_zoom, fitting_zoom()),
                     greatest_zoom);
  update_bars();
  const QPoint moved = (point * zoom_).toPoint() - anchor;
  horizontalScrollBar()->setValue(moved.x());
  verticalScrollBar()->setValue(moved.y());
  viewport()->update();
}

void PictureArea::zoom_to_fit() {
  fits_ = true;
  update_bars();
  viewport()->update();
}

void PictureArea::update_bars() {
  const QSize drawn = fits_ ? QSize(0, 0) : drawn_size();
  const QSize all = maximumViewportSize();
  // A bar that one direction needs takes room from the other.
  QSize room = all;
  const int bar = verticalScrollBar()->sizeHint().width();
  if (drawn.width() > all.width()) room.rheight() -= bar;
  if (drawn.height() > room.height()) room.rwidth() -= bar;
  if (drawn.width() > room.width()) room.setHeight(all.height() - bar);
  horizontalScrollBar()->setRange(0, std::max(0, drawn.width() - room.width()));
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setSingleStep(static_cast<int>(20 * scale_));
  verticalScrollBar()->setRange(0, std::max(0, drawn.height() - room.height()));
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setSingleStep(static_cast<int>(20 * scale_));
}

void PictureArea::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QRect target(top_left(), drawn_size());
  const QSize sharp = (QSizeF(target.size()) * devicePixelRatioF()).toSize();
  if (sharp.width() * 2 < picture_.width()) {
    // Sampling between neighbours alone drops thin lines of a picture made much smaller.
    painter.drawPixmap(target,
                       picture_.scaled(sharp, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  } else {
    painter.drawPixmap(target, picture_);
  }
}

void PictureArea::resizeEvent(QResizeEvent* /*event*/) { update_bars(); }

void PictureArea::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  const int delta = event->angleDelta().y();
  const int steps = delta / wheel_step;
  zoom_by(steps != 0 ? steps : (delta > 0) - (delta < 0), event->position().toPoint());
  event->accept();
}

void PictureArea::keyPressEvent(QKeyEvent* event) {
  const bool has_control = event->modifiers().testFlag(Qt::ControlModifier);
  const QPoint centre = viewport()->rect().center();
  if (has_control && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) {
    zoom_by(1, centre);
  } else if (has_control && event->key() == Qt::Key_Minus) {
    zoom_by(-1, centre);
  } else if (has_control && event->key() == Qt::Key_0) {
    zoom_to_fit();
  } else {
    QAbstractScrollArea::keyPressEvent(event);
  }
}

void PictureArea::mousePressEvent(QMouseEvent* event) {
  const bool scrolls = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
  if (event->button() != Qt::LeftButton || !scrolls) return;
  grabbed_ = event->position().toPoint();
  viewport()->setCursor(Qt::ClosedHandCursor);
}

void PictureArea::mouseMoveEvent(QMouseEvent* event) {
  if (viewport()->cursor().shape() != Qt::ClosedHandCursor) return;
  const QPoint moved = event->position().toPoint() - grabbed_;
  grabbed_ = event->position().toPoint();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void PictureArea::mouseReleaseEvent(QMouseEvent* /*event*/) { viewport()->unsetCursor(); }

}  // namespace practice::desktop
