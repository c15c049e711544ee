#include "screen_window.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "desk.h"
#include "page_view/page_view.h"
#include "text.h"

namespace practice::desktop {

ScreenWindow::ScreenWindow(Screen& screen, Desk& desk) : screen_(screen), desk_(desk) {
  setObjectName(to_qt(screen.form_name));
  setCentralWidget(new QWidget(this));
}

ScreenWindow::~ScreenWindow() = default;

void ScreenWindow::build() {
  make_menus();
  make_parts();
  arrange();
  // The tab order is the order in which the screen lists its controls.
  QWidget* last = nullptr;
  for (const Part& part : parts_) {
    if (part.widget == nullptr || part.widget->focusPolicy() == Qt::NoFocus) continue;
    if (last != nullptr) setTabOrder(last, part.widget);
    last = part.widget;
  }
}

void ScreenWindow::make_parts() {
  for (const ControlEntry& entry : screen_.controls()) parts_.push_back(make_part(entry));
}

ScreenWindow::Part ScreenWindow::make_part(const ControlEntry& entry) {
  Part part;
  part.entry = &entry;
  part.widget =
      std::visit([&](auto* control) { return make(entry, *control, part); }, entry.control);
  if (part.widget == nullptr) return part;
  part.widget->setObjectName(to_qt(entry.name));
  if (entry.got_focus || entry.mouse_move || entry.key_down) part.widget->installEventFilter(this);
  if (entry.mouse_move) part.widget->setMouseTracking(true);
  if (entry.key_down) part.widget->setFocusPolicy(Qt::StrongFocus);
  return part;
}

void ScreenWindow::make_menus() {
  for (const ControlEntry& entry : screen_.controls()) {
    if (!std::holds_alternative<MenuEntry*>(entry.control)) continue;
    const bool has_entries = std::ranges::any_of(
        screen_.controls(), [&](const ControlEntry& other) { return other.menu == entry.name; });
    if (!has_entries) continue;
    menus_[entry.name] =
        entry.menu.empty() ? menuBar()->addMenu(QString()) : new QMenu(menus_.at(entry.menu));
  }
}

QWidget* ScreenWindow::widget(std::string_view name, int index) const {
  for (const Part& part : parts_) {
    if (part.entry->name == name && part.entry->index == index) return part.widget;
  }
  return nullptr;
}

PageView* ScreenWindow::page_of(const html::View& view) const {
  return page_source_ == &view ? page_ : nullptr;
}

double ScreenWindow::scale() const { return desk_.pixels_per_twip(); }

void ScreenWindow::place(std::string_view name, int index, QWidget* parent) {
  for (Part& part : parts_) {
    if (part.entry->name != name || part.entry->index != index) continue;
    part.widget->setParent(parent == nullptr ? centralWidget() : parent);
    part.placed = true;
  }
}

void ScreenWindow::run(const Handler& handler) {
  if (handler && !desk_.is_mirroring()) desk_.enter(handler);
}

void ScreenWindow::mirror() {
  if (!screen_.loaded || !screen_.visible) {
    if (isVisible()) hide();
    for (Part& part : parts_) {
      if (std::holds_alternative<Timer*>(part.entry->control)) part.mirror();
    }
    // A page may be printed without being shown.
    for (Part& part : parts_) {
      if (screen_.loaded && std::holds_alternative<HtmlView*>(part.entry->control)) part.mirror();
    }
    return;
  }
  // The height of the menu bar follows from its entries' texts.
  for (Part& part : parts_) {
    if (std::holds_alternative<MenuEntry*>(part.entry->control)) mirror_part(part);
  }
  mirror_geometry();
  const QString title = to_qt(screen_.caption);
  if (windowTitle() != title) setWindowTitle(title);
  if (screen_.pointer == Pointer::hourglass) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
  for (Part& part : parts_) mirror_part(part);
  mirror_more();
  const bool to_front = screen_.take_front_request();
  if (!isVisible()) {
    setWindowModality(screen_.modal ? Qt::ApplicationModal : Qt::NonModal);
    if (screen_.modal) stay_above_the_others();
    if (screen_.window_state == WindowState::maximised) setWindowState(Qt::WindowMaximized);
    show();
  } else if (!to_front || isActiveWindow()) {
    return;
  }
  raise();
  activateWindow();
}

void ScreenWindow::stay_above_the_others() {
  winId();
  for (QWindow* other : QGuiApplication::topLevelWindows()) {
    if (other->isVisible() && other != windowHandle()) windowHandle()->setTransientParent(other);
  }
}

void ScreenWindow::mirror_part(Part& part) {
  if (part.widget != nullptr) {
    const Control& control = base_of(part.entry->control);
    if (part.widget->isHidden() == control.visible) part.widget->setVisible(control.visible);
    if (part.widget->isEnabled() != control.enabled) part.widget->setEnabled(control.enabled);
    const QString tip = to_qt(control.tool_tip);
    if (part.widget->toolTip() != tip) part.widget->setToolTip(tip);
    if (part.placed) {
      const Bounds& b = control.bounds;
      const QRect place(qRound(b.left * scale()), qRound(b.top * scale()),
                        qRound(b.width * scale()), qRound(b.height * scale()));
      if (part.widget->geometry() != place) part.widget->setGeometry(place);
    }
  }
  if (part.mirror) part.mirror();
}

void ScreenWindow::mirror_geometry() {
  const Bounds& wanted = screen_.bounds;
  if (shown_generation_ == screen_.generation && shown_bounds_ == wanted) return;
  const bool is_new = shown_generation_ != screen_.generation;
  const bool moved = is_new || shown_bounds_.left != wanted.left || shown_bounds_.top != wanted.top;
  const bool resized =
      is_new || shown_bounds_.width != wanted.width || shown_bounds_.height != wanted.height;
  shown_generation_ = screen_.generation;
  shown_bounds_ = wanted;
  if (screen_.covers_the_desk) {
    setMinimumSize(0, 0);
    setGeometry(desk_.saver_area);
    return;
  }
  const int menu = menus_.empty() ? 0 : menuBar()->sizeHint().height();
  const QRect desk_area = QGuiApplication::primaryScreen()->availableGeometry();
  const auto pixels = [&](double twips) { return qRound(twips * scale()); };
  if (resized) {
    setMinimumSize(std::min(pixels(screen_.least_width), desk_area.width()),
                   std::min(pixels(screen_.least_height) + menu, desk_area.height()));
    resize(std::min(pixels(wanted.width), desk_area.width()),
           std::min(pixels(wanted.height) + menu, desk_area.height()));
  }
  if (moved) {
    move(desk_area.x() + std::max(0, pixels(wanted.left)),
         desk_area.y() + std::max(0, pixels(wanted.top) - menu / 2));
  }
}

void ScreenWindow::carry_out_focus() {
  if (!isVisible()) return;
  const auto [name, index] = screen_.take_focus_request();
  if (name.empty()) return;
  QWidget* wanted = widget(name, index);
  if (wanted == nullptr) return;
  if (wanted == page_) {
    // Also while the window is not the active one, when no focus event would pass it on.
    page_->focus_first_input();
  } else {
    wanted->setFocus(Qt::OtherFocusReason);
  }
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  desk_.enter([this] { screen_.close_window(); });
}

void ScreenWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (!screen_.loaded || !screen_.visible) return;
  const double width = centralWidget()->width() / scale();
  const double height = centralWidget()->height() / scale();
  screen_.bounds.width = width;
  screen_.bounds.height = height;
  screen_.window_state = isMinimized()   ? WindowState::minimised
                         : isMaximized() ? WindowState::maximised
                                         : WindowState::normal;
  if (desk_.is_mirroring()) {
    // On its way to being shown; the widgets are about to take their places.
    screen_.resize();
    shown_bounds_ = screen_.bounds;
  } else {
    desk_.enter([this] {
      screen_.resize();
      shown_bounds_ = screen_.bounds;
    });
  }
}

