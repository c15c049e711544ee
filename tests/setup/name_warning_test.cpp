// Editions that want a student's name ask once whether there really is to be none.
#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

class NameWarningTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    robot.program().branding.asks_for_a_name = true;
    robot.click("Welcome", "Image4", 0);
  }

  void start_as(std::string_view name) {
    robot.type("pick_a_quiz", "txtstudentname", 0, name);
    robot.click("pick_a_quiz", "Command1");
  }
  void answer(Answer answer) { robot.world.messages.answers = {answer}; }
  std::size_t boxes() { return robot.world.messages.shown.size(); }
  std::string asked() { return get_option(robot.program(), "askname", "(none)"); }
};

TEST_F(NameWarningTest, NoLeavesTheStudentAtTheOptionsWithTheOrdinaryPointer) {
  answer(Answer::no);
  start_as("STUDENT");
  ASSERT_EQ(boxes(), 1u);
  EXPECT_EQ(robot.world.messages.shown[0].text,
            "Are you sure you do not want to enter a Student Name?");
  EXPECT_EQ(robot.world.messages.shown[0].buttons, Buttons::yes_no);
  EXPECT_FALSE(quest().loaded);
  EXPECT_TRUE(pick_a_quiz().visible);
  EXPECT_EQ(pick_a_quiz().pointer, Pointer::normal);
  EXPECT_EQ(asked(), "1");
  EXPECT_EQ(get_option(robot.program(), "studentname", "(none)"), "(none)");
}

TEST_F(NameWarningTest, YesStartsTheTest) {
  answer(Answer::yes);
  start_as("STUDENT");
  EXPECT_EQ(boxes(), 1u);
  EXPECT_TRUE(quest().visible);
  EXPECT_EQ(asked(), "1");
}

TEST_F(NameWarningTest, ItIsAskedOnce) {
  answer(Answer::no);
  start_as("STUDENT");
  robot.click("pick_a_quiz", "Command1");
  EXPECT_EQ(boxes(), 1u);
  EXPECT_TRUE(quest().visible);
}

TEST_F(NameWarningTest, OnlyTheNameOfNobodyIsWarnedAboutWhateverItsCase) {
  const std::pair<const char*, bool> cases[] = {
      {"student", true},   {"Student", true}, {"anna", false}, {"STUDENT 2", false},
      {" STUDENT", false}, {"", false},       {"   ", false}};
  for (const auto& [name, warns] : cases) {
    SetUp();
    robot.world.settings.values.clear();
    robot.world.messages.shown.clear();
    answer(Answer::no);
    start_as(name);
    EXPECT_EQ(boxes(), warns ? 1u : 0u) << '"' << name << '"';
    EXPECT_EQ(quest().visible, !warns) << '"' << name << '"';
    EXPECT_EQ(asked(), warns ? "1" : "(none)") << '"' << name << '"';
  }
}

TEST_F(NameWarningTest, EditionsOfTodayDoNotAsk) {
  start();
  robot.click("Welcome", "Image4", 0);
  start_as("STUDENT");
  EXPECT_EQ(boxes(), 0u);
  EXPECT_TRUE(quest().visible);
  EXPECT_EQ(asked(), "(none)");
}

TEST_F(NameWarningTest, AFullSettingsStoreAsksAgainTheNextTime) {
  robot.world.settings.is_full = true;
  for (std::size_t times = 1; times <= 2; ++times) {
    answer(Answer::no);
    start_as("STUDENT");
    EXPECT_EQ(boxes(), times);
    EXPECT_FALSE(quest().loaded);
  }
}

}  // namespace
}  // namespace practice
