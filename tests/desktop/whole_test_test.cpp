// A whole test in the real windows, from the welcome screen to the score.
#include <QRadioButton>
#include <QTimer>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

class WholeTest : public DesktopTest {
 protected:
  /// EGRET's extra questions: all kinds, few enough to take them all.
  void SetUp() override {
    DesktopTest::SetUp();
    start("46003");
  }

  bool is_answer_open() { return application->theanswer().visible; }

  /// Carries out `close` as soon as the answer view stands there.
  void close_each_answer(const std::function<void()>& close) {
    closing.setInterval(1);
    QObject::connect(&closing, &QTimer::timeout, [this, close] {
      if (is_answer_open() && window("theanswer")->isVisible()) close();
    });
    closing.start();
  }

  QTimer closing;
};

TEST_F(WholeTest, IsTakenByMouseFromTheWelcomeScreenToTheScore) {
  close_each_answer([&] { click("theanswer", "Closeb"); });
  click("Welcome", "Image4", 0);
  ASSERT_TRUE(window("pick_a_quiz")->isVisible());
  EXPECT_FALSE(window("Welcome")->isVisible());
  click("pick_a_quiz", "which_quiz", 2);
  click("pick_a_quiz", "Command1");
  ASSERT_TRUE(window("quest")->isVisible());
  const int total = run().question_total;
  ASSERT_GE(total, 20);
  for (int i = 1; i <= total; ++i) {
    ASSERT_EQ(run().question_position, i);
    // The first mark of the page, if it has one.
    for (QAbstractButton* choice : window("quest")->page()->findChildren<QAbstractButton*>()) {
      if (choice->isVisible() && choice->accessibleName().startsWith(u'A')) {
        QTest::mouseClick(choice, Qt::LeftButton, {}, QPoint(8, choice->height() / 2));
        break;
      }
    }
    click("quest", "cmd_buttons", 0);
  }
  EXPECT_TRUE(window("finalscore")->isVisible());
  EXPECT_FALSE(window("quest")->isVisible());
  EXPECT_TRUE(files.exists("46003.STUDENT.results"));
}

TEST_F(WholeTest, IsTakenByKeyboardAloneWithTheAccessKeysOfThePage) {
  close_each_answer([&] { key("theanswer", Qt::Key_Return); });
  key("Welcome", Qt::Key_Tab);
  widget("Welcome", "Image4", 0)->setFocus();
  key("Welcome", Qt::Key_Return);
  QTest::qWait(150);
  ASSERT_TRUE(window("pick_a_quiz")->isVisible());
  widget("pick_a_quiz", "which_quiz", 2)->setFocus();
  key("pick_a_quiz", Qt::Key_Space);
  key("pick_a_quiz", Qt::Key_Return);
  QTest::qWait(150);
  ASSERT_TRUE(window("quest")->isVisible());
  const int total = run().question_total;
  ASSERT_GE(total, 20);
  int answered = 0;
  for (int i = 1; i <= total; ++i) {
    ASSERT_EQ(run().question_position, i);
    const int row = run().current_row;
    if (run().question_kind == "Radio_Button" || run().question_kind == "Check_Box") {
      key("quest", Qt::Key_B, Qt::AltModifier);
      ++answered;
    }
    if (run().question_kind == "Fill_In") {
      // Alt alone gives the keyboard to the page.
      key("quest", Qt::Key_Alt);
      QTest::keyClicks(window("quest")->focusWidget(), QStringLiteral("a guess"));
    }
    const std::string kind = run().question_kind;
    key("quest", Qt::Key_Return);
    QTest::qWait(120);
    const Question& question = application->program().question_table[row];
    if (kind == "Radio_Button" || kind == "Check_Box") {
      EXPECT_EQ(question.answer_chosen[2], 1);
    }
    if (kind == "Fill_In") {
      EXPECT_EQ(question.typed_answer, "a guess");
    }
  }
  EXPECT_GT(answered, 10);
  EXPECT_TRUE(window("finalscore")->isVisible());
}

TEST_F(WholeTest, ClosingTheWindowOfATestAsksFirstAndNoKeepsTheRun) {
  click("Welcome", "Image4", 0);
  click("pick_a_quiz", "Command1");
  messages.answers = {Answer::no};
  window("quest")->close();
  EXPECT_EQ(messages.shown.back().title, "Exit Program?");
  EXPECT_TRUE(window("quest")->isVisible());
  EXPECT_EQ(run().question_position, 1);
}

}  // namespace
}  // namespace practice::desktop
