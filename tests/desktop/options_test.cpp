// The options screen and the welcome screen's links, with mouse and keyboard.
#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

class OptionsScreen : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    open_options();
  }

  void open_options(const char* exam = "46000") {
    start(exam);
    click("Welcome", "Image4", 0);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window("pick_a_quiz")));
  }

  /// Ends the program and starts it again in the same folder.
  void start_again() {
    end();
    open_options();
  }

  bool is_ticked(const char* box) {
    return static_cast<QCheckBox*>(widget("pick_a_quiz", box))->isChecked();
  }
  QListWidget* list(const char* name) {
    return static_cast<QListWidget*>(widget("pick_a_quiz", name));
  }
  QStringList entries(const char* name) {
    QStringList result;
    for (int i = 0; i < list(name)->count(); ++i) result += list(name)->item(i)->text();
    return result;
  }
  void click_entry(const char* name, int entry, Qt::KeyboardModifiers with = {}) {
    const QRect place = list(name)->visualItemRect(list(name)->item(entry));
    QTest::mouseClick(list(name)->viewport(), Qt::LeftButton, with, place.center());
  }
  PickAQuiz& options() { return application->pick_a_quiz(); }
};

TEST_F(OptionsScreen, TestModeAndPracticeModeSetTheOptions) {
  click("pick_a_quiz", "Command2");
  EXPECT_EQ(messages.shown.back().text,
            "User Settings have been changed to simulate the actual exam.");
  turn_to_tab(1);
  EXPECT_TRUE(is_ticked("timeron"));
  EXPECT_FALSE(is_ticked("answer_when_wrong"));
  EXPECT_FALSE(is_ticked("backb"));
  EXPECT_TRUE(widget("pick_a_quiz", "timeamount")->isVisible());
  turn_to_tab(0);
  click("pick_a_quiz", "restore_defaults");
  EXPECT_EQ(messages.shown.back().text, "User Settings have been changed to enhance learning.");
  turn_to_tab(1);
  EXPECT_FALSE(is_ticked("timeron"));
  EXPECT_TRUE(is_ticked("answer_when_wrong"));
  EXPECT_TRUE(is_ticked("backb"));
  EXPECT_FALSE(widget("pick_a_quiz", "timeamount")->isVisible());
}

TEST_F(OptionsScreen, SavedOptionsAreThereAfterARestart) {
  turn_to_tab(1);
  for (const char* box : {"answer_when_right", "backb", "random_questions", "timeron"}) {
    click("pick_a_quiz", box);
  }
  auto* minutes = static_cast<QLineEdit*>(widget("pick_a_quiz", "timeamount"));
  minutes->selectAll();
  QTest::keyClicks(minutes, QStringLiteral("120"));
  click("pick_a_quiz", "cmd_save_settings");
  EXPECT_EQ(messages.shown.back().text, "User Settings have been saved.");
  start_again();
  turn_to_tab(1);
  EXPECT_TRUE(is_ticked("answer_when_right"));
  EXPECT_FALSE(is_ticked("backb"));
  EXPECT_FALSE(is_ticked("random_questions"));
  EXPECT_TRUE(is_ticked("timeron"));
  EXPECT_EQ(static_cast<QLineEdit*>(widget("pick_a_quiz", "timeamount"))->text(),
            QStringLiteral("75"));
}

TEST_F(OptionsScreen, CategoriesMoveByDoubleClickAndByButtons) {
  turn_to_tab(2);
  const int all = list("lst_cats_to_ask")->count();
  const QString second = list("lst_cats_to_ask")->item(1)->text();
  const QRect place = list("lst_cats_to_ask")->visualItemRect(list("lst_cats_to_ask")->item(1));
  QWidget* area = list("lst_cats_to_ask")->viewport();
  QTest::mouseClick(area, Qt::LeftButton, {}, place.center());
  QTest::mouseDClick(area, Qt::LeftButton, {}, place.center());
  EXPECT_EQ(entries("lst_cats_not_to_ask"), QStringList{second});

  click_entry("lst_cats_to_ask", 0);
  click_entry("lst_cats_to_ask", 2, Qt::ControlModifier);
  click("pick_a_quiz", "cmd_remove_cat");
  EXPECT_EQ(list("lst_cats_not_to_ask")->count(), 3);
  EXPECT_EQ(list("lst_cats_to_ask")->count(), all - 3);
  click("pick_a_quiz", "cmd_remove_all_cat");
  EXPECT_EQ(list("lst_cats_to_ask")->count(), 0);
  click_entry("lst_cats_not_to_ask", 0);
  click("pick_a_quiz", "cmd_add_cat");
  EXPECT_EQ(entries("lst_cats_to_ask"), QStringList{second});
  click("pick_a_quiz", "cmd_add_all_cat");
  EXPECT_EQ(list("lst_cats_to_ask")->count(), all);
}

TEST_F(OptionsScreen, EnterMovesTheCategoryAndStartsNoTest) {
  turn_to_tab(2);
  const QString first = list("lst_cats_to_ask")->item(0)->text();
  click_entry("lst_cats_to_ask", 0);
  QTest::keyClick(list("lst_cats_to_ask"), Qt::Key_Return);
  EXPECT_EQ(entries("lst_cats_not_to_ask"), QStringList{first});
  EXPECT_TRUE(window("pick_a_quiz")->isVisible());
  EXPECT_FALSE(quest().loaded);
}

