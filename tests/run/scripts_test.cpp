// Sessions written down as scripts: a whole exam, and what a script may get wrong.
#include <fstream>
#include <set>
#include <sstream>

#include "robot/script.h"
#include "robot/testing.h"

namespace practice::robot {
namespace {

/// One JSON line; members by name, texts without their quotes and with their escapes.
class Line {
 public:
  explicit Line(std::string text) : text_(std::move(text)) {}

  bool has(std::string_view member) const { return place_of(member) != std::string::npos; }
  std::string text(std::string_view member) const {
    const auto start = place_of(member);
    if (start == std::string::npos) return "no member " + std::string(member);
    if (text_[start] != '"') {
      return text_.substr(start, text_.find_first_of(",}", start) - start);
    }
    auto end = start + 1;
    while (end < text_.size() && text_[end] != '"') end += text_[end] == '\\' ? 2 : 1;
    return text_.substr(start + 1, end - start - 1);
  }
  int number(std::string_view member) const { return std::stoi(text(member)); }
  const std::string& whole() const { return text_; }

 private:
  std::string::size_type place_of(std::string_view member) const {
    const std::string wanted = '"' + std::string(member) + "\":";
    const auto place = text_.find(wanted);
    const bool is_member =
        place != std::string::npos && (text_[place - 1] == '{' || text_[place - 1] == ',');
    return is_member ? place + wanted.size() : std::string::npos;
  }

  std::string text_;
};

std::vector<Line> lines_of(const std::string& output) {
  std::vector<Line> lines;
  std::istringstream in(output);
  for (std::string line; std::getline(in, line);) lines.emplace_back(line);
  return lines;
}

int count(std::string_view text, std::string_view what) {
  int found = 0;
  for (auto place = text.find(what); place != std::string_view::npos;
       place = text.find(what, place + what.size())) {
    ++found;
  }
  return found;
}

// ---- A whole exam

class WholeExam : public testing::Test {
 protected:
  void SetUp() override {
    std::ifstream script(RUN_TESTS_FOLDER "/scripts/whole_falco_test.robot");
    ASSERT_TRUE(script);
    std::ostringstream out;
    try {
      Script(robot, script, out).run();
    } catch (const ScriptError& error) {
      FAIL() << "line " << error.line << ": " << error.text;
    }
    lines = lines_of(out.str());
  }

  std::vector<Line> with(std::string_view member) const {
    std::vector<Line> found;
    for (const Line& line : lines) {
      if (line.has(member)) found.push_back(line);
    }
    return found;
  }
  std::string control(std::string_view name, std::string_view member) const {
    std::string value = "no control " + std::string(name);
    for (const Line& line : with("control")) {
      if (line.text("control") == name) value = line.text(member);
    }
    return value;
  }

