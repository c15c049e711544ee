#include "session/program.h"

#include <utility>

namespace practice {
namespace {
constexpr std::string_view options_application = "marlotest";
constexpr std::string_view options_section = "stuff";
}  // namespace

Program::Program(Platform& the_platform, std::string the_command_line)
    : platform(the_platform),
      command_line(std::move(the_command_line)),
      forms(the_platform.stage) {}

bool is_saver_start(std::string_view command_line) { return command_line.starts_with("aaaa"); }

bool load_bank(Program& program) {
  return load_bank({.command_line = program.command_line,
                    .clicked_quiz = program.test_run.clicked_quiz,
                    .selected_quiz = program.test_run.selected_quiz,
                    .install_dir = program.install_dir},
                   program.catalogue, program.question_table, program.platform.messages);
}

Question& row_on_show(Program& program) {
  return program.question_table[program.test_run.current_row];
}

std::string get_option(const Program& program, std::string_view key,
                       std::string_view default_value) {
  return program.platform.settings.get(options_application, options_section, key, default_value);
}

void save_option(Program& program, std::string_view key, std::string_view value) {
  program.platform.settings.save(options_application, options_section, key, value);
}

}  // namespace practice
