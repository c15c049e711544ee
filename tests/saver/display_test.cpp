// What somebody sees who looks at the saver: questions, answers, colours, sizes and places.
#include <array>
#include <ostream>
#include <utility>

#include "saver_test.h"

namespace practice {
namespace {

using DisplayTest = SaverTest;

// ---- The pace

TEST_F(DisplayTest, TheUsualPaceIsKeptToTheSecondAndSoIsTheNextRound) {
  int steps = 0;
  robot.world.stage.during_paint = [&](Screen&) { ++steps; };
  start_saver_with(
      {question_of("First?", {"one", "two"}, {2}), question_of("Second?", {"three", "four"}, {2})});
  for (int second = 0; second <= 47; ++second) {
    if (second > 0) {
      steps = 0;
      robot.pass(1);
    }
    const int place = second % 16;
    const bool question_is_shown = place >= 3 && place < 15;
    const bool answers_are_shown = place >= 6 && place < 15;
    const bool correct_are_lit = place >= 12 && place < 15;
    const int painted = place == 3 ? 768 : place == 15 ? 256 : 0;
    EXPECT_EQ(number_on_show(), second < 16 || second >= 32 ? "1. " : "2. ") << second;
    EXPECT_EQ(saver().lblQuestnum.letters.fore_rgb, question_is_shown ? white : black) << second;
    EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, question_is_shown ? white : black) << second;
    EXPECT_EQ(answer(1).letters.fore_rgb, answers_are_shown ? white : black) << second;
    EXPECT_EQ(answer(2).letters.fore_rgb, answers_are_shown ? white : black) << second;
    EXPECT_EQ(answer(1).letters.back_rgb, black) << second;
    EXPECT_EQ(answer(2).letters.back_rgb, correct_are_lit ? green : black) << second;
    EXPECT_EQ(steps, painted) << second;
  }
}

TEST_F(DisplayTest, AnswersAreWrittenWhenTheyAppearAndNotBefore) {
  start_saver_with({question_of("First?", {"one", "two"}, {2})});
  seconds(5);
  EXPECT_EQ(answer(1).caption, "");
  seconds(1);
  EXPECT_EQ(answer(1).caption, "A.  one");
  EXPECT_EQ(answer(2).caption, "B.  two");
  EXPECT_EQ(answer(3).caption, "");
}

TEST_F(DisplayTest, OneSecondForEachMakesARoundOfEight) {
  keep_setting("aspeed", "1");
  keep_setting("cspeed", "1");
  start_saver_with({question_of("First?", {"one"}, {1}), question_of("Second?", {"two"}, {1})});
  seconds(2);
  EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, black);
  seconds(1);
  EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, white);
  EXPECT_EQ(answer(1).letters.fore_rgb, black);
  seconds(1);
  EXPECT_EQ(answer(1).letters.fore_rgb, white);
  EXPECT_EQ(answer(1).letters.back_rgb, black);
  seconds(1);
  EXPECT_EQ(answer(1).letters.back_rgb, green);
  seconds(2);
  EXPECT_EQ(answer(1).letters.back_rgb, green);
  seconds(1);
  EXPECT_EQ(answer(1).letters.back_rgb, black);
  EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, black);
  EXPECT_EQ(number_on_show(), "1. ");
  seconds(1);
  EXPECT_EQ(number_on_show(), "2. ");
}

TEST_F(DisplayTest, WithoutADelayTheAnswersComeWithTheirQuestion) {
  keep_setting("aspeed", "0");
  start_saver_with({question_of("First?", {"one"}, {1})});
  seconds(3);
  EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, white);
  EXPECT_EQ(answer(1).letters.fore_rgb, white);
  EXPECT_EQ(answer(1).caption, "A.  one");
  seconds(6);
  EXPECT_EQ(answer(1).letters.back_rgb, green);
}

TEST_F(DisplayTest, CorrectAnswersThatWouldComeWithTheAnswersAreNeverLit) {
  keep_setting("cspeed", "0");
  start_saver_with({question_of("First?", {"one"}, {1}), question_of("Second?", {"two"}, {1})});
  for (int second = 1; second <= 9; ++second) {
    seconds(1);
    EXPECT_EQ(answer(1).letters.back_rgb, black) << second;
  }
  EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, black);
  seconds(1);
  EXPECT_EQ(number_on_show(), "2. ");
}

