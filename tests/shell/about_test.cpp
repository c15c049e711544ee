// The about box.
#include "robot/testing.h"

namespace practice {
namespace {

class AboutTest : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }

  About1& about() { return robot.app().about(); }
  /// By the picture that the layout without a cover shows.
  void open() { robot.control("Welcome", "About").click(); }
};

TEST_F(AboutTest, ItStandsInTheMiddleAndTellsTheTerms) {
  open();
  EXPECT_TRUE(about().visible);
  EXPECT_EQ(about().bounds.left, (1920 * 15 - about().bounds.width) / 2);
  EXPECT_EQ(about().bounds.top, (1080 * 15 - about().bounds.height) / 2);
  EXPECT_EQ(about().Label4.caption,
            "Warning:  Use constitutes consent to the End User License Agreement (EULA).  No "
            "warranty is expressed or implied.  Use at your own risk.");
  EXPECT_TRUE(about().Label5.caption.ends_with("http://www.brightwater.example"));
  EXPECT_EQ(about().Command1.caption, "&Close");
  EXPECT_EQ(about().hmi_about_exit.caption, "E&xit");
  EXPECT_EQ(about().Command3.caption, "&E-Mail Support");
}

TEST_F(AboutTest, TheOptionsMenuLeadsToItWhereAnEditionLetsIt) {
  robot.click("Welcome", "Image4", 0);
  EXPECT_ROBOT_REFUSES(robot.click("pick_a_quiz", "menu_about"));
  pick_a_quiz().menu_about.enabled = true;
  robot.click("pick_a_quiz", "menu_about");
  EXPECT_TRUE(about().visible);
  EXPECT_TRUE(pick_a_quiz().visible);
}

TEST_F(AboutTest, ThePublishersFrameIsOfTheBookEdition) {
  open();
  EXPECT_TRUE(about().Frame1.visible);
  about().close_window();
  robot.program().catalogue.book_edition = 0;
  open();
  EXPECT_FALSE(about().Frame1.visible);
}

TEST_F(AboutTest, AResellersPictureIsLookedForAtEachOpening) {
  const std::string log = file("error.log");
  open();
  EXPECT_EQ(about().Image1.file, "");
  EXPECT_EQ(file("error.log"), log) << "a missing picture is no matter here";
  about().close_window();
  robot.world.files.write("oemsplash.gif", "gif");
  open();
  EXPECT_EQ(about().Image1.file, "oemsplash.gif");
  about().close_window();
  robot.world.files.remove("oemsplash.gif");
  open();
  EXPECT_EQ(about().Image1.file, "");
}

TEST_F(AboutTest, EachWayOutTakesItAwayAndTheProgramGoesOn) {
  const auto by_button = [&](const char* name) {
    return [this, name] { robot.click("About1", name); };
  };
  const std::function<void()> ways[] = {by_button("Command1"), by_button("hmi_about_exit"),
                                        [&] { about().close_window(); }};
  for (const auto& leave : ways) {
    open();
    leave();
    EXPECT_FALSE(about().visible);
    EXPECT_FALSE(about().loaded);
    EXPECT_TRUE(robot.app().welcome().visible);
    EXPECT_FALSE(robot.world.stage.ended);
  }
}

TEST_F(AboutTest, SupportGetsALetterThatNamesTheTest) {
  Catalogue& catalogue = robot.program().catalogue;
  catalogue.exam_title = "A Test";
  catalogue.exam_version = "5.20";
  open();
  robot.click("About1", "Command3");
  EXPECT_EQ(robot.world.shell.calls,
            std::vector<std::string>{
                "open mailto:support@marlo.example?subject=Assistance Requested&BODY=Place "
                "question or comment here:%0d%0aTest_Name=A Test%0d%0aVersion:   5.20   Check for "
                "new versions regularly.%0d%0aPart_Number=46000"});
  EXPECT_TRUE(about().visible);
}

TEST_F(AboutTest, WithoutAMailProgramNothingHappens) {
  robot.world.shell.result = 31;
  open();
  robot.click("About1", "Command3");
  EXPECT_EQ(robot.world.shell.calls.size(), 1u);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

}  // namespace
}  // namespace practice
