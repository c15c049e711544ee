// How a test is composed, a second time: slowly, from plain values to plain values, and without a
// line of what the program does it with. Of the program it reads the rows of the banks alone.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "composition_state.h"

namespace practice::composing {

/// What can be seen after a start, by name.
struct Outcome {
  std::map<std::string, std::string> facts;
  /// With an entry 0.
  std::map<std::string, std::vector<int>> numbers;
  std::map<std::string, std::vector<std::string>> texts;
};

Outcome compose_slowly(const State& state);

}  // namespace practice::composing
