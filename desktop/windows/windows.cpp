#include "windows/windows.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace practice::desktop {
namespace {

const QColor amber(255, 204, 0);
const QColor ink(38, 50, 56);

void paint_text(QWidget& widget, const QColor& colour) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, colour);
  palette.setColor(QPalette::Text, colour);
  widget.setPalette(palette);
}

void enlarge(QWidget& widget, double factor, bool bold) {
  QFont font = widget.font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(bold);
  widget.setFont(font);
}

// Buttons side by side, centred.
void put_in_a_row(QWidget& strip, const std::vector<QWidget*>& buttons) {
  auto* row = new QHBoxLayout(&strip);
  row->setContentsMargins(0, 0, 0, 0);
  row->addStretch();
  for (QWidget* button : buttons) {
    button->setParent(&strip);
    row->addWidget(button);
  }
  row->addStretch();
}

}  // namespace

void WelcomeWindow::arrange() {
  QPalette palette = centralWidget()->palette();
  palette.setColor(QPalette::Window, amber);
  centralWidget()->setPalette(palette);
  centralWidget()->setAutoFillBackground(true);
  for (const ControlEntry& entry : screen().controls()) place(entry.name, entry.index);
  for (const char* label : {"Label6", "lblOEMGreeting", "test_name", "lblLabels", "author_name2",
                            "txtTestDescription", "lRelease", "Label2", "Label3", "Label5"}) {
    paint_text(*widget(label), ink);
  }
  enlarge(*widget("Label6"), 1.15, true);
  for (const ControlEntry& entry : screen().controls()) {
    if (entry.name != "Image1" && entry.name != "Image3") widget(entry.name, entry.index)->raise();
  }
  widget("Image4", 0)->setFocus();
  const QSize size(qRound(screen().least_width * scale()), qRound(screen().least_height * scale()));
  setMaximumSize(size);
}

void QuestWindow::arrange() {
  QWidget* panel = widget("Frame1");
  QWidget* strip = widget("Frame2");
  for (const char* name : {"WebBrowser1", "Frame1", "Frame2", "whatdoin"}) place(name);
  for (const char* name :
       {"Label3", "question_number", "Gauge1", "the_gauge", "Percent_Right", "Label2", "score",
        "Label4", "qid", "lbltimeleft", "lbltime", "Line3", "skq_side"}) {
    place(name, 0, panel);
  }
  for (const char* name : {"question_number", "Percent_Right", "score", "qid"}) {
    enlarge(*widget(name), 1.1, true);
  }
  for (const char* name : {"Label3", "Label2", "Label4", "whatdoin"}) {
    widget(name)->setForegroundRole(QPalette::PlaceholderText);
  }
  widget("the_gauge")->raise();
  std::vector<QWidget*> buttons{widget("cmd_buttons", 1), widget("cmd_buttons", 0),
                                widget("cmd_buttons", 2), widget("cmd_buttons", 3)};
  for (int i = 0; i < 3; ++i) buttons.push_back(widget("exhibitbutton", i));
  for (int i = 0; i < 3; ++i) buttons.push_back(widget("diagrambutton", i));
  buttons.insert(buttons.end(), {widget("Command1"), widget("cluebutton"), widget("cmdtutor")});
  put_in_a_row(*strip, buttons);
}

void TheAnswerWindow::arrange() {
  place("text1");
  place("Frame1");
  put_in_a_row(*widget("Frame1"), {widget("webcmd"), widget("cmdtutor"), widget("Command1"),
                                   widget("Command2"), widget("Closeb")});
}

void FinalScoreWindow::arrange() {
  for (const ControlEntry& entry : screen().controls()) {
    place(entry.name, entry.index);
    // Its places are those of a narrower font than today's desktops have.
    enlarge(*widget(entry.name, entry.index), 0.88, false);
  }
  widget("right_score")->raise();
  QFont courier(QStringLiteral("Courier New"));
  courier.setStyleHint(QFont::Monospace);
  courier.setPointSizeF(widget("List1")->font().pointSizeF());
  widget("list_cat")->setFont(courier);
  for (const char* name : {"rig", "tot", "per", "Label4"}) enlarge(*widget(name), 1.15, true);
  for (const char* name : {"Label1", "Label2", "Label3"}) {
    static_cast<QLabel*>(widget(name))->setAlignment(Qt::AlignRight | Qt::AlignTop);
  }
  for (const char* name : {"rig", "tot", "per"}) {
    static_cast<QLabel*>(widget(name))->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }
  static_cast<QLabel*>(widget("Label4"))->setWordWrap(true);
  static_cast<QLabel*>(widget("Label5"))->setAlignment(Qt::AlignCenter);
  // The background is a light picture whatever the desktop's colours are.
  for (const char* name : {"Label1", "Label2", "Label3", "Label4", "Label5", "rig", "tot", "per"}) {
    paint_text(*widget(name), ink);
  }
  for (int i = 0; i < 3; ++i) paint_text(*widget("whichq", i), ink);
  widget("list_cat")->setAccessibleName(QStringLiteral("Results by category"));
  widget("List1")->setAccessibleName(QStringLiteral("Questions of the test"));
}

// A result of this screen is always of one size.
void FinalScoreWindow::mirror_more() { setMaximumSize(minimumSize()); }

void ExhibitWindow::arrange() {
  for (const ControlEntry& entry : screen().controls()) place(entry.name, entry.index);
  if (QWidget* text = widget("text1")) {
    QFont console(QStringList{QStringLiteral("Lucida Console"), QStringLiteral("DejaVu Sans Mono"),
                              QStringLiteral("Liberation Mono")});
    console.setStyleHint(QFont::Monospace);
    console.setPointSizeF(font().pointSizeF());
    text->setFont(console);
    text->setAccessibleName(QStringLiteral("Exhibit"));
  }
}

void NoticeWindow::arrange() {
  for (const ControlEntry& entry : screen().controls()) {
    place(entry.name, entry.index);
    if (auto* label = qobject_cast<QLabel*>(widget(entry.name, entry.index))) {
      label->setWordWrap(true);
      label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
  }
}

std::unique_ptr<ScreenWindow> make_window(Screen& screen, Desk& desk) {
  std::unique_ptr<ScreenWindow> window;
  if (screen.form_name == "Welcome") {
    window = std::make_unique<WelcomeWindow>(screen, desk);
  } else if (screen.form_name == "pick_a_quiz") {
    window = std::make_unique<PickAQuizWindow>(screen, desk);
  } else if (screen.form_name == "quest") {
    window = std::make_unique<QuestWindow>(screen, desk);
  } else if (screen.form_name == "theanswer") {
    window = std::make_unique<TheAnswerWindow>(screen, desk);
  } else if (screen.form_name == "finalscore") {
    window = std::make_unique<FinalScoreWindow>(screen, desk);
  } else if (screen.form_name == "Security") {
    window = std::make_unique<SecurityWindow>(screen, desk);
  } else if (screen.form_name == "About1" || screen.form_name == "loading") {
    window = std::make_unique<NoticeWindow>(screen, desk);
  } else {
    window = std::make_unique<ExhibitWindow>(screen, desk);
  }
  window->build();
  return window;
}

}  // namespace practice::desktop
