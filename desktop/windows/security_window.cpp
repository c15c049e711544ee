#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "desk.h"
#include "windows/windows.h"

namespace practice::desktop {
namespace {

constexpr std::string_view parts_of_the_cards[] = {"Label2", "text1", "cmd_main", "cmd_next",
                                                   "Command3"};

}  // namespace

void SecurityWindow::arrange() {
  QPalette ground = centralWidget()->palette();
  ground.setColor(QPalette::Window, Qt::black);
  centralWidget()->setPalette(ground);
  centralWidget()->setAutoFillBackground(true);
  put_into_frame();
  if (screen().covers_the_desk) {
    arrange_saver();
  } else {
    arrange_cards();
  }
}

// All of the saver lies in its frame, which hides it, or covers the cards.
void SecurityWindow::put_into_frame() {
  QWidget* frame = widget("Frame1");
  place("Frame1");
  frame->setPalette(centralWidget()->palette());
  frame->setAutoFillBackground(true);
  for (const ControlEntry& entry : screen().controls()) {
    QWidget* part = widget(entry.name, entry.index);
    const bool is_of_the_cards =
        std::ranges::find(parts_of_the_cards, entry.name) != std::end(parts_of_the_cards);
    if (part == nullptr || part == frame || is_of_the_cards) continue;
    place(entry.name, entry.index, frame);
    // The mouse is over the frame wherever it is.
    part->setAttribute(Qt::WA_TransparentForMouseEvents);
  }
}

void SecurityWindow::arrange_saver() {
  for (const std::string_view name : parts_of_the_cards) widget(name)->lower();
  for (const char* name : {"Picture1", "img_cp"}) widget(name)->raise();
  if (QWindow* host = desk().saver_host) {
    winId();
    windowHandle()->setParent(host);
    return;
  }
  setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  // Only there can a window not place itself.
  const bool is_wayland = QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
  if (is_wayland) setWindowState(Qt::WindowFullScreen);
}

void SecurityWindow::arrange_cards() {
  auto* card = static_cast<QPlainTextEdit*>(widget("text1"));
  card->setLineWrapMode(QPlainTextEdit::WidgetWidth);
  QFont font = card->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setBold(true);
  card->setFont(font);
  card->setAccessibleName(QStringLiteral("Card"));
  // An answer stands below its question, which is read first.
  connect(
      card, &QPlainTextEdit::textChanged, card, [card] { card->moveCursor(QTextCursor::Start); },
      Qt::QueuedConnection);
  for (const char* name : {"cmd_main", "cmd_next", "Command3"}) {
    auto* button = static_cast<QPushButton*>(widget(name));
    button->setMinimumSize(qRound(2400 * scale()), qRound(button->sizeHint().height() * 1.4));
  }
  auto* buttons = new QHBoxLayout;
  for (const char* name : {"cmd_main", "cmd_next"}) buttons->addWidget(widget(name));
  buttons->addStretch();
  buttons->addWidget(widget("Command3"));
  auto* column = new QVBoxLayout(centralWidget());
  column->setContentsMargins(32, 24, 32, 24);
  column->setSpacing(16);
  column->addWidget(widget("Label2"));
  column->addWidget(card, 1);
  column->addLayout(buttons);
}

}  // namespace practice::desktop