// ---- The settings

struct DelayCase {
  const char* stored;
  /// Second at which the answers appear; 0 for not within two minutes.
  int answers_at;
  int lines;

  friend std::ostream& operator<<(std::ostream& out, const DelayCase& c) {
    return out << '"' << c.stored << '"';
  }
};

class DelaySetting : public SaverTest, public testing::WithParamInterface<DelayCase> {};

TEST_P(DelaySetting, IsKeptOrLeavesTheUsualDelayAndALineInTheLog) {
  const DelayCase& c = GetParam();
  keep_setting("aspeed", c.stored);
  keep_setting("cspeed", "120");
  start_saver();
  EXPECT_EQ(lines_in_the_log("Security form load()"), 1 + c.lines);
  int shown_at = 0;
  int question_at = 0;
  for (int second = 1; second <= 120; ++second) {
    seconds(1);
    if (question_at == 0 && saver().lblQuestion.letters.fore_rgb == white) question_at = second;
    if (shown_at == 0 && answer(1).letters.fore_rgb == white) shown_at = second;
  }
  EXPECT_EQ(question_at, 3);
  EXPECT_EQ(shown_at, c.answers_at);
}

INSTANTIATE_TEST_SUITE_P(
    AllTexts, DelaySetting,
    testing::Values(DelayCase{"1", 4, 0}, DelayCase{"0", 3, 0}, DelayCase{"100", 103, 0},
                    DelayCase{" 5 ", 8, 0}, DelayCase{"+5", 8, 0}, DelayCase{"4.6", 8, 0},
                    DelayCase{"", 6, 1}, DelayCase{"soon", 6, 1}, DelayCase{"12 min", 6, 1},
                    DelayCase{"1-2", 6, 1}, DelayCase{"1.2.3", 6, 1}, DelayCase{"-", 6, 1},
                    DelayCase{".", 6, 1}, DelayCase{"inf", 6, 1}, DelayCase{"-1", 6, 1},
                    DelayCase{"-40000", 6, 1}, DelayCase{"40000", 6, 1},
                    DelayCase{"99999999999999999999", 6, 1}, DelayCase{"32767", 0, 0}));

TEST_F(DisplayTest, EachBadSettingLeavesItsOwnLineAndItsOwnUsualValue) {
  keep_setting("aspeed", "soon");
  keep_setting("cspeed", "-6");
  keep_setting("RandQuestions", "yes");
  start_saver_with({question_of("First?", {"one"}, {1}), question_of("Second?")});
  const std::string load = " - Security form load() - sec_form";
  EXPECT_EQ(lines_in_the_log(load + "13 - Type mismatch - \r\n"), 2 * 2) << "two starts";
  EXPECT_EQ(lines_in_the_log(load + "5 - "), 2);
  EXPECT_EQ(robot.world.random.seeds, 0);
  seconds(12);
  EXPECT_EQ(answer(1).letters.back_rgb, green);
  seconds(4);
  EXPECT_EQ(number_on_show(), "2. ");
}

TEST_F(DisplayTest, TheLongestDelaysTogetherStillShowTheQuestion) {
  keep_setting("aspeed", "32767");
  keep_setting("cspeed", "32767");
  start_saver_with({question_of("First?", {"one"}, {1})});
  seconds(3);
  EXPECT_EQ(saver().lblQuestion.letters.fore_rgb, white);
}

TEST_F(DisplayTest, WhatTheOptionsScreenSavesIsWhatTheSaverKeeps) {
  start();
  robot.click("Welcome", "Image4", 0);
  const ControlEntry& bar = robot.control("pick_a_quiz", "VScroll4");
  std::get<ScrollBar*>(bar.control)->value = 1;
  bar.change();
  robot.click("pick_a_quiz", "chkRandom");
  robot.click("pick_a_quiz", "cmdok");
  const int seeds = robot.world.random.seeds;
  start_saver();
  seconds(4);
  EXPECT_EQ(answer(1).letters.fore_rgb, black);
  seconds(1);
  EXPECT_EQ(answer(1).letters.fore_rgb, white);
  EXPECT_EQ(robot.world.random.seeds, seeds + 1);
}

