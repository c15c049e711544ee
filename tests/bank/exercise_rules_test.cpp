#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "bank_compiler/exercise.h"
#include "compiler_testing.h"

namespace practice::compiler {
namespace {

constexpr std::string_view small_exercises = R"(exam = "heron"

[[exercise]]
number = 1
title = "Layers"
kind = "sort"
instruction = "Drag each task to its layer."
items = ["Cables", "Routes", "Frames", "Prices"]
targets = ["Layer 1", "Layer 2 & 3"]
right = [[1, 1], [2, 2], [3, 2]]

[[exercise]]
number = 2
title = "Fields"
kind = "order"
instruction = "Put the fields in order."
items = ["Source", "Destination", "Check"]
targets = ["1st", "2nd"]
right = [[2, 1], [1, 2]]
)";

std::string faults_of_exercises(std::string_view from, std::string_view to) {
  Faults faults;
  const Exercises exercises =
      parse_exercises(changed(small_exercises, from, to), "heron_drag.toml", faults);
  check_exercises(exercises, "heron", faults);
  sort_by_place(faults);
  return joined(faults);
}

TEST(TheExerciseRules, TakeAGoodExercise) { EXPECT_EQ(faults_of_exercises("", ""), ""); }

TEST(TheExerciseRules, RefuseWithLineAndRule) {
  struct Case {
    std::string_view from;
    std::string_view to;
    std::string_view faults;
  };
  const std::vector<Case> cases{
      {"title = \"Layers\"\n", "",
       ":3: [[exercise]] must have every key that is not optional: "
       "\"title\" is missing\n"},
      {"title = \"Layers\"", "titel = \"Layers\"\ntitle = \"Layers\"",
       ":5: unknown key in [[exercise]]: \"titel\"\n"},
      {"title = \"Layers\"", "title = \" \"",
       ":5: a text of an exercise must not be blank: the title\n"},
      {"\"Put the fields in order.\"", "\"\"",
       ":16: a text of an exercise must not be blank: the instruction\n"},
      {"\"Cables\"", "\"Ca\\tbles\"",
       ":8: text must have no tab or control character: item 1 has \"\\x09\"\n"},
      {"exam = \"heron\"", "exam = \"wren\"",
       ":1: a file of exercises is named after its exam: \"wren\"\n"},
      {"exam = \"heron\"", "exam = \"heron\"\nexams = 7",
       ":2: unknown key in a file of exercises: \"exams\"\n"},
      {"\"sort\"", "\"mix\"", ":6: the kind of an exercise is order, match or sort: \"mix\"\n"},
      {"number = 1", "number = 0", ":4: exercises are numbered from 1: 0\n"},
      {"number = 2", "number = 1",
       ":13: no number of an exercise stands twice: 1, the number of the exercise of line 3\n"},
      {"\"Prices\"", "\" cables\"",
       ":8: no two items of an exercise may be alike: item 4 and item 1 are \" cables\"\n"},
      {"[\"1st\", \"2nd\"]", "[\"1st\", \"1st\"]",
       ":18: no two targets of an exercise may be alike: target 2 and target 1 are \"1st\"\n"},
      {"[\"1st\", \"2nd\"]\nright = [[2, 1], [1, 2]]", "[]\nright = []",
       ":18: an exercise has targets: none\n"},
      {"[3, 2]", "[5, 2]", ":10: the item of a pair must be 1 to 4: 5\n"},
      {"[3, 2]", "[0, 2]", ":10: the item of a pair must be 1 to 4: 0\n"},
      {"[3, 2]", "[3, 3]", ":10: the target of a pair must be 1 to 2: 3\n"},
      {"[3, 2]", "[2, 1]", ":10: an item belongs to one target only: item 2\n"},
      {"[3, 2]", "[3]", ":10: a pair is an item and a target: 1\n"},
      {"[3, 2]", "3", ":10: \"right\" must be a list of lists: a whole number\n"},
      {"[3, 2]", "[3, \"2\"]", ":10: \"right\" must be a whole number: a text\n"},
      {"[[2, 1], [1, 2]]", "5", ":19: \"right\" must be a list of lists: a whole number\n"},
      {"[[1, 1], ", "[", ":9: every target has an item that belongs to it: target 1 has none\n"},
      {"[[2, 1], [1, 2]]", "[[2, 1], [1, 2], [3, 2]]",
       ":19: a target of an exercise of this kind takes one item only: target 2, kind "
       "\"order\"\n"},
  };
  for (const auto& [from, to, faults] : cases) {
    EXPECT_EQ(faults_of_exercises(from, to), "heron_drag.toml" + std::string(faults)) << from;
  }
}

}  // namespace
}  // namespace practice::compiler
