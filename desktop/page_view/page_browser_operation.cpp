// How a PageBrowser answers to the mouse and the keyboard.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStringList>
#include <QTextCursor>
#include <QWheelEvent>
#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include "page_browser.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

bool is_enter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool is_plain(const QKeyEvent& event) {
  return (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) == Qt::NoModifier;
}

bool is_same_name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

bool is_outward(const QString& address) {
  static const QStringList schemes = {u"http:"_s, u"https:"_s, u"mailto:"_s};
  return std::any_of(schemes.begin(), schemes.end(), [&](const QString& scheme) {
    return address.startsWith(scheme, Qt::CaseInsensitive);
  });
}

}  // namespace

bool PageBrowser::has_focus_within() const {
  const QWidget* focus = window()->focusWidget();
  return focus != nullptr && (focus == this || isAncestorOf(focus));
}

// A group with a checked radio is one stop, at that radio.
bool PageBrowser::is_stop(const Field& field) const {
  if (field.input->kind != html::InputKind::radio || field.input->checked) return true;
  return std::none_of(fields_.begin(), fields_.end(), [&](const Field& other) {
    return other.input->kind == html::InputKind::radio && other.input->checked &&
           is_same_name(other.input->name, field.input->name);
  });
}

std::vector<PageBrowser::Stop> PageBrowser::stops() {
  std::vector<Stop> stops;
  if (!is_current()) return stops;
  for (Field& field : fields_) {
    if (is_stop(field)) stops.push_back({field.position, &field, -1});
  }
  for (std::size_t i = 0; i < links_.size(); ++i) {
    if (!action_of(links_[i].node).exists) continue;
    stops.push_back({links_[i].ranges.front().first, nullptr, static_cast<int>(i)});
  }
  std::sort(stops.begin(), stops.end(),
            [](const Stop& a, const Stop& b) { return a.position < b.position; });
  return stops;
}

PageBrowser::Field* PageBrowser::first_field() {
  if (!is_current() || fields_.empty()) return nullptr;
  const Field& first = fields_.front();
  if (first.input->kind != html::InputKind::radio) return &fields_.front();
  const auto checked = std::find_if(fields_.begin(), fields_.end(), [&](const Field& field) {
    return field.input->kind == html::InputKind::radio && field.input->checked &&
           is_same_name(field.input->name, first.input->name);
  });
  return checked == fields_.end() ? &fields_.front() : &*checked;
}

void PageBrowser::focus_first_input() {
  Field* first = first_field();
  if (first != nullptr) {
    focus_field(*first, Qt::OtherFocusReason);
  } else {
    const QScopedValueRollback keeping(keeps_focus_, true);
    setFocus(Qt::OtherFocusReason);
  }
}

void PageBrowser::focus_field(Field& field, Qt::FocusReason reason) {
  current_link_ = -1;
  field.widget->setFocus(reason);
  viewport()->update();
}

void PageBrowser::focus_link(int link, Qt::FocusReason reason) {
  const QScopedValueRollback keeping(keeps_focus_, true);
  current_link_ = link;
  // Screen readers follow the cursor.
  QTextCursor cursor(document());
  cursor.setPosition(links_[static_cast<std::size_t>(link)].ranges.front().first);
  setTextCursor(cursor);
  setFocus(reason);
  for (const QRectF& rect : rects_of(links_[static_cast<std::size_t>(link)])) reveal(rect);
  viewport()->update();
}

void PageBrowser::focus_stop(const Stop& stop, bool next) {
  const Qt::FocusReason reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
  if (stop.field != nullptr) {
    focus_field(*stop.field, reason);
  } else {
    focus_link(stop.link, reason);
  }
}

void PageBrowser::focusInEvent(QFocusEvent* event) {
  QTextBrowser::focusInEvent(event);
  if (keeps_focus_ || is_drawing_) return;
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
    const bool next = event->reason() == Qt::TabFocusReason;
    const std::vector<Stop> all = stops();
    if (!all.empty()) focus_stop(next ? all.front() : all.back(), next);
  } else if (current_link_ < 0) {
    if (Field* first = first_field()) focus_field(*first, event->reason());
  }
}

