// Right or wrong, and how the run stands after it.
#include <ostream>

#include "question_test.h"

namespace practice {
namespace {

constexpr const char* out_ini = "\\program\\out.ini";
constexpr const char* sims_out_ini = "\\program\\Sims\\OUT.ini";
constexpr int right = 1;
constexpr int wrong = 99;

class AnswerChecking : public QuestionTest {
 protected:
  void SetUp() override {
    QuestionTest::SetUp();
    options().show_answer_when_right = 0;
    options().show_answer_when_wrong = 0;
  }

  int verdict_of_choice(std::initializer_list<int> correct, std::initializer_list<int> chosen) {
    show(choice(correct));
    for (const int n : chosen) {
      if (run().question_kind == "Radio_Button") {
        robot.choose("radio1", n);
      } else {
        robot.tick("ans" + std::to_string(n));
      }
    }
    next();
    return run().answer_verdict;
  }

  int verdict_of_text(std::initializer_list<const char*> accepted, std::string_view typed) {
    show(fill_in(accepted));
    robot.type_on_page("txt_fill", typed);
    next();
    return run().answer_verdict;
  }

  int verdict_of_exercise(std::string_view marker) {
    show(exercise(marker));
    return verdict_on_next();
  }

  int verdict_on_next() {
    next();
    return run().answer_verdict;
  }

  int verdict_of_conditions(std::initializer_list<const char*> conditions, const std::string& ini) {
    Question question = exercise("xxsim", "");
    int entry = 0;
    for (const char* condition : conditions) question.answers[++entry] = condition;
    show(question);
    robot.world.files.write(out_ini, ini);
    return verdict_on_next();
  }
};

// ---- Choices

TEST_F(AnswerChecking, AChoiceIsRightOnlyWhenTheSetsAreEqual) {
  EXPECT_EQ(verdict_of_choice({2}, {2}), right);
  EXPECT_EQ(verdict_of_choice({2}, {3}), wrong);
  EXPECT_EQ(verdict_of_choice({2}, {}), wrong);
  EXPECT_EQ(verdict_of_choice({1, 3}, {1, 3}), right);
  EXPECT_EQ(verdict_of_choice({1, 3}, {1}), wrong);
  EXPECT_EQ(verdict_of_choice({1, 3}, {1, 2, 3}), wrong);
  EXPECT_EQ(verdict_of_choice({1, 2, 3, 4}, {1, 2, 4}), wrong);
  EXPECT_EQ(verdict_of_choice({1, 2, 3, 4}, {1, 2, 3, 4}), right);
  EXPECT_EQ(verdict_of_choice({}, {}), right);
}

TEST_F(AnswerChecking, BoxesAndRadioButtonsAreCheckedAlike) {
  options().radio_for_single = false;
  EXPECT_EQ(verdict_of_choice({2}, {2}), right);
  EXPECT_EQ(verdict_of_choice({2}, {1, 2}), wrong);
}

TEST_F(AnswerChecking, TheLettersOfTheChoiceAreKeptEachWithABlankInFront) {
  verdict_of_choice({1, 3}, {3, 1});
  EXPECT_EQ(run().answer_given[1], " A C");
  verdict_of_choice({1}, {4});
  EXPECT_EQ(run().answer_given[1], " D");
  verdict_of_choice({1}, {});
  EXPECT_EQ(run().answer_given[1], "");
}

TEST_F(AnswerChecking, TheLettersAreThoseOfTheOrderOnShow) {
  options().shuffle_answers = 1;
  robot.world.random.draws = {0.99f, 0.99f, 0.99f, 0.99f};
  show(choice({4}));
  robot.choose("radio1", 1);
  next();
  EXPECT_EQ(run().answer_given[1], " A");
  EXPECT_EQ(run().answer_verdict, right);
}

TEST_F(AnswerChecking, AnAnswerLeftBlankIsWrongAndCountsAsAnswered) {
  verdict_of_choice({2}, {});
  EXPECT_EQ(row(1).result_state, 2);
  EXPECT_EQ(quest().score.caption, " 0/ 1");
  EXPECT_EQ(quest().Percent_Right.caption, "0.0%");
}

// ---- Typed answers

struct TypedCase {
  const char* typed;
  int verdict;

