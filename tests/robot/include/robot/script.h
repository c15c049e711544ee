// The robot's script language: one command a line, so that a whole session can be written, replayed
// and compared. "help" in a script lists the commands. What a command shows is one JSON line.
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "robot/robot.h"

namespace practice::robot {

/// A fault of the script, with the line it stands in.
struct ScriptError {
  int line;
  std::string text;
};

class Script {
 public:
  Script(Robot& robot, std::istream& in, std::ostream& out);

  /// Runs to the end of the script. Raises ScriptError at the first fault; everything shown before
  /// it has been written.
  void run();

 private:
  bool run_next_line();
  void run_until_hidden(Screen& screen);
  void perform(const std::vector<std::string>& words);
  void show(const std::vector<std::string>& words);

  void show_control(Screen& screen, const ControlEntry& entry);
  void show_row(int row, const std::vector<std::string>& fields);
  void show_run();
  void show_files(const std::vector<std::string>& words);

  Robot& robot_;
  std::istream& in_;
  std::ostream& out_;
  int line_ = 0;
};

/// Words of a line; "double quotes" hold blanks together, with \n, \r, \t, \" and \\ inside.
/// Raises RobotFailure for a quote that is not closed.
std::vector<std::string> words_of(std::string_view line);

}  // namespace practice::robot
