// The native inputs of a PageBrowser: kept from page to page, mirrored from the document.
#include <QButtonGroup>
#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <algorithm>
#include <charconv>

#include "page_browser.h"
#include "page_look.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr int longest_value = 10'000;

/// Which radio buttons belong together is the document's to say, not their parent widget's. So all
/// are in one group that excludes nothing; without it they would have to give up autoExclusive,
/// by which screen readers are told radio buttons from check boxes.
class Radio : public QRadioButton {
 public:
  Radio(QWidget* parent, QButtonGroup& group) : QRadioButton(parent) { group.addButton(this); }

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QRadioButton::focusInEvent(event);
    // The base class makes the radio button with the focus its group's stop for Tab.
    setFocusPolicy(Qt::ClickFocus);
  }
  void nextCheckState() override { setChecked(true); }
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

class Check : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

int length_limit(const html::Input& input) {
  if (input.node == nullptr) return longest_value;
  const std::string_view text = input.node->attribute("maxlength");
  int limit = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), limit);
  return error == std::errc() && limit > 0 ? std::min(limit, longest_value) : longest_value;
}

}  // namespace

void PageBrowser::adopt(QWidget& widget) {
  // Tab is handed out by focusNextPrevChild().
  widget.setFocusPolicy(Qt::ClickFocus);
  widget.installEventFilter(this);
}

QAbstractButton* PageBrowser::new_mark(html::InputKind kind) {
  QAbstractButton* mark = nullptr;
  if (kind == html::InputKind::radio) {
    mark = new Radio(viewport(), *radio_group_);
  } else {
    mark = new Check(viewport());
  }
  adopt(*mark);
  mark->setCursor(Qt::PointingHandCursor);
  connect(mark, &QAbstractButton::clicked, this, [this, mark] { take_edit(mark); });
  return mark;
}

QLineEdit* PageBrowser::new_line_edit() {
  auto* line_edit = new QLineEdit(viewport());
  adopt(*line_edit);
  line_edit->setContextMenuPolicy(Qt::NoContextMenu);
  line_edit->setAcceptDrops(false);
  connect(line_edit, &QLineEdit::textEdited, this, [this, line_edit] { take_edit(line_edit); });
  return line_edit;
}

QWidget* PageBrowser::take_widget(html::InputKind kind, std::size_t& used) {
  const bool is_text = kind == html::InputKind::text;
  auto& pool = is_text ? line_edits_ : kind == html::InputKind::radio ? radios_ : check_boxes_;
  if (used == pool.size()) {
    pool.push_back(is_text ? static_cast<QWidget*>(new_line_edit()) : new_mark(kind));
  }
  return pool[used++];
}

void PageBrowser::assign_widgets() {
  std::size_t radios = 0;
  std::size_t check_boxes = 0;
  std::size_t line_edits = 0;
  for (Field& field : fields_) {
    const html::Input& input = *field.input;
    QString name = qt_text(input.label).simplified();
    if (input.kind == html::InputKind::text) {
      field.widget = take_widget(input.kind, line_edits);
      auto* line_edit = static_cast<QLineEdit*>(field.widget);
      line_edit->setMaxLength(length_limit(input));
      const int inset = static_cast<int>(3 * scale_);
      line_edit->setTextMargins(inset, 0, inset, 0);
      if (name.isEmpty()) name = u"Answer"_s;
    } else {
      const bool is_radio = input.kind == html::InputKind::radio;
      field.widget = take_widget(input.kind, is_radio ? radios : check_boxes);
    }
    field.widget->setAccessibleName(name);
  }
}

// Styles draw a mark's outline somewhat darker than the window, which is faint on paper and lost
// on a dark page.
void PageBrowser::tint_marks() {
  const QColor window = colours_of(palette()).mark;
  QPalette tinted;
  tinted.setColor(QPalette::Window, window);
  for (const Field& field : fields_) {
    if (field.input->kind == html::InputKind::text) continue;
    if (field.widget->palette().color(QPalette::Window) != window) field.widget->setPalette(tinted);
  }
}

void PageBrowser::mirror() {
  for (const Field& field : fields_) {
    if (field.input->kind == html::InputKind::text) {
      auto* line_edit = static_cast<QLineEdit*>(field.widget);
      const QString value = qt_text(field.input->value);
      if (line_edit->text() != value) line_edit->setText(value);
    } else {
      auto* mark = static_cast<QAbstractButton*>(field.widget);
      if (mark->isChecked() != field.input->checked) mark->setChecked(field.input->checked);
    }
  }
}

PageBrowser::Field* PageBrowser::field_of(const QObject* widget) {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [widget](const Field& field) { return field.widget == widget; });
  return found == fields_.end() ? nullptr : &*found;
}

PageBrowser::Field* PageBrowser::focused_field() {
  QWidget* focus = window()->focusWidget();
  return focus == nullptr || focus == this ? nullptr : field_of(focus);
}

void PageBrowser::take_edit(const QObject* widget) {
  Field* field = field_of(widget);
  if (field == nullptr || !is_current()) return;
  html::Input& input = *field->input;
  switch (input.kind) {
    case html::InputKind::radio:
      view_->document.set_checked(input, true);
      break;
    case html::InputKind::checkbox:
      view_->document.set_checked(input, static_cast<QAbstractButton*>(field->widget)->isChecked());
      break;
    default:
      input.value = static_cast<QLineEdit*>(field->widget)->text().toStdString();
      break;
  }
  notify_edited();
}

void PageBrowser::choose(html::Input& input, Qt::FocusReason reason) {
  const bool is_drawn = is_current();
  if (input.kind != html::InputKind::text) {
    const bool checked = input.kind == html::InputKind::radio || !input.checked;
    view_->document.set_checked(input, checked);
  }
  if (is_drawn) {
    const auto found = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const Field& field) { return field.input == &input; });
    if (found != fields_.end()) focus_field(*found, reason);
  }
  if (input.kind != html::InputKind::text) notify_edited();
}

// The owner may write another page, so nothing of this one is touched behind the call.
void PageBrowser::notify_edited() {
  if (is_current()) mirror();
  if (const auto edited = owner_.edited) edited();
}

}  // namespace practice::desktop
