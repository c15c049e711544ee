// The least that a Qt program can show: a window with one label, which counts the keys pressed.
// What the program costs beyond this is its own.
#pragma once

#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>

namespace practice::bench {

class EmptyWindow : public QMainWindow {
 public:
  EmptyWindow() : label_(new QLabel(QStringLiteral("0"), this)) {
    label_->setAlignment(Qt::AlignCenter);
    setCentralWidget(label_);
  }

 protected:
  void keyPressEvent(QKeyEvent*) override { label_->setText(QString::number(++keys_)); }

 private:
  QLabel* label_;
  int keys_ = 0;
};

}  // namespace practice::bench
