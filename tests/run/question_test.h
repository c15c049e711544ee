// A student in the middle of a test, in front of a question that was made for the test.
#pragma once

#include <initializer_list>
#include <string>

#include "robot/testing.h"

namespace practice {

class QuestionTest : public robot::StudentTest {
 protected:
  void SetUp() override {
    start();
    start_test();
  }

  /// Answers "one" to "four", of which those told are correct.
  static Question choice(std::initializer_list<int> correct) {
    Question question;
    question.question_text = "Which?";
    question.question_type = correct.size() > 1 ? "multi_answer" : "single_answer";
    int entry = 0;
    for (const char* text : {"one", "two", "three", "four"}) question.answers[++entry] = text;
    for (const int i : correct) question.answer_correct[i] = 1;
    question.category = 1;
    return question;
  }

  static Question fill_in(std::initializer_list<const char*> accepted) {
    Question question;
    question.question_text = "Type it.";
    question.question_type = "fill_in_the_blank";
    int entry = 0;
    for (const char* text : accepted) question.answers[++entry] = text;
    question.category = 1;
    return question;
  }

  static Question exercise(std::string_view marker, std::string_view number = "7") {
    Question question;
    question.question_text = "Do it.";
    question.question_type = "single_answer";
    question.diagrams[1] = marker;
    question.answers[1] = number;
    question.category = 1;
    return question;
  }

  /// Takes the bank's place for the question at that position, and is shown.
  void show(Question question, int position = 1) {
    question.question_id = position;
    row(position) = std::move(question);
    robot.run().question_position = position - 1;
    quest().show_quest();
  }

  /// The page on show as the program made it, without the scripts in front.
  const std::string& html() { return robot.program().pages.current_page; }
  bool page_has(std::string_view text) { return html().find(text) != std::string::npos; }
  TestRun& run() { return robot.run(); }
  Options& options() { return robot.program().options; }
  const std::string& folder() { return robot.program().catalogue.content_dir; }
};

}  // namespace practice
