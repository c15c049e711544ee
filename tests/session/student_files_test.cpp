// The names of a student's files, and that no name leads out of the working folder.
#include "session/student_files.h"

#include <algorithm>

#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

const Texts hostile_names{"..\\..\\x",
                          "/etc/x",
                          "../../../x",
                          "C:\\x",
                          "\\\\host\\share\\x",
                          "file:///etc/x",
                          "~/x",
                          "x\\..\\..\\y",
                          "..",
                          ".",
                          "*",
                          "x\0/etc/y"s,
                          "x\r\ny",
                          "<script>x</script>",
                          "\"x\" & del",
                          "%2e%2e%2fx",
                          "\xC0\xAF\xC0\xAFx",
                          "\xE0\x80\xAFx",
                          "\xFF\xFE/x",
                          "\xEF\xBC\x8Fx",
                          "Анна",
                          "../Анна",
                          std::string(5000, '/')};

bool is_plain_letter(char c) {
  return c == ' ' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
}

TEST(CleanedName, LettersDigitsAndBlanksStayAndTheRestBecomesBlanks) {
  const std::pair<std::string_view, std::string_view> cases[] = {{"", ""},
                                                                 {"anna", "ANNA"},
                                                                 {"Ann-Lee 2", "ANN LEE 2"},
                                                                 {" anna ", " ANNA "},
                                                                 {"..\\..\\x", "      X"},
                                                                 {"/etc/x", " ETC X"},
                                                                 {"a.b:c*d?e", "A B C D E"},
                                                                 {"tab\there", "TAB HERE"},
                                                                 {"Анна", "    "},
                                                                 {"Zoë", "ZO "},
                                                                 {"日本", "  "},
                                                                 {"@[`{", "    "}};
  for (const auto& [name, cleaned] : cases) EXPECT_EQ(cleaned_name(name), cleaned) << name;
}

TEST(CleanedName, EverySingleByteGivesOnePlainCharacter) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string cleaned = cleaned_name(std::string(1, static_cast<char>(byte)));
    ASSERT_EQ(cleaned.size(), 1u) << byte;
    EXPECT_TRUE(is_plain_letter(cleaned[0])) << byte;
  }
}

TEST(CleanedName, ItHasAsManyCharactersAsBefore) {
  for (const std::string& name : hostile_names) {
    const std::string cleaned = cleaned_name(name);
    EXPECT_EQ(cleaned.size(), character_count(name)) << name;
    EXPECT_TRUE(std::ranges::all_of(cleaned, is_plain_letter)) << name;
    EXPECT_EQ(cleaned_name(cleaned), cleaned) << "cleaning twice changes nothing";
  }
}

TEST(StudentFiles, BlanksStandInTheResultsFileAndNotAroundTheHistorys) {
  const struct {
    const char* name;
    const char* results;
    const char* history;
  } cases[] = {{"ANNA", "46000.ANNA.results", "history.46000.ANNA.htm"},
               {" anna b ", "46000. ANNA B .results", "history.46000.ANNA B.htm"},
               {"", "46000..results", "history.46000..htm"},
               {"..", "46000.  .results", "history.46000..htm"},
               {"/etc/x", "46000. ETC X.results", "history.46000.ETC X.htm"}};
  robot::World world;
  Program program(world.platform, "46000");
  load_bank(program);
  for (const auto& expected : cases) {
    program.options.student_name = expected.name;
    EXPECT_EQ(results_file(program), expected.results);
    EXPECT_EQ(history_file(program), expected.history);
  }
}

