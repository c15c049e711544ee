// The banks as the compiler of bank sources writes them: constant tables inside the program, so
// that a bank can not be missing or damaged at run time.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace practice {

/// A question as its bank wrote it. Entries count from 0 here; entry 0 is answers[1] of a Question.
struct BankRow {
  std::string_view question_text;
  std::string_view answers[6];
  /// Bit i set: answers[i] is correct.
  std::uint8_t correct = 0;
  std::string_view explanation;
  std::string_view question_type;
  std::string_view diagrams[3];
  std::string_view exhibits[3];
  std::string_view clue;
  std::string_view book_reference;
  std::int16_t category = 1;
};

struct BankHead {
  std::string_view author_address;
  /// Empty leaves the exam's own description standing.
  std::string_view test_description;
  std::string_view exam_title;
  std::string_view exam_version;
  bool has_categories = true;
  std::span<const std::string_view> categories;
};

/// A row of the extra bank whose category has another number in the full bank.
struct CategoryChange {
  /// Row of the extra bank, from 1.
  std::int16_t extra_row;
  std::int16_t category;
};

/// The three banks of one exam. The full bank is the book rows, then the extra rows.
struct ExamBanks {
  BankHead book_head;
  BankHead extra_head;
  BankHead full_head;
  std::span<const BankRow> book_rows;
  std::span<const BankRow> extra_rows;
  /// By rising extra_row.
  std::span<const CategoryChange> full_changes;
};

extern const ExamBanks falco_banks;
extern const ExamBanks robin_banks;
extern const ExamBanks egret_banks;
extern const ExamBanks lark_banks;
extern const ExamBanks heron_banks;
extern const ExamBanks merle_banks;
extern const ExamBanks wren_banks;

}  // namespace practice
