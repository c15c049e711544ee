// Leaving the question screen: the results file and the final score.
#include "platform/values/text.h"
#include "run/quest3.h"
#include "session/student_files.h"

namespace practice {

void Quest::end_the_test() {
  skip([&] {
    Settings& settings = program_.platform.settings;
    const std::string& section = program_.catalogue.exam_code;
    const int finished = integer_in(settings.get("marlo", section, "num_times", "0"));
    settings.save("marlo", section, "num_times", trimmed_text_form(Integer{finished} + 1));
  });
  skip([&] { --run_.question_position; });
  write_results_file();
  skip([&] { program_.forms.unload(Form::finalscore); });
  skip([&] { program_.forms.show(Form::finalscore); });
  skip([&] { program_.handover->save_history(); });
  skip([&] { program_.forms.hide(Form::quest); });
  skip([&] { program_.forms.unload(Form::quest); });
}

void Quest::write_results_file() {
  stop_at_first_fault([&] {
    std::string lines;
    for (int i = 1; i <= MAX_QUESTIONS; ++i) {
      lines.append(run_.last_results[i]).append(",").append(trimmed_text_form(i)).append(crlf);
    }
    program_.platform.files.write(results_file(program_), lines);
  });
}

}  // namespace practice
