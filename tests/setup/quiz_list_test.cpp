// The quiz list, and the two lists of categories.
#include "robot/testing.h"

namespace practice {
namespace {

using Names = std::vector<std::string>;

class QuizListTest : public robot::StudentTest {
 protected:
  void SetUp() override { open("46000"); }

  void open(const char* exam) {
    start(exam);
    robot.click("Welcome", "Image4", 0);
  }
  std::string caption(const char* name, int index = 0) {
    const ControlRef& control = robot.control("pick_a_quiz", name, index).control;
    if (auto* const* label = std::get_if<Label*>(&control)) return (*label)->caption;
    if (auto* const* button = std::get_if<Button*>(&control)) return (*button)->caption;
    return std::get<OptionButton*>(control)->caption;
  }
  Catalogue& catalogue() { return robot.program().catalogue; }
  /// Category names by their numbers.
  Names names(std::initializer_list<int> numbers) {
    Names result;
    for (const int number : numbers) result.push_back(catalogue().category_names[number]);
    return result;
  }
  Names all_names() {
    Names result;
    for (int i = 1; i <= catalogue().category_count; ++i) {
      result.push_back(catalogue().category_names[i]);
    }
    return result;
  }
  Names& to_ask() { return pick_a_quiz().lst_cats_to_ask.items; }
  Names& not_to_ask() { return pick_a_quiz().lst_cats_not_to_ask.items; }
  void select(const char* list, std::initializer_list<int> entries) {
    bool also = false;
    for (const int entry : entries) {
      robot.select("pick_a_quiz", list, entry, also);
      also = true;
    }
  }
  void remove(std::initializer_list<int> entries) {
    select("lst_cats_to_ask", entries);
    robot.click("pick_a_quiz", "cmd_remove_cat");
  }
};

TEST_F(QuizListTest, TheScreenComesUpWithTheFirstQuizTicked) {
  EXPECT_TRUE(pick_a_quiz().which_quiz[0].value);
  EXPECT_EQ(caption("which_quiz", 1), "FALCO Book Quiz");
  EXPECT_EQ(caption("which_quiz", 2), "FALCO CD-ROM Quiz");
  EXPECT_EQ(caption("which_quiz", 3), "Full FALCO Exam");
  EXPECT_EQ(caption("lblORBIT_book", 0), "");
  EXPECT_EQ(caption("lblORBIT_book", 1), "Includes questions from the Book and CD-ROM combined.");
  EXPECT_EQ(caption("Command1"), "FALCO Book Quiz");
  EXPECT_EQ(caption("Label4"), "Note:  Questions will be asked from the FALCO Book Quiz.");
  EXPECT_EQ(caption("howmany"), std::to_string(catalogue().bank_total));
  EXPECT_EQ(pick_a_quiz().howmanyq.text, std::to_string(catalogue().bank_total / 4));
  EXPECT_EQ(pick_a_quiz().focus().first, "Command1");
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(pick_a_quiz().which_quiz[static_cast<std::size_t>(i - 1)].tool_tip,
              "Each Quiz contains 50 Questions");
  }
  EXPECT_EQ(robot.run().bank_size, catalogue().bank_total);
  EXPECT_EQ(robot.run().order_stride, 4);
}

TEST_F(QuizListTest, OnlyThreeQuizzesCanBePicked) {
  for (int quiz = 4; quiz <= 6; ++quiz) {
    EXPECT_ROBOT_REFUSES(robot.click("pick_a_quiz", "which_quiz", quiz));
  }
}

TEST_F(QuizListTest, AClickChangesBankButtonNoteAndCategoriesAtOnce) {
  const struct {
    int quiz;
    const char* name;
    int categories;
  } cases[] = {
      {2, "FALCO CD-ROM Quiz", 21}, {3, "Full FALCO Exam", 21}, {1, "FALCO Book Quiz", 20}};
  for (const auto& expected : cases) {
    robot.click("pick_a_quiz", "which_quiz", expected.quiz);
    EXPECT_EQ(caption("Command1"), expected.name);
    EXPECT_EQ(caption("Label4"),
              std::string("Note:  Questions will be asked from the ") + expected.name + ".");
    EXPECT_EQ(robot.run().clicked_quiz, expected.quiz);
    EXPECT_EQ(caption("howmany"), std::to_string(catalogue().bank_total));
    EXPECT_EQ(to_ask(), all_names());
    EXPECT_EQ(static_cast<int>(to_ask().size()), expected.categories);
    for (int i = 1; i <= 6; ++i) {
      EXPECT_EQ(pick_a_quiz().which_quiz[static_cast<std::size_t>(i - 1)].value,
                i == expected.quiz);
    }
  }
}

TEST_F(QuizListTest, AnotherQuizBringsAllCategoriesBack) {
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  robot.click("pick_a_quiz", "which_quiz", 2);
  EXPECT_EQ(to_ask(), all_names());
  EXPECT_TRUE(not_to_ask().empty());
}

TEST_F(QuizListTest, CategoriesAreBackWhenTheScreenComesToTheFrontAgain) {
  remove({0, 1});
  robot.program().forms.show(Form::Exhibit);
  robot.program().forms.came_to_front(pick_a_quiz());
  EXPECT_EQ(to_ask(), all_names());
  EXPECT_TRUE(not_to_ask().empty());
}

TEST_F(QuizListTest, RobinsExtraBankHasNoCategoryTabAndOneCategory) {
  open("46002");
  robot.click("pick_a_quiz", "which_quiz", 2);
  EXPECT_FALSE(pick_a_quiz().SSTab1.tab_on[2]);
  EXPECT_EQ(to_ask(), Names{"General"});
  EXPECT_TRUE(not_to_ask().empty());
  robot.click("pick_a_quiz", "which_quiz", 1);
  EXPECT_TRUE(pick_a_quiz().SSTab1.tab_on[2]);
}

TEST_F(QuizListTest, SelectedCategoriesMoveInTheOrderOfTheList) {
  remove({4, 1});
  EXPECT_EQ(not_to_ask(), names({2, 5}));
  EXPECT_EQ(to_ask().size(), all_names().size() - 2);
  EXPECT_EQ(to_ask()[1], all_names()[2]);
}

TEST_F(QuizListTest, AdjacentCategoriesMoveTogether) {
  remove({0, 1, 2, 3});
  EXPECT_EQ(not_to_ask(), names({1, 2, 3, 4}));
  EXPECT_EQ(to_ask().front(), all_names()[4]);
  select("lst_cats_not_to_ask", {1, 2});
  robot.click("pick_a_quiz", "cmd_add_cat");
  EXPECT_EQ(not_to_ask(), names({1, 4}));
}

TEST_F(QuizListTest, ACategoryMovedAwayAndBackStandsAtTheEnd) {
  remove({0});
  select("lst_cats_not_to_ask", {0});
  robot.click("pick_a_quiz", "cmd_add_cat");
  EXPECT_EQ(to_ask().front(), all_names()[1]);
  EXPECT_EQ(to_ask().back(), all_names()[0]);
  EXPECT_TRUE(not_to_ask().empty());
}

TEST_F(QuizListTest, NothingMovesWhenNothingIsSelected) {
  robot.click("pick_a_quiz", "cmd_remove_cat");
  EXPECT_EQ(to_ask(), all_names());
  robot.click("pick_a_quiz", "cmd_add_cat");
  EXPECT_EQ(to_ask(), all_names());
}

TEST_F(QuizListTest, ADoubleClickMovesTheEntryItHits) {
  robot.select("pick_a_quiz", "lst_cats_to_ask", 2);
  robot.double_click("pick_a_quiz", "lst_cats_to_ask");
  EXPECT_EQ(not_to_ask(), names({3}));
  robot.select("pick_a_quiz", "lst_cats_not_to_ask", 0);
  robot.double_click("pick_a_quiz", "lst_cats_not_to_ask");
  EXPECT_TRUE(not_to_ask().empty());
  EXPECT_EQ(to_ask().back(), all_names()[2]);
}

TEST_F(QuizListTest, AllCategoriesMoveWhetherSelectedOrNot) {
  robot.select("pick_a_quiz", "lst_cats_to_ask", 2);
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  EXPECT_TRUE(to_ask().empty());
  EXPECT_EQ(not_to_ask(), all_names());
  robot.click("pick_a_quiz", "cmd_add_all_cat");
  EXPECT_EQ(to_ask(), all_names());
  EXPECT_TRUE(not_to_ask().empty());
}

TEST_F(QuizListTest, AMoveLeavesNothingSelectedInTheTarget) {
  remove({0, 1});
  for (const bool selected : pick_a_quiz().lst_cats_not_to_ask.selected) EXPECT_FALSE(selected);
}

TEST_F(QuizListTest, BothListsScrollToTheirLongestEntry) {
  const int whole = pick_a_quiz().lst_cats_to_ask.scroll_extent;
  EXPECT_GT(whole, 0);
  EXPECT_EQ(pick_a_quiz().lst_cats_not_to_ask.scroll_extent, 0);
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  EXPECT_EQ(pick_a_quiz().lst_cats_not_to_ask.scroll_extent, whole);
}

TEST_F(QuizListTest, ACategoryStartWithoutCategoriesIsRefused) {
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  ASSERT_EQ(robot.world.messages.shown.size(), 1u);
  EXPECT_EQ(robot.world.messages.shown[0].text, "You must select at least one category");
  EXPECT_FALSE(quest().loaded);
  EXPECT_TRUE(robot.run().category_filter_on);
  EXPECT_TRUE(pick_a_quiz().which_quiz[4].value);
  EXPECT_EQ(caption("Command1"), "Final Exam");
  EXPECT_EQ(pick_a_quiz().howmanyq.text, caption("howmany"));
}

TEST_F(QuizListTest, AfterARefusedCategoryStartThePlainStartAsksEveryFourthRow) {
  for (const char* box : {"random_questions", "random_answers"}) robot.click("pick_a_quiz", box);
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  for (int i = 1; i <= 3; ++i) {
    EXPECT_FALSE(pick_a_quiz().which_quiz[static_cast<std::size_t>(i - 1)].value);
  }
  robot.click("pick_a_quiz", "Command1");
  EXPECT_FALSE(robot.run().category_filter_on);
  EXPECT_TRUE(quest().visible);
  EXPECT_EQ(robot.run().selected_quiz, 5);
  EXPECT_EQ(robot.run().question_total, 50);
  EXPECT_EQ(row_of_position(robot.run(), 1), 1);
  EXPECT_EQ(row_of_position(robot.run(), 2), 5);
}

TEST_F(QuizListTest, ACategoryStartAsksOnlyWhatIsTicked) {
  robot.click("pick_a_quiz", "random_questions");
  int expected = 0;
  for (int i = 1; i <= catalogue().bank_total; ++i) {
    expected += row(i).category == 3 || row(i).category == 7 ? 1 : 0;
  }
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  select("lst_cats_not_to_ask", {2, 6});
  robot.click("pick_a_quiz", "cmd_add_cat");
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  TestRun& run = robot.run();
  ASSERT_EQ(run.question_total, expected);
  for (int i = 1; i <= expected; ++i) {
    const int category = row(row_of_position(run, i)).category;
    EXPECT_TRUE(category == 3 || category == 7) << category;
  }
  for (int i = 1; i <= 150; ++i) EXPECT_EQ(run.category_active[i], i == 3 || i == 7) << i;
}

TEST_F(QuizListTest, CategoriesOfOneNameAreAskedTogetherWhateverTheirCase) {
  robot.click("pick_a_quiz", "random_questions");
  catalogue().category_names[3] = "CHAPTER 3 campus Building Blocks";
  catalogue().category_names[7] = " chapter 3 CAMPUS building blocks ";
  pick_a_quiz().fill_category_lists();
  while (to_ask().size() > 1) remove({to_ask()[0] == catalogue().category_names[3] ? 1 : 0});
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_TRUE(robot.run().category_active[3]);
  EXPECT_TRUE(robot.run().category_active[7]);
  EXPECT_FALSE(robot.run().category_active[4]);
}

TEST_F(QuizListTest, ACategoryStartClearsTheTicksOfTheFirstFiftyCategoriesOnly) {
  robot.run().category_active[50] = true;
  robot.run().category_active[51] = true;
  robot.click("pick_a_quiz", "cmd_remove_all_cat");
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_FALSE(robot.run().category_active[50]);
  EXPECT_TRUE(robot.run().category_active[51]);
}

TEST_F(QuizListTest, ACategoryStartAsksRightAndWrongQuestionsAlike) {
  pick_a_quiz().askwrong.value = 1;
  robot.click("pick_a_quiz", "cmd_start_cat_quiz");
  EXPECT_EQ(pick_a_quiz().askwrong.value, 0);
  EXPECT_EQ(robot.run().ask_wrong_mode, 99);
}

TEST_F(QuizListTest, LoadingTheScreenTakesTheMarksOfTheLastTest) {
  row(1).result_state = result::wrong;
  row(1000).typed_answer = "typed";
  row(1000).answers_shuffled = 1;
  row(1000).answer_chosen[6] = 1;
  robot.program().forms.unload(Form::pick_a_quiz);
  robot.program().forms.load(Form::pick_a_quiz);
  EXPECT_EQ(row(1).result_state, result::not_marked);
  EXPECT_EQ(row(1000).typed_answer, "");
  EXPECT_EQ(row(1000).answers_shuffled, 0);
  EXPECT_EQ(row(1000).answer_chosen[6], 0);
}

TEST_F(QuizListTest, ABadCategoryDoesNotStopTheListsFromBeingFilled) {
  row(1).category = 151;
  pick_a_quiz().fill_category_lists();
  EXPECT_EQ(to_ask(), all_names());
}

TEST_F(QuizListTest, ClosingTheScreenLeadsBackToTheWelcomeScreen) {
  pick_a_quiz().close_window();
  EXPECT_FALSE(pick_a_quiz().loaded);
  EXPECT_TRUE(robot.app().welcome().visible);
  EXPECT_FALSE(robot.world.stage.ended);
}

TEST_F(QuizListTest, TheScreenDoesNotGetSmallerThanItsLeastSize) {
  const struct {
    Bounds asked;
    double width, height;
  } cases[] = {{{0, 0, 5000, 5000}, 9780, 6795},
               {{0, 0, 12000, 6000}, 12000, 6795},
               {{0, 0, 9000, 9000}, 9780, 9000}};
  for (const auto& expected : cases) {
    pick_a_quiz().bounds = expected.asked;
    pick_a_quiz().resize();
    EXPECT_EQ(pick_a_quiz().bounds.width, expected.width);
    EXPECT_EQ(pick_a_quiz().bounds.height, expected.height);
  }
}

}  // namespace
}  // namespace practice
