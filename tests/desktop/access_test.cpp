// How the windows are reached without a mouse and without eyes: access keys, tab order, names.
#include <QAbstractButton>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

class Access : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    start("46000");
    click("Welcome", "Image4", 0);
  }

  void start_quiz() {
    click("pick_a_quiz", "Command1");
    ASSERT_TRUE(window("quest")->isVisible());
  }
};

TEST_F(Access, EveryControlThatTakesTheFocusHasANameForScreenReaders) {
  start_quiz();
  for (const char* screen : {"Welcome", "pick_a_quiz", "quest"}) {
    for (const ControlEntry& entry : application->program().forms.find(screen)->controls()) {
      QWidget* shown = window(screen)->widget(entry.name, entry.index);
      if (shown == nullptr || shown->focusPolicy() == Qt::NoFocus || shown->isHidden()) continue;
      if (shown->inherits("QTabWidget")) continue;
      EXPECT_FALSE(shown->accessibleName().isEmpty()) << screen << " " << entry.name;
    }
  }
}

TEST_F(Access, TheChoicesOfAPageAreNamedByTheirAnswers) {
  start_quiz();
  QStringList names;
  for (QAbstractButton* choice : window("quest")->page()->findChildren<QAbstractButton*>()) {
    if (choice->isVisible()) names.push_back(choice->accessibleName());
  }
  const Question& question = application->program().current_question;
  ASSERT_EQ(names.size(), int{run().answer_count});
  EXPECT_TRUE(names[0].startsWith(u'A'));
  EXPECT_TRUE(names[0].contains(to_qt(question.answers[1]).left(12).remove(u'&').trimmed()) ||
              question.answers[1].find('&') != std::string::npos)
      << names[0].toStdString();
}

TEST_F(Access, NextHasTheFocusWhenAQuestionComesUp) {
  start_quiz();
  EXPECT_EQ(window("quest")->focusWidget(), widget("quest", "cmd_buttons", 0));
}

TEST_F(Access, AltWithALetterThatNobodyAnswersToTypesNothingIntoTheBox) {
  // Extra questions, until one is to be filled in.
  click("pick_a_quiz", "which_quiz", 2);
  application->pick_a_quiz().random_questions.value = 0;
  application->pick_a_quiz().answer_when_wrong.value = 0;
  start_quiz();
  while (run().question_kind != "Fill_In" && quest().visible) click("quest", "cmd_buttons", 0);
  ASSERT_EQ(run().question_kind, "Fill_In");
  key("quest", Qt::Key_C, Qt::AltModifier);
  EXPECT_EQ(quest().WebBrowser1.view.document.input("txt_fill")->value, "");
  EXPECT_TRUE(window("quest")->focusWidget()->inherits("QLineEdit"));
  QTest::keyClicks(window("quest")->focusWidget(), QStringLiteral("c"));
  EXPECT_EQ(quest().WebBrowser1.view.document.input("txt_fill")->value, "c");
}

TEST_F(Access, ANewNameReachesTheTestInCapitals) {
  widget("pick_a_quiz", "txtstudentname")->setFocus();
  auto* name = static_cast<QLineEdit*>(widget("pick_a_quiz", "txtstudentname"));
  name->selectAll();
  QTest::keyClicks(name, QStringLiteral("Ada 7"));
  start_quiz();
  EXPECT_EQ(application->program().options.student_name, "ADA 7");
}

TEST_F(Access, AResizedTestKeepsItsProportionsAndItsLeastSize) {
  start_quiz();
  window("quest")->resize(1100, 900);
  QTest::qWait(50);
  QWidget* page = widget("quest", "WebBrowser1");
  QWidget* panel = widget("quest", "Frame1");
  // Both edges come from twips, each rounded to a pixel of its own.
  EXPECT_NEAR(page->geometry().right() + 1, panel->geometry().left(), 1);
  EXPECT_LE(panel->geometry().right(), 1100);
  window("quest")->resize(200, 200);
  QTest::qWait(50);
  EXPECT_GE(window("quest")->width(), 636);
  EXPECT_GE(window("quest")->height(), 464);
}

}  // namespace
}  // namespace practice::desktop