TEST_F(OptionsScreen, ACategoryTestAsksItsCategoriesOnly) {
  turn_to_tab(2);
  click("pick_a_quiz", "cmd_remove_all_cat");
  click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_EQ(messages.shown.back().text, "You must select at least one category");
  EXPECT_TRUE(window("pick_a_quiz")->isVisible());
  click_entry("lst_cats_not_to_ask", 3);
  click("pick_a_quiz", "cmd_add_cat");
  click("pick_a_quiz", "cmd_start_cat_quiz");
  ASSERT_TRUE(window("quest")->isVisible());
  int rows = 0;
  const Program& program = application->program();
  for (int row = 1; row <= program.catalogue.bank_total; ++row) {
    if (program.question_table[row].category == 4) ++rows;
  }
  EXPECT_EQ(run().question_total, rows);
  EXPECT_EQ(program.current_question.category, 4);
}

TEST_F(OptionsScreen, AQuizClickedShowsItsBankAndItsName) {
  click("pick_a_quiz", "which_quiz", 2);
  EXPECT_EQ(static_cast<QPushButton*>(widget("pick_a_quiz", "Command1"))->text(),
            QStringLiteral("FALCO CD-ROM Quiz"));
  EXPECT_EQ(static_cast<QLabel*>(widget("pick_a_quiz", "howmany"))->text(),
            QString::number(int{application->program().catalogue.bank_total}));
  turn_to_tab(2);
  EXPECT_EQ(list("lst_cats_to_ask")->count(), 21);
}

TEST_F(OptionsScreen, WhatWasWrongLastTimeIsAskedAgain) {
  std::string results;
  for (int i = 1; i <= 1000; ++i) {
    results += (i == 3 || i == 7 ? "1," : "0,") + std::to_string(i) + "\r\n";
  }
  files.write("46000.STUDENT.results", results);
  options().askwrong.value = 1;
  click("pick_a_quiz", "Command1");
  ASSERT_TRUE(window("quest")->isVisible());
  EXPECT_EQ(run().question_total, 2);
  EXPECT_EQ(run().current_row, 3);
}

TEST_F(OptionsScreen, TheStudySaversPaceIsSaved) {
  turn_to_tab(3);
  QTest::keyClick(widget("pick_a_quiz", "VScroll4"), Qt::Key_Up);
  QTest::keyClick(widget("pick_a_quiz", "VScroll4"), Qt::Key_Up);
  QTest::keyClick(widget("pick_a_quiz", "VScroll3"), Qt::Key_Down);
  click("pick_a_quiz", "chkRandom");
  click("pick_a_quiz", "cmdok");
  EXPECT_EQ(settings.get("marlo_study_saver", "settings", "aspeed", ""), "5");
  EXPECT_EQ(settings.get("marlo_study_saver", "settings", "cspeed", ""), "5");
  EXPECT_EQ(settings.get("marlo_study_saver", "settings", "RandQuestions", ""), "1");
}

TEST_F(OptionsScreen, TheHistoryIsClearedWhenTheStudentSaysYes) {
  files.write("46000.STUDENT.results", "0,1\r\n");
  files.write("history.46000.STUDENT.htm", "<html></html>\r\n");
  messages.answers = {Answer::no, Answer::ok};
  click("pick_a_quiz", "cmd_reset_user_history");
  EXPECT_TRUE(files.exists("46000.STUDENT.results"));
  EXPECT_TRUE(files.exists("history.46000.STUDENT.htm"));
  EXPECT_EQ(messages.shown.back().text, "History NOT cleared.");
  click("pick_a_quiz", "cmd_reset_user_history");
  EXPECT_FALSE(files.exists("46000.STUDENT.results"));
  EXPECT_FALSE(files.exists("history.46000.STUDENT.htm"));
  EXPECT_EQ(messages.shown.back().text, "STUDENT history has been cleared.");
}

TEST_F(OptionsScreen, ClosingTheWindowLeadsBackAndClosingTheWelcomeScreenEndsTheProgram) {
  window("pick_a_quiz")->close();
  EXPECT_FALSE(window("pick_a_quiz")->isVisible());
  ASSERT_TRUE(window("Welcome")->isVisible());
  window("Welcome")->close();
  EXPECT_TRUE(application->has_ended());
}

class WelcomeScreen : public DesktopTest {};

TEST_F(WelcomeScreen, FeedbackIsOfferedAfterTheFourthTest) {
  settings.save("marlo", "46003", "num_times", "3");
  settings.save("marlotest", "order", "email", "me@school.example");
  start("46003");
  EXPECT_FALSE(widget("Welcome", "lblFeedback")->isVisible());
  click("Welcome", "Image4", 0);
  application->pick_a_quiz().answer_when_wrong.value = 0;
  click("pick_a_quiz", "Command1");
  while (quest().visible) click("quest", "cmd_buttons", 0);
  ASSERT_TRUE(window("finalscore")->isVisible());
  end();
  start("46003");
  ASSERT_TRUE(widget("Welcome", "lblFeedback")->isVisible());
  messages.answers = {Answer::cancel};
  click("Welcome", "lblFeedback");
  EXPECT_EQ(messages.shown.back().title, "Submit Feedback");
  EXPECT_EQ(settings.get("marlo", "46003", "survey_done", "no"), "no");
}

TEST_F(WelcomeScreen, IsOperatedByTheKeyboardInItsOrder) {
  start("46000");
  EXPECT_EQ(window("Welcome")->focusWidget(), widget("Welcome", "Image4", 0));
  std::vector<QWidget*> order;
  for (int i = 0; i < 4; ++i) {
    order.push_back(window("Welcome")->focusWidget());
    QTest::keyClick(window("Welcome")->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order, (std::vector<QWidget*>{
                       widget("Welcome", "Image4", 0), widget("Welcome", "Image4", 1),
                       widget("Welcome", "Image4", 2), widget("Welcome", "lblEULALink")}));
}

}  // namespace
}  // namespace practice::desktop