class HostileNameTest : public robot::StudentTest {
 protected:
  /// A fresh program with a working folder of its own, at its options screen, and files that a
  /// name could lead to.
  void open() {
    robot.world.files.working_folder = "\\home\\exam";
    robot.world.messages.shown.clear();
    start();
    for (const char* target : {"\\home\\x", "\\x", "\\etc\\x", "\\home\\exam\\x", "C:\\x"}) {
      for (const char* ending : {"", ".results", ".htm"}) {
        robot.world.files.write(std::string(target) + ending, "of somebody else");
      }
    }
    robot.click("Welcome", "Image4", 0);
    before_ = robot.world.files.names();
    robot.world.files.removed.clear();
    robot.world.shell.calls.clear();
    robot.world.shell.opened.clear();
  }
  void type_name(const std::string& name) { robot.type("pick_a_quiz", "txtstudentname", 0, name); }
  void view() { robot.click("pick_a_quiz", "mnu_viewtestscorehistory"); }
  void clear() {
    robot.world.messages.answers.push_back(Answer::yes);
    robot.click("pick_a_quiz", "cmd_reset_user_history");
  }
  void take_a_test() {
    robot.click("pick_a_quiz", "Command1");
    robot.click("quest", "menu_quittest");
    robot.click("finalscore", "Command1");
  }
  /// What lies on the disk now and did not at first.
  Texts new_files() {
    Texts result;
    for (const std::string& name : robot.world.files.names()) {
      if (std::ranges::find(before_, name) == before_.end()) result.push_back(name);
    }
    return result;
  }
  void expect_that_nothing_was_lost() {
    for (const std::string& name : before_) EXPECT_TRUE(robot.world.files.exists(name)) << name;
  }
  static void expect_plain(const std::string& name, const std::string& typed) {
    EXPECT_TRUE(std::ranges::all_of(
        name, [](char c) { return is_plain_letter(c) || c == '.' || (c >= 'a' && c <= 'z'); }))
        << name << " of " << typed;
    EXPECT_FALSE(name.starts_with('.')) << name << " of " << typed;
  }

 private:
  Texts before_;
};

TEST_F(HostileNameTest, ATestWritesItsFilesIntoTheWorkingFolder) {
  for (const std::string& name : hostile_names) {
    robot::World& world = robot.world;
    open();
    type_name(name);
    take_a_test();
    for (const std::string& written : new_files()) expect_plain(written, name);
    EXPECT_TRUE(world.files.exists("46000." + cleaned_name(name) + ".results")) << name;
    expect_that_nothing_was_lost();
    for (const std::string& written : new_files()) world.files.remove(written);
    world.settings.values.clear();
  }
}

TEST_F(HostileNameTest, ViewingOpensAFileOfTheWorkingFolder) {
  for (const std::string& name : hostile_names) {
    open();
    type_name(name);
    view();
    EXPECT_TRUE(robot.world.shell.opened.empty()) << name;
    EXPECT_EQ(robot.world.messages.shown.size(), 1u) << "there is no history of " << name;
    const std::string history = "history.46000." + std::string(trim(cleaned_name(name))) + ".htm";
    robot.world.files.write(history, "a report");
    view();
    ASSERT_EQ(robot.world.shell.opened.size(), 1u) << name;
    EXPECT_EQ(robot.world.shell.opened[0].target, history);
    EXPECT_EQ(robot.world.shell.opened[0].folder, "");
    expect_plain(history, name);
    robot.world.files.remove(history);
  }
}

TEST_F(HostileNameTest, ClearingRemovesFilesOfTheWorkingFolder) {
  for (const std::string& name : hostile_names) {
    open();
    type_name(name);
    clear();
    EXPECT_EQ(robot.world.files.removed.size(), 2u) << name;
    for (const std::string& removed : robot.world.files.removed) expect_plain(removed, name);
    expect_that_nothing_was_lost();
  }
}

TEST_F(HostileNameTest, ANameOutOfTheSettingsIsNoMoreTrustedThanATypedOne) {
  for (const std::string& name : hostile_names) {
    robot.world.settings.values[{"marlotest", "stuff", "studentname"}] = name;
    open();
    view();
    clear();
    EXPECT_TRUE(robot.world.shell.opened.empty()) << name;
    for (const std::string& removed : robot.world.files.removed) expect_plain(removed, name);
    expect_that_nothing_was_lost();
    take_a_test();
    for (const std::string& written : new_files()) {
      expect_plain(written, name);
      robot.world.files.remove(written);
    }
  }
}

TEST_F(HostileNameTest, TheTestAndItsHistoryMenuMeanTheSameFiles) {
  for (const std::string& name : hostile_names) {
    open();
    type_name(name);
    take_a_test();
    robot.world.shell.opened.clear();
    view();
    ASSERT_EQ(robot.world.shell.opened.size(), 1u) << name;
    EXPECT_TRUE(robot.world.files.exists(robot.world.shell.opened[0].target)) << name;
    clear();
    EXPECT_EQ(new_files(), (Texts{"temp.hist", "testing.log"})) << name;
    for (const std::string& left : new_files()) robot.world.files.remove(left);
    robot.world.settings.values.clear();
  }
}

}  // namespace
}  // namespace practice