void PageBrowser::focusOutEvent(QFocusEvent* event) {
  QTextBrowser::focusOutEvent(event);
  const bool is_passing =
      event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!is_passing) current_link_ = -1;
  viewport()->update();
}

bool PageBrowser::focusNextPrevChild(bool next) {
  const std::vector<Stop> all = stops();
  const Field* field = focused_field();
  // A radio that is no stop itself still tells where the focus is.
  const int here = field != nullptr ? field->position
                   : current_link_ >= 0
                       ? links_[static_cast<std::size_t>(current_link_)].ranges.front().first
                   : next ? -1
                          : 0;
  const Stop* target = nullptr;
  for (const Stop& stop : all) {
    if (next && stop.position > here) {
      target = &stop;
      break;
    }
    if (!next && stop.position < here) target = &stop;
  }
  if (target != nullptr) {
    focus_stop(*target, next);
    return true;
  }
  // The inputs are made late, so their own place in the window's order of focus tells nothing: the
  // search for the next stop starts at the page itself.
  {
    const QScopedValueRollback keeping(keeps_focus_, true);
    setFocus(Qt::OtherFocusReason);
  }
  if (QWidget::focusNextPrevChild(next)) return true;
  if (all.empty()) return false;
  focus_stop(next ? all.front() : all.back(), next);
  return true;
}

bool PageBrowser::move_in_group(Field& field, bool next) {
  const html::InputKind kind = field.input->kind;
  const auto here = &field - fields_.data();
  const auto count = static_cast<std::ptrdiff_t>(fields_.size());
  for (auto i = here + (next ? 1 : -1); i >= 0 && i < count; i += next ? 1 : -1) {
    Field& other = fields_[static_cast<std::size_t>(i)];
    if (other.input->kind != kind) continue;
    if (kind == html::InputKind::checkbox) {
      focus_field(other, Qt::TabFocusReason);
      return true;
    }
    if (!is_same_name(other.input->name, field.input->name)) continue;
    choose(*other.input, Qt::TabFocusReason);
    return true;
  }
  return false;
}

bool PageBrowser::eventFilter(QObject* watched, QEvent* event) {
  Field* field = is_current() ? field_of(watched) : nullptr;
  if (field == nullptr) return QTextBrowser::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::KeyPress: {
      auto& key = *static_cast<QKeyEvent*>(event);
      if (is_enter(key)) {
        // Enter belongs to the window's default button, whatever the desktop lets it do to a mark.
        key.ignore();
        return true;
      }
      const bool is_mark = field->input->kind != html::InputKind::text;
      if (!is_mark || !is_plain(key)) break;
      const bool is_radio = field->input->kind == html::InputKind::radio;
      const bool is_next = key.key() == Qt::Key_Down || (is_radio && key.key() == Qt::Key_Right);
      const bool is_previous = key.key() == Qt::Key_Up || (is_radio && key.key() == Qt::Key_Left);
      if (is_next || is_previous) {
        // At either end of the group the page scrolls, so that all of it can be read.
        if (!move_in_group(*field, is_next)) QAbstractScrollArea::keyPressEvent(&key);
        key.accept();
        return true;
      }
      if (key.key() == Qt::Key_Left || key.key() == Qt::Key_Right) return true;
      break;
    }
    case QEvent::FocusIn: {
      current_link_ = -1;
      const QRectF row = field->row;
      const QRect frame = field->widget->geometry().translated(scrolled());
      reveal(row.isNull() ? QRectF(frame) : row);
      viewport()->update();
      break;
    }
    case QEvent::FocusOut:
      viewport()->update();
      break;
    case QEvent::Enter:
      if (field->input->kind != html::InputKind::text) {
        set_hovered({-1, static_cast<int>(field - fields_.data())});
      }
      break;
    default:
      break;
  }
  return QTextBrowser::eventFilter(watched, event);
}

