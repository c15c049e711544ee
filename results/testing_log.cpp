// testing.log: the report of the last graded test, for whoever looks after the program.
#include "platform/values/text.h"
#include "results/finalscore.h"

namespace practice {
namespace {

constexpr std::string_view log_file = "testing.log";

// Numbers that stand on one line: each as its text form and a blank.
std::string on_one_line(int number) { return text_form(number) + " "; }

}  // namespace

void begin_testing_log(Program& program) {
  std::string report = "Category Information\r\n";
  for (int i = 1; i <= program.catalogue.category_count; ++i) {
    report.append(program.catalogue.category_names[i])
        .append(": ")
        .append(trimmed_text_form(program.test_run.category_asked[i]))
        .append(crlf);
  }
  report += "Question History\r\n";
  for (int row = 0; row <= MAX_QUESTIONS; ++row) {
    report += on_one_line(program.question_table[row].result_state);
  }
  program.platform.files.write(log_file, report);
}

void log_wrong_questions(Program& program) {
  const TestRun& run = program.test_run;
  std::string wrong =
      "NUMBER WRONG: " + trimmed_text_form(run.wrong_list.count) + "\r\n" + "Wrong Questions: \r\n";
  for (int i = 0; i <= MAX_QUESTIONS; ++i) wrong += on_one_line(run.wrong_list.rows[i]);
  program.platform.files.append(log_file, wrong.append(crlf));
}

void log_correct_questions(Program& program) {
  const TestRun& run = program.test_run;
  std::string correct = "Correct Questions\r\n";
  for (int k = 1; k <= run.question_total; ++k) {
    const int row = row_of_position(run, k);
    if (row > 0 && program.question_table[row].result_state == result::right) {
      correct.append(text_form(row)).append(" ").append(crlf);
    }
  }
  program.platform.files.append(log_file, correct);
}

}  // namespace practice
