// The widget for each kind of control: how it is made, what a user's edit of it puts into the
// control, and how it takes the control's state.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTimer>

#include "desk.h"
#include "page_view/page_view.h"
#include "picture_button.h"
#include "screen_window.h"
#include "text.h"

namespace practice::desktop {
namespace {

// A caption as a screen reader says it.
QString spoken(const std::string& caption) { return to_qt(caption).remove(u'&').trimmed(); }

// Where a double click does something, beside the lines too, Enter does the same.
class ChoosingList : public QListWidget {
 public:
  /// An empty `answer` leaves both to the list.
  ChoosingList(QWidget* parent, std::function<void()> answer)
      : QListWidget(parent), answer_(std::move(answer)) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (is_enter && answer_) {
      answer_();
    } else {
      QListWidget::keyPressEvent(event);
    }
  }

  void mouseDoubleClickEvent(QMouseEvent* event) override {
    QListWidget::mouseDoubleClickEvent(event);
    if (answer_) answer_();
  }

 private:
  std::function<void()> answer_;
};

template <class Widget>
void mirror_caption(Widget& widget, const std::string& caption) {
  const QString text = to_qt(caption);
  if (widget.text() == text) return;
  widget.setText(text);
  widget.setAccessibleName(spoken(caption));
}

// Size and colours, where the label has its own.
void take_letters(QLabel& label, const Letters& letters) {
  if (letters.font.points > 0) {
    label.setFont(qt_font(letters.font));
    label.setWordWrap(true);
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }
  QPalette palette = label.palette();
  if (letters.fore_rgb) palette.setColor(QPalette::WindowText, QColor(*letters.fore_rgb));
  if (letters.back_rgb) palette.setColor(QPalette::Window, QColor(*letters.back_rgb));
  label.setAutoFillBackground(letters.back_rgb.has_value());
  label.setPalette(palette);
}

}  // namespace

QFont qt_font(const TextFont& font) {
  QFont letters = QApplication::font();
  if (font.points > 0) letters.setPointSizeF(font.points);
  letters.setBold(font.bold);
  return letters;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, Label& control, Part& part) {
  if (entry.click) return make_link(entry, control, part);
  auto* label = new QLabel(centralWidget());
  label->setTextFormat(Qt::PlainText);
  part.mirror = [label, &control, shown = Letters()]() mutable {
    mirror_caption(*label, control.caption);
    if (shown != control.letters) take_letters(*label, shown = control.letters);
  };
  return label;
}

