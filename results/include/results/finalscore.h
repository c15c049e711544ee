// The final score: grades a finished test run by category, lists its questions, and leads to a
// retake of the wrong ones or back to the options.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/screen.h"
#include "session/fault_patterns.h"
#include "session/program.h"

namespace practice {

struct FinalScoreControls {
  Picture Image1;
  Label Label1;
  Label rig;
  Label Label2;
  Label tot;
  Label Label3;
  Label per;
  Shape total_score;
  Shape right_score;
  ListBox list_cat;
  Label Label4;
  std::array<OptionButton, 3> whichq;
  ListBox List1;
  Label Label5;
  Button cmdEmailResults;
  Button Command2;
  Button cmd_retake;
  Button Command1;
};

class FinalScore : public Screen, public FinalScoreControls {
 public:
  explicit FinalScore(Program& program);

  void design() override;
  void load() override;
  void resize() override;
  void close_window() override;

  /// Adds the graded test to the student's history file, newest first.
  void save_history();

 private:
  void calc_list();
  void choose_filter(int index);
  void fill_category_table(Trap& trap);
  void fill_wrong_list(Trap& trap);
  void open_question();
  void retake();
  void quit_to_menu();
  void view_history();

  Program& program_;
  TestRun& run_;
  Integer missed_count_;
  Slots<Integer, MAX_QUESTIONS> missed_rows_;
  /// By shown category: the padded percent with its fraction, and the category's name.
  std::vector<std::string> percent_texts_;
  std::vector<std::string> module_names_;
};

/// The three parts of testing.log, the report of the last graded test in the working folder.
void begin_testing_log(Program& program);
void log_wrong_questions(Program& program);
void log_correct_questions(Program& program);

/// The history file's first line, without its line end.
std::string history_header(std::string_view student_name, std::string_view exam_title);

}  // namespace practice
