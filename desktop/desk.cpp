#include "desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <cmath>
#include <iostream>
#include <thread>

#include "page_view/page_view.h"
#include "platform/values/fault.h"
#include "screen_window.h"
#include "session/forms.h"
#include "text.h"

namespace practice::desktop {
namespace {

constexpr double twips_per_inch = 1440;

bool ask_for_a_printer(QPrinter& printer) {
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace

Desk::Desk(Files& files) : choose_printer(ask_for_a_printer), files_(files) {
  qApp->installEventFilter(this);
}

Desk::~Desk() { take_down(); }

void Desk::show_screens_of(Forms& forms) { forms_ = &forms; }

void Desk::take_down() {
  qApp->removeEventFilter(this);
  ended_ = true;
  windows_.clear();
  forms_ = nullptr;
}

void Desk::enter(const std::function<void()>& handler) {
  if (ended_) return;
  try {
    handler();
  } catch (const std::exception&) {
    const Fault fault = fault_of_current_exception();
    std::cerr << "practice_exam: fault " << fault.number() << ", " << fault.text() << '\n';
  }
  mirror_all();
}

void Desk::came_to_front(Screen& screen) {
  if (mirroring_ || forms_ == nullptr || forms_->in_front() == &screen) return;
  enter([&] { forms_->came_to_front(screen); });
}

void Desk::mirror_all() {
  if (mirroring_ || forms_ == nullptr || ended_) return;
  mirroring_ = true;
  for (Screen* screen : forms_->all()) {
    if (screen != nullptr) mirror_screen(*screen);
  }
  mirroring_ = false;
  for (const auto& [screen, window] : windows_) window->carry_out_focus();
}

void Desk::mirror_screen(Screen& screen) {
  auto window = windows_.find(&screen);
  if (window == windows_.end()) {
    if (!screen.loaded) return;
    window = windows_.emplace(&screen, make_window(screen, *this)).first;
  }
  window->second->mirror();
}

double Desk::pixels_per_twip() const { return pixels_per_inch() / twips_per_inch; }

ScreenWindow* Desk::window_of(const Screen& screen) const {
  const auto window = windows_.find(&screen);
  return window == windows_.end() ? nullptr : window->second.get();
}

QWidget* Desk::front_widget() const {
  if (forms_ == nullptr || forms_->in_front() == nullptr) return nullptr;
  ScreenWindow* window = window_of(*forms_->in_front());
  return window != nullptr && window->isVisible() ? window : nullptr;
}

void Desk::pump() {
  if (ended_ || forms_ == nullptr) return;
  for (Screen* screen : forms_->all()) {
    if (screen == nullptr || !screen->loaded) continue;
    for (const ControlEntry& entry : screen->controls()) {
      if (auto* const* control = std::get_if<HtmlView*>(&entry.control)) {
        (*control)->view.finish_navigation(files_);
      }
    }
  }
  mirror_all();
  QApplication::processEvents(QEventLoop::AllEvents);
}

void Desk::run_modal(Screen& screen) {
  mirror_all();
  QEventLoop loop;
  ScreenWindow* window = window_of(screen);
  if (window == nullptr) return;
  window->on_hidden = [&loop] { loop.quit(); };
  while (screen.visible && !ended_) loop.exec();
  window->on_hidden = {};
}

void Desk::print(html::View& view) {
  mirror_all();
  for (const auto& [screen, window] : windows_) {
    PageView* page = window->page_of(view);
    if (page == nullptr) continue;
    QPrinter printer;
    if (choose_printer(printer)) page->print(printer);
    return;
  }
  throw Fault::invalid_call();
}

double Desk::width() const { return area().width() / pixels_per_twip(); }

double Desk::height() const { return area().height() / pixels_per_twip(); }

QRect Desk::area() const {
  return saver_area.isEmpty() ? QGuiApplication::primaryScreen()->availableGeometry() : saver_area;
}

int Desk::pixels_per_inch() const {
  return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX());
}

// Windows are drawn from twips and points, at their real size on every screen.
int Desk::form_pixels_per_inch() const { return 96; }

double Desk::text_width(std::string_view text) const {
  return QFontMetricsF(QApplication::font()).horizontalAdvance(to_qt(text)) / pixels_per_twip();
}

TextSize Desk::text_size(std::string_view text, const TextFont& font, double width) const {
  const QFontMetricsF metrics(qt_font(font));
  const double room = width > 0 ? width * pixels_per_twip() : QWIDGETSIZE_MAX;
  const QRectF size = metrics.boundingRect(QRectF(0, 0, room, QWIDGETSIZE_MAX),
                                           Qt::TextWordWrap | Qt::TextExpandTabs, to_qt(text));
  // A label breaks its lines by whole pixels.
  return {.width = std::ceil(size.width() + 1) / pixels_per_twip(),
          .height = std::ceil(size.height()) / pixels_per_twip()};
}

// A step a millisecond, and a picture every eight: more is not seen, and would cost more than it
// shows. No event is let in but the painting.
void Desk::paint_step(Screen& screen) {
  constexpr std::chrono::milliseconds pace{1};
  constexpr int steps_to_a_picture = 8;
  const auto now = std::chrono::steady_clock::now();
  if (now > next_step_ + 20 * pace) next_step_ = now;
  next_step_ += pace;
  if (++steps_ % steps_to_a_picture == 0) {
    if (ScreenWindow* window = window_of(screen)) {
      mirroring_ = true;
      window->mirror();
      mirroring_ = false;
      QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
    }
  }
  std::this_thread::sleep_until(next_step_);
}

void Desk::show_pointer(bool shown) {
  while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
  if (!shown) QGuiApplication::setOverrideCursor(Qt::BlankCursor);
}

void Desk::end_process() {
  ended_ = true;
  for (const auto& [screen, window] : windows_) window->hide();
  QCoreApplication::exit(0);
}

bool Desk::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Shortcut) {
    // Qt would show the button pressed for a tenth of a second before it answers.
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr || static_cast<QShortcutEvent*>(event)->isAmbiguous()) return false;
    button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
  }
  if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || ended_) return false;
  auto* window = dynamic_cast<ScreenWindow*>(widget->window());
  return window != nullptr && take_alt_key(*window, static_cast<QKeyEvent&>(*event));
}

// An access key of the page wins over the window's own. Qt asks first whether a widget wants the
// key for itself, and then sends it, to the widget with the focus and each one around it.
bool Desk::take_alt_key(ScreenWindow& window, QKeyEvent& key) {
  const bool is_alt = key.key() == Qt::Key_Alt;
  if (!is_alt && !key.modifiers().testFlag(Qt::AltModifier)) return false;
  if (key.type() == QEvent::ShortcutOverride && !key.isAutoRepeat()) {
    window.screen().key_down(true);
    window.carry_out_focus();
  }
  if (!is_alt && key.modifiers() != Qt::AltModifier) return false;
  PageView* page = window.page();
  // Alt alone would go on to the menu bar, which takes the keyboard away from the page again.
  if (is_alt) return page != nullptr && key.type() == QEvent::ShortcutOverride;
  if (page == nullptr || key.key() < Qt::Key_0 || key.key() > Qt::Key_Z) return false;
  const char letter = static_cast<char>(QChar(key.key()).toLower().toLatin1());
  const bool is_of_the_page = page->has_access_key(letter);
  if (key.type() == QEvent::ShortcutOverride) {
    if (is_of_the_page) key.accept();
    return is_of_the_page;
  }
  // A letter that neither page nor window answers to must not be typed into the page's text box.
  if (is_of_the_page) page->take_access_key(letter);
  return true;
}

}  // namespace practice::desktop