  friend std::ostream& operator<<(std::ostream& out, const TypedCase& c) { return out << c.typed; }
};

TEST_F(AnswerChecking, CaseAndOuterBlanksDoNotMatterAndInnerOnesDo) {
  const TypedCase cases[] = {{"OSPF", right},
                             {"  ospf ", right},
                             {"Open Shortest Path First", right},
                             {"open  shortest path first", wrong},
                             {"O S P F", wrong},
                             {"OSPF.", wrong},
                             {"", wrong},
                             {"   ", wrong}};
  for (const TypedCase& c : cases) {
    EXPECT_EQ(verdict_of_text({"OSPF", " open shortest path first "}, c.typed), c.verdict) << c;
  }
}

TEST_F(AnswerChecking, AnyOfTheSixFormsIsAccepted) {
  for (const char* typed : {"a", "b", "c", "d", "e", "f"}) {
    EXPECT_EQ(verdict_of_text({"A", "B", "C", "D", "E", "F"}, typed), right) << typed;
  }
  EXPECT_EQ(verdict_of_text({"A", "B", "C", "D", "E", "F"}, "g"), wrong);
}

TEST_F(AnswerChecking, ADashOfTheBankIsTypedAsAHyphen) {
  EXPECT_EQ(verdict_of_text({"x \u2013 y \u2013 z"}, "X - Y - Z"), right);
  EXPECT_EQ(row(1).answers[1], "x \u2013 y \u2013 z");
  EXPECT_EQ(verdict_of_text({"x \u2013 y"}, "x \u2013 y"), wrong);
}

TEST_F(AnswerChecking, TheTypedTextIsKeptAsItWasTyped) {
  verdict_of_text({"OSPF"}, "  ospf ");
  EXPECT_EQ(run().answer_given[1], "  ospf ");
}

// ---- Results of the simulators

TEST_F(AnswerChecking, OnlyTheWordSuccessIsRight) {
  const std::pair<const char*, int> cases[] = {{"[Answer]\r\nresult=Success\r\n", right},
                                               {"[answer]\nRESULT = Success\n", right},
                                               {"[Answer]\r\nresult=Failure\r\n", wrong},
                                               {"[Answer]\r\nresult=success\r\n", wrong},
                                               {"[Answer]\r\nresult=whatever\r\n", wrong},
                                               {"[Answer]\r\nresult=\r\n", wrong},
                                               {"[Answer]\r\nother=Success\r\n", wrong},
                                               {"[Other]\r\nresult=Success\r\n", wrong},
                                               {"", wrong}};
  for (const char* marker : {"xxxdnd", "xxxmssim", "xxxmssim2"}) {
    const char* place = marker == std::string_view("xxxdnd") ? out_ini : sims_out_ini;
    for (const auto& [ini, expected] : cases) {
      show(exercise(marker));
      robot.world.files.write(place, ini);
      EXPECT_EQ(verdict_on_next(), expected) << marker << ": " << ini;
      EXPECT_FALSE(robot.world.files.exists(place)) << "the result is taken away: " << marker;
    }
  }
}

TEST_F(AnswerChecking, WithoutAResultTheQuestionIsWrongWithoutAWord) {
  for (const char* marker : {"xxxdnd", "xxxmssim", "xxxmssim2"}) {
    EXPECT_EQ(verdict_of_exercise(marker), wrong) << marker;
    EXPECT_TRUE(robot.world.messages.shown.empty());
  }
}

TEST_F(AnswerChecking, EachKindReadsItsOwnFile) {
  show(exercise("xxxdnd"));
  robot.world.files.write(sims_out_ini, "[Answer]\r\nresult=Success\r\n");
  EXPECT_EQ(verdict_on_next(), wrong);
  EXPECT_TRUE(robot.world.files.exists(sims_out_ini));
  robot.world.files.write(out_ini, "[Answer]\r\nresult=Success\r\n");
  robot.world.files.remove(sims_out_ini);
  show(exercise("xxxmssim"));
  EXPECT_EQ(verdict_on_next(), wrong);
  EXPECT_TRUE(robot.world.files.exists(out_ini));
}

TEST_F(AnswerChecking, AMarkerCountsMoreThanTheType) {
  Question question = exercise("xxxdnd", "typed");
  question.question_type = "fill_in_the_blank";
  question.typed_answer = "typed";
  show(question);
  EXPECT_EQ(verdict_on_next(), wrong);
}

// ---- Configurations

TEST_F(AnswerChecking, AllConditionsOfAConfigurationMustHold) {
  const std::string ini =
      "[general]\r\nvlan2=created\r\nvtp_mode=Transparent\r\nip address = 10.0.0.1 \r\nempty=\r\n";
  EXPECT_EQ(verdict_of_conditions({"vlan2=created"}, ini), right);
  EXPECT_EQ(verdict_of_conditions({"VLAN2= Created "}, ini), right);
  EXPECT_EQ(verdict_of_conditions({"vlan2=created", "", "vtp_mode=transparent"}, ini), right);
  EXPECT_EQ(verdict_of_conditions({"vlan2=created", "vtp_mode=server"}, ini), wrong);
  EXPECT_EQ(verdict_of_conditions({"vlan2=created", "", "", "", "", "vlan3=created"}, ini), wrong);
  EXPECT_EQ(verdict_of_conditions({"[ip address]10.0.0.1"}, ini), right);
  EXPECT_EQ(verdict_of_conditions({"[ip address] 10.0.0.2"}, ini), wrong);
  EXPECT_EQ(verdict_of_conditions({"[vlan2]=created"}, ini), wrong) << "the bracket wins";
  EXPECT_EQ(verdict_of_conditions({"empty="}, ini), right);
  EXPECT_EQ(verdict_of_conditions({"missing="}, ini), wrong);
  EXPECT_EQ(verdict_of_conditions({"no condition", "   "}, ini), right);
  EXPECT_EQ(verdict_of_conditions({"vlan2=created=twice"}, ini), wrong);
}

TEST_F(AnswerChecking, TheSectionOfAConfigurationIsGeneral) {
  EXPECT_EQ(verdict_of_conditions({"a=b"}, "[GENERAL]\na=b\n"), right);
  EXPECT_EQ(verdict_of_conditions({"a=b"}, "[Answer]\na=b\n"), wrong);
}

// The place of the "=" is found before the entry is trimmed: one leading blank moves the cut behind
// the "=", into the value.
TEST_F(AnswerChecking, ALeadingBlankShiftsTheCutOfACondition) {
  EXPECT_EQ(verdict_of_conditions({" ab=cd"}, "[general]\nab=cd\n"), wrong);
  EXPECT_EQ(verdict_of_conditions({"ab=cd  "}, "[general]\nab=cd\n"), right);
}

TEST_F(AnswerChecking, AConfigurationWithoutItsFileIsWrongAndTheFileStays) {
  Question question = exercise("xxsim", "a=b");
  show(question);
  EXPECT_EQ(verdict_on_next(), wrong);
  EXPECT_EQ(verdict_of_conditions({"a=b"}, "[general]\na=b\n"), right);
  EXPECT_TRUE(robot.world.files.exists(out_ini));
}

// ---- What a check records

TEST_F(AnswerChecking, ARightAndAWrongAnswerAreRecordedEverywhere) {
  Question question = choice({2});
  question.category = 3;
  show(question);
  run().right_count = 0;
  robot.choose("radio1", 2);
  next();
  EXPECT_EQ(row(1).result_state, 1);
  EXPECT_EQ(run().last_results[1], "0");
  EXPECT_EQ(run().category_right[3], 1);
  EXPECT_EQ(run().right_count, 1);
  show(question, 2);
  robot.choose("radio1", 1);
  next();
  EXPECT_EQ(row(2).result_state, 2);
  EXPECT_EQ(run().last_results[2], "1");
  EXPECT_EQ(run().category_right[3], 1);
  EXPECT_EQ(run().right_count, 1);
  EXPECT_EQ(run().wrong_list.count, 0);
}

TEST_F(AnswerChecking, ABadCategoryCountsAsTheFirst) {
  Question question = choice({2});
  question.category = 0;
  show(question);
  robot.choose("radio1", 2);
  next();
  EXPECT_EQ(run().category_right[1], 1);
  EXPECT_EQ(run().category_right[0], 0);
}

TEST_F(AnswerChecking, AnsweredWrongAfterBackKeepsTheEarlierTallyOfItsCategory) {
  show(choice({2}));
  robot.choose("radio1", 2);
  next();
  EXPECT_EQ(run().right_count, 1);
  back();
  robot.choose("radio1", 1);
  next();
  EXPECT_EQ(row(1).result_state, 2);
  EXPECT_EQ(run().right_count, 0);
  EXPECT_EQ(run().category_right[1], 1);
  EXPECT_EQ(quest().score.caption, " 0/ 1");
}

TEST_F(AnswerChecking, AnsweredRightTwiceCountsTwiceInItsCategoryAndOnceInTheScore) {
  show(choice({2}));
  robot.choose("radio1", 2);
  next();
  back();
  next();
  EXPECT_EQ(run().category_right[1], 2);
  EXPECT_EQ(run().right_count, 1);
  EXPECT_EQ(quest().score.caption, " 1/ 1");
}

TEST_F(AnswerChecking, TheAnswerIsShownAsTheOptionsAsk) {
  int shown = 0;
  robot.world.stage.modal_user = [&](Screen& screen) {
    ++shown;
    EXPECT_EQ(screen.form_name, "theanswer");
    robot.click("theanswer", "Closeb");
  };
  verdict_of_choice({2}, {2});
  verdict_of_choice({2}, {1});
  EXPECT_EQ(shown, 0);
  options().show_answer_when_wrong = 1;
  verdict_of_choice({2}, {2});
  EXPECT_EQ(shown, 0);
  verdict_of_choice({2}, {1});
  EXPECT_EQ(shown, 1);
  options().show_answer_when_wrong = 0;
  options().show_answer_when_right = 1;
  verdict_of_choice({2}, {1});
  EXPECT_EQ(shown, 1);
  verdict_of_choice({2}, {2});
  EXPECT_EQ(shown, 2);
}

// ---- The score panel

TEST_F(AnswerChecking, TheScoreCountsWhatWasAnsweredAndNothingElse) {
  struct Case {
    int right, wrong, other;
    const char* score;
    const char* percent;
    double bar;
  };
  quest().Gauge1.bounds.height = 1000;
  const Case cases[] = {{0, 1, 49, " 0/ 1", "0.0%", 1000},   {1, 0, 49, " 1/ 1", "100.0%", 0},
                        {1, 2, 47, " 1/ 3", "33.3%", 667},   {2, 1, 0, " 2/ 3", "66.7%", 333},
                        {1, 7, 42, " 1/ 8", "12.5%", 875},   {49, 1, 0, " 49/ 50", "98.0%", 20},
                        {25, 25, 0, " 25/ 50", "50.0%", 500}};
  for (const Case& c : cases) {
    for (int i = 1; i <= 50; ++i) {
      row(i).result_state = i <= c.right ? 1 : i <= c.right + c.wrong ? 2 : i % 2 == 0 ? 0 : 3;
    }
    run().question_total = c.right + c.wrong + c.other;
    quest().calculate_score();
    EXPECT_EQ(quest().score.caption, c.score);
    EXPECT_EQ(quest().Percent_Right.caption, c.percent);
    EXPECT_NEAR(quest().the_gauge.bounds.height, c.bar, 0.5) << c.score;
    EXPECT_EQ(run().right_count, c.right);
  }
}

TEST_F(AnswerChecking, ABarTooLowToBeSeenIsHidden) {
  run().question_total = 2;
  row(1).result_state = 1;
  row(2).result_state = 2;
  const std::pair<double, bool> cases[] = {{39, false}, {40, true}, {0, false}, {2175, true}};
  for (const auto& [height, seen] : cases) {
    quest().Gauge1.bounds.height = height;
    quest().calculate_score();
    EXPECT_EQ(quest().the_gauge.visible, seen) << height;
  }
}

TEST_F(AnswerChecking, ABarTooLowToBeSeenStaysHiddenWithTheNextQuestion) {
  options().show_running_score = 1;
  show(choice({1}));
  EXPECT_TRUE(quest().the_gauge.visible);
  robot.choose("radio1", 1);
  next();
  EXPECT_FALSE(quest().the_gauge.visible);
  EXPECT_TRUE(quest().Gauge1.visible);
}

TEST_F(AnswerChecking, ThePercentHasTheDecimalPointOfTheStudentsCountry) {
  robot.world.platform.decimal_point = ",";
  run().question_total = 3;
  for (int i = 1; i <= 3; ++i) row(i).result_state = i == 1 ? 1 : 2;
  quest().calculate_score();
  EXPECT_EQ(quest().Percent_Right.caption, "33,3%");
}

// A page is a text, and what a student types stands in it as it was typed.
TEST_F(AnswerChecking, ALongOrHostileTypedAnswerIsKeptAndChecked) {
  options().show_answer_when_wrong = 1;
  std::string tags;
  while (tags.size() < 10'000) tags += "\"><script>'<b></body></html>&amp;<!--";
  for (const std::string& typed : {std::string(10'000, 'x'), tags, std::string("\" onclick=\"x")}) {
    show(fill_in({"OSPF"}));
    robot.type_on_page("txt_fill", typed);
    next();
    EXPECT_EQ(row(1).typed_answer, typed);
    EXPECT_EQ(run().answer_given[1], typed);
    EXPECT_EQ(row(1).result_state, 2);
    back();
    EXPECT_EQ(run().question_position, 1);
    ASSERT_NE(robot.page().input("txt_fill"), nullptr);
    next();
    EXPECT_EQ(run().question_position, 2);
  }
}

TEST_F(AnswerChecking, WithNothingAnsweredThePercentStays) {
  quest().Percent_Right.caption = "as it was";
  for (int i = 1; i <= 50; ++i) row(i).result_state = 3;
  quest().calculate_score();
  EXPECT_EQ(quest().Percent_Right.caption, "as it was");
  EXPECT_EQ(quest().score.caption, " 0/ 0");
  EXPECT_EQ(run().right_count, 0);
}

TEST_F(AnswerChecking, TheScoreFollowsTheOrderOfTheTest) {
  run().question_total = 2;
  run().order_stride = 4;
  run().order_base = 3;
  for (int i = 1; i <= 20; ++i) row(i).result_state = 0;
  row(3).result_state = 1;
  row(7).result_state = 1;
  row(4).result_state = 2;
  quest().calculate_score();
  EXPECT_EQ(quest().score.caption, " 2/ 2");
}

TEST_F(AnswerChecking, APositionOutsideTheTableCostsOnlyItself) {
  run().question_total = 3;
  run().question_order[2] = 2000;
  row(1).result_state = 1;
  row(3).result_state = 2;
  quest().calculate_score();
  EXPECT_EQ(quest().score.caption, " 1/ 2");
}

// ---- Questions by category

TEST_F(AnswerChecking, TheQuestionsAreCountedByCategory) {
  const int order[] = {1, 2, 3, 9};
  const int category[] = {2, 2, 5, 1};
  run().question_total = 4;
  for (int i = 0; i < 4; ++i) {
    run().question_order[i + 1] = order[i];
    row(order[i]).category = category[i];
  }
  run().category_asked[7] = 12;
  quest().count_category_questions();
  EXPECT_EQ(run().category_asked[1], 1);
  EXPECT_EQ(run().category_asked[2], 2);
  EXPECT_EQ(run().category_asked[5], 1);
  EXPECT_EQ(run().category_asked[7], 0);
}

TEST_F(AnswerChecking, AFixedQuizCountsTheCategoriesOfTheFirstStretchOfTheTable) {
  run().question_total = 3;
  run().order_stride = 4;
  run().order_base = 2;
  for (int i = 1; i <= 20; ++i) row(i).category = 1;
  for (const int i : {2, 3, 4}) row(i).category = 6;
  quest().count_category_questions();
  EXPECT_EQ(run().category_asked[6], 3);
  EXPECT_EQ(run().category_asked[1], 0);
}

TEST_F(AnswerChecking, ACategoryOutsideTheListIsNotCountedAndABadOneIsTheFirst) {
  robot.program().catalogue.category_count = 4;
  run().question_total = 3;
  row(1).category = 5;
  row(2).category = 4;
  row(3).category = 0;
  for (int i = 0; i <= 150; ++i) run().category_asked[i] = 0;
  quest().count_category_questions();
  int counted = 0;
  for (int i = 0; i <= 150; ++i) counted += run().category_asked[i];
  EXPECT_EQ(counted, 2);
  EXPECT_EQ(run().category_asked[4], 1);
  EXPECT_EQ(run().category_asked[1], 1);
}

TEST_F(AnswerChecking, ACheckCountsTheCategoriesAnew) {
  show(choice({1}));
  run().category_asked[1] = 777;
  next();
  int counted = 0;
  for (int i = 1; i <= robot.program().catalogue.category_count; ++i) {
    counted += run().category_asked[i];
  }
  EXPECT_EQ(counted, 50);
}

}  // namespace
}  // namespace practice