// A label that answers to a click: a button that looks like a link.
QWidget* ScreenWindow::make_link(const ControlEntry& entry, Label& control, Part& part) {
  auto* link = new QPushButton(centralWidget());
  link->setFlat(true);
  link->setCursor(Qt::PointingHandCursor);
  link->setStyleSheet(QStringLiteral(
      "QPushButton { border: 1px solid transparent; text-align: left; text-decoration: underline;"
      " color: palette(link); padding: 0 2px; background: transparent; }"
      "QPushButton:focus { border: 1px dotted palette(link); }"));
  connect(link, &QPushButton::clicked, this, [this, &entry] { run(entry.click); });
  part.mirror = [link, &control] { mirror_caption(*link, control.caption); };
  return link;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, Button& control, Part& part) {
  auto* button = new QPushButton(centralWidget());
  connect(button, &QPushButton::clicked, this, [this, &entry] { run(entry.click); });
  part.mirror = [button, &control] {
    mirror_caption(*button, control.caption);
    if (button->isDefault() != control.is_default) button->setDefault(control.is_default);
  };
  return button;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, CheckBox& control, Part& part) {
  auto* box = new QCheckBox(centralWidget());
  connect(box, &QCheckBox::clicked, this, [this, &entry, &control](bool checked) {
    desk_.enter([&] {
      control.value = checked ? 1 : 0;
      if (entry.click) entry.click();
    });
  });
  part.mirror = [box, &control] {
    mirror_caption(*box, control.caption);
    if (box->isChecked() != (control.value == 1)) box->setChecked(control.value == 1);
  };
  return box;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, OptionButton& control, Part& part) {
  auto* button = new QRadioButton(centralWidget());
  // The screen decides which of a group is set; Qt must not clear one on its own.
  button->setAutoExclusive(false);
  connect(button, &QRadioButton::clicked, this, [this, &entry] { run(entry.click); });
  part.mirror = [button, &control] {
    mirror_caption(*button, control.caption);
    if (button->isChecked() != control.value) button->setChecked(control.value);
  };
  return button;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, TextBox& control, Part& part) {
  if (control.multi_line) {
    auto* text = new QPlainTextEdit(centralWidget());
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    part.mirror = [text, &control, shown = std::string()]() mutable {
      if (shown == control.text) return;
      const bool is_added = control.text.starts_with(shown) && !shown.empty();
      shown = control.text;
      text->setPlainText(to_qt(control.text));
      if (is_added) text->moveCursor(QTextCursor::End);
    };
    return text;
  }
  auto* line = new QLineEdit(centralWidget());
  connect(line, &QLineEdit::textEdited, this, [this, &entry, &control](const QString& text) {
    desk_.enter([&] {
      control.text = from_qt(text);
      if (entry.change) entry.change();
    });
  });
  part.mirror = [line, &control] {
    const QString text = to_qt(control.text);
    if (line->text() != text) line->setText(text);
  };
  return line;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, ListBox& control, Part& part) {
  std::function<void()> answer;
  if (entry.double_click) answer = [this, &entry] { run(entry.double_click); };
  auto* list = new ChoosingList(centralWidget(), std::move(answer));
  list->setSelectionMode(control.multi_select ? QAbstractItemView::ExtendedSelection
                                              : QAbstractItemView::SingleSelection);
  list->setUniformItemSizes(true);
  connect(list, &QListWidget::itemSelectionChanged, this, [this, list, &entry, &control] {
    if (desk_.is_mirroring()) return;
    desk_.enter([&] {
      control.list_index = list->currentRow();
      if (control.multi_select) {
        control.selected.resize(control.items.size());
        for (std::size_t i = 0; i < control.items.size(); ++i) {
          control.selected[i] = list->item(static_cast<int>(i))->isSelected();
        }
      }
      if (entry.click) entry.click();
    });
  });
  part.mirror = [list, &control, shown = std::vector<std::string>()]() mutable {
    if (shown != control.items) {
      shown = control.items;
      list->clear();
      for (const std::string& item : control.items) list->addItem(to_qt(item));
    }
    for (std::size_t i = 0; control.multi_select && i < control.items.size(); ++i) {
      QListWidgetItem* item = list->item(static_cast<int>(i));
      const bool selected = i < control.selected.size() && control.selected[i];
      if (item->isSelected() != selected) item->setSelected(selected);
    }
    if (!control.multi_select && list->currentRow() != control.list_index) {
      list->setCurrentRow(control.list_index);
    }
  };
  return list;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, ScrollBar& control, Part& part) {
  auto* bar = new QScrollBar(Qt::Vertical, centralWidget());
  connect(bar, &QScrollBar::valueChanged, this, [this, &entry, &control](int value) {
    if (desk_.is_mirroring()) return;
    desk_.enter([&] {
      control.value = value;
      if (entry.change) entry.change();
    });
  });
  part.mirror = [bar, &control] {
    if (bar->minimum() != control.lowest || bar->maximum() != control.highest) {
      bar->setRange(control.lowest, control.highest);
    }
    if (bar->value() != control.value) bar->setValue(control.value);
  };
  return bar;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, Picture& control, Part& part) {
  auto* picture = new PictureButton(centralWidget(), static_cast<bool>(entry.click));
  connect(picture, &QAbstractButton::clicked, this, [this, &entry] { run(entry.click); });
  part.mirror = [picture, &control, rest = std::string(), pressed = std::string()]() mutable {
    picture->setAccessibleName(to_qt(control.tool_tip));
    if (rest == control.file && pressed == control.pressed_file) return;
    rest = control.file;
    pressed = control.pressed_file;
    const auto path = [](const std::string& file) {
      return file.empty() ? QString() : system_path(file);
    };
    picture->set_files(path(rest), path(pressed));
  };
  return picture;
}

