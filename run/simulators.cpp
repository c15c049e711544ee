#include "run/simulators.h"

#include <algorithm>

#include "platform/values/text.h"
#include "run/ini.h"

namespace practice {
namespace {

constexpr std::string_view source = "quest3";
constexpr std::size_t buffer_characters = 60;
// No simulator writes more; what stands behind is never read.
constexpr std::size_t result_bytes = 1 << 20;

// The path that the platform tells, less the separator it may end in.
std::string program_folder(const Program& program) {
  std::string folder = program.platform.program_folder;
  if (folder.ends_with('\\') || folder.ends_with('/')) folder.pop_back();
  return folder;
}

// A result in another folder, or under another name, can tell that there is an old one.
void delete_old_result(Program& program, const std::string& sign) {
  if (program.platform.files.exists(sign)) program.platform.files.remove("out.ini");
}

void launch(Program& program, std::string_view routine, std::string_view simulator) {
  Trap trap{program, routine, source};
  trap([&] {
    program.platform.shell.start(program.install_dir + std::string(simulator) + "  " +
                                 lab_key(program));
  });
}

void launch_dnd(Program& program) { launch(program, "launch_dnd()", "bwDragnDrop.exe"); }
void launch_MSsim(Program& program) { launch(program, "launch_MSsim()", "Sims\\dlgsim.exe"); }
// Both dialogue simulators have always logged under one label.
void launch_MSsim2(Program& program) { launch(program, "launch_MSsim()", "Sims\\dnd5.exe"); }

void launch_device_simulator(Program& program) {
  const std::string& lab = program.current_question.exhibits[2];
  if (contains(upper(lab), ".TXT")) return;
  program.platform.shell.start(program_folder(program) + "\\testsim.exe " + std::string(trim(lab)));
}

}  // namespace

std::string lab_key(const Program& program) {
  return std::string(
      trim(program.catalogue.exam_settings_key + "Q" + program.current_question.answers[1]));
}

void prepare_simulator(Program& program, Trap& trap) {
  const std::string& question_kind = program.test_run.question_kind;
  if (question_kind == kind::drag_drop) {
    trap([&] { delete_old_result(program, "out.ini"); });
  } else if (question_kind == kind::ms_sim || question_kind == kind::ms_sim_2) {
    // What goes is not the file that was looked for; that one stays until its result is read.
    trap([&] { delete_old_result(program, program.install_dir + "Sims\\OUT.ini"); });
  } else if (question_kind == kind::sim) {
    const Question& question = program.current_question;
    Files& files = program.platform.files;
    trap([&] { files.write("sim.txt", question.question_text + std::string(crlf)); });
    trap([&] { files.write("sim_showme.txt", question.clue + std::string(crlf)); });
    trap([&] { delete_old_result(program, program.install_dir + "out.ini"); });
  }
}

void launch_simulator(Program& program) {
  const std::string& diagram = program.current_question.diagrams[1];
  if (diagram == marker::drag_drop) {
    launch_dnd(program);
  } else if (diagram == marker::dialogue_simulator) {
    launch_MSsim(program);
  } else if (diagram == marker::dialogue_simulator_2) {
    launch_MSsim2(program);
  } else {
    skip([&] { launch_device_simulator(program); });
  }
}

std::string read_out_ini(const Program& program, std::string_view section, std::string_view key) {
  return read_ini_value(program, section, key, program_folder(program) + "\\out.ini");
}

std::string read_ini_value(const Program& program, std::string_view section, std::string_view key,
                           const std::string& file) {
  const Files& files = program.platform.files;
  std::string value = file;
  if (files.exists(file)) {
    skip([&] {
      value = ini_value(files.read_start(file, result_bytes), section, key).value_or(file);
    });
  }
  std::string_view buffer = first_characters(value, buffer_characters - 1);
  // The end of the buffer is no blank, so blanks behind the value stay.
  buffer.remove_prefix(std::min(buffer.find_first_not_of(' '), buffer.size()));
  return std::string(buffer.substr(0, buffer.find('\0')));
}

std::string result_file(const Program& program, std::string_view diagram) {
  if (diagram == marker::drag_drop) return program_folder(program) + "\\OUT.ini";
  return program.install_dir + "Sims\\OUT.ini";
}

}  // namespace practice
