// The list of questions on the final score screen, by mouse.
#include <QListWidget>
#include <QTimer>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

class ScoreList : public DesktopTest {};

TEST_F(ScoreList, ADoubleClickBesideItsLinesAsksForAQuestionAndOnALineOpensIt) {
  start("46002");
  key("Welcome", Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window("pick_a_quiz")));
  click("pick_a_quiz", "which_quiz", 2);
  application->pick_a_quiz().random_questions.value = 0;
  click("pick_a_quiz", "Command1");
  run().question_total = 3;
  desk->enter([&] { quest().find("menu_quittest")->click(); });
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window("finalscore")));
  auto* list = static_cast<QListWidget*>(widget("finalscore", "List1"));
  const auto double_click = [&](const QPoint& place) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
  };
  messages.shown.clear();
  double_click({20, list->viewport()->height() - 3});
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].text, "You must select a question");
  bool was_open = false;
  QTimer closing;
  QObject::connect(&closing, &QTimer::timeout, [&] {
    if (!application->theanswer().visible || !window("theanswer")->isVisible()) return;
    closing.stop();
    was_open = true;
    click("theanswer", "Closeb");
  });
  closing.start(20);
  double_click(list->visualItemRect(list->item(1)).center());
  EXPECT_TRUE(was_open);
  EXPECT_EQ(run().current_row, 2);
  EXPECT_EQ(messages.shown.size(), 1u);
}

}  // namespace
}  // namespace practice::desktop
