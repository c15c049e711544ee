// The menus of the options screen: which entries there are, and which a student can use.
#include "robot/testing.h"

namespace practice {
namespace {

class OptionsMenusTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    robot.click("Welcome", "Image4", 0);
  }
};

TEST_F(OptionsMenusTest, EachEntryStandsInItsMenuAndSomeAreNotOfThisEdition) {
  const struct {
    const char* name;
    const char* menu;
    const char* caption;
    bool visible = true;
    bool enabled = true;
  } entries[] = {
      {"menu_file", "", "&File"},
      {"mnu_savesettings", "menu_file", "Save Settings"},
      {"menu_exit", "menu_file", "E&xit Program"},
      {"mnu_history", "", "Histor&y"},
      {"mnu_viewtestscorehistory", "mnu_history", "View Test Score History"},
      {"mnu_emailtestscorehistory", "mnu_history", "Email Test Score History", true, false},
      {"mnu_resetuserhistory", "mnu_history", "Reset User History"},
      {"mnu_testingmode", "", "Testing M&ode"},
      {"mnu_learningmode", "mnu_testingmode", "Practice (default)"},
      {"mnu_simulatormode", "mnu_testingmode", "Test Mode"},
      {"mnu_update123", "", "&Update", false, false},
      {"mnu_check_for_upgrade123", "mnu_update123", "Check for Upgrade"},
      {"menu_help", "", "&Help"},
      {"menu_contents", "menu_help", "&Contents"},
      {"menu_about", "menu_help", "&About", true, false}};
  for (const auto& expected : entries) {
    const ControlEntry& entry = robot.control("pick_a_quiz", expected.name);
    const MenuEntry& state = *std::get<MenuEntry*>(entry.control);
    EXPECT_EQ(entry.menu, expected.menu) << expected.name;
    EXPECT_EQ(state.caption, expected.caption) << expected.name;
    EXPECT_EQ(state.visible, expected.visible) << expected.name;
    EXPECT_EQ(state.enabled, expected.enabled) << expected.name;
  }
  int count = 0;
  for (const ControlEntry& entry : pick_a_quiz().controls()) {
    count += std::holds_alternative<MenuEntry*>(entry.control) ? 1 : 0;
  }
  EXPECT_EQ(count, static_cast<int>(std::size(entries)));
}

TEST_F(OptionsMenusTest, WhatIsNotOfThisEditionCanNotBeUsed) {
  for (const char* name : {"mnu_emailtestscorehistory", "mnu_check_for_upgrade123", "menu_about"}) {
    EXPECT_ROBOT_REFUSES(robot.click("pick_a_quiz", name));
  }
  EXPECT_TRUE(robot.world.internet.asked.empty());
}

TEST_F(OptionsMenusTest, LoadingTheScreenTakesAwayWhatIsNotOfThisEdition) {
  pick_a_quiz().mnu_update123.visible = true;
  pick_a_quiz().menu_about.enabled = true;
  robot.program().forms.unload(Form::pick_a_quiz);
  robot.program().forms.show(Form::pick_a_quiz);
  EXPECT_FALSE(pick_a_quiz().mnu_update123.visible);
  EXPECT_FALSE(pick_a_quiz().menu_about.enabled);
}

TEST_F(OptionsMenusTest, ContentsOpensTheHelp) {
  robot.click("pick_a_quiz", "menu_contents");
  EXPECT_EQ(robot.world.shell.calls, std::vector<std::string>{"open marlo.chm"});
}

TEST_F(OptionsMenusTest, WhatOtherEditionsOfferIsHiddenFromTheScreen) {
  for (const char* name :
       {"askwrong", "chkEmbed", "howmanyq", "VScroll2", "Label1", "Label2", "Label5"}) {
    EXPECT_FALSE(base_of(robot.control("pick_a_quiz", name).control).visible) << name;
  }
}

}  // namespace
}  // namespace practice
