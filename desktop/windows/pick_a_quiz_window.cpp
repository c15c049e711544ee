#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "text.h"
#include "windows/windows.h"

namespace practice::desktop {
namespace {

constexpr int photo_width = 180;
constexpr int photo_height = 400;
constexpr int note_indent = 26;

QHBoxLayout* row(std::initializer_list<QWidget*> widgets) {
  auto* line = new QHBoxLayout;
  for (QWidget* widget : widgets) line->addWidget(widget);
  line->addStretch();
  return line;
}

void make_heading(QWidget& label) {
  QFont font = label.font();
  font.setBold(true);
  label.setFont(font);
}

}  // namespace

void PickAQuizWindow::arrange() {
  auto* tabs = static_cast<QTabWidget*>(widget("SSTab1"));
  tabs->addTab(general_page(), QString());
  tabs->addTab(options_page(), QString());
  tabs->addTab(categories_page(), QString());
  tabs->addTab(saver_page(), QString());
  auto* all = new QVBoxLayout(centralWidget());
  all->addWidget(tabs);
}

QWidget* PickAQuizWindow::general_page() {
  auto* page = new QWidget;
  QWidget* photo = widget("Marlo_P_A_Q");
  QWidget* partner_photo = widget("SKQ_P_A_Q");
  for (QWidget* picture : {photo, partner_photo}) {
    picture->setFixedSize(qRound(photo_width * scale() * 15), qRound(photo_height * scale() * 15));
  }

  auto* name_label = static_cast<QLabel*>(widget("lblstudentname"));
  name_label->setBuddy(widget("txtstudentname"));
  widget("txtstudentname")->setAccessibleName(QStringLiteral("Enter Your Name"));

  auto* quizzes = static_cast<QGroupBox*>(widget("fra_quizzes"));
  auto* quiz_column = new QVBoxLayout(quizzes);
  for (int i = 1; i <= 3; ++i) {
    QWidget* quiz = widget("which_quiz", i);
    QFont font = quiz->font();
    font.setBold(true);
    quiz->setFont(font);
    quiz_column->addWidget(quiz);
    auto* note = static_cast<QLabel*>(widget("lblORBIT_book", i - 1));
    note->setWordWrap(true);
    note->setIndent(note_indent);
    note->setForegroundRole(QPalette::PlaceholderText);
    quiz_column->addWidget(note);
  }
  for (int i = 4; i <= 6; ++i) quiz_column->addWidget(widget("which_quiz", i));
  quiz_column->addLayout(
      row({widget("Label6"), widget("howmany"), widget("howmanyq"), widget("Label1"),
           widget("Label2"), widget("Label5"), widget("VScroll2")}));

  auto* start = static_cast<QGroupBox*>(widget("Frame1"));
  auto* start_column = new QVBoxLayout(start);
  widget("Command1")->setMinimumHeight(qRound(widget("Command1")->sizeHint().height() * 1.4));
  start_column->addWidget(widget("Command1"));
  auto* buttons = new QGridLayout;
  buttons->addWidget(widget("restore_defaults"), 0, 0);
  buttons->addWidget(widget("Command2"), 0, 1);
  buttons->addWidget(widget("savesettings"), 1, 0);
  buttons->addWidget(widget("cmd_reset_user_history"), 1, 1);
  buttons->addWidget(widget("cmd_flashcards"), 2, 0, 1, 2);
  start_column->addLayout(buttons);

  auto* column = new QVBoxLayout;
  column->addLayout(row({name_label, widget("txtstudentname")}));
  column->addWidget(quizzes);
  column->addWidget(start);
  column->addStretch();
  auto* both = new QHBoxLayout(page);
  both->addWidget(photo, 0, Qt::AlignTop);
  both->addWidget(partner_photo, 0, Qt::AlignTop);
  both->addLayout(column, 1);
  return page;
}

QWidget* PickAQuizWindow::options_page() {
  auto* page = new QWidget;
  auto* time = new QGroupBox;
  auto* time_column = new QVBoxLayout(time);
  time_column->addWidget(widget("timeron"));
  widget("timeamount")->setMaximumWidth(qRound(900 * scale()));
  widget("timeamount")->setAccessibleName(QStringLiteral("Minutes"));
  widget("VScroll1")->setMaximumHeight(widget("timeamount")->sizeHint().height());
  widget("VScroll1")->setAccessibleName(QStringLiteral("Minutes"));
  time_column->addLayout(
      row({widget("timeamount"), widget("timeamountlabel"), widget("VScroll1")}));

  auto heading = [&](const char* name) {
    make_heading(*widget(name));
    return widget(name);
  };
  auto boxed = [&](std::initializer_list<QWidget*> widgets) {
    auto* box = new QGroupBox;
    auto* column = new QVBoxLayout(box);
    for (QWidget* each : widgets) column->addWidget(each);
    column->addStretch();
    return box;
  };
  auto* grid = new QGridLayout(page);
  grid->addWidget(
      boxed({heading("lblshowanswers"), widget("answer_when_wrong"), widget("answer_when_right")}),
      0, 0);
  grid->addWidget(
      boxed({heading("lblrandomization"), widget("random_questions"), widget("random_answers")}), 0,
      1);
  grid->addWidget(boxed({widget("scoregraph"), widget("backb"), widget("showhowmanyanswers"),
                         widget("chkEmbed"), widget("askwrong")}),
                  1, 0);
  grid->addWidget(time, 1, 1);
  grid->addWidget(boxed({heading("lblradio"), widget("chkRadio")}), 2, 0, 1, 2);
  grid->addWidget(widget("cmd_save_settings"), 3, 1, Qt::AlignRight);
  grid->setRowStretch(4, 1);
  return page;
}

QWidget* PickAQuizWindow::saver_page() {
  auto* page = new QWidget;
  const auto spin = [&](const char* count, const char* bar, const char* text) {
    auto* label = static_cast<QLabel*>(widget(count));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(qRound(450 * scale()));
    widget(bar)->setMaximumHeight(widget("cmdok")->sizeHint().height());
    widget(bar)->setAccessibleName(to_qt(std::string("Seconds, ") + text));
    return row({label, widget(bar), widget(text)});
  };
  auto* pace = new QGroupBox;
  auto* pace_column = new QVBoxLayout(pace);
  make_heading(*widget("Label14"));
  pace_column->addWidget(widget("Label14"));
  pace_column->addLayout(spin("lbldisplayans", "VScroll4", "lbl1"));
  pace_column->addLayout(spin("lbldisplaycorr", "VScroll3", "Label13"));
  pace_column->addWidget(widget("chkRandom"));
  pace_column->addLayout(row({widget("cmdok")}));
  auto* install = new QGroupBox;
  auto* install_column = new QVBoxLayout(install);
  install_column->addLayout(row({widget("Label12")}));
  install_column->addLayout(row({widget("cmdSet")}));
  auto* column = new QVBoxLayout(page);
  column->addWidget(pace);
  column->addWidget(install);
  column->addStretch();
  return page;
}

QWidget* PickAQuizWindow::categories_page() {
  auto* page = new QWidget;
  auto* moves = new QVBoxLayout;
  moves->addStretch();
  const std::pair<const char*, QString> buttons[] = {
      {"cmd_add_cat", QStringLiteral("Ask the selected categories")},
      {"cmd_remove_cat", QStringLiteral("Do not ask the selected categories")},
      {"cmd_add_all_cat", QStringLiteral("Ask all categories")},
      {"cmd_remove_all_cat", QStringLiteral("Ask no category")}};
  for (const auto& [name, tip] : buttons) {
    widget(name)->setMaximumWidth(qRound(750 * scale()));
    widget(name)->setAccessibleDescription(tip);
    moves->addWidget(widget(name));
  }
  moves->addStretch();
  widget("lst_cats_to_ask")->setAccessibleName(QStringLiteral("Categories to Ask"));
  widget("lst_cats_not_to_ask")->setAccessibleName(QStringLiteral("Categories NOT to Ask"));
  auto* grid = new QGridLayout(page);
  grid->addWidget(widget("lbl_cats_to_ask"), 0, 0);
  grid->addWidget(widget("lbl_Cats_not_ask"), 0, 2);
  grid->addWidget(widget("lst_cats_to_ask"), 1, 0);
  grid->addLayout(moves, 1, 1);
  grid->addWidget(widget("lst_cats_not_to_ask"), 1, 2);
  grid->addWidget(widget("Label4"), 2, 0, 1, 3);
  grid->addWidget(widget("cmd_start_cat_quiz"), 3, 0, 1, 3, Qt::AlignCenter);
  grid->addWidget(widget("cmdSaveSet"), 3, 2, Qt::AlignRight);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
  return page;
}

}  // namespace practice::desktop
