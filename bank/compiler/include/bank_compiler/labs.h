// The folder of labs: <lab>.toml for each lab of the simulator, and <exam>_drag.toml for the
// exercises of an exam. Questions are held against what of it exists.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "bank_compiler/exercise.h"
#include "bank_compiler/fault.h"
#include "bank_compiler/lab.h"

namespace practice::compiler {

struct Labs {
  std::map<std::string, Lab, std::less<>> by_name{};
  std::map<std::string, Exercises, std::less<>> exercises_by_exam{};
  /// All that were read.
  std::vector<std::filesystem::path> files{};
};

/// Reads the labs and the exercises of these names, but for files that do not exist. The rules for
/// exercises are checked here, as the file is read once for all who use it.
Labs read_labs(const std::filesystem::path& folder, const std::set<std::string>& labs,
               const std::set<std::string>& exams, Faults& faults);

}  // namespace practice::compiler
