// The menus of the question screen, from their first marks to the way out.
#include "question_test.h"

namespace practice {
namespace {

class MenusAtTheStart : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }
};

using Menus = QuestionTest;

TEST_F(MenusAtTheStart, TheSavedFontIsUsedAndCheckedInTheMenus) {
  robot.world.settings.save("marlotest", "stuff", "savedfont", "14");
  robot.world.settings.save("marlotest", "stuff", "savedfontname", "Arial");
  start_test();
  EXPECT_TRUE(quest().menufont[1].checked);
  EXPECT_FALSE(quest().menufont[0].checked);
  EXPECT_TRUE(quest().menusize[3].checked);
  EXPECT_NE(robot.page().written().find("BODY{font-size: 14 pt}\r\n"), std::string::npos);
  EXPECT_NE(robot.page().written().find("BODY{font-family:Arial}\r\n"), std::string::npos);
}

TEST_F(MenusAtTheStart, AnUnknownFontIsReplacedForGood) {
  robot.world.settings.save("marlotest", "stuff", "savedfontname", "Wingdings");
  start_test();
  EXPECT_EQ(robot.program().options.font_name, "Times New Roman");
  EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "savedfontname", ""), "Times New Roman");
  EXPECT_TRUE(quest().menufont[0].checked);
}

TEST_F(MenusAtTheStart, TheOptionsAreCheckedInTheMenusAsTheTestStarts) {
  start_test();
  const Options& options = robot.program().options;
  EXPECT_EQ(quest().menu_showright.checked, options.show_answer_when_right == 1);
  EXPECT_EQ(quest().menu_showwrong.checked, options.show_answer_when_wrong == 1);
  EXPECT_EQ(quest().menu_backbutton.checked, options.back_button_on == 1);
  EXPECT_NE(options.show_answer_when_right, options.show_answer_when_wrong);
}

TEST_F(Menus, ANewFontShowsTheQuestionAnewAndForgetsWhatWasNotYetKept) {
  Question question = choice({1});
  question.answer_chosen[2] = 1;
  show(question, 3);
  robot.choose("radio1", 4);
  robot.click("quest", "menufont", 2);
  EXPECT_EQ(quest().question_number.caption, " 3");
  EXPECT_TRUE(page_has("BODY{font-family:Arial}"));
  EXPECT_TRUE(robot.page().input("radio1", 1)->checked);
  EXPECT_FALSE(robot.page().input("radio1", 3)->checked);
  EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "savedfontname", ""), "Arial");
}

TEST_F(Menus, TheSizesAreTwoPointsApartWhateverTheirCaptionsPromise) {
  const int points[] = {8, 10, 12, 14, 16, 18};
  show(choice({1}), 2);
  for (int i = 1; i <= 6; ++i) {
    robot.click("quest", "menusize", i);
    const std::string size = std::to_string(points[i - 1]);
    EXPECT_TRUE(page_has("BODY{font-size: " + size + " pt}")) << i;
    EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "savedfont", ""), size);
    EXPECT_EQ(quest().question_number.caption, " 2");
    for (int k = 1; k <= 6; ++k) {
      EXPECT_EQ(quest().menusize[static_cast<std::size_t>(k - 1)].checked, k == i);
    }
  }
}

TEST_F(MenusAtTheStart, SixteenPointsAreNoEntryOfTheSizeMenu) {
  robot.world.settings.save("marlotest", "stuff", "savedfont", "16");
  start_test();
  for (const MenuEntry& size : quest().menusize) EXPECT_FALSE(size.checked) << size.caption;
  EXPECT_NE(robot.page().written().find("BODY{font-size: 16 pt}"), std::string::npos);
}

TEST_F(Menus, SwitchingTheBackButtonOffTakesItAwayAtOnceAndForTheNextQuestion) {
  robot.click("quest", "menu_backbutton");
  EXPECT_FALSE(quest().cmd_buttons[1].visible);
  EXPECT_FALSE(quest().menu_backbutton.checked);
  next();
  EXPECT_FALSE(quest().cmd_buttons[1].visible);
  robot.click("quest", "menu_backbutton");
  EXPECT_TRUE(quest().cmd_buttons[1].visible);
  EXPECT_TRUE(quest().menu_backbutton.checked);
}

TEST_F(Menus, TheNumberOfAnswersIsToldFromTheNextPageOn) {
  options().show_answer_count = 0;
  show(choice({1, 3}));
  robot.click("quest", "menu_shownumanswer");
  EXPECT_TRUE(page_has("Select the correct answers."));
  show(choice({1, 3}));
  EXPECT_TRUE(page_has("Select the 2 Best Answers."));
}

TEST_F(Menus, ExitAsksFirstAndNoLeavesTheTestAsItWas) {
  const std::string before = html();
  robot.world.messages.answers = {Answer::no};
  robot.click("quest", "menu_exit");
  const MessageBox& box = robot.world.messages.shown.at(0);
  EXPECT_EQ(box.text, "Are you sure you want to exit the program?");
  EXPECT_EQ(box.title, "Exit Program?");
  EXPECT_EQ(box.buttons, Buttons::yes_no);
  EXPECT_FALSE(robot.app().has_ended());
  EXPECT_EQ(html(), before);
  EXPECT_EQ(run().question_position, 1);
}

TEST_F(Menus, ExitWritesNoResults) {
  next();
  robot.world.messages.answers = {Answer::yes};
  robot.click("quest", "menu_exit");
  EXPECT_TRUE(robot.world.stage.ended);
  EXPECT_FALSE(robot.world.files.exists("46000.STUDENT.results"));
}

TEST_F(Menus, TheWayBackToTheOptionsIsHidden) {
  EXPECT_ROBOT_REFUSES(robot.click("quest", "mnuBack"));
}

}  // namespace
}  // namespace practice
