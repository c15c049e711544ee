// Start-up, the welcome screen, and the end of the program.
#include <algorithm>

#include "robot/testing.h"

namespace practice {
namespace {

class WelcomeTest : public robot::StudentTest {
 protected:
  Welcome& welcome() { return robot.app().welcome(); }
  Program& program() { return robot.program(); }
};

TEST_F(WelcomeTest, TheWelcomeScreenStandsInTheMiddleWithItsThreeButtons) {
  robot.world.files.write("\\program\\FALCO_front_cover.jpg", "jpg");
  start();
  EXPECT_TRUE(welcome().visible);
  EXPECT_EQ(welcome().pointer, Pointer::normal);
  EXPECT_EQ(welcome().caption, "");
  EXPECT_EQ(welcome().Label6.caption, " Practice Test for:");
  EXPECT_EQ(welcome().Image3.file, "\\program\\FALCO_front_cover.jpg");
  EXPECT_FALSE(welcome().Image1.visible);
  EXPECT_EQ(welcome().bounds.left, (1920 * 15 - welcome().bounds.width) / 2);
  EXPECT_EQ(welcome().bounds.top, (1080 * 15 - welcome().bounds.height) / 2);
  for (const Picture& button : welcome().Image4) {
    EXPECT_TRUE(button.visible);
    EXPECT_NE(button.file, button.pressed_file);
  }
}

TEST_F(WelcomeTest, AQuarterOfTheBankIsOffered) {
  start();
  EXPECT_GT(program().catalogue.bank_total, 4);
  EXPECT_EQ(robot.run().question_total, program().catalogue.bank_total / 4);
}

TEST_F(WelcomeTest, StartUpNumbersTheRows) {
  start();
  EXPECT_EQ(row(1).question_id, 1);
  EXPECT_EQ(row(900).question_id, 900);
  EXPECT_EQ(row(901).question_id, 0);
  EXPECT_EQ(row(1000).cycle_a, 4);
}

TEST_F(WelcomeTest, TheProgramsFolderEndsInOneBackslash) {
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\", "C:\\"}, {"\\", "\\"}, {"C:\\exam", "C:\\exam\\"}, {"C:\\exam\\", "C:\\exam\\"}};
  for (const auto& [folder, install_dir] : cases) {
    robot::Robot other;
    other.world.platform.program_folder = folder;
    other.start("46000");
    EXPECT_EQ(other.program().install_dir, install_dir);
    EXPECT_EQ(other.program().catalogue.content_dir, std::string(install_dir) + "bw_falco\\");
  }
}

TEST_F(WelcomeTest, AnEmptyCommandLineIsTheOrdinaryProgram) {
  start("");
  EXPECT_EQ(program().saver_mode, 0);
  EXPECT_TRUE(welcome().visible);
  EXPECT_EQ(robot.run().question_total, 0);
}

TEST_F(WelcomeTest, OneLetterMoreOrLessStillIsTheOrdinaryProgram) {
  for (const char* line : {"46000a", "aaa46000", " aaaa46000"}) {
    robot::Robot other;
    other.start(line);
    EXPECT_EQ(other.program().saver_mode, 0) << line;
    EXPECT_TRUE(other.app().welcome().visible) << line;
    EXPECT_EQ(other.program().catalogue.exam_code, "46000") << line;
  }
}

TEST_F(WelcomeTest, AMissingCoverLeavesTheScreenUsable) {
  start();
  EXPECT_EQ(welcome().Image3.file, "");
  robot.click("Welcome", "Image4", 0);
  EXPECT_TRUE(pick_a_quiz().visible);
}

TEST_F(WelcomeTest, TheFirstStartInAFolderTestsItOnce) {
  start();
  EXPECT_EQ(file("file.wrt"), "TEST\r\n");
  EXPECT_TRUE(robot.world.messages.shown.empty());
  robot.world.files.write("file.wrt", "mine");
  robot.start("46000");
  EXPECT_EQ(file("file.wrt"), "mine");
  robot.world.files.remove("file.wrt");
  robot.start("46000");
  EXPECT_EQ(file("file.wrt"), "TEST\r\n");
}

TEST_F(WelcomeTest, AReadOnlyFolderIsToldAtEachStart) {
  robot.world.files.protect("file.wrt");
  for (int i = 1; i <= 2; ++i) {
    robot.world.messages.shown.clear();
    start();
    ASSERT_EQ(robot.world.messages.shown.size(), 1u);
    const MessageBox& box = robot.world.messages.shown[0];
    EXPECT_EQ(box.text,
              "You do not appear to have file system permissions.  Please log off and log on as "
              "administrator.");
    EXPECT_EQ(box.title, "File Permissions");
    EXPECT_EQ(box.buttons, Buttons::ok);
    EXPECT_TRUE(welcome().visible) << "the program carries on";
  }
}

TEST_F(WelcomeTest, TheFirstResizeLaysTheCoverOverTheWindowAndLaterOnesChangeNothing) {
  start();
  const auto buttons = welcome().Image4;
  welcome().bounds.width = 7000;
  welcome().bounds.height = 9000;
  welcome().resize();
  EXPECT_EQ(welcome().bounds.width, 5925);
  EXPECT_EQ(welcome().bounds.height, 7800);
  EXPECT_TRUE(welcome().Image3.visible);
  EXPECT_EQ(welcome().Image3.bounds, (Bounds{0, 0, 5925, 7800}));
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    EXPECT_EQ(welcome().Image4[i].bounds, buttons[i].bounds) << i;
  }
  welcome().bounds.width = 7000;
  welcome().resize();
  EXPECT_EQ(welcome().bounds.width, 7000);
  EXPECT_EQ(welcome().Image3.bounds.width, 5925);
}

TEST_F(WelcomeTest, StartOpensTheOptionsInItsPlace) {
  start();
  robot.click("Welcome", "Image4", 0);
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_FALSE(welcome().visible);
  EXPECT_TRUE(welcome().loaded);
  EXPECT_EQ(program().forms.in_front(), &pick_a_quiz());
  EXPECT_EQ(pick_a_quiz().bounds.left, (1920 * 15 - pick_a_quiz().bounds.width) / 2);
}

TEST_F(WelcomeTest, HelpIsOpenedByTheDesktop) {
  start();
  robot.click("Welcome", "Image4", 1);
  EXPECT_EQ(robot.world.shell.calls, std::vector<std::string>{"open marlo.chm"});
  EXPECT_TRUE(welcome().visible);
}

TEST_F(WelcomeTest, ExitTakesEveryScreenAwayAndEndsTheProcess) {
  start();
  robot.click("Welcome", "Image4", 2);
  EXPECT_TRUE(robot.world.stage.ended);
  EXPECT_FALSE(welcome().loaded);
}

TEST_F(WelcomeTest, ClosingTheWindowEndsTheProcessToo) {
  start();
  welcome().close_window();
  EXPECT_TRUE(robot.world.stage.ended);
  EXPECT_TRUE(robot.app().has_ended());
}

TEST_F(WelcomeTest, LeavingFromTheOptionsTakesEveryScreenAway) {
  start();
  robot.click("Welcome", "Image4", 0);
  robot.click("pick_a_quiz", "menu_exit");
  EXPECT_TRUE(robot.world.stage.ended);
  for (const Screen* screen : program().forms.all()) {
    if (screen == nullptr) continue;
    EXPECT_FALSE(screen->loaded) << screen->form_name;
    EXPECT_FALSE(screen->visible) << screen->form_name;
  }
}

TEST_F(WelcomeTest, LeavingFromATestWritesNothing) {
  start();
  start_test();
  const auto files = robot.world.files.names();
  robot.app().quit();
  EXPECT_TRUE(robot.world.stage.ended);
  EXPECT_EQ(robot.world.files.names(), files);
  EXPECT_FALSE(quest().loaded);
}

TEST_F(WelcomeTest, FaultsOfTheStartAreLoggedAndTheStudentSeesNone) {
  start();
  EXPECT_NE(file("error.log").find(" - Welcome form load() - Welcome53 - File not found - \r\n"),
            std::string::npos);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(WelcomeTest, TwoProgramsSideBySideDoNotKnowEachOther) {
  start();
  robot::Robot other;
  other.put_distribution();
  other.start("46006");
  EXPECT_EQ(program().catalogue.exam_code, "46000");
  EXPECT_EQ(other.program().catalogue.exam_code, "46006");
  other.click("Welcome", "Image4", 2);
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(WelcomeTest, AFinishedTestIsCounted) {
  start();
  for (const char* counted : {"1", "2"}) {
    if (welcome().visible) {
      start_test();
    } else {
      robot.click("pick_a_quiz", "Command1");
    }
    robot.click("quest", "menu_quittest");
    EXPECT_EQ(robot.world.settings.get("marlo", "46000", "num_times", "0"), counted);
    robot.click("finalscore", "Command1");
  }
}

TEST_F(WelcomeTest, FourLettersStartTheSaverInPlaceOfTheScreen) {
  for (const char* line : {"aaaa46000", "aaaap46002", "aaaa4600a7 "}) {
    robot::Robot other;
    bool was_shown = false;
    other.world.stage.during_pump = [&] { was_shown = was_shown || other.app().welcome().visible; };
    other.put_distribution();
    other.start(line);
    EXPECT_EQ(other.program().saver_mode, 1) << line;
    EXPECT_FALSE(other.world.stage.ended) << line;
    EXPECT_TRUE(other.app().security().visible) << line;
    EXPECT_FALSE(was_shown || other.app().welcome().visible) << line;
  }
}

TEST_F(WelcomeTest, ASaverWithoutAnExamEndsTheProgramAndLeavesALine) {
  for (const char* line : {"aaaa", "aaaaaaaa", "aaaa rubbish", "aaaa46001"}) {
    robot::Robot other;
    other.put_distribution();
    other.start(line);
    EXPECT_TRUE(other.world.stage.ended) << line;
    EXPECT_NE(other.world.files.read("error.log")
                  .find(" - Welcome form load() - Welcome5 - Invalid procedure call"),
              std::string::npos)
        << line;
    for (const Screen* screen : other.program().forms.all()) {
      EXPECT_TRUE(screen == nullptr || !screen->visible) << line;
    }
  }
}

TEST_F(WelcomeTest, TheSaverRunsForTheExamBehindTheLetters) {
  start("aaaa46002");
  EXPECT_EQ(program().catalogue.exam_code, "46002");
}

TEST_F(WelcomeTest, CapitalsAreNotTheSavers) {
  start("AAAA46000");
  EXPECT_EQ(program().saver_mode, 0);
  EXPECT_TRUE(welcome().visible);
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(WelcomeTest, ANoticeStandsInTheMiddleWhileTheProgramLoads) {
  int pumps = 0;
  robot.world.stage.during_pump = [&] {
    if (++pumps > 1) return;
    const Screen& notice = robot.screen("loading");
    EXPECT_TRUE(notice.visible);
    EXPECT_FALSE(notice.modal);
    EXPECT_EQ(notice.bounds.left, (1920 * 15 - notice.bounds.width) / 2);
    EXPECT_EQ(notice.bounds.top, (1080 * 15 - notice.bounds.height) / 2);
    const auto caption = [&](const char* name) {
      return std::get<Label*>(robot.control("loading", name).control)->caption;
    };
    EXPECT_EQ(caption("Label1"), "Please Wait,");
    EXPECT_EQ(caption("Label2"), "Loading ......");
    EXPECT_FALSE(welcome().visible);
  };
  start();
  EXPECT_EQ(pumps, 1) << "it was painted once";
  EXPECT_FALSE(robot.screen("loading").loaded);
  EXPECT_FALSE(robot.screen("loading").visible);
  EXPECT_EQ(program().forms.in_front(), &welcome());
}

TEST_F(WelcomeTest, TheLicenceIsOpenedFromTheProgramsFolder) {
  const std::pair<const char*, const char*> cases[] = {{"C:\\exam", "file:///C:\\exam\\EULA.txt"},
                                                       {"C:\\", "file:///C:\\EULA.txt"}};
  for (const auto& [folder, address] : cases) {
    robot::Robot other;
    other.world.platform.program_folder = folder;
    other.start("46000");
    EXPECT_EQ(other.app().welcome().lblEULALink.caption, "EULA");
    other.click("Welcome", "lblEULALink");
    ASSERT_EQ(other.world.shell.opened.size(), 1u);
    EXPECT_EQ(other.world.shell.opened[0].target, address);
    EXPECT_TRUE(other.app().welcome().visible);
  }
}

TEST_F(WelcomeTest, TheCoverLayoutHidesEverythingOfTheOtherLayouts) {
  start();
  const std::vector<std::pair<std::string, int>> shown{{"Image3", 0}, {"Image4", 0},
                                                       {"Image4", 1}, {"Image4", 2},
                                                       {"Label6", 0}, {"lblEULALink", 0}};
  for (const ControlEntry& entry : welcome().controls()) {
    const bool expected =
        std::ranges::find(shown, std::pair{entry.name, entry.index}) != shown.end();
    EXPECT_EQ(base_of(entry.control).visible, expected) << entry.name << " " << entry.index;
  }
}

TEST_F(WelcomeTest, TheButtonsOfTheOtherLayoutsDoWhatTheirPicturesSay) {
  for (const char* name : {"Start_Quiz", "cmd_start_real", "HMI_Start"}) {
    start();
    robot.control("Welcome", name).click();
    EXPECT_TRUE(pick_a_quiz().visible) << name;
    EXPECT_FALSE(welcome().visible) << name;
  }
  for (const char* name : {"help_command", "hmi_help"}) {
    start();
    robot.world.shell.calls.clear();
    robot.control("Welcome", name).click();
    EXPECT_EQ(robot.world.shell.calls, std::vector<std::string>{"open marlo.chm"}) << name;
  }
  for (const char* name : {"Command1", "hmi_exit"}) {
    start();
    robot.world.stage.ended = false;
    robot.control("Welcome", name).click();
    EXPECT_TRUE(robot.world.stage.ended) << name;
  }
}

TEST_F(WelcomeTest, TheFocusGoesToTheStartButtonOnlyWhereItIsShown) {
  start();
  EXPECT_EQ(welcome().focus().first, "");
  welcome().cmd_start_real.visible = true;
  welcome().activate();
  EXPECT_EQ(welcome().focus().first, "cmd_start_real");
}

TEST_F(WelcomeTest, TheOptionsComeBackFreshAfterTheyWereClosed) {
  start();
  robot.click("Welcome", "Image4", 0);
  robot.type("pick_a_quiz", "txtstudentname", 0, "anna");
  pick_a_quiz().close_window();
  robot.click("Welcome", "Image4", 0);
  EXPECT_EQ(pick_a_quiz().txtstudentname.text, "STUDENT");
}

}  // namespace
}  // namespace practice
