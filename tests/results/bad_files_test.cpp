// A student's files as the program never wrote them: what it can not understand it leaves alone.
#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

using namespace std::string_literals;

class BadFilesTest : public robot::StudentTest {
 protected:
  static constexpr std::int64_t nine_in_the_morning = (12 * 24 + 9) * 3'600'000LL;
  static constexpr std::size_t megabyte = 1'000'000;

  void SetUp() override { start(); }

  /// A test of which nothing was answered, of an exam without categories: its entry is short.
  void grade_nothing() {
    start_test();
    robot.program().catalogue.has_categories = false;
    robot.world.clock.milliseconds = nine_in_the_morning;
    robot.click("quest", "menu_quittest");
  }
  /// What a history becomes with the next entry.
  std::string with_next_entry(const std::string& before) {
    robot.world.files.write(history, before);
    robot.world.clock.milliseconds = nine_in_the_morning;
    finalscore().save_history();
    return file(history);
  }
  /// The results file as a test is started and graded over it.
  std::string after_a_test(const std::string& before) {
    robot.world.files.write(results, before);
    start_test();
    robot.click("quest", "menu_quittest");
    return file(results);
  }
  std::string result(int number) { return robot.run().last_results[number]; }
  bool told_nothing() { return robot.world.messages.shown.empty(); }

  const std::string history = "history.46000.STUDENT.htm";
  const std::string results = "46000.STUDENT.results";
  const std::string entry =
      "<p><b> FALCO Book Quiz Results:</b><br>0%&nbsp;&nbsp;(0/50)&nbsp;&nbsp;-&nbsp;&nbsp;Date: "
      "Saturday 11/21/26 09:00:00<hr align=left width=0% size=15 NOSHADE COLOR=NAVY>\r\n";
};

TEST_F(BadFilesTest, TheNextEntryStandsBehindTheFirstLineWhateverEndsIt) {
  grade_nothing();
  const std::string long_line(megabyte, 'x');
  const struct {
    const char* what;
    std::string before;
    std::string first_line;
    std::string others;
  } cases[] = {
      {"as the program writes it", "h\r\ne2\r\ne1\r\n", "h\r\n", "e2\r\ne1\r\n"},
      {"no header, so the newest entry is taken for one", "e2\r\ne1\r\n", "e2\r\n", "e1\r\n"},
      {"line feeds alone", "h\ne2\ne1\n", "h\n", "e2\ne1\n"},
      {"carriage returns alone", "h\re2\re1\r", "h\r", "e2\re1\r"},
      {"a mixture", "h\ne3\r\ne2\re1\r\n", "h\n", "e3\r\ne2\re1\r\n"},
      {"no end behind the last line", "h\r\ne1", "h\r\n", "e1\r\n"},
      {"a header alone", "h\r\n", "h\r\n", ""},
      {"a header without its end", "h", "h\r\n", ""},
      {"nothing at all", "", "\r\n", ""},
      {"an empty first line", "\r\ne1\r\n", "\r\n", "e1\r\n"},
      {"empty lines between", "h\r\n\r\n\r\ne1\r\n", "h\r\n", "\r\n\r\ne1\r\n"},
      {"bytes that are no text", "h\0\xFF\r\n\0\xFE\x1A e1\r\n"s, "h\0\xFF\r\n"s,
       "\0\xFE\x1A e1\r\n"s},
      {"a mark of its encoding", "\xEF\xBB\xBFh\r\ne1\r\n", "\xEF\xBB\xBFh\r\n", "e1\r\n"},
      {"lines of a megabyte", long_line + "\r\n" + long_line + "\r\n", long_line + "\r\n",
       long_line + "\r\n"},
  };
  for (const auto& expected : cases) {
    EXPECT_TRUE(with_next_entry(expected.before) == expected.first_line + entry + expected.others)
        << expected.what;
    EXPECT_TRUE(file("temp.hist") == expected.before) << expected.what;
  }
  EXPECT_TRUE(told_nothing());
}

TEST_F(BadFilesTest, AHistoryOfAHundredMegabytesTakesItsNextEntry) {
  grade_nothing();
  robot.world.files.remove(history);
  const std::string header = "the header\r\n";
  std::string before = header;
  before.reserve(100 * megabyte + 2000);
  while (before.size() < 100 * megabyte) before.append(998, 'x').append(crlf);
  const std::size_t size = before.size();
  robot.world.files.write(history, before);
  robot.world.clock.milliseconds = nine_in_the_morning;
  finalscore().save_history();
  before.insert(header.size(), entry);
  EXPECT_EQ(before.size(), size + entry.size());
  EXPECT_TRUE(file(history) == before);
}

TEST_F(BadFilesTest, AHistoryThatCanNotBeReadIsNotReplaced) {
  robot.world.files.write(history, "h\r\ne1\r\n");
  robot.world.files.seal(history);
  grade_nothing();
  EXPECT_TRUE(finalscore().visible);
  EXPECT_TRUE(told_nothing());
  robot.world.files.open(history);
  EXPECT_EQ(file(history), "h\r\ne1\r\n");
}