TEST_F(DisplayTest, NothingOfTheDisplayIsKeptForTheNextStart) {
  start_saver();
  robot.pass(40);
  EXPECT_EQ(number_on_show(), "3. ");
  EXPECT_TRUE(robot.world.settings.values.empty());
  start_saver();
  EXPECT_EQ(number_on_show(), "1. ");
}

// ---- The order

TEST_F(DisplayTest, BehindTheLastQuestionTheFirstComesAgain) {
  start_saver_with({question_of("First?"), question_of("Second?"), question_of("Third?")});
  std::string order;
  for (int i = 0; i < 7; ++i) {
    order += number_on_show();
    seconds(16);
  }
  EXPECT_EQ(order, "1. 2. 3. 1. 2. 3. 1. ");
}

// The draws make the order 3, 5, 1, 2, 4. Behind its first entry come the second and the fourth;
// behind the end stands no row of the bank, and the first row takes its place.
TEST_F(DisplayTest, AShuffledRunPassesOverEveryOtherEntryOfItsOrder) {
  keep_setting("RandQuestions", "1");
  start_saver();
  EXPECT_EQ(robot.world.random.seeds, 1);
  take_as_bank(
      {question_of("a"), question_of("b"), question_of("c"), question_of("d"), question_of("e")});
  robot.world.random.draws = {0.5f, 0.9f, 0.5f, 0.9f, 0.9f};
  start_anew();
  std::string order;
  for (int i = 0; i < 7; ++i) {
    order += number_on_show();
    seconds(16);
  }
  EXPECT_EQ(order, "3. 5. 2. 1. 5. 2. 1. ");
}

TEST_F(DisplayTest, AShuffledRunStaysInTheBankForEver) {
  keep_setting("RandQuestions", "5");
  start_saver();
  EXPECT_EQ(robot.world.random.seeds, 1) << "whatever is not 0 shuffles";
  for (int i = 0; i < 500; ++i) {
    const int number = std::stoi(number_on_show());
    ASSERT_GE(number, 1);
    ASSERT_LE(number, robot.program().catalogue.bank_total);
    ASSERT_EQ(saver().lblQuestion.caption, row(number).question_text);
    seconds(16);
  }
}

// ---- The colours

TEST_F(DisplayTest, AQuestionComesFromBlackOverRedAndYellowToWhite) {
  start_saver_with({question_of("First?", {"one"}, {1})});
  std::vector<unsigned> colours;
  robot.world.stage.during_paint = [&](Screen& shown) {
    EXPECT_EQ(&shown, &saver());
    EXPECT_EQ(saver().lblQuestnum.letters.fore_rgb, saver().lblQuestion.letters.fore_rgb);
    EXPECT_EQ(answer(1).letters.fore_rgb, black);
    colours.push_back(saver().lblQuestion.letters.fore_rgb.value_or(0x123456));
  };
  seconds(3);
  ASSERT_EQ(colours.size(), 768u);
  for (unsigned level = 0; level < 256; ++level) {
    EXPECT_EQ(colours[level], 0x10000 * level);
    EXPECT_EQ(colours[256 + level], 0xFF0000 + 0x100 * level);
    EXPECT_EQ(colours[512 + level], 0xFFFF00 + level);
  }
}

TEST_F(DisplayTest, EverythingGoesThroughAllGreysToBlackAndTheGreenAtOnce) {
  start_saver_with({question_of("First?", {"one", "two", "three"}, {1, 3})});
  seconds(14);
  EXPECT_EQ(answer(1).letters.back_rgb, green);
  EXPECT_EQ(answer(2).letters.back_rgb, black);
  EXPECT_EQ(answer(3).letters.back_rgb, green);
  std::vector<unsigned> greys;
  robot.world.stage.during_paint = [&](Screen&) {
    const auto grey = saver().lblQuestion.letters.fore_rgb;
    EXPECT_EQ(saver().lblQuestnum.letters.fore_rgb, grey);
    for (int i = 1; i <= answer_labels; ++i) {
      EXPECT_EQ(answer(i).letters.fore_rgb, grey) << i;
      EXPECT_EQ(answer(i).letters.back_rgb, black) << i;
    }
    greys.push_back(grey.value_or(0x123456));
  };
  seconds(1);
  ASSERT_EQ(greys.size(), 256u);
  for (unsigned step = 0; step < 256; ++step) {
    const unsigned level = 255 - step;
    EXPECT_EQ(greys[step], 0x10101 * level);
  }
}

