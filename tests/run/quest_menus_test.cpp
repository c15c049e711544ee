// The menus of the question screen, from their first marks to the way out.
#include "question_test.h"

namespace practice {
namespace {

class MenusAtTheStart : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }
  void start_test_again() {
    robot.program().forms.show(Form::pick_a_quiz);
    robot.click("pick_a_quiz", "Command1");
  }
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
  EXPECT_EQ(quest().menu_shownumanswer.checked, options.show_answer_count == 1);
  EXPECT_EQ(quest().mnuEmbed.checked, options.embed_media != 0);
  EXPECT_TRUE(quest().mnu_answer_at_top.checked);
  EXPECT_FALSE(quest().mnu_answer_at_bottom.checked);
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
  EXPECT_FALSE(quest().menufont[0].checked);
  EXPECT_TRUE(quest().menufont[1].checked);
}

TEST_F(Menus, AnEntryWithoutANameIsTheOrdinaryFont) {
  quest().menufont[1].caption.clear();
  robot.click("quest", "menufont", 2);
  EXPECT_EQ(options().font_name, "Times New Roman");
  EXPECT_TRUE(page_has("BODY{font-family:Times New Roman}"));
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

// "Size 20" gives 18 points, which is the size that "Size 18" promises.
TEST_F(MenusAtTheStart, TheLargestSizeComesBackUnderTheNameOfItsPoints) {
  start_test();
  robot.click("quest", "menusize", 6);
  EXPECT_EQ(robot.program().options.font_size, 18);
  robot.program().forms.unload(Form::quest);
  start_test_again();
  EXPECT_FALSE(quest().menusize[5].checked);
  EXPECT_TRUE(quest().menusize[4].checked);
  EXPECT_NE(robot.page().written().find("BODY{font-size: 18 pt}"), std::string::npos);
}

TEST_F(Menus, TheFontCanBeSavedByItself) {
  options().font_size = 11;
  options().font_name = "Arial";
  robot.click("quest", "mnuSavefont");
  EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "savedfont", ""), "11");
  EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "savedfontname", ""), "Arial");
}

TEST_F(Menus, AFontThatCanNotBeSavedIsUsedAllTheSame) {
  robot.world.settings.is_full = true;
  robot.click("quest", "menusize", 4);
  robot.click("quest", "menufont", 2);
  robot.click("quest", "mnu_answer_at_bottom");
  EXPECT_TRUE(page_has("BODY{font-size: 14 pt}"));
  EXPECT_TRUE(page_has("BODY{font-family:Arial}"));
  EXPECT_EQ(options().answer_position, "bottom");
}

TEST_F(Menus, TheAnswerStandsWhereTheStudentWantsIt) {
  robot.click("quest", "mnu_answer_at_bottom");
  EXPECT_EQ(options().answer_position, "bottom");
  EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "putanswer", ""), "bottom");
  EXPECT_TRUE(quest().mnu_answer_at_bottom.checked);
  EXPECT_FALSE(quest().mnu_answer_at_top.checked);
  robot.click("quest", "mnu_answer_at_top");
  EXPECT_EQ(options().answer_position, "top");
  EXPECT_EQ(robot.world.settings.get("marlotest", "stuff", "putanswer", ""), "top");
  EXPECT_TRUE(quest().mnu_answer_at_top.checked);
  EXPECT_FALSE(quest().mnu_answer_at_bottom.checked);
}

TEST_F(Menus, TheTutorsPlayerComesWithTheNextPage) {
  Question question = choice({1});
  question.tutor_file = "vlans";
  show(question);
  EXPECT_FALSE(page_has("<object"));
  robot.click("quest", "mnuEmbed");
  EXPECT_TRUE(quest().mnuEmbed.checked);
  EXPECT_FALSE(page_has("<object"));
  show(question);
  EXPECT_TRUE(page_has("<object"));
  robot.click("quest", "mnuEmbed");
  EXPECT_FALSE(quest().mnuEmbed.checked);
  EXPECT_EQ(options().embed_media, 0);
}

TEST_F(Menus, AnswersAreShownAsTheMenuSays) {
  options().show_answer_when_right = 0;
  options().show_answer_when_wrong = 0;
  robot.click("quest", "menu_showwrong");
  EXPECT_EQ(options().show_answer_when_wrong, 1);
  EXPECT_EQ(options().show_answer_when_right, 0);
  robot.click("quest", "menu_showright");
  robot.click("quest", "menu_showwrong");
  EXPECT_EQ(options().show_answer_when_right, 1);
  EXPECT_EQ(options().show_answer_when_wrong, 0);
}

