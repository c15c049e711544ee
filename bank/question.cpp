#include "bank/question.h"

#include "platform/values/text.h"

namespace practice {

bool is_simulator_marker(std::string_view diagram) {
  return diagram == marker::drag_drop || diagram == marker::dialogue_simulator ||
         diagram == marker::dialogue_simulator_2 || diagram == marker::device_simulator;
}

int category_of(const Question& question) {
  return question.category == 0 ? 1 : int{question.category};
}

std::string_view page_of(std::string_view book_reference) {
  const auto end = book_reference.find("##");
  return end == std::string_view::npos ? std::string_view{} : book_reference.substr(0, end);
}

int count_answers(const Question& question) {
  int count = 0;
  for (int i = 1; i <= 6; ++i) count += trim(question.answers[i]).empty() ? 0 : 1;
  return count;
}

int count_correct(const Question& question) {
  int count = 0;
  for (int i = 1; i <= 6; ++i) count += question.answer_correct[i] == 1 ? 1 : 0;
  return count;
}

void reset_bank_fields(QuestionTable& table) {
  for (int row = 1; row <= MAX_QUESTIONS; ++row) {
    Question& question = table[row];
    for (int i = 1; i <= 6; ++i) {
      question.answers[i].clear();
      question.answer_correct[i] = 0;
    }
    for (int i = 1; i <= 3; ++i) {
      question.diagrams[i].clear();
      question.exhibits[i].clear();
    }
    question.clue.clear();
    question.book_reference.clear();
    question.category = 1;
    question.tutor_file.clear();
    question.spare_text.clear();
  }
}

void number_the_rows(QuestionTable& table) {
  for (int row = 1; row <= MAX_QUESTIONS; ++row) table[row].cycle_a = (row - 1) % 4 + 1;
  for (int row = 1; row <= numbered_questions; ++row) {
    table[row].question_id = row;
    table[row].cycle_b = row % 4 == 0 ? 4 : row % 4;
  }
}

void clear_run_marks(QuestionTable& table) {
  for (int row = 1; row <= MAX_QUESTIONS; ++row) {
    Question& question = table[row];
    question.typed_answer.clear();
    question.answers_shuffled = 0;
    question.result_state = result::not_marked;
    question.answer_chosen.fill(0);
  }
}

}  // namespace practice