  Robot robot;
  std::vector<Line> lines;
};

TEST_F(WholeExam, EveryLineIsAnObject) {
  ASSERT_FALSE(lines.empty());
  for (const Line& line : lines) {
    EXPECT_TRUE(line.whole().starts_with("{\"") && line.whole().ends_with("}")) << line.whole();
  }
}

TEST_F(WholeExam, BeginsWithTheQuestionScreenInPlaceOfTheOptions) {
  EXPECT_EQ(lines.at(0).text("caption"),
            "Practice Test for Brightwater JASPER FALCO - Question  1 of 50");
  EXPECT_EQ(lines.at(0).text("visible"), "true");
  EXPECT_EQ(lines.at(1).text("screen"), "pick_a_quiz");
  EXPECT_EQ(lines.at(1).text("visible"), "false");
}

TEST_F(WholeExam, GoesThroughItsPositionsWithNextAndBack) {
  std::vector<int> positions;
  for (const Line& line : with("question_position")) {
    positions.push_back(line.number("question_position"));
    EXPECT_EQ(line.number("question_total"), 50);
    EXPECT_EQ(line.number("selected_quiz"), 3);
  }
  std::vector<int> expected;
  for (int i = 1; i <= 11; ++i) expected.push_back(i);
  for (const int i : {10, 9, 10}) expected.push_back(i);
  for (int i = 11; i <= 22; ++i) expected.push_back(i);
  // The font shows question 22 anew, and the end lowers the position once.
  for (int i = 22; i <= 50; ++i) expected.push_back(i);
  expected.push_back(50);
  EXPECT_EQ(positions, expected);
}

TEST_F(WholeExam, NoQuestionComesTwiceAndEachIsTheSameOnItsWayBack) {
  std::map<int, int> row_at;
  for (const Line& line : with("question_position")) {
    const int position = line.number("question_position");
    const int row = line.number("current_row");
    const auto known = row_at.emplace(position, row).first;
    EXPECT_EQ(known->second, row) << position;
  }
  std::set<int> rows;
  for (const auto& [position, row] : row_at) rows.insert(row);
  EXPECT_EQ(row_at.size(), 50u);
  EXPECT_EQ(rows.size(), 50u);
  EXPECT_GE(*rows.begin(), 1);
  EXPECT_LE(*rows.rbegin(), robot.program().catalogue.bank_total);
}

TEST_F(WholeExam, RightAnswersAreRightAndTheScoreFollows) {
  const std::vector<Line> runs = with("question_position");
  for (std::size_t i = 1; i <= 10; ++i) {
    EXPECT_EQ(runs.at(i).number("answer_verdict"), 1) << i;
    EXPECT_EQ(runs.at(i).number("right_count"), static_cast<int>(i));
  }
  const std::vector<Line> controls = with("control");
  EXPECT_EQ(controls.at(0).text("caption"), " 10/ 10");
  EXPECT_EQ(controls.at(1).text("caption"), "100.0%");
  EXPECT_EQ(controls.at(2).text("caption"), " 10/ 10") << "answered again after Back";
  EXPECT_TRUE(controls.at(3).text("caption").ends_with("/ 20"));
  for (std::size_t i = 1; i < runs.size(); ++i) {
    const bool moved_on =
        runs[i].number("question_position") > runs[i - 1].number("question_position");
    const int more = runs[i].number("right_count") - runs[i - 1].number("right_count");
    if (moved_on && i > 14) {
      EXPECT_EQ(more == 1, runs[i].number("answer_verdict") == 1) << i;
    }
  }
}

TEST_F(WholeExam, EveryPageIsOneQuestionBetweenItsScriptsAndItsEnd) {
  std::vector<Line> pages = with("page");
  ASSERT_EQ(pages.size(), 5u);
  pages.erase(pages.begin() + 3);
  const char* numbers[] = {" 1.) ", " 11.) ", " 21.) ", " 22.) "};
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const std::string page = pages[i].text("page");
    EXPECT_TRUE(page.starts_with("<script language=JavaScript>\\r\\n<!--")) << page;
    EXPECT_TRUE(page.ends_with("</BODY></body></html>")) << page;
    EXPECT_EQ(count(page, "<zzexplanation>"), 1);
    EXPECT_EQ(count(page, "Question_active.gif"), 1);
    EXPECT_NE(page.find("<tr><td valign=top>" + std::string(numbers[i])), std::string::npos);
  }
  EXPECT_NE(pages[2].text("page").find("BODY{font-size: 12 pt}"), std::string::npos);
  EXPECT_NE(pages[3].text("page").find("BODY{font-size: 14 pt}"), std::string::npos);
}

TEST_F(WholeExam, TheAnswerPageComesWhenItIsAskedFor) {
  int shown = 0;
  for (const Line& line : with("screen")) {
    if (line.text("screen") == "theanswer" && line.text("visible") == "true") ++shown;
  }
  EXPECT_EQ(shown, 1);
  EXPECT_NE(with("page").at(3).text("page").find("QID: "), std::string::npos);
  EXPECT_FALSE(robot.app().theanswer().loaded);
}

TEST_F(WholeExam, EndsAtTheScoreWithTheStudentsFilesWritten) {
  const int right = robot.run().right_count;
  EXPECT_GE(right, 10 + 1 + 15);
  EXPECT_EQ(control("rig", "caption"), std::to_string(right));
  EXPECT_EQ(control("tot", "caption"), "50");
  EXPECT_EQ(control("per", "caption"), std::to_string(right * 2) + "%");
  for (const Line& line : with("screen")) {
    if (line.text("screen") != "finalscore" || line.has("control")) continue;
    EXPECT_EQ(line.text("visible"), "true");
  }
  EXPECT_FALSE(robot.app().quest().loaded);
  EXPECT_TRUE(with("message").empty());

  const std::vector<Line> files = with("content");
  ASSERT_EQ(files.size(), 2u);
  const std::string results = files[0].text("content");
  EXPECT_EQ(count(results, "\\r\\n"), 1000);
  EXPECT_TRUE(results.ends_with(",1000\\r\\n"));
  EXPECT_NE(files[1].text("content").find("(" + std::to_string(right) + "/50)"), std::string::npos);
  bool counted = false;
  for (const Line& line : with("application")) {
    if (line.text("key") == "num_times") counted = line.text("value") == "1";
  }
  EXPECT_TRUE(counted);
}

// ---- What a script may get wrong

constexpr const char* into_a_test =
    "distribution\n"
    "start 46000\n"
    "click Welcome Image4 0\n"
    "click pick_a_quiz Command1\n";

struct WrongScript {
  const char* story;
  /// Stands behind the four lines that lead into a test.
  const char* script;
  int line;
  const char* words;

