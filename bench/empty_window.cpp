// An empty window as a program of its own.
//   empty_window [WIDTH HEIGHT] [--quit-after-paint]
#include "empty_window.h"

#include <QApplication>
#include <QStringList>

namespace {

using practice::bench::EmptyWindow;

class QuittingWindow : public EmptyWindow {
 protected:
  void paintEvent(QPaintEvent* event) override {
    EmptyWindow::paintEvent(event);
    // When this paint has reached the screen.
    QMetaObject::invokeMethod(qApp, &QApplication::quit, Qt::QueuedConnection);
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication qt(argc, argv);
  QStringList arguments = QApplication::arguments().mid(1);
  const bool quits = arguments.removeAll(QStringLiteral("--quit-after-paint")) > 0;
  EmptyWindow staying;
  QuittingWindow quitting;
  EmptyWindow& window = quits ? quitting : staying;
  window.setWindowTitle(QStringLiteral("Empty Window"));
  if (arguments.size() == 2) window.resize(arguments[0].toInt(), arguments[1].toInt());
  window.show();
  return QApplication::exec();
}
