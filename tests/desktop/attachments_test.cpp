// What stands beside a question in windows of its own: exhibits, diagrams, the score panel.
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <algorithm>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

class Attachments : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    start("46000");
    click("Welcome", "Image4", 0);
    click("pick_a_quiz", "Command1");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window("quest")));
  }

  void show(const char* exhibit, const char* diagram) {
    Question& question = application->program().question_table[1];
    question.exhibits[1] = exhibit;
    question.diagrams[1] = diagram;
    run().question_order[1] = 1;
    run().question_position = 0;
    desk->enter([&] { quest().show_quest(); });
  }

  std::string content(const char* name) {
    return application->program().catalogue.content_dir + name;
  }
  QPlainTextEdit* text() { return static_cast<QPlainTextEdit*>(widget("Exhibit", "text1")); }
};

TEST_F(Attachments, AnExhibitOfTenMegabytesOpensWhole) {
  std::string lines;
  while (lines.size() < 10'000'000) {
    lines += "Switch1#show mac address-table | line " + std::to_string(lines.size()) + "\r\n";
  }
  files.write(content("huge.txt"), lines);
  show("huge.txt", "");
  click("quest", "exhibitbutton", 0);
  ASSERT_TRUE(window("Exhibit")->isVisible());
  const auto count = static_cast<int>(std::count(lines.begin(), lines.end(), '\n'));
  EXPECT_EQ(text()->blockCount(), count + 1);
  EXPECT_EQ(text()->verticalScrollBar()->value(), 0);
}

TEST_F(Attachments, APressAddsTheTextBelowAndShowsIt) {
  files.write(content("q1.txt"), "one\r\ntwo\r\n");
  show("q1.txt", "");
  click("quest", "exhibitbutton", 0);
  EXPECT_EQ(text()->toPlainText(), QStringLiteral("one\ntwo\n"));
  click("quest", "exhibitbutton", 0);
  EXPECT_EQ(text()->toPlainText(), QStringLiteral("one\ntwo\none\ntwo\n"));
  click("Exhibit", "Command1");
  EXPECT_FALSE(window("Exhibit")->isVisible());
}

TEST_F(Attachments, AnExhibitBehindTheTestComesToTheFrontAgain) {
  files.write(content("q1.txt"), "one\r\n");
  show("q1.txt", "");
  click("quest", "exhibitbutton", 0);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window("Exhibit")));
  window("quest")->raise();
  window("quest")->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window("quest")));
  click("quest", "exhibitbutton", 0);
  EXPECT_TRUE(QTest::qWaitForWindowActive(window("Exhibit")));
}

TEST_F(Attachments, TheBarsOfTheScoreShowTheShareOfRightAndWrong) {
  for (int i = 1; i <= 4; ++i) {
    application->program().question_table[i].result_state = i == 1 ? result::right : result::wrong;
    run().question_order[i] = i;
  }
  run().question_total = 4;
  desk->enter([&] { quest().calculate_score(); });
  const QRect wrong = widget("quest", "the_gauge")->geometry();
  const QRect right = widget("quest", "Gauge1")->geometry();
  EXPECT_EQ(wrong.topLeft(), right.topLeft());
  EXPECT_EQ(wrong.width(), right.width());
  EXPECT_NEAR(wrong.height(), 0.75 * right.height(), 1);
  EXPECT_TRUE(widget("quest", "Gauge1")->isVisible());
  EXPECT_EQ(static_cast<QLabel*>(widget("quest", "score"))->text(), QStringLiteral(" 1/ 4"));
  EXPECT_EQ(static_cast<QLabel*>(widget("quest", "Percent_Right"))->text(),
            QStringLiteral("25.0%"));
}

}  // namespace
}  // namespace practice::desktop