  friend std::ostream& operator<<(std::ostream& out, const WrongScript& c) {
    return out << c.story;
  }
};

class ScriptErrors : public testing::TestWithParam<WrongScript> {};

TEST_P(ScriptErrors, AreToldWithTheirLine) {
  Robot robot;
  std::istringstream in(std::string(into_a_test) + GetParam().script);
  std::ostringstream out;
  try {
    Script(robot, in, out).run();
    FAIL() << "the script ran to its end";
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.line, GetParam().line);
    EXPECT_NE(error.text.find(GetParam().words), std::string::npos) << error.text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, ScriptErrors,
    testing::Values(
        WrongScript{"unknown screen", "click quiz cmd_buttons", 5, "no screen \"quiz\""},
        WrongScript{"unknown control", "\n# a comment\nclick quest cmd_button", 7,
                    "no control \"cmd_button\""},
        WrongScript{"unknown index", "click quest cmd_buttons 4", 5, "\"cmd_buttons\" 4"},
        WrongScript{"unknown control to show", "show control quest nothing", 5, "\"nothing\""},
        WrongScript{"unknown field", "show row 1 answers text", 5, "no field \"text\""},
        WrongScript{"unknown row", "show row 1001 answers", 5, "no row 1001"},
        WrongScript{"unknown command", "show run\npress quest", 6, "no command \"press\""},
        WrongScript{"unknown thing to show", "show everything", 5, "usage: show"},
        WrongScript{"unclosed quote", "answer no\ntype_on_page txt_fill \"never closed", 6,
                    "a quote is not closed"},
        WrongScript{"too few words", "click quest", 5, "usage: click"},
        WrongScript{"too many words", "pass 1 2", 5, "usage: pass"},
        WrongScript{"no number", "choose radio1 two", 5, "\"two\" is no number"},
        WrongScript{"unknown answer", "answer maybe", 5, "no answer \"maybe\""},
        WrongScript{"unknown file", "show file nothing.txt", 5, "no file \"nothing.txt\""},
        WrongScript{"unknown input of the page", "choose radio1 7", 5, "no choice 7"},
        WrongScript{"a hidden button", "click quest cmdtutor", 5, "is hidden"},
        WrongScript{"a screen that is gone", "click Welcome Image4 0", 5, "is not shown"},
        WrongScript{"a box that nobody answers", "click quest menu_exit", 5, "nobody answers"},
        WrongScript{"the end of the script under the answer page",
                    "show run\nclick quest menu_showwrong\nclick quest menu_showwrong\n"
                    "click quest cmd_buttons 0\nshow screen theanswer\n",
                    9, "theanswer"}));

TEST(Script, WhatWasShownBeforeAnErrorHasBeenWritten) {
  Robot robot;
  std::istringstream in("start 46000\nshow screen Welcome\nshow nonsense\n");
  std::ostringstream out;
  EXPECT_THROW(Script(robot, in, out).run(), ScriptError);
  EXPECT_EQ(lines_of(out.str()).size(), 1u);
}

TEST(Script, BeforeTheStartThereIsNoProgram) {
  Robot robot;
  std::istringstream in("\nshow run\n");
  std::ostringstream out;
  try {
    Script(robot, in, out).run();
    FAIL();
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.line, 2);
    EXPECT_EQ(error.text, "the program has not been started");
  }
}

TEST(Script, QuotesHoldBlanksAndEscapesTogether) {
  using Words = std::vector<std::string>;
  EXPECT_EQ(words_of("file  a.txt \"one two\\r\\n\\t\\\"\\\\\""),
            (Words{"file", "a.txt", "one two\r\n\t\"\\"}));
  EXPECT_EQ(words_of("say \"\" end\r"), (Words{"say", "", "end"}));
  EXPECT_EQ(words_of(" \t "), Words{});
}

TEST(Script, HelpListsEveryCommand) {
  Robot robot;
  std::istringstream in("help\n");
  std::ostringstream out;
  Script(robot, in, out).run();
  for (const char* command : {"# start ", "# click ", "# answer_rightly", "# show control "}) {
    EXPECT_NE(out.str().find(command), std::string::npos) << command;
  }
}

}  // namespace
}  // namespace practice::robot
