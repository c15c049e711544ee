// Questions that are answered in a separate program: starting it, and reading the INI file that it
// leaves. There is no other tie to the program; whatever file is there when Next is pressed counts.
#pragma once

#include <string>
#include <string_view>

#include "session/fault_patterns.h"
#include "session/program.h"

namespace practice {

/// Exam code, "Q", number of the exercise.
std::string lab_key(const Program& program);

/// What is done before a question of a simulator kind is shown: old results go, the task and the
/// show-me transcript of a device simulator are written. Other kinds: nothing. The trap is the
/// showing routine's own.
void prepare_simulator(Program& program, Trap& trap);

/// Starts the simulator of the question on show. One of an exercise that can not be started leaves
/// a line in error.log; the device simulator leaves none.
void launch_simulator(Program& program);

/// A key of out.ini in the program's folder; see read_ini_value().
std::string read_out_ini(const Program& program, std::string_view section, std::string_view key);

/// A key of an INI file, cut to 59 characters. A file or key that is absent gives the file's own
/// name, which can never equal a wanted value.
std::string read_ini_value(const Program& program, std::string_view section, std::string_view key,
                           const std::string& file);

/// Where the simulators with an Answer section leave their result, by the marker in diagrams[1].
std::string result_file(const Program& program, std::string_view diagram);

}  // namespace practice
