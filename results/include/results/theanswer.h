// The answer view: one question with its verdict, answers, explanation and book reference.
//
// The screen exists only during one show_answer() call: it is loaded anew, shown modally and
// unloaded, or printed without being shown.
#pragma once

#include <string>

#include "platform/screen.h"
#include "results/kept_gaps.h"
#include "session/program.h"

namespace practice {

struct TheAnswerControls {
  HtmlView text1;
  Frame Frame1;
  Button Command1;
  Button webcmd;
  Button Command2;
  Button cmdtutor;
  Button Closeb;
};

class TheAnswer : public Screen, public TheAnswerControls {
 public:
  explicit TheAnswer(Program& program);

  void design() override;
  void load() override;
  void resize() override;
  void close_window() override;
  /// HTML_Click1.
  void call_by_name(std::string_view method, std::string_view argument) override;

  /// The answer page of the current row; prints it while print_mode is 99. Returns when the
  /// student has closed it.
  void show_answer();

 private:
  void correct_verdict();
  std::string answer_text();
  std::string verdict_block(const Question& question) const;
  void set_wow_explanation_html(std::string& html);
  void find_jump_link(const std::string& text);
  void HTML_Click1(std::string_view which);
  void print_page();

  Program& program_;
  KeptGaps gaps_;
};

}  // namespace practice
