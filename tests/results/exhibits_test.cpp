// Exhibits and diagrams beside a test.
#include "robot/testing.h"

namespace practice {
namespace {

class ExhibitsTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    start_test();
    robot.program().options.show_answer_when_wrong = 0;
    robot.world.files.write(folder() + "q1.txt", "line one\r\n\r\nline three");
    robot.world.files.write(folder() + "q2.txt", "other\r\n");
    robot.world.files.write(folder() + "d1.png", "png");
  }

  std::string folder() { return robot.program().catalogue.content_dir; }
  /// Moves on to the next question, whose exhibit and diagram these are.
  void next_with(const char* exhibit, const char* diagram = "") {
    Question& question = row(robot.run().question_position + 1);
    question.exhibits[1] = exhibit;
    question.diagrams[1] = diagram;
    next();
  }
  Exhibit& exhibit() { return robot.app().exhibit(); }
  Diagram& diagram() { return robot.app().diagram(); }
};

TEST_F(ExhibitsTest, AnExhibitOpensBesideTheQuestion) {
  next_with("q1.txt");
  robot.click("quest", "exhibitbutton", 0);
  EXPECT_TRUE(exhibit().visible);
  EXPECT_FALSE(exhibit().modal);
  EXPECT_TRUE(quest().visible);
  EXPECT_EQ(exhibit().caption, "Exhibit");
  EXPECT_EQ(exhibit().text1.text, "line one\r\n\r\nline three\r\n");
}

TEST_F(ExhibitsTest, PressingTheButtonTwiceShowsTheTextTwice) {
  next_with("q1.txt");
  robot.click("quest", "exhibitbutton", 0);
  robot.click("Exhibit", "Command1");
  EXPECT_FALSE(exhibit().visible);
  EXPECT_TRUE(exhibit().loaded);
  robot.click("quest", "exhibitbutton", 0);
  EXPECT_EQ(exhibit().text1.text, "line one\r\n\r\nline three\r\nline one\r\n\r\nline three\r\n");
}

TEST_F(ExhibitsTest, AnExhibitOfALaterQuestionStandsBelowTheEarlierOne) {
  next_with("q1.txt");
  robot.click("quest", "exhibitbutton", 0);
  next_with("q2.txt");
  EXPECT_TRUE(exhibit().visible) << "Next leaves it open";
  robot.click("quest", "exhibitbutton", 0);
  EXPECT_EQ(exhibit().text1.text, "line one\r\n\r\nline three\r\nother\r\n");
}

TEST_F(ExhibitsTest, BackTakesExhibitAndDiagramAway) {
  next_with("q1.txt", "d1.png");
  robot.click("quest", "exhibitbutton", 0);
  robot.click("quest", "diagrambutton", 0);
  back();
  EXPECT_FALSE(exhibit().loaded);
  EXPECT_FALSE(diagram().loaded);
  next();
  robot.click("quest", "exhibitbutton", 0);
  EXPECT_EQ(exhibit().text1.text, "line one\r\n\r\nline three\r\n");
}

TEST_F(ExhibitsTest, AQuestionWithoutAnExhibitDoesNothing) {
  next_with("");
  EXPECT_ROBOT_REFUSES(robot.click("quest", "exhibitbutton", 0));
  exhibit().open_exhibit(1);
  diagram().open_diagram(1);
  EXPECT_FALSE(exhibit().loaded);
  EXPECT_FALSE(diagram().loaded);
}

TEST_F(ExhibitsTest, AMissingTextLeavesTheOldOneAndTheScreenStillOpens) {
  next_with("q2.txt");
  robot.click("quest", "exhibitbutton", 0);
  robot.click("Exhibit", "Command1");
  next_with("none.txt");
  robot.click("quest", "exhibitbutton", 0);
  EXPECT_TRUE(exhibit().visible);
  EXPECT_EQ(exhibit().text1.text, "other\r\n");
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(ExhibitsTest, ADiagramIsThePictureItself) {
  next_with("", "d1.png");
  robot.click("quest", "diagrambutton", 0);
  EXPECT_TRUE(diagram().visible);
  EXPECT_EQ(diagram().caption, "Diagram");
  EXPECT_EQ(diagram().Image1.view.address(), folder() + "d1.png");
  robot.world.stage.pump();
  EXPECT_EQ(diagram().Image1.view.picture(), folder() + "d1.png");
  robot.click("Diagram", "Command1");
  EXPECT_FALSE(diagram().visible);
  EXPECT_TRUE(diagram().loaded);
}

TEST_F(ExhibitsTest, AMissingPictureShowsTheViewsOwnFailure) {
  next_with("", "none.png");
  robot.click("quest", "diagrambutton", 0);
  robot.world.stage.pump();
  EXPECT_TRUE(diagram().visible);
  EXPECT_EQ(diagram().Image1.view.picture(), "");
  EXPECT_NE(diagram().Image1.view.document.written(), "");
}

TEST_F(ExhibitsTest, AMarkerOfASimulatorHasNoDiagramButton) {
  next_with("", "xxsim");
  EXPECT_ROBOT_REFUSES(robot.click("quest", "diagrambutton", 0));
}

// The button of a dialogue simulator's marker stands there, and there is no such picture.
TEST_F(ExhibitsTest, AMarkerThatIsOpenedIsAFileThatIsNotThere) {
  next_with("", "xxxmssim");
  robot.click("quest", "diagrambutton", 0);
  EXPECT_TRUE(diagram().visible);
  EXPECT_EQ(diagram().Image1.view.address(), folder() + "xxxmssim");
  robot.world.stage.pump();
  EXPECT_EQ(diagram().Image1.view.picture(), "");
}

TEST_F(ExhibitsTest, BothGrowFreelyAndShrinkToTheirLeastSizeByDirection) {
  next_with("q1.txt", "d1.png");
  robot.click("quest", "exhibitbutton", 0);
  robot.click("quest", "diagrambutton", 0);
  const struct {
    Screen& screen;
    const Control& main;
    const Control& button;
    double width, height;
  } cases[] = {{exhibit(), exhibit().text1, exhibit().Command1, 10125, 5955},
               {diagram(), diagram().Image1, diagram().Command1, 11040, 7455}};
  for (const auto& expected : cases) {
    Screen& screen = expected.screen;
    const double width_gap = screen.bounds.width - expected.main.bounds.width;
    const double height_gap = screen.bounds.height - expected.main.bounds.height;
    const double button_gap = screen.bounds.height - expected.button.bounds.top;
    const auto expect_size = [&](double width, double height) {
      EXPECT_EQ(screen.bounds.width, width);
      EXPECT_EQ(screen.bounds.height, height);
      EXPECT_EQ(expected.main.bounds.width, width - width_gap);
      EXPECT_EQ(expected.main.bounds.height, height - height_gap);
      EXPECT_EQ(expected.main.bounds.left, 120);
      EXPECT_EQ(expected.main.bounds.top, 120);
      EXPECT_EQ(expected.button.bounds.top, height - button_gap);
      EXPECT_EQ(expected.button.bounds.left, (width - expected.button.bounds.width) / 2);
    };
    const auto resize = [&](double width, double height) {
      screen.bounds.width = width;
      screen.bounds.height = height;
      screen.resize();
    };
    resize(40000, 30000);
    expect_size(40000, 30000);
    resize(40000, 100);
    expect_size(40000, expected.height);
    resize(100, 30000);
    expect_size(expected.width, 30000);
    screen.window_state = WindowState::minimised;
    resize(10, 10);
    EXPECT_EQ(screen.bounds.width, 10);
  }
}

}  // namespace
}  // namespace practice