TEST_F(Menus, TheHelpFileIsOpenedByItsName) {
  robot.click("quest", "menu_contents");
  EXPECT_EQ(robot.world.shell.calls.back(), "open marlo.chm");
}

TEST_F(Menus, MailIsSetInTheOptionsScreenAndNotHere) {
  EXPECT_FALSE(quest().mnu_emailsettings.visible);
  for (const char* entry : {"mnu_outlookexpress", "mnu_webmail", "mnu_changeemailadd"}) {
    EXPECT_ROBOT_REFUSES(robot.click("quest", entry));
  }
}

TEST_F(MenusAtTheStart, TheKindOfMailIsMarkedAsItIsStored) {
  start_test();
  EXPECT_TRUE(quest().mnu_outlookexpress.checked);
  EXPECT_FALSE(quest().mnu_webmail.checked);
  robot.world.settings.save("marlotest", "stuff", "mailtype", "web");
  robot.program().forms.unload(Form::quest);
  start_test_again();
  EXPECT_FALSE(quest().mnu_outlookexpress.checked);
  EXPECT_TRUE(quest().mnu_webmail.checked);
}

// In an edition that shows these entries.
class MailMenu : public QuestionTest {
 protected:
  void SetUp() override {
    QuestionTest::SetUp();
    quest().mnu_emailsettings.visible = true;
  }
  std::string stored(const char* section, const char* key) {
    return robot.world.settings.get("marlotest", section, key, "none");
  }
};

TEST_F(MailMenu, MailByTheWebNeedsAnAddressAndAsksUntilThereIsOne) {
  robot.world.messages.typed = {"", "", "me@school.example"};
  robot.click("quest", "mnu_webmail");
  EXPECT_EQ(robot.world.messages.asked.size(), 3u);
  EXPECT_EQ(robot.world.messages.asked[0].text, "Please Enter your Email Address.");
  EXPECT_EQ(robot.world.messages.asked[0].title, "Web Based Mail");
  EXPECT_EQ(stored("order", "email"), "me@school.example");
  EXPECT_EQ(stored("stuff", "mailtype"), "web");
  EXPECT_EQ(options().mail_kind, "web");
  EXPECT_TRUE(quest().mnu_webmail.checked);
  EXPECT_FALSE(quest().mnu_outlookexpress.checked);
  robot.click("quest", "mnu_webmail");
  EXPECT_EQ(robot.world.messages.asked.size(), 3u) << "the address is known";
}

TEST_F(MailMenu, MailGoesTheOldWayUntilTheAddressIsKnown) {
  const std::string before = options().mail_kind;
  ASSERT_NE(before, "web");
  robot.world.messages.typed = {"me@school.example"};
  robot.world.messages.while_open = [&] {
    EXPECT_EQ(options().mail_kind, before);
    EXPECT_EQ(stored("stuff", "mailtype"), "web");
    EXPECT_EQ(stored("order", "email"), "none");
  };
  robot.click("quest", "mnu_webmail");
  EXPECT_EQ(robot.world.messages.asked.size(), 1u);
}

TEST_F(MailMenu, TheMailProgramIsChosenWithoutAQuestion) {
  options().mail_kind = "web";
  robot.click("quest", "mnu_outlookexpress");
  EXPECT_EQ(options().mail_kind, "outlook");
  EXPECT_EQ(stored("stuff", "mailtype"), "outlook");
  EXPECT_TRUE(quest().mnu_outlookexpress.checked);
  EXPECT_FALSE(quest().mnu_webmail.checked);
}

TEST_F(MailMenu, AnAddressChangesOnlyToAnother) {
  robot.world.settings.save("marlotest", "order", "email", "old@school.example");
  robot.world.messages.typed = {"", "new@school.example"};
  robot.click("quest", "mnu_changeemailadd");
  EXPECT_EQ(robot.world.messages.asked.back().default_text, "old@school.example");
  EXPECT_EQ(stored("order", "email"), "old@school.example");
  robot.click("quest", "mnu_changeemailadd");
  EXPECT_EQ(stored("order", "email"), "new@school.example");
  EXPECT_EQ(options().mail_kind, "outlook");
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

TEST_F(Menus, AnEditionThatShowsTheWayBackLeadsToTheOptions) {
  quest().mnuBack.visible = true;
  robot.click("quest", "mnuBack");
  EXPECT_FALSE(quest().loaded);
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_FALSE(robot.world.files.exists("46000.STUDENT.results"));
}

}  // namespace
}  // namespace practice
