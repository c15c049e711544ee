// The link to the survey: when it is there, and where it leads.
#include <gmock/gmock.h>

#include "robot/testing.h"

namespace practice {
namespace {

class FeedbackTest : public robot::StudentTest {
 protected:
  Welcome& welcome() { return robot.app().welcome(); }
  std::string& setting(const char* section, const char* key, const char* application = "marlo") {
    return robot.world.settings.values[{application, section, key}];
  }
  std::string& address() { return setting("order", "email", "marlotest"); }
  void start_after_tests(const char* count, const char* exam = "46000") {
    setting(exam, "num_times") = count;
    start(exam);
  }
  void follow_the_link(Answer answer = Answer::ok) {
    robot.world.messages.answers.push_back(answer);
    robot.click("Welcome", "lblFeedback");
  }
  std::vector<std::string>& calls() { return robot.world.shell.calls; }
};

TEST_F(FeedbackTest, TheLinkIsThereFromTheFourthFinishedTestOn) {
  const std::pair<const char*, bool> cases[] = {
      {"0", false}, {"1", false},  {"3", false},    {"4", true},  {"5", true},    {"300", true},
      {"", false},  {"-4", false}, {"many", false}, {"4x", true}, {"3.4", false}, {"99999", false}};
  for (const auto& [count, is_there] : cases) {
    start_after_tests(count);
    EXPECT_EQ(welcome().lblFeedback.visible, is_there) << count;
    EXPECT_EQ(welcome().lblFeedback.caption, "Submit Feedback") << count;
    EXPECT_TRUE(welcome().visible) << count;
  }
}

TEST_F(FeedbackTest, AStudentSeesTheLinkAtTheStartAfterTheFourthTest) {
  for (int test = 1; test <= 4; ++test) {
    start();
    EXPECT_ROBOT_REFUSES(robot.click("Welcome", "lblFeedback"));
    start_test();
    robot.click("quest", "menu_quittest");
  }
  start();
  EXPECT_TRUE(welcome().lblFeedback.visible);
}

TEST_F(FeedbackTest, TestsOfAnotherExamDoNotCount) {
  start_after_tests("4", "46000");
  start("46002");
  EXPECT_FALSE(welcome().lblFeedback.visible);
}

TEST_F(FeedbackTest, CancelLeavesEverythingAsItWas) {
  start_after_tests("4");
  const auto settings = robot.world.settings.values;
  follow_the_link(Answer::cancel);
  ASSERT_EQ(robot.world.messages.shown.size(), 1u);
  const MessageBox& box = robot.world.messages.shown[0];
  EXPECT_EQ(box.title, "Submit Feedback");
  EXPECT_EQ(box.text,
            "You will need a internet connection to do this.\r\nWe will now launch a web browser "
            "to connect to our site.");
  EXPECT_EQ(box.buttons, Buttons::ok_cancel);
  EXPECT_TRUE(robot.world.messages.asked.empty());
  EXPECT_TRUE(calls().empty());
  EXPECT_EQ(robot.world.settings.values, settings);
}

TEST_F(FeedbackTest, TheFirstTimeAsksForTheAddressAndLeadsToTheSurvey) {
  start_after_tests("4");
  robot.world.messages.typed = {"anna@school.example"};
  follow_the_link();
  ASSERT_EQ(robot.world.messages.asked.size(), 1u);
  EXPECT_EQ(robot.world.messages.asked[0].title, "Web Based Mail");
  EXPECT_EQ(robot.world.messages.asked[0].text, "Please Enter your Email Address.");
  EXPECT_EQ(calls(),
            std::vector<std::string>{"open http://www.marlo.example/survey/survey.asp?prodid=46000"
                                     "&email=anna@school.example&name=Brightwater JASPER FALCO"});
  EXPECT_EQ(robot.world.shell.opened[0].show, WindowShow::maximised);
  EXPECT_EQ(address(), "anna@school.example");
  EXPECT_EQ(setting("46000", "survey_done"), "yes");
}

TEST_F(FeedbackTest, AStoredAddressIsNotAskedForAndTheLinkChangesAtTheNextStart) {
  start_after_tests("4");
  robot.world.messages.typed = {"anna@school.example"};
  follow_the_link();
  EXPECT_EQ(welcome().lblFeedback.caption, "Submit Feedback");
  start();
  EXPECT_EQ(welcome().lblFeedback.caption, "Update Feedback");
  follow_the_link();
  EXPECT_EQ(robot.world.messages.asked.size(), 1u);
  ASSERT_EQ(calls().size(), 2u);
  EXPECT_EQ(calls()[1], calls()[0]);
}

TEST_F(FeedbackTest, OnlyAPlainYesMeansThatTheSurveyIsDone) {
  const std::pair<const char*, const char*> cases[] = {{"yes", "Update Feedback"},
                                                       {"no", "Submit Feedback"},
                                                       {"YES", "Submit Feedback"},
                                                       {"", "Submit Feedback"}};
  for (const auto& [done, caption] : cases) {
    setting("46000", "survey_done") = done;
    start_after_tests("4");
    EXPECT_EQ(welcome().lblFeedback.caption, caption) << done;
  }
  start_after_tests("3");
  EXPECT_FALSE(welcome().lblFeedback.visible);
}

TEST_F(FeedbackTest, AnEmptyReplyStillOpensTheSurveyAndIsAskedAgainNextTime) {
  start_after_tests("4");
  robot.world.messages.typed = {"", "anna@school.example"};
  follow_the_link();
  ASSERT_EQ(calls().size(), 1u);
  EXPECT_THAT(calls()[0], testing::HasSubstr("prodid=46000&email=&name="));
  EXPECT_TRUE(robot.world.settings.values.contains({"marlotest", "order", "email"}));
  EXPECT_EQ(address(), "");
  EXPECT_EQ(setting("46000", "survey_done"), "yes");
  follow_the_link();
  EXPECT_EQ(address(), "anna@school.example");
}

TEST_F(FeedbackTest, OfAllCharactersOnlyTheNumberSignOfTheNameIsReplaced) {
  start_after_tests("4");
  robot.program().catalogue.exam_title = "C# & F#, 100%";
  address() = "a#b c&d@school.example";
  follow_the_link();
  EXPECT_EQ(calls(),
            std::vector<std::string>{"open http://www.marlo.example/survey/survey.asp?prodid=46000"
                                     "&email=a#b c&d@school.example&name=C%23 & F%23, 100%"});
}

TEST_F(FeedbackTest, WithoutABrowserTheSurveyCountsAsDoneAndNothingIsTold) {
  start_after_tests("4");
  address() = "anna@school.example";
  robot.world.shell.result = 2;
  follow_the_link();
  EXPECT_EQ(robot.world.messages.shown.size(), 1u);
  EXPECT_EQ(setting("46000", "survey_done"), "yes");
}

TEST_F(FeedbackTest, AFullSettingsStoreDoesNotKeepTheStudentFromTheSurvey) {
  start_after_tests("4");
  const std::string log = file("error.log");
  robot.world.settings.is_full = true;
  robot.world.messages.typed = {"anna@school.example"};
  follow_the_link();
  ASSERT_EQ(calls().size(), 1u);
  EXPECT_THAT(calls()[0], testing::HasSubstr("&email=anna@school.example&"));
  EXPECT_EQ(file("error.log"), log);
}

}  // namespace
}  // namespace practice
