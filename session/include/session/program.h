// Everything that one run of the program knows: the question table, the exam, the test run, the
// options, the screens, and the platform below them. There are no globals, so that a test can run
// two programs side by side.
#pragma once

#include <string>

#include "bank/catalogue.h"
#include "bank/question.h"
#include "platform/platform.h"
#include "session/branding.h"
#include "session/forms.h"
#include "session/handover.h"
#include "session/options.h"
#include "session/page_state.h"
#include "session/test_run.h"

namespace practice {

struct Program {
  Program(Platform& the_platform, std::string the_command_line);

  Platform& platform;
  std::string command_line;
  /// The program's folder with exactly one trailing backslash; set at start-up.
  std::string install_dir;
  /// 1 when the process was started in the saver role.
  Integer saver_mode;

  QuestionTable question_table;
  Question current_question;
  Catalogue catalogue;
  Branding branding;
  TestRun test_run;
  Options options;
  PageState pages;

  Forms forms;
  /// Set by the application shell before the first screen loads.
  Handover* handover = nullptr;
};

/// True for the command line that asks for the saver role.
bool is_saver_start(std::string_view command_line);

/// Loads the bank that the command line and the quiz numbers ask for.
bool load_bank(Program& program);

/// The row on show, by current_row. Raises fault 9 outside the table.
Question& row_on_show(Program& program);

/// "marlotest", section "stuff": where the options of the student live.
std::string get_option(const Program& program, std::string_view key,
                       std::string_view default_value);
void save_option(Program& program, std::string_view key, std::string_view value);

}  // namespace practice
