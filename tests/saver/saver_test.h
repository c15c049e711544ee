// The program in the saver role, in front of questions that were made for the test.
#pragma once

#include <string>
#include <vector>

#include "robot/testing.h"

namespace practice {

inline Question question_of(std::string text, std::vector<std::string> answers = {},
                            std::vector<int> correct = {}) {
  Question question;
  question.question_text = std::move(text);
  question.question_type = correct.size() > 1 ? "multi_answer" : "single_answer";
  int entry = 0;
  for (std::string& answer : answers) question.answers[++entry] = std::move(answer);
  for (const int i : correct) question.answer_correct[i] = 1;
  question.category = 1;
  return question;
}

class SaverTest : public robot::StudentTest {
 protected:
  static constexpr unsigned black = 0x000000;
  static constexpr unsigned white = 0xFFFFFF;
  static constexpr unsigned green = 0x00CC00;

  void start_saver() { start("aaaa46000"); }

  /// The saver starts with these questions as its bank.
  void start_saver_with(std::vector<Question> questions) {
    start_saver();
    take_as_bank(std::move(questions));
    start_anew();
  }
  void take_as_bank(std::vector<Question> questions) {
    robot.program().catalogue.bank_total = static_cast<int>(questions.size());
    int number = 0;
    for (Question& question : questions) row(++number) = std::move(question);
  }
  /// Loads the saver's screen once more, as a start does.
  void start_anew() {
    robot.program().forms.unload(Form::Security);
    robot.program().forms.show(Form::Security);
  }

  void keep_setting(std::string_view key, std::string_view value) {
    robot.world.settings.save("marlo_study_saver", "settings", key, value);
  }

  Security& saver() { return robot.app().security(); }
  /// From 1.
  Label& answer(int i) { return saver().lblAnswer[static_cast<std::size_t>(i - 1)]; }
  std::string number_on_show() { return saver().lblQuestnum.caption; }
  void seconds(int count) {
    for (int i = 0; i < count; ++i) robot.tick_timer("Security", "FadeTimer");
  }

  int lines_in_the_log(std::string_view text) {
    const std::string log = file("error.log");
    int lines = 0;
    for (std::size_t at = 0; (at = log.find(text, at)) != log.npos; ++at) ++lines;
    return lines;
  }
};

}  // namespace practice