TEST_F(DisplayTest, AFourAnswerQuestionLeavesTheLastTwoLabelsAsTheyWereAndUnseen) {
  start_saver_with({question_of("Long?", {"a", "b", "c", "d", "e", "f"}, {6}),
                    question_of("Short?", {"one", "two", "three", "four"}, {4})});
  seconds(16 + 12);
  EXPECT_EQ(answer(4).caption, "D.  four");
  EXPECT_EQ(answer(4).letters.fore_rgb, white);
  EXPECT_EQ(answer(4).letters.back_rgb, green);
  EXPECT_EQ(answer(5).caption, "E.  e");
  EXPECT_EQ(answer(6).caption, "F.  f");
  for (const int i : {5, 6}) {
    EXPECT_EQ(answer(i).letters.fore_rgb, black);
    EXPECT_EQ(answer(i).letters.back_rgb, black);
  }
}

TEST_F(DisplayTest, AnEmptyAnswerEndsTheAnswers) {
  start_saver_with({question_of("Hole?", {"one", "", "three"}, {1})});
  seconds(6);
  EXPECT_EQ(answer(1).caption, "A.  one");
  for (const int i : {2, 3}) {
    EXPECT_EQ(answer(i).caption, "");
    EXPECT_EQ(answer(i).letters.fore_rgb, black);
  }
}

TEST_F(DisplayTest, AQuestionWithoutTextShowsNothingForAWholeRound) {
  start_saver_with({question_of("First?", {"one"}, {1}), question_of("")});
  for (int second = 16; second < 32; ++second) {
    seconds(second == 16 ? 16 : 1);
    EXPECT_EQ(number_on_show(), "2. ") << second;
    EXPECT_EQ(saver().lblQuestion.caption, "") << second;
    EXPECT_EQ(answer(1).letters.fore_rgb, black) << second;
  }
  seconds(1);
  EXPECT_EQ(saver().lblQuestion.caption, "First?");
}

// ---- The size of the letters

struct ScreenCase {
  int wide;
  int high;
  /// Points of a short, a long and a very long text; 0 for those of the design.
  std::array<double, 3> points;

  friend std::ostream& operator<<(std::ostream& out, const ScreenCase& c) {
    return out << c.wide << " by " << c.high;
  }
};

class LetterSize : public SaverTest, public testing::WithParamInterface<ScreenCase> {};

