#include "search_bar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace practice::desktop {

using namespace Qt::StringLiterals;

SearchBar::SearchBar(Acts acts) : wanted_(new QLineEdit), found_(new QLabel) {
  hide();
  auto* row = new QHBoxLayout(this);
  wanted_->setObjectName(u"wanted"_s);
  wanted_->setAccessibleName(u"Search for"_s);
  wanted_->setPlaceholderText(u"Search for"_s);
  wanted_->setClearButtonEnabled(true);
  connect(wanted_, &QLineEdit::textEdited, this, acts.search);
  connect(wanted_, &QLineEdit::returnPressed, this, [step = acts.step] {
    step(QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
  });
  row->addWidget(wanted_, 1);
  found_->setObjectName(u"found"_s);
  row->addWidget(found_);
  const auto add_button = [&](const QString& name, const QString& tip, auto act) {
    auto* button = new QPushButton(name);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, act);
    row->addWidget(button);
  };
  add_button(u"Pre&vious"_s, u"Previous match (Shift+F3)"_s, [step = acts.step] { step(-1); });
  add_button(u"&Next"_s, u"Next match (F3)"_s, [step = acts.step] { step(1); });
  add_button(u"&Close"_s, u"Close the search (Esc)"_s, acts.close);
}

}  // namespace practice::desktop
