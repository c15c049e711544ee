// A picture, scaled to its widget, that can be pressed like a button when it answers to a click.
#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace practice::desktop {

class PictureButton : public QAbstractButton {
 public:
  /// A picture that answers to nothing takes no focus and lets clicks through.
  PictureButton(QWidget* parent, bool answers_to_clicks);

  /// Files of the rest picture and, or empty, the pressed one. What can not be loaded is empty.
  void set_files(const QString& rest, const QString& pressed);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString rest_file_;
  QString pressed_file_;
  QPixmap rest_;
  QPixmap pressed_;
};

}  // namespace practice::desktop
