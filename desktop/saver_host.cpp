#include "saver_host.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "desk.h"
#include "platform_qt/x11_windows.h"

namespace practice::desktop {
namespace {

// XScreenSaver tells its window, one for each screen, to the programs that it starts.
QWindow* window_of_the_host(QRect& area) {
  bool is_number = false;
  const QByteArray told = qgetenv("XSCREENSAVER_WINDOW");
  const auto window = static_cast<std::uint32_t>(told.toUInt(&is_number, 0));
  if (!is_number || window == 0) return nullptr;
  const QRect place = geometry_of(window);
  if (place.isEmpty()) return nullptr;
  area = QRect(QPoint(0, 0), place.size());
  return QWindow::fromWinId(window);
}

void blacken(const QScreen& screen, QObject& owner) {
  auto* cover = new QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool);
  QObject::connect(&owner, &QObject::destroyed, cover, [cover] { delete cover; });
  cover->setPalette(QPalette(Qt::black));
  cover->setAttribute(Qt::WA_ShowWithoutActivating);
  cover->setGeometry(screen.geometry());
  cover->show();
}

}  // namespace

void give_the_saver_its_place(Desk& desk) {
  QScreen* primary = QGuiApplication::primaryScreen();
  desk.saver_area = primary->geometry();
  desk.saver_host = window_of_the_host(desk.saver_area);
  if (desk.saver_host != nullptr) return;
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (screen != primary) blacken(*screen, desk);
  }
}

}  // namespace practice::desktop