TEST_F(BadFilesTest, AHistoryThatCanNotBeWrittenKeepsWhatItHas) {
  robot.world.files.write(history, "h\r\ne1\r\n");
  robot.world.files.protect(history);
  grade_nothing();
  EXPECT_TRUE(finalscore().visible);
  EXPECT_TRUE(told_nothing());
  EXPECT_EQ(file(history), "h\r\ne1\r\n");
}

TEST_F(BadFilesTest, AWorkingCopyThatCanNotBeWrittenCostsNoEntry) {
  robot.world.files.write("temp.hist", "of another student");
  robot.world.files.protect("temp.hist");
  robot.world.files.write(history, "h\r\ne1\r\n");
  grade_nothing();
  EXPECT_EQ(file(history), "h\r\n" + entry + "e1\r\n");
  EXPECT_TRUE(told_nothing());
}

// "0,1" to "0,1000" where nothing is known, with the rows of the graded test wrong.
std::string results_of_a_test_with_nothing_right(const std::string& beyond_300) {
  std::string lines;
  for (int i = 1; i <= 1000; ++i) {
    lines += (i <= 50 ? "1" : i <= 300 ? "0" : beyond_300) + "," + std::to_string(i) + "\r\n";
  }
  return lines;
}

TEST_F(BadFilesTest, ResultsAreReadAsFarAsTheyMakeSense) {
  start_test();
  robot.click("quest", "menu_quittest");
  robot.click("finalscore", "Command1");
  const std::string long_field(megabyte, 'x');
  const std::string many_commas(megabyte, ',');
  const struct {
    const char* what;
    std::string content;
    const char* results[4];
  } cases[] = {
      {"letters", "one,1\r\n1,2\r\nO,3\r\n1,4\r\n", {"0", "1", "0", "1"}},
      {"letters behind a number", "1abc,1\r\n1 1,2\r\n1;,3\r\n01,4\r\n", {"1", "1", "1", "1"}},
      {"empty fields", ",\r\n1,\r\n,,\r\n1,,,\r\n", {"0", "1", "0", "1"}},
      {"empty lines", "\r\n1,2\r\n\r\n1,4\r\n", {"0", "1", "0", "1"}},
      {"line feeds alone", "1,1\n0,2\n1,3\n1,4", {"1", "0", "1", "1"}},
      {"another order", "1,900\r\n1,900\r\n0,1\r\n1,x\r\n", {"1", "1", "0", "1"}},
      {"numbers that mean nothing", "2,1\r\n-1,2\r\n0,3\r\n1,4\r\n", {"2", "-1", "0", "1"}},
      {"a line of a megabyte",
       long_field + ",1\r\n1,2\r\n1," + long_field + "\r\n1,4\r\n",
       {"0", "1", "1", "1"}},
      {"a megabyte of commas", many_commas + "\r\n1,2\r\n", {"0", "1", "0", "0"}},
      {"bytes that are no text",
       "\0,1\r\n\xFF,2\r\n1,3\r\n\xEF\xBB\xBF"s + "1,4\r\n",
       {"0", "0", "1", "0"}},
      {"nothing at all", "", {"0", "0", "0", "0"}},
  };
  for (const auto& expected : cases) {
    robot.world.files.write(results, expected.content);
    pick_a_quiz().read_last_results();
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(result(i), expected.results[i - 1]) << expected.what;
    EXPECT_TRUE(file(results) == expected.content) << expected.what;
  }
  EXPECT_TRUE(told_nothing());
}

TEST_F(BadFilesTest, ATestOverBadResultsLeavesGoodOnes) {
  const std::string good = results_of_a_test_with_nothing_right("");
  for (const std::string& bad :
       {"x"s, "\r\n\r\n"s, std::string(megabyte, 'x'), "<html>no results</html>\r\n"s}) {
    EXPECT_EQ(after_a_test(bad), good);
    robot.program().forms.unload(Form::finalscore);
    robot.program().forms.show(Form::Welcome);
  }
}

TEST_F(BadFilesTest, LinesBeyondTheThousandthAreNotKept) {
  std::string lines;
  for (int i = 1; i <= 1500; ++i) lines += "0," + std::to_string(i) + "\r\n";
  EXPECT_EQ(after_a_test(lines), results_of_a_test_with_nothing_right("0"));
}

TEST_F(BadFilesTest, ResultsThatCanNotBeReadAreNoneAndTheTestBegins) {
  robot.world.files.write(results, "1,1\r\n");
  robot.world.files.seal(results);
  start_test();
  EXPECT_TRUE(quest().visible);
  EXPECT_EQ(result(50), "1") << "a question of this test";
  EXPECT_EQ(result(51), "0");
  EXPECT_TRUE(told_nothing());
}

TEST_F(BadFilesTest, ResultsThatCanNotBeWrittenStayAndTheScoreIsShown) {
  robot.world.files.write(results, "1,1\r\nmine\r\n");
  robot.world.files.protect(results);
  grade_nothing();
  EXPECT_TRUE(finalscore().visible);
  EXPECT_TRUE(robot.world.files.exists(history));
  EXPECT_EQ(file(results), "1,1\r\nmine\r\n");
  EXPECT_TRUE(told_nothing());
}

}  // namespace
}  // namespace practice
