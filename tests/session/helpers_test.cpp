// The routines that every screen calls: opening, placing, measuring.
#include "session/helpers.h"

#include <memory>

#include "robot/testing.h"

namespace practice {
namespace {

class HelpersTest : public robot::StudentTest {
 protected:
  void SetUp() override { start(); }
  Program& program() { return robot.program(); }
};

TEST_F(HelpersTest, OpeningADocumentAsksForItAloneInTheWindowStateGiven) {
  open_document(program(), "history.htm", WindowShow::maximised);
  open_document(program(), "http://tutor.marlo.example", WindowShow::normal);
  const auto& opened = robot.world.shell.opened;
  ASSERT_EQ(opened.size(), 2u);
  EXPECT_EQ(opened[0].target, "history.htm");
  EXPECT_EQ(opened[0].folder, "");
  EXPECT_EQ(opened[0].show, WindowShow::maximised);
  EXPECT_EQ(opened[1].target, "http://tutor.marlo.example");
  EXPECT_EQ(opened[1].show, WindowShow::normal);
}

TEST_F(HelpersTest, ADocumentThatCanNotBeOpenedIsNoMatterForTheStudent) {
  robot.world.shell.result = 2;
  open_document(program(), "missing.htm", WindowShow::normal);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(HelpersTest, OpeningInAFolderTellsTheShellsResult) {
  robot.world.shell.result = 31;
  EXPECT_EQ(open_document_in(program(), "book.hta", "\\books"), 31);
  robot.world.shell.result = 42;
  EXPECT_EQ(open_document_in(program(), "book.hta", ""), 42);
  const auto& opened = robot.world.shell.opened;
  EXPECT_EQ(opened[0].folder, "\\books");
  EXPECT_EQ(opened[0].show, WindowShow::maximised);
  EXPECT_EQ(opened[1].folder, "");
}

TEST_F(HelpersTest, AShellErrorIsToldInItsOwnBox) {
  const struct {
    int code;
    const char* message;
  } cases[] = {{0, "File not found"}, {2, "Unknown error"},  {3, "Unknown error"},
               {11, "Unknown error"}, {31, "Unknown error"}, {32, "Unknown error"},
               {-1, "Unknown error"}};
  for (const auto& expected : cases) {
    robot.world.messages.shown.clear();
    EXPECT_EQ(shell_error_text(program(), expected.code, true), "True");
    ASSERT_EQ(robot.world.messages.shown.size(), 1u) << expected.code;
    const MessageBox& box = robot.world.messages.shown[0];
    EXPECT_EQ(box.text, expected.message) << expected.code;
    EXPECT_EQ(box.title, "Error:");
    EXPECT_EQ(box.icon, Icon::stop);
    EXPECT_EQ(box.buttons, Buttons::ok);
  }
}

TEST_F(HelpersTest, AShellErrorCanBeKeptFromTheStudent) {
  EXPECT_EQ(shell_error_text(program(), 0, false), "False");
  EXPECT_EQ(shell_error_text(program(), 32, false), "False");
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(HelpersTest, From33OnTheShellHasSucceeded) {
  EXPECT_EQ(shell_error_text(program(), 33, true), "");
  EXPECT_EQ(shell_error_text(program(), 42, false), "");
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(HelpersTest, AScreenAsLargeAsTheDeskStandsAtItsCorner) {
  Screen& screen = robot.screen("Exhibit");
  screen.bounds = {700, 800, 1920 * 15, 1080 * 15};
  center_form(program(), screen);
  EXPECT_EQ(screen.bounds.left, 0);
  EXPECT_EQ(screen.bounds.top, 0);
}

TEST_F(HelpersTest, AScreenStandsInTheMiddleToHalfATwip) {
  Screen& screen = robot.screen("Exhibit");
  screen.bounds = {0, 0, 10001, 6001};
  center_form(program(), screen);
  EXPECT_EQ(screen.bounds.left, 9399.5);
  EXPECT_EQ(screen.bounds.top, 5099.5);
  EXPECT_EQ(screen.bounds.width, 10001);
}

TEST_F(HelpersTest, ShiftsMoveAScreenToTheLeftAndUp) {
  Screen& screen = robot.screen("Exhibit");
  screen.bounds = {0, 0, 8800, 6200};
  center_form(program(), screen, 100, -50);
  EXPECT_EQ(screen.bounds.left, 9900);
  EXPECT_EQ(screen.bounds.top, 5050);
}

TEST_F(HelpersTest, AScreenLargerThanTheDeskReachesOverBothEdges) {
  Screen& screen = robot.screen("Exhibit");
  screen.bounds = {0, 0, 1920 * 15 + 300, 1080 * 15 + 30};
  center_form(program(), screen);
  EXPECT_EQ(screen.bounds.left, -150);
  EXPECT_EQ(screen.bounds.top, -15);
}

TEST_F(HelpersTest, TheLongestEntryIsTheFirstOfEquals) {
  const struct {
    std::vector<std::string> items;
    int longest;
  } cases[] = {{{}, -1},
               {{""}, 0},
               {{"", "a"}, 1},
               {{"abc", "xyz", "ab"}, 0},
               {{"ab", "abc", "xyz"}, 1},
               // Characters count, not bytes.
               {{"äöü", "abcd"}, 1},
               {{"abc", "äöü"}, 0}};
  for (const auto& expected : cases) {
    ListBox list;
    list.items = expected.items;
    EXPECT_EQ(longest_entry(list), expected.longest) << testing::PrintToString(expected.items);
  }
}

TEST_F(HelpersTest, AListScrollsToItsLongestEntryAndABlank) {
  ListBox list;
  list.items = {"Trunks", "Spanning Tree", "VLANs"};
  set_list_scroll_extent(program(), list);
  // 14 characters of 105 twips are 1470 twips, 98 pixels.
  EXPECT_EQ(list.scroll_extent, 98);
  list.items = {"12"};
  set_list_scroll_extent(program(), list);
  EXPECT_EQ(list.scroll_extent, 21);
}

TEST_F(HelpersTest, LinesAreReadWithoutTheirEnds) {
  Files& files = robot.world.files;
  files.write("a.txt", "one\r\n\r\nthree\nfour");
  EXPECT_EQ(read_lines(files, "a.txt"), (std::vector<std::string>{"one", "", "three", "four"}));
  files.write("a.txt", "one\r\n");
  EXPECT_EQ(read_lines(files, "a.txt"), std::vector<std::string>{"one"});
  files.write("a.txt", "");
  EXPECT_TRUE(read_lines(files, "a.txt").empty());
  EXPECT_THROW(read_lines(files, "none.txt"), Fault);
}

TEST_F(HelpersTest, APictureThatIsNotThereIsAFault) {
  robot.world.files.write("\\program\\cover.jpg", "jpg");
  EXPECT_EQ(picture_file(program(), "\\program\\cover.jpg"), "\\program\\cover.jpg");
  try {
    picture_file(program(), "\\program\\none.jpg");
    FAIL() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number(), 53);
  }
}

TEST_F(HelpersTest, ASoundIsHandedToTheDesktopsPlayerWithTwoBlanksBehindIt) {
  play_sound(program(), "http://tutor.marlo.example/tests/46000/q1.wmv");
  EXPECT_EQ(robot.world.shell.calls.back(),
            "media play http://tutor.marlo.example/tests/46000/q1.wmv  ");
}

TEST(TestRunNumbers, ARowFollowsFromOrderStrideAndBase) {
  auto run = std::make_unique<TestRun>();
  run->question_order[1] = 1;
  run->question_order[2] = 7;
  run->order_stride = 4;
  run->order_base = 6;
  EXPECT_EQ(row_of_position(*run, 1), 6);
  EXPECT_EQ(row_of_position(*run, 2), 30);
  run->question_order[3] = 30000;
  EXPECT_THROW(row_of_position(*run, 3), Fault);
  EXPECT_THROW(row_of_position(*run, 1001), Fault);
}

TEST(TestRunNumbers, PercentIsTruncated) {
  EXPECT_EQ(percent_of(0, 50), 0);
  EXPECT_EQ(percent_of(999, 1000), 99);
  EXPECT_EQ(percent_of(2, 3), 66);
  EXPECT_EQ(percent_of(50, 50), 100);
  EXPECT_EQ(percent_of(3, 2), 150);
  EXPECT_THROW(percent_of(0, 0), Fault);
}

}  // namespace
}  // namespace practice
