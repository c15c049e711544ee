// robot [SCRIPT]: replays a script, or standard input, and shows what it asks for as JSON lines.
#include <fstream>
#include <iostream>

#include "robot/script.h"

int main(int argc, char** argv) {
  using practice::robot::Robot;
  using practice::robot::Script;
  const std::string name = argc > 1 ? argv[1] : "standard input";
  std::ifstream file;
  if (argc > 1) {
    file.open(name);
    if (!file) {
      std::cerr << name << ": can not be read\n";
      return 2;
    }
  }
  Robot robot;
  try {
    Script(robot, argc > 1 ? static_cast<std::istream&>(file) : std::cin, std::cout).run();
  } catch (const practice::robot::ScriptError& error) {
    std::cerr << name << ":" << error.line << ": " << error.text << '\n';
    return 1;
  }
  return 0;
}
