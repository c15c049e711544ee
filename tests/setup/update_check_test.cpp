// Looking for a newer version, in editions that show the menu for it.
#include "robot/testing.h"

namespace practice {
namespace {

constexpr const char* not_connected =
    "You will need to have an active connection to the Internet to check for updates.";
constexpr const char* latest = "You have the latest version.  Thank you for using Marlo Software.";
constexpr const char* newer = "There is a update available.  Click OK to download";

class UpdateCheckTest : public robot::StudentTest {
 protected:
  void SetUp() override { open(); }

  void open() {
    start();
    robot.click("Welcome", "Image4", 0);
    pick_a_quiz().mnu_update123.visible = true;
    pick_a_quiz().mnu_update123.enabled = true;
  }
  void check(const std::string& body, Answer answer = Answer::cancel) {
    robot.world.internet.body = body;
    robot.world.messages.answers = {answer};
    robot.click("pick_a_quiz", "mnu_check_for_upgrade123");
  }
  const MessageBox& box() { return robot.world.messages.shown.back(); }
};

TEST_F(UpdateCheckTest, VersionsAreComparedLetterByLetter) {
  const struct {
    const char* version;
    const char* body;
    const char* text;
  } cases[] = {{"5.20", "5.21", newer},         {"5.20", "5.9", newer},
               {"5.9", "5.20", latest},         {"5.20", "5.20", latest},
               {"5.20", "5.2", latest},         {"5.20", "5.200", newer},
               {"5.20", "5.11", latest},        {"5.20", "4.01", latest},
               {"5.20", "4.0", not_connected},  {"5.20", "3.99", not_connected},
               {"5.20", "10.0", not_connected}, {"5.20", "", not_connected},
               {"", "", not_connected}};
  for (const auto& expected : cases) {
    robot.program().catalogue.exam_version = expected.version;
    check(expected.body);
    EXPECT_EQ(box().text, expected.text) << expected.version << " and " << expected.body;
  }
}

TEST_F(UpdateCheckTest, OnlyTheLastLineCountsAndItsQuotesDoNot) {
  const std::pair<const char*, const char*> cases[] = {
      {"9.9\r\n5.20\r\n", latest},     {"1.0\r\n2.0\r\n5.21\r\n", newer}, {"1.0\n5.21\n", newer},
      {"5.20\r\n5.21", newer},         {"\"5.21\"\r\n", newer},           {"\"5.\"20\"", latest},
      {"5.21\r\n\r\n", not_connected}, {"\"\"", not_connected},           {"\r\n", not_connected}};
  robot.program().catalogue.exam_version = "5.20";
  for (const auto& [body, text] : cases) {
    check(body);
    EXPECT_EQ(box().text, text) << body;
  }
}

TEST_F(UpdateCheckTest, AVersionOfTodayIsTheLatest) {
  check("5.20\r\n");
  EXPECT_EQ(box().text, latest);
  EXPECT_EQ(box().title, "");
  EXPECT_EQ(box().buttons, Buttons::ok);
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(UpdateCheckTest, WhatWasFetchedLiesBesideTheProgram) {
  for (const char* folder : {"\\program", "\\program\\"}) {
    robot.world.files.working_folder = "\\work";
    robot.world.platform.program_folder = folder;
    open();
    robot.world.internet.asked.clear();
    check("5.1\r\n5.20\r\n");
    EXPECT_EQ(file("\\program\\Version.txt"), "5.1\r\n5.20\r\n");
    EXPECT_FALSE(robot.world.files.exists("\\work\\Version.txt"));
    EXPECT_EQ(robot.world.internet.asked,
              std::vector<std::string>{"http://www.marlo.example/Version.txt"});
    robot.world.files.remove("\\program\\Version.txt");
  }
}

TEST_F(UpdateCheckTest, AFailedTransferTakesTheLastVersionAway) {
  check("5.20\r\n");
  check("");
  EXPECT_EQ(box().text, not_connected);
  EXPECT_EQ(file("\\program\\Version.txt"), "");
}

TEST_F(UpdateCheckTest, ThePointerIsAnHourglassWhileTheTextIsOnItsWay) {
  Pointer meanwhile = Pointer::normal;
  robot.world.internet.while_asked = [&] { meanwhile = pick_a_quiz().pointer; };
  check("5.20\r\n");
  EXPECT_EQ(meanwhile, Pointer::hourglass);
  EXPECT_EQ(pick_a_quiz().pointer, Pointer::normal);
}

TEST_F(UpdateCheckTest, AnUpdateIsOfferedAndCancelLeavesItThere) {
  check("6.0");
  EXPECT_EQ(box().text, newer);
  EXPECT_EQ(box().title, "Update Available");
  EXPECT_EQ(box().buttons, Buttons::ok_cancel);
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(UpdateCheckTest, EachFamilyOfExamsHasItsDownloadPage) {
  const char* sister_site = "open http://www.sister.example/updates";
  const char* featured = "open http://www.marlo.example/featured";
  const char* terms = "open http://www.marlo.example/terms";
  const std::pair<const char*, const char*> cases[] = {
      {"46000", terms},       {"19999", terms},    {"20000", sister_site},
      {"20999", sister_site}, {"21000", terms},    {"79999", terms},
      {"80000", featured},    {"81199", featured}, {"81200", terms},
      {"rubbish", terms},     {"", terms}};
  for (const auto& [exam, page] : cases) {
    robot.program().catalogue.exam_code = exam;
    robot.world.shell.calls.clear();
    check("6.0", Answer::ok);
    EXPECT_EQ(robot.world.shell.calls, std::vector<std::string>{page}) << exam;
  }
}

TEST_F(UpdateCheckTest, AFolderThatCanNotBeWrittenToEndsTheCheckWithoutAnAnswer) {
  robot.world.files.protect("\\program\\Version.txt");
  EXPECT_THROW(check("6.0"), Fault);
  EXPECT_TRUE(robot.world.messages.shown.empty());
  EXPECT_TRUE(robot.world.shell.calls.empty());
}

TEST_F(UpdateCheckTest, RubbishFromTheNetworkIsAVersionLikeAnyOther) {
  check(std::string("\x01\x02\0\xff", 4));
  EXPECT_EQ(box().text, not_connected);
  check(std::string(20'000'000, '\n'));
  EXPECT_EQ(box().text, not_connected);
}

}  // namespace
}  // namespace practice
