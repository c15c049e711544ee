// The question record and the one table of all questions.
//
// A row carries the question, as its bank wrote it, and its fate in the current test run. The
// static fields change only through load_bank(); rows above the bank's total keep the text of a
// larger bank loaded before, and no reader goes there.
#pragma once

#include <string>
#include <string_view>

#include "platform/values/integer.h"
#include "platform/values/slots.h"

namespace practice {

inline constexpr int MAX_QUESTIONS = 1000;
/// Rows that get a question_id at start-up.
inline constexpr int numbered_questions = 900;

/// Fate of a row in the test run.
namespace result {
inline constexpr int not_marked = 0;
inline constexpr int right = 1;
inline constexpr int wrong = 2;
inline constexpr int not_answered_yet = 3;
}  // namespace result

/// Markers in diagrams[1] of questions that are answered in a separate program.
namespace marker {
inline constexpr std::string_view drag_drop = "xxxdnd";
inline constexpr std::string_view dialogue_simulator = "xxxmssim";
inline constexpr std::string_view dialogue_simulator_2 = "xxxmssim2";
inline constexpr std::string_view device_simulator = "xxsim";
}  // namespace marker

/// True for the four simulator markers.
bool is_simulator_marker(std::string_view diagram);

struct Question {
  /// HTML fragment whose only tag is <br>.
  std::string question_text;
  /// Entries 1 to 6. An empty or blank entry does not exist.
  Slots<std::string, 6> answers;
  /// 1 marks the answer of that entry as correct, 0 otherwise.
  Slots<Integer, 6> answer_correct;
  std::string explanation;
  /// "single_answer", "multi_answer", "fill_in_the_blank" or "no_reorder".
  std::string question_type;
  /// Picture files; entry 1 doubles as the simulator marker.
  Slots<std::string, 3> diagrams;
  /// Text files; entry 2 doubles as the lab name of a simulator question.
  Slots<std::string, 3> exhibits;
  /// The row number for rows 1 to 900, else 0.
  Integer question_id;
  std::string clue;
  /// Page, "##", heading.
  std::string book_reference;
  Integer result_state;
  /// 1 where the student chose the answer of that entry.
  Slots<Integer, 6> answer_chosen;
  std::string typed_answer;
  /// 1 once the answers have been permuted in place.
  Integer answers_shuffled;
  /// From 1; a reader takes 0 as 1, see category_of().
  Integer category;
  std::string tutor_file;
  Integer cycle_a;
  Integer cycle_b;
  std::string spare_text;
};

/// The category of a row, where a bad 0 counts as 1.
int category_of(const Question& question);

/// The text in front of the first "##" of a reference; empty when there is none.
std::string_view page_of(std::string_view book_reference);

/// Number of answers that are not blank.
int count_answers(const Question& question);
/// Number of answer_correct entries that are 1.
int count_correct(const Question& question);

using QuestionTable = Slots<Question, MAX_QUESTIONS>;

/// Before a bank writes its rows: empties what banks fill in rows 1 to 1000. Texts of question,
/// explanation and type stay, and so do the marks of the test run.
void reset_bank_fields(QuestionTable& table);

/// The numbers that start-up gives the rows once: question_id, cycle_a, cycle_b.
void number_the_rows(QuestionTable& table);

/// Takes the marks of the last test run from all rows.
void clear_run_marks(QuestionTable& table);

}  // namespace practice