void ScreenWindow::hideEvent(QHideEvent* event) {
  QMainWindow::hideEvent(event);
  if (on_hidden) on_hidden();
}

void ScreenWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && screen_.visible) {
    desk_.came_to_front(screen_);
  }
}

bool ScreenWindow::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type != QEvent::FocusIn && type != QEvent::MouseMove && type != QEvent::KeyPress)
    return false;
  for (const Part& part : parts_) {
    if (part.widget != watched) continue;
    const ControlEntry& entry = *part.entry;
    if (type == QEvent::FocusIn && entry.got_focus) run(entry.got_focus);
    if (type == QEvent::MouseMove && entry.mouse_move) {
      const QPointF place = static_cast<QMouseEvent*>(event)->globalPosition();
      run([&] { entry.mouse_move(place.x(), place.y()); });
    }
    if (type == QEvent::KeyPress && entry.key_down) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      run([&] { entry.key_down(key == Qt::Key_Escape ? escape_key : key); });
      return true;
    }
  }
  return false;
}

// Enter presses the button that has the focus, else the screen's default button.
void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!is_enter || event->modifiers().testFlag(Qt::AltModifier)) {
    QMainWindow::keyPressEvent(event);
    return;
  }
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  if (focused != nullptr && focused->isEnabled()) {
    focused->click();
    return;
  }
  for (const Part& part : parts_) {
    auto* const* button = std::get_if<Button*>(&part.entry->control);
    if (button != nullptr && (*button)->is_default && (*button)->visible && (*button)->enabled) {
      static_cast<QPushButton*>(part.widget)->click();
      return;
    }
  }
}

}  // namespace practice::desktop
