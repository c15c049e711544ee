#include "saver_windows.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "platform_qt/x11_windows.h"

namespace practice::desktop {
namespace {

QString about_the_test(const ChosenTest& test) {
  if (test.fault.isEmpty()) {
    return QStringLiteral("Study Saver shows the questions of %1 while you are away.")
        .arg(test.exam);
  }
  return QStringLiteral(
      "No test is your screen saver yet. Start a test, open its tab Study Saver and press \"Set as "
      "DEFAULT Screen Saver\".");
}

QString about_the_desktop(const SaverDesktop& desktop) {
  if (desktop.has_xscreensaver && !desktop.is_wayland) {
    return QStringLiteral(
        "XScreenSaver starts it. When it starts, and whether it locks the screen, is set there.");
  }
  const QString name = desktop.name.isEmpty()
                           ? QStringLiteral("This desktop")
                           : QStringLiteral("Your desktop, %1,").arg(desktop.name);
  if (desktop.is_wayland) {
    return name +
           QStringLiteral(
               " has a screen locker of its own, which takes no saver programs. Log in to an "
               "X11 session with XScreenSaver to use Study Saver, or try it here by hand.");
  }
  return name + QStringLiteral(
                    " has no XScreenSaver, and its own screen locker takes no saver programs. "
                    "Install the package xscreensaver and turn the desktop's own locker off to use "
                    "Study Saver, or try it here by hand.");
}

QLabel* paragraph(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

SaverPreview::SaverPreview(const QString& logo) : logo_(logo) {
  setWindowTitle(QStringLiteral("Study Saver Preview"));
}

bool SaverPreview::show_in(unsigned window) {
  const QRect place = geometry_of(window);
  if (place.isEmpty()) return false;
  winId();
  windowHandle()->setParent(QWindow::fromWinId(window));
  setGeometry(QRect(QPoint(0, 0), place.size()));
  show();
  return true;
}

void SaverPreview::paintEvent(QPaintEvent*) {
  constexpr int lines = 12;
  constexpr double logo_share = 0.4;
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  painter.setPen(Qt::white);
  QFont font = painter.font();
  font.setBold(true);
  font.setPixelSize(std::max(6, height() / lines));
  painter.setFont(font);
  const QRect text = rect().adjusted(width() / 20, height() / 20, -width() / 20, 0);
  painter.drawText(text, Qt::TextWordWrap,
                   QStringLiteral("1. Which question comes next?\n\nA.  This one\nB.  That one"));
  if (logo_.isNull()) return;
  const QPixmap logo =
      logo_.scaledToWidth(static_cast<int>(width() * logo_share), Qt::SmoothTransformation);
  painter.drawPixmap(width() - logo.width(), height() - logo.height(), logo);
}

SaverDesktop SaverDesktop::here() {
  return {
      .has_xscreensaver = !QStandardPaths::findExecutable(QStringLiteral("xscreensaver")).isEmpty(),
      .is_wayland = qEnvironmentVariableIsSet("WAYLAND_DISPLAY"),
      .name = qEnvironmentVariable("XDG_CURRENT_DESKTOP").section(u':', -1)};
}

SaverConfiguration::SaverConfiguration(const ChosenTest& test, const SaverDesktop& desktop) {
  constexpr int width = 420;
  setWindowTitle(QStringLiteral("Study Saver"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  auto* now = buttons->addButton(QStringLiteral("&Try It Now"), QDialogButtonBox::ActionRole);
  now->setEnabled(test.fault.isEmpty());
  connect(now, &QPushButton::clicked, this, [this] {
    if (try_it) try_it();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(paragraph(about_the_test(test)));
  column->addWidget(paragraph(about_the_desktop(desktop)));
  column->addWidget(paragraph(QStringLiteral(
      "How long a question waits for its answers is set in the test's tab Study Saver.")));
  column->addStretch();
  column->addWidget(buttons);
  setMinimumWidth(width);
}

}  // namespace practice::desktop