QWidget* ScreenWindow::make(const ControlEntry&, Shape& control, Part& part) {
  auto* bar = new QFrame(centralWidget());
  bar->setAutoFillBackground(true);
  part.mirror = [bar, &control] {
    const QColor colour(control.rgb);
    if (bar->palette().color(QPalette::Window) == colour) return;
    QPalette palette = bar->palette();
    palette.setColor(QPalette::Window, colour);
    bar->setPalette(palette);
  };
  return bar;
}

QWidget* ScreenWindow::make(const ControlEntry&, Frame& control, Part& part) {
  if (control.caption.empty()) {
    part.mirror = [] {};
    return new QWidget(centralWidget());
  }
  auto* box = new QGroupBox(centralWidget());
  part.mirror = [box, &control] {
    const QString title = to_qt(control.caption);
    if (box->title() != title) box->setTitle(title);
  };
  return box;
}

QWidget* ScreenWindow::make(const ControlEntry&, Tabs& control, Part& part) {
  auto* tabs = new QTabWidget(centralWidget());
  connect(tabs, &QTabWidget::currentChanged, this, [this, &control](int tab) {
    if (!desk_.is_mirroring()) control.tab = tab;
  });
  part.mirror = [tabs, &control] {
    for (int i = 0; i < tabs->count(); ++i) {
      const auto place = static_cast<std::size_t>(i);
      const QString text = to_qt(control.captions[place]);
      if (tabs->tabText(i) != text) tabs->setTabText(i, text);
      if (tabs->isTabVisible(i) != control.tab_on[place]) {
        tabs->setTabVisible(i, control.tab_on[place]);
      }
    }
    if (tabs->currentIndex() != control.tab) tabs->setCurrentIndex(control.tab);
  };
  return tabs;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, MenuEntry& control, Part& part) {
  const auto own = menus_.find(entry.name);
  QAction* action = nullptr;
  if (own != menus_.end()) {
    action = own->second->menuAction();
    if (!entry.menu.empty()) menus_.at(entry.menu)->addMenu(own->second);
  } else if (control.caption == "-") {
    menus_.at(entry.menu)->addSeparator();
    return nullptr;
  } else {
    action = menus_.at(entry.menu)->addAction(QString());
    connect(action, &QAction::triggered, this, [this, &entry] { run(entry.click); });
  }
  part.mirror = [action, &control] {
    const QString text = to_qt(control.caption);
    if (action->text() != text) action->setText(text);
    if (action->isVisible() != control.visible) action->setVisible(control.visible);
    if (action->isEnabled() != control.enabled) action->setEnabled(control.enabled);
    if (action->isChecked() != control.checked) {
      action->setCheckable(control.checked);
      action->setChecked(control.checked);
    }
  };
  return nullptr;
}

QWidget* ScreenWindow::make(const ControlEntry& entry, Timer& control, Part& part) {
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, [this, &entry] { run(entry.click); });
  part.mirror = [this, timer, &entry, &control] {
    const bool runs = screen_.loaded && control.enabled && control.interval > 0 && entry.click;
    if (runs && (!timer->isActive() || timer->interval() != control.interval)) {
      timer->start(control.interval);
    } else if (!runs && timer->isActive()) {
      timer->stop();
    }
  };
  return nullptr;
}

QWidget* ScreenWindow::make(const ControlEntry&, HtmlView& control, Part& part) {
  page_ = new PageView(centralWidget());
  page_source_ = &control.view;
  page_->element_clicked = [this](html::Node& element) {
    if (element.onclick) desk_.enter([&] { std::function<void()>(element.onclick)(); });
  };
  page_->open_address = [this](const QString& address) {
    if (desk_.open_address) desk_.open_address(from_qt(address));
  };
  part.mirror = [this, &control, generation = 0]() mutable {
    // A screen that was loaded anew has a new document, whose revisions begin again.
    if (generation != screen_.generation) page_->forget();
    generation = screen_.generation;
    control.view.finish_navigation(desk_.files());
    page_->show_view(control.view, 0);
  };
  return page_;
}

}  // namespace practice::desktop
