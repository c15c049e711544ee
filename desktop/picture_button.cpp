#include "picture_button.h"

#include <QKeyEvent>
#include <QPainter>

namespace practice::desktop {

PictureButton::PictureButton(QWidget* parent, bool answers_to_clicks) : QAbstractButton(parent) {
  setFocusPolicy(answers_to_clicks ? Qt::StrongFocus : Qt::NoFocus);
  if (answers_to_clicks) setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_TransparentForMouseEvents, !answers_to_clicks);
}

void PictureButton::set_files(const QString& rest, const QString& pressed) {
  if (rest == rest_file_ && pressed == pressed_file_) return;
  rest_file_ = rest;
  pressed_file_ = pressed;
  rest_ = QPixmap(rest);
  pressed_ = QPixmap(pressed);
  update();
}

QSize PictureButton::sizeHint() const { return rest_.size(); }

void PictureButton::paintEvent(QPaintEvent*) {
  const bool is_lit = isDown() || underMouse();
  const QPixmap& picture = is_lit && !pressed_.isNull() ? pressed_ : rest_;
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!picture.isNull()) painter.drawPixmap(rect(), picture);
  if (!hasFocus() || testAttribute(Qt::WA_TransparentForMouseEvents)) return;
  // The style's own focus mark is not seen on a dark picture.
  constexpr double inset = 3.5;
  constexpr double corner = 5;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 1.5));
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner, corner);
}

void PictureButton::enterEvent(QEnterEvent*) { update(); }
void PictureButton::leaveEvent(QEvent*) { update(); }

void PictureButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

}  // namespace practice::desktop
