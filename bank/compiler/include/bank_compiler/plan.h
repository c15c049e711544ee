// What is planned for the banks of each exam. The rules hold the sources against it.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace practice::compiler {

inline constexpr int every_row = -1;

/// A category that the list of an exam must have at this number.
struct FixedCategory {
  std::size_t number;
  std::string_view name;
};

inline constexpr std::array falco_categories{
    FixedCategory{.number = 7, .name = "Chapter 7 VLAN Trunking Protocol (VTP)"},
    // The odd spelling is the title as it was printed.
    FixedCategory{.number = 10, .name = "Chapter 10 Spannning Tree Configuration"}};

struct ExamPlan {
  /// In lower case, as its folders are called.
  std::string_view exam;
  int book_rows;
  int extra_rows;
  int book_categories;
  int extra_categories;
  int full_categories;
  /// Explanations in the book bank: exactly so many when it is complete.
  int book_explanations = 0;
  int book_fill_ins = 0;
  /// Rows of the book bank in category 1; 0 leaves it open.
  int first_chapter_rows = 0;
  std::string_view last_extra_category = "Simulator Questions";
  bool general_before_last = false;
  /// Names begin with "Chapter N ", and their length is free.
  bool numbered_chapters = false;
  std::span<const FixedCategory> fixed_categories{};
  /// False: the extra bank has one category, which the full bank does not use either.
  bool extra_has_categories = true;
  bool full_has_description = true;
};

inline constexpr std::array<ExamPlan, 7> plans{{
    {.exam = "falco",
     .book_rows = 242,
     .extra_rows = 108,
     .book_categories = 20,
     .extra_categories = 21,
     .full_categories = 21,
     .book_explanations = 6,
     .numbered_chapters = true,
     .fixed_categories = falco_categories},
    {.exam = "robin",
     .book_rows = 178,
     .extra_rows = 102,
     .book_categories = 19,
     .extra_categories = 1,
     .full_categories = 20,
     .book_explanations = every_row,
     .first_chapter_rows = 10,
     .last_extra_category = "General",
     .extra_has_categories = false},
    {.exam = "egret",
     .book_rows = 171,
     .extra_rows = 105,
     .book_categories = 18,
     .extra_categories = 19,
     .full_categories = 18,
     .book_explanations = 20,
     .last_extra_category = "Simulation Questions"},
    {.exam = "lark",
     .book_rows = 125,
     .extra_rows = 100,
     .book_categories = 12,
     .extra_categories = 14,
     .full_categories = 14,
     .book_fill_ins = 2,
     .general_before_last = true},
    {.exam = "heron",
     .book_rows = 255,
     .extra_rows = 100,
     .book_categories = 18,
     .extra_categories = 19,
     .full_categories = 18},
    {.exam = "merle",
     .book_rows = 182,
     .extra_rows = 100,
     .book_categories = 20,
     .extra_categories = 21,
     .full_categories = 21},
    {.exam = "wren",
     .book_rows = 179,
     .extra_rows = 100,
     .book_categories = 16,
     .extra_categories = 15,
     .full_categories = 17,
     .full_has_description = false},
}};

/// Simulator rows of an exam that has them; one exam has one more.
inline constexpr int simulator_rows = 20;

/// Null for a name that is no exam.
inline constexpr const ExamPlan* plan_of(std::string_view exam) {
  for (const ExamPlan& plan : plans) {
    if (plan.exam == exam) return &plan;
  }
  return nullptr;
}

}  // namespace practice::compiler
