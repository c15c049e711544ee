// The question screen itself: its status line, its size, the options screen behind it.
#include "question_test.h"

namespace practice {
namespace {

class OpeningTheScreen : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }
};

using OpenScreen = QuestionTest;

TEST_F(OpeningTheScreen, TheStatusLineNamesTheQuizAndTheExam) {
  start_test(3);
  EXPECT_EQ(quest().whatdoin.caption, "Full FALCO Exam -   Brightwater JASPER FALCO");
  next();
  EXPECT_EQ(quest().whatdoin.caption, "Full FALCO Exam -   Brightwater JASPER FALCO");
}

TEST_F(OpeningTheScreen, InTheOtherLayoutTheThirdQuizIsNamedFromTheFirstNextOn) {
  start_test(3);
  robot.program().catalogue.book_layout = 0;
  robot.program().forms.unload(Form::quest);
  robot.program().forms.show(Form::quest);
  EXPECT_EQ(quest().whatdoin.caption, " -   Brightwater JASPER FALCO v5.20");
  // The options screen, loaded behind the question screen, has set it for the exam again.
  robot.program().catalogue.book_layout = 0;
  robot.run().question_position = 0;
  quest().show_quest();
  next();
  EXPECT_EQ(quest().whatdoin.caption, "C -   Brightwater JASPER FALCO v5.20");
}

TEST_F(OpenScreen, TheScreenKeepsTheOptionsScreenLoadedForAsLongAsItIsOpen) {
  Forms& forms = robot.program().forms;
  EXPECT_TRUE(pick_a_quiz().loaded);
  forms.unload(Form::quest);
  EXPECT_FALSE(pick_a_quiz().loaded);
  forms.show(Form::quest);
  EXPECT_TRUE(pick_a_quiz().loaded);
  EXPECT_FALSE(pick_a_quiz().visible);
}

TEST_F(OpenScreen, ALargerWindowGivesItsRoomToThePage) {
  const double width = quest().bounds.width;
  const double height = quest().bounds.height;
  const Bounds view = quest().WebBrowser1.bounds;
  const Bounds panel = quest().Frame1.bounds;
  const Bounds strip = quest().Frame2.bounds;
  quest().bounds.width = width + 3000;
  quest().bounds.height = height + 2000;
  quest().resize();
  EXPECT_EQ(quest().WebBrowser1.bounds,
            (Bounds{10, 10, width + 3000 - panel.width - 140, view.height + 2000}));
  EXPECT_EQ(quest().Frame1.bounds,
            (Bounds{10 + quest().WebBrowser1.bounds.width, 10, panel.width, view.height + 2000}));
  EXPECT_EQ(quest().Frame2.bounds, (Bounds{(width + 3000 - strip.width) / 2, strip.top + 2000,
                                           strip.width, strip.height}));
}

TEST_F(OpenScreen, AltGivesTheKeyboardToThePageAndOtherKeysDoNot) {
  quest().set_focus("cmd_buttons", 0);
  quest().key_down(false);
  EXPECT_EQ(quest().focus().first, "cmd_buttons");
  quest().key_down(true);
  EXPECT_EQ(quest().focus().first, "WebBrowser1");
}

TEST_F(OpenScreen, AResellersTestIsCalledByTheResellersName) {
  robot.program().branding.oem_active = 1;
  robot.program().branding.oem_name = "eTestCraft";
  --robot.run().question_position;
  quest().show_quest();
  EXPECT_TRUE(quest().caption.starts_with("TestCraft Practice Test for: ")) << quest().caption;
}

TEST_F(OpenScreen, TheWindowHasALeastSize) {
  quest().bounds = {0, 0, 300, 300};
  quest().resize();
  EXPECT_EQ(quest().bounds.width, 9540);
  EXPECT_EQ(quest().bounds.height, 6960);
  EXPECT_EQ(quest().Frame2.bounds.left, (9540 - quest().Frame2.bounds.width) / 2);
}

TEST_F(OpenScreen, AMinimisedWindowLaysNothingOut) {
  const Bounds view = quest().WebBrowser1.bounds;
  quest().window_state = WindowState::minimised;
  quest().bounds = {0, 0, 300, 300};
  quest().resize();
  EXPECT_EQ(quest().bounds.width, 300);
  EXPECT_EQ(quest().WebBrowser1.bounds, view);
}

}  // namespace
}  // namespace practice
