// The study saver's pace, and making a test the screen's saver.
#include "robot/testing.h"

namespace practice {
namespace {

class SaverSettingsTest : public robot::StudentTest {
 protected:
  void SetUp() override { open("46002"); }

  void open(const char* exam) {
    start(exam);
    robot.click("Welcome", "Image4", 0);
  }
  void scroll(const char* bar, int value) {
    const ControlEntry& entry = robot.control("pick_a_quiz", bar);
    std::get<ScrollBar*>(entry.control)->value = value;
    entry.change();
  }
  std::string label(const char* name) {
    return std::get<Label*>(robot.control("pick_a_quiz", name).control)->caption;
  }
  std::string stored(const char* key) {
    return robot.world.settings.get("marlo_study_saver", "settings", key, "(none)");
  }
  std::vector<std::string>& calls() { return robot.world.shell.calls; }
};

TEST_F(SaverSettingsTest, TheScreenOpensAtItsDesign) {
  EXPECT_EQ(label("lbldisplayans"), "3");
  EXPECT_EQ(label("lbldisplaycorr"), "6");
  EXPECT_EQ(pick_a_quiz().chkRandom.value, 0);
  EXPECT_EQ(label("Label14"), "Configure Your Study Saver");
  EXPECT_EQ(label("lbl1"), "seconds before displaying answers");
  EXPECT_EQ(label("Label13"), "seconds before displaying correct answer(s)");
  EXPECT_EQ(pick_a_quiz().chkRandom.caption, "Randomize Questions");
  EXPECT_EQ(pick_a_quiz().cmdok.caption, "Save Configuration");
  EXPECT_EQ(label("Label12"), "Make This Test Your Screensaver");
  EXPECT_EQ(pick_a_quiz().cmdok.tool_tip, "Click Here to Save Your Configuration");
  EXPECT_EQ(pick_a_quiz().cmdSet.caption, " Set as &DEFAULT Screen Saver ");
}

TEST_F(SaverSettingsTest, MovingABarUpCountsDownAndStopsAtOne) {
  const struct {
    int value;
    const char* shown;
  } moves[] = {{1, "2"},  {2, "1"},  {3, "1"}, {9, "1"},      {8, "2"},    {-5, "3"},
               {-5, "3"}, {-6, "4"}, {0, "3"}, {-32768, "4"}, {32767, "3"}};
  for (const auto& move : moves) {
    scroll("VScroll4", move.value);
    EXPECT_EQ(label("lbldisplayans"), move.shown) << move.value;
    EXPECT_EQ(label("lbldisplaycorr"), "6") << "the other count is its own";
  }
}

TEST_F(SaverSettingsTest, ThreeStepsDownFromTheDesignEndAtOne) {
  for (const char* shown : {"2", "1", "1"}) {
    scroll("VScroll4", pick_a_quiz().VScroll4.value + 1);
    EXPECT_EQ(label("lbldisplayans"), shown);
  }
  for (const char* shown : {"5", "4", "3", "2", "1", "1"}) {
    scroll("VScroll3", pick_a_quiz().VScroll3.value + 1);
    EXPECT_EQ(label("lbldisplaycorr"), shown);
  }
}

TEST_F(SaverSettingsTest, ACountHasNoUpperLimit) {
  for (int value = -1; value >= -200; --value) scroll("VScroll3", value);
  EXPECT_EQ(label("lbldisplaycorr"), "206");
  EXPECT_EQ(label("lbldisplayans"), "3");
  for (int value = -199; value <= 10; ++value) scroll("VScroll3", value);
  EXPECT_EQ(label("lbldisplaycorr"), "1");
}

TEST_F(SaverSettingsTest, TheLargestCountStaysAndNothingBreaks) {
  pick_a_quiz().lbldisplayans.caption = "32767";
  scroll("VScroll4", -1);
  EXPECT_EQ(label("lbldisplayans"), "32767");
  scroll("VScroll4", 0);
  EXPECT_EQ(label("lbldisplayans"), "32766");
}

TEST_F(SaverSettingsTest, SavingWritesTheTwoPacesAndTheOrder) {
  scroll("VScroll4", 1);
  scroll("VScroll3", -1);
  robot.click("pick_a_quiz", "cmdok");
  EXPECT_EQ(stored("aspeed"), "2");
  EXPECT_EQ(stored("cspeed"), "7");
  EXPECT_EQ(stored("RandQuestions"), "0");
  robot.click("pick_a_quiz", "chkRandom");
  robot.click("pick_a_quiz", "cmdok");
  EXPECT_EQ(stored("RandQuestions"), "1");
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(SaverSettingsTest, TheBoxIsSavedAsItStands) {
  EXPECT_EQ(stored("RandQuestions"), "(none)") << "nothing is saved before the button";
  for (const char* saved : {"1", "0", "1"}) {
    robot.click("pick_a_quiz", "chkRandom");
    robot.click("pick_a_quiz", "cmdok");
    EXPECT_EQ(stored("RandQuestions"), saved);
  }
}

TEST_F(SaverSettingsTest, SavingThePaceAndSettingTheSaverDoNotWriteEachOthersValues) {
  robot.click("pick_a_quiz", "cmdok");
  EXPECT_EQ(stored("which_test"), "(none)");
  EXPECT_EQ(stored("where_test"), "(none)");
  EXPECT_TRUE(calls().empty());
  robot.world.settings.values.clear();
  robot.click("pick_a_quiz", "cmdSet");
  EXPECT_EQ(stored("aspeed"), "(none)");
  EXPECT_EQ(stored("cspeed"), "(none)");
  EXPECT_EQ(stored("RandQuestions"), "(none)");
}

TEST_F(SaverSettingsTest, WhatWasSavedIsNotShownAgainAndALaterSaveWritesTheDesignAnew) {
  scroll("VScroll4", 1);
  scroll("VScroll3", 1);
  robot.click("pick_a_quiz", "chkRandom");
  robot.click("pick_a_quiz", "cmdok");
  robot.program().forms.unload(Form::pick_a_quiz);
  robot.program().forms.show(Form::pick_a_quiz);
  EXPECT_EQ(label("lbldisplayans"), "3");
  EXPECT_EQ(label("lbldisplaycorr"), "6");
  EXPECT_EQ(pick_a_quiz().chkRandom.value, 0);
  scroll("VScroll4", 1);
  EXPECT_EQ(label("lbldisplayans"), "2") << "the bar counts from its middle again";
  scroll("VScroll4", 0);
  robot.click("pick_a_quiz", "cmdok");
  EXPECT_EQ(stored("aspeed"), "3");
  EXPECT_EQ(stored("cspeed"), "6");
  EXPECT_EQ(stored("RandQuestions"), "0");
}

TEST_F(SaverSettingsTest, TheTestBecomesTheScreensSaver) {
  const std::string saver = "C:\\savers\\brightwater_press_study_saver.scr";
  robot.world.shell.on_path["brightwater_press_study_saver.scr"] = saver;
  for (const char* control : {"cmdSet", "Label12"}) {
    calls().clear();
    robot.world.settings.values.clear();
    robot.click("pick_a_quiz", control);
    EXPECT_EQ(stored("which_test"), "46002") << control;
    EXPECT_EQ(stored("where_test"), "\\program\\bw_robin.exe") << control;
    EXPECT_EQ(calls(), std::vector<std::string>{"make screen saver " + saver});
  }
}

TEST_F(SaverSettingsTest, ASaverThatIsNowhereIsAskedForAllTheSame) {
  robot.click("pick_a_quiz", "cmdSet");
  EXPECT_EQ(calls(), std::vector<std::string>{"make screen saver "});
  EXPECT_EQ(stored("which_test"), "46002");
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(SaverSettingsTest, TheProgramOfTheTestStandsBehindExactlyOneBackslash) {
  const std::pair<const char*, const char*> cases[] = {{"C:\\", "C:\\bw_robin.exe"},
                                                       {"\\", "\\bw_robin.exe"},
                                                       {"C:\\exam", "C:\\exam\\bw_robin.exe"},
                                                       {"C:\\exam\\", "C:\\exam\\bw_robin.exe"}};
  for (const auto& [folder, target] : cases) {
    robot.world.platform.program_folder = folder;
    open("46002");
    robot.click("pick_a_quiz", "cmdSet");
    EXPECT_EQ(stored("where_test"), target);
  }
}

TEST_F(SaverSettingsTest, WithoutACoverTheProgramItselfIsNamedWithoutItsEnding) {
  const std::pair<const char*, const char*> cases[] = {
      {"practice_exam.exe", "\\program\\practice_exam"},
      {"practice_exam", "\\program\\practice_exam"},
      {"exam.exe.old", "\\program\\exam"}};
  robot.program().catalogue.book_layout = 0;
  for (const auto& [name, target] : cases) {
    robot.world.platform.program_file = name;
    robot.click("pick_a_quiz", "cmdSet");
    EXPECT_EQ(stored("where_test"), target);
  }
}

TEST_F(SaverSettingsTest, EachExamNamesItself) {
  const std::pair<const char*, const char*> cases[] = {{"46000", "\\program\\"},
                                                       {"46004", "\\program\\bw_lark.exe"},
                                                       {"46007", "\\program\\bw_wren.exe"}};
  for (const auto& [exam, target] : cases) {
    open(exam);
    robot.click("pick_a_quiz", "cmdSet");
    EXPECT_EQ(stored("which_test"), exam);
    EXPECT_EQ(stored("where_test"), target);
  }
}

TEST_F(SaverSettingsTest, AFullSettingsStoreIsPassedOverInSilence) {
  const std::string log = file("error.log");
  robot.world.settings.is_full = true;
  robot.click("pick_a_quiz", "cmdok");
  robot.click("pick_a_quiz", "cmdSet");
  EXPECT_EQ(calls().size(), 1u) << "the desktop's settings open all the same";
  EXPECT_TRUE(robot.world.messages.shown.empty());
  EXPECT_EQ(file("error.log"), log);
}

}  // namespace
}  // namespace practice