void PageBrowser::keyPressEvent(QKeyEvent* event) {
  const bool is_on_link = current_link_ >= 0 && hasFocus();
  if (is_on_link && is_plain(*event) && (is_enter(*event) || event->key() == Qt::Key_Space)) {
    activate(current_link_);
  } else if (is_plain(*event) && event->key() == Qt::Key_Home) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
  } else if (is_plain(*event) && event->key() == Qt::Key_End) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
  } else if (is_plain(*event) && event->key() == Qt::Key_Space && hasFocus()) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
  } else {
    QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageBrowser::wheelEvent(QWheelEvent* event) {
  // The text's size is the page's to say.
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    event->ignore();
  } else {
    QAbstractScrollArea::wheelEvent(event);
  }
}

PageBrowser::Action PageBrowser::action_of(html::Node* node) const {
  Action action;
  const html::Node* link = nullptr;
  for (; node != nullptr; node = node->parent) {
    if (node->onclick) {
      action.handler = node;
      action.exists = true;
      return action;
    }
    if (link == nullptr && node->tag == "a" && !node->attribute("href").empty()) link = node;
  }
  if (link == nullptr) return action;
  action.exists = true;
  const QString address = qt_text(link->attribute("href")).trimmed();
  const bool is_script = address.startsWith("javascript:"_L1, Qt::CaseInsensitive);
  const bool is_blank =
      qt_text(link->attribute("target")).compare("_blank"_L1, Qt::CaseInsensitive) == 0;
  if (!is_script && (is_blank || is_outward(address))) action.address = address;
  return action;
}

void PageBrowser::activate(int link) {
  if (!is_current()) return;
  const Action action = action_of(links_[static_cast<std::size_t>(link)].node);
  // The owner may write another page, so nothing of this one is touched behind the calls.
  if (action.handler != nullptr) {
    if (const auto clicked = owner_.element_clicked) clicked(*action.handler);
  } else if (!action.address.isEmpty()) {
    if (const auto open = owner_.open_address) open(action.address);
  }
}

PageBrowser::Target PageBrowser::target_at(QPoint point) {
  Target target;
  if (!is_current()) return target;
  const QString href = anchorAt(point);
  if (href.startsWith("node:"_L1)) {
    const auto node = static_cast<std::size_t>(QStringView(href).mid(5).toInt());
    const int link = node < link_of_node_.size() ? link_of_node_[node] : -1;
    if (link >= 0 && action_of(links_[static_cast<std::size_t>(link)].node).exists) {
      target.link = link;
      return target;
    }
  }
  const QPointF place = point + scrolled();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (fields_[i].row.contains(place)) target.field = static_cast<int>(i);
  }
  return target;
}

void PageBrowser::set_hovered(Target target) {
  if (target == hovered_) return;
  hovered_ = target;
  const bool can_be_clicked = target.link >= 0 || target.field >= 0;
  viewport()->setCursor(can_be_clicked ? Qt::PointingHandCursor : Qt::ArrowCursor);
  viewport()->update();
}

void PageBrowser::mouseMoveEvent(QMouseEvent* event) {
  set_hovered(target_at(event->position().toPoint()));
}

void PageBrowser::mousePressEvent(QMouseEvent* event) {
  pressed_ = {};
  if (event->button() == Qt::LeftButton) pressed_ = target_at(event->position().toPoint());
}

void PageBrowser::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void PageBrowser::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !is_current()) return;
  const Target target = target_at(event->position().toPoint());
  const bool is_click = target == std::exchange(pressed_, {});
  if (!is_click) return;
  if (target.link >= 0) {
    activate(target.link);
  } else if (target.field >= 0) {
    choose(*fields_[static_cast<std::size_t>(target.field)].input, Qt::MouseFocusReason);
  } else if (!has_focus_within()) {
    setFocus(Qt::MouseFocusReason);
  }
}

bool PageBrowser::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) set_hovered({});
  return QTextBrowser::viewportEvent(event);
}

}  // namespace practice::desktop