TEST_P(LetterSize, FollowsTheScreenAndTheLengthOfTheText) {
  const ScreenCase& c = GetParam();
  robot.world.stage.pixels_wide = c.wide;
  robot.world.stage.pixels_high = c.high;
  const std::pair<std::size_t, std::size_t> lengths[] = {{1, 0},   {49, 0},  {50, 0}, {51, 1},
                                                         {139, 1}, {140, 2}, {900, 2}};
  for (const auto& [length, column] : lengths) {
    const std::string text(length, 'x');
    start_saver_with({question_of(text, {"short"}), question_of("Short?", {"short", text, "x"})});
    const bool by_design = c.points[0] == 0;
    const double design = 18;
    const double answers_by_design = 14;
    EXPECT_EQ(saver().lblQuestion.letters.font.points, by_design ? design : c.points[column])
        << length;
    EXPECT_EQ(saver().lblQuestnum.letters.font, saver().lblQuestion.letters.font) << length;
    seconds(6);
    EXPECT_EQ(answer(1).letters.font.points, by_design ? answers_by_design : c.points[0]) << length;
    seconds(10 + 6);
    EXPECT_EQ(saver().lblQuestion.letters.font.points, by_design ? design : c.points[0]) << length;
    for (int i = 1; i <= answer_labels; ++i) {
      EXPECT_EQ(answer(i).letters.font.points, by_design ? answers_by_design : c.points[column])
          << length << ", answer " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    AllScreens, LetterSize,
    testing::Values(ScreenCase{640, 480, {14, 12, 10}}, ScreenCase{480, 640, {14, 12, 10}},
                    ScreenCase{800, 600, {16, 14, 12}}, ScreenCase{1024, 768, {26, 24, 18}},
                    ScreenCase{1280, 1024, {26, 24, 18}}, ScreenCase{3840, 2160, {26, 24, 18}},
                    ScreenCase{1024, 600, {}}, ScreenCase{1023, 768, {}}, ScreenCase{641, 480, {}},
                    ScreenCase{799, 600, {}}, ScreenCase{320, 200, {}}));

TEST_F(DisplayTest, LettersAreCountedAndNotTheirBytes) {
  std::string text;
  for (int i = 0; i < 50; ++i) text += "ä";
  start_saver_with({question_of(text), question_of(text + "ä")});
  EXPECT_EQ(saver().lblQuestion.letters.font.points, 26);
  seconds(16);
  EXPECT_EQ(saver().lblQuestion.letters.font.points, 24);
}

// ---- The text

TEST_F(DisplayTest, LineBreaksAndAngleBracketsBecomePlainText) {
  const std::pair<const char*, const char*> cases[] = {
      {"one<br>two<BR>three<bR>", "one\r\ntwo\r\nthree\r\n"},
      {"a &gt; b &LT; c &Gt;&lt;", "a > b < c ><"},
      {"&lt;br&gt;", "<br>"},
      {"&amp;lt; <b>bold</b> <br/> < br>", "&amp;lt; <b>bold</b> <br/> < br>"},
      {"&&ltgt;;", "&&ltgt;;"},
      {"", ""}};
  for (const auto& [raw, plain] : cases) EXPECT_EQ(clean_text(raw), plain);
}

TEST_F(DisplayTest, AQuestionIsCleanedInTheTableToo) {
  const std::string text = std::string(45, 'x') + "<br><br>";
  start_saver_with({question_of(text, {"a<br>b"})});
  EXPECT_EQ(saver().lblQuestion.caption, std::string(45, 'x') + "\r\n\r\n");
  EXPECT_EQ(row(1).question_text, saver().lblQuestion.caption);
  EXPECT_EQ(saver().lblQuestion.letters.font.points, 24) << "the length is that of the raw text";
  seconds(6);
  EXPECT_EQ(answer(1).caption, "A.  a\r\nb");
  EXPECT_EQ(row(1).answers[1], "a<br>b");
  seconds(10);
  EXPECT_EQ(saver().lblQuestion.letters.font.points, 26) << "cleaned, it is a short one";
}

TEST_F(DisplayTest, AnEscapedLineBreakComesOutAsTheTagItself) {
  start_saver_with({question_of("Which tag is &lt;br&gt;?", {"&lt;BR&gt;"})});
  EXPECT_EQ(saver().lblQuestion.caption, "Which tag is <br>?");
  seconds(6);
  EXPECT_EQ(answer(1).caption, "A.  <BR>");
}

// ---- The places

// Of a screen of 1920 by 1080, which is 28800 by 16200 twips.
TEST_F(DisplayTest, TheScreenIsFilled) {
  start_saver();
  const Bounds whole{0, 0, 28800, 16200};
  EXPECT_TRUE(saver().covers_the_desk);
  EXPECT_EQ(saver().bounds, whole);
  EXPECT_EQ(saver().Frame1.bounds, whole);
  EXPECT_EQ(saver().lblQuestnum.bounds.left, 300);
  EXPECT_EQ(saver().lblQuestnum.bounds.top, 175);
  EXPECT_EQ(saver().lblQuestion.bounds.top, 175);
  EXPECT_EQ(saver().lblQuestion.bounds.left, 300 + saver().lblQuestnum.bounds.width + 30);
  EXPECT_EQ(saver().lblQuestion.bounds.width, 28800 - 1700);
  for (int i = 1; i <= answer_labels; ++i) {
    EXPECT_EQ(answer(i).bounds.left, 2618) << "an eleventh, rounded";
    EXPECT_EQ(answer(i).bounds.width, 28800 - 2 * 2618);
  }
  EXPECT_EQ(saver().Picture1.bounds.left, 28800 - saver().Picture1.bounds.width - 30);
  EXPECT_EQ(saver().Picture1.bounds.top, 16200 - saver().Picture1.bounds.height - 30);
}

TEST_F(DisplayTest, AQuestionBehindAWideNumberStaysOnTheScreen) {
  start_saver();
  robot.program().catalogue.bank_total = 1000;
  start_anew();
  const Bounds& question = saver().lblQuestion.bounds;
  EXPECT_GT(question.left, 1700);
  EXPECT_EQ(question.width, 28800 - question.left - 100);
}

TEST_F(DisplayTest, NoNumberOfTheBankReachesIntoItsQuestion) {
  const std::string long_text(200, 'x');
  std::vector<Question> questions(120, question_of("Short?"));
  questions[0] = question_of(long_text);
  start_saver_with(std::move(questions));
  EXPECT_EQ(saver().lblQuestion.letters.font.points, 18);
  for (int i = 1; i <= 120; ++i) {
    const Label& number = saver().lblQuestnum;
    const double width = robot.world.stage.text_size(number.caption, number.letters.font, 0).width +
                         number.bounds.left;
    ASSERT_LT(width, saver().lblQuestion.bounds.left) << number.caption;
    seconds(16);
  }
}

// A line of 26 points is 624 twips high here.
TEST_F(DisplayTest, AnswersStandBelowTheQuestionAndBelowEachOther) {
  start_saver_with({question_of("One line?", {"one", "two<br>lines", "three"}),
                    question_of("Two<br>lines?", {"one", "two", "three"})});
  seconds(6);
  EXPECT_EQ(answer(1).bounds.top, 175 + 624 + 500);
  EXPECT_EQ(answer(2).bounds.top, 1299 + 624 + 300);
  EXPECT_EQ(answer(3).bounds.top, 2223 + 2 * 624 + 300);
  seconds(10);
  EXPECT_EQ(answer(1).bounds.top, 175 + 2 * 624 + 500) << "at once, though nobody sees it yet";
  EXPECT_EQ(answer(3).bounds.top, 1923 + 624 + 300 + 2 * 624 + 300) << "still the texts before";
  seconds(6);
  EXPECT_EQ(answer(3).bounds.top, 1923 + 2 * (624 + 300));
}

TEST_F(DisplayTest, ALongTextTakesAsManyLinesAsItNeeds) {
  start_saver_with({question_of("?", {std::string(300, 'x'), "two"})});
  seconds(6);
  const double line = 18 * 24;
  const double length = 304 * 18 * 10;
  EXPECT_GT(length, answer(1).bounds.width * 2);
  EXPECT_EQ(answer(1).bounds.height, 3 * line);
  EXPECT_EQ(answer(2).bounds.top, answer(1).bounds.top + 3 * line + 300);
}

TEST_F(DisplayTest, TheLogoCrawlsToTheLeftAndComesBackFromTheRight) {
  start_saver();
  Bounds& logo = saver().Picture1.bounds;
  const Bounds at_first = logo;
  EXPECT_EQ(saver().scrolllogo.interval, 20);
  robot.pass(1);
  EXPECT_EQ(logo.left, at_first.left - 50 * 5);
  EXPECT_EQ(logo.top, at_first.top);
  logo.left = 10 - logo.width;
  robot.tick_timer("Security", "scrolllogo");
  EXPECT_EQ(logo.left, 5 - logo.width);
  robot.tick_timer("Security", "scrolllogo");
  EXPECT_EQ(logo.left, 28800);
  robot.tick_timer("Security", "scrolllogo");
  EXPECT_EQ(logo.left, 28795);
}

// ---- The start

TEST_F(DisplayTest, EachStartLeavesExactlyOneLineInTheLog) {
  start_saver();
  const std::string line = robot.world.clock.date_and_time() +
                           " - Security form load() - sec_form424 - Object required - \r\n";
  EXPECT_EQ(lines_in_the_log(line), 1);
  EXPECT_EQ(lines_in_the_log("sec_form"), 1);
  robot.pass(40);
  EXPECT_EQ(lines_in_the_log("sec_form"), 1);
  start_saver();
  EXPECT_EQ(lines_in_the_log("sec_form"), 2);
}

TEST_F(DisplayTest, TheSaverStandsAloneAndWithoutAPointer) {
  start("aaaa46002");
  EXPECT_TRUE(saver().visible);
  EXPECT_EQ(robot.program().catalogue.exam_code, "46002");
  EXPECT_FALSE(robot.app().welcome().visible);
  EXPECT_FALSE(robot.world.stage.pointer_shown);
  EXPECT_FALSE(robot.world.stage.ended);
  EXPECT_TRUE(saver().FadeTimer.enabled);
  EXPECT_EQ(saver().FadeTimer.interval, 1000);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(DisplayTest, TheCoverTakesThePlaceOfTheWords) {
  robot.world.files.write("\\program\\FALCO_front_cover.jpg", "");
  start_saver();
  EXPECT_TRUE(saver().img_cp.visible);
  EXPECT_EQ(saver().img_cp.file, "\\program\\FALCO_front_cover.jpg");
  EXPECT_FALSE(saver().img_HLB.visible);
  EXPECT_FALSE(saver().Image1.visible);
  EXPECT_TRUE(saver().Image2.visible);
  EXPECT_EQ(saver().lblTestinfo.caption, robot.program().catalogue.exam_title);
  for (const Label* label : {&saver().Label1, &saver().lblTestinfo, &saver().Label3}) {
    EXPECT_FALSE(label->visible);
  }
}

TEST_F(DisplayTest, AMissingCoverCostsThePictureAlone) {
  start_saver();
  EXPECT_EQ(saver().img_cp.file, "");
  EXPECT_FALSE(saver().Label1.visible);
  EXPECT_EQ(lines_in_the_log("sec_form"), 1);
}

TEST_F(DisplayTest, OnlyOneExamShowsTheSecondPublisher) {
  start_saver();
  robot.program().catalogue.exam_code = "30301";
  start_anew();
  EXPECT_TRUE(saver().img_HLB.visible);
  robot.program().catalogue.book_layout = 0;
  start_anew();
  EXPECT_FALSE(saver().img_HLB.visible);
}

TEST_F(DisplayTest, WithoutACoverTheWordsStandThere) {
  start_saver();
  Catalogue& catalogue = robot.program().catalogue;
  for (const auto& [edition, layout] : {std::pair{9090, 0}, std::pair{0, 99}}) {
    catalogue.book_edition = edition;
    catalogue.book_layout = layout;
    start_anew();
    EXPECT_FALSE(saver().img_cp.visible);
    EXPECT_TRUE(saver().Label1.visible);
    EXPECT_TRUE(saver().lblTestinfo.visible);
    EXPECT_TRUE(saver().Label3.visible);
    EXPECT_EQ(saver().Label1.caption, "Showing Questions From:");
    EXPECT_EQ(saver().lblTestinfo.caption, catalogue.exam_title);
  }
}

TEST_F(DisplayTest, OnlyOnePartnerShowsItsLogo) {
  robot.world.files.write("\\program\\skyquizlogo.jpg", "");
  for (const auto& [line, is_shown] : {std::pair{"sold_SKQ\r\n", true}, {"sold_kws\r\n", false}}) {
    robot.world.files.write("\\program\\bw_falco.log", line);
    start_saver();
    robot.program().catalogue.book_layout = 0;
    start_anew();
    EXPECT_EQ(saver().Image1.visible, is_shown) << line;
    EXPECT_EQ(saver().Image1.file, is_shown ? "\\program\\skyquizlogo.jpg" : "") << line;
    EXPECT_EQ(saver().Label1.visible, !is_shown) << line;
    EXPECT_TRUE(saver().Label3.visible) << line;
  }
}

TEST_F(DisplayTest, TheNameOfThePartnerAloneIsNoPartner) {
  robot.world.files.write("oem.oem", "skq\r\nsomebody\r\n");
  start_saver();
  EXPECT_FALSE(saver().Image1.visible);
}

}  // namespace
}  // namespace practice
