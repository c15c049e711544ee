// What the tests of the bank compiler share: faults as text, sources with one thing changed, and
// a folder in which to run the compiler as a program.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "bank_compiler/fault.h"
#include "bank_compiler/plan.h"

namespace practice::compiler {

/// One a line.
std::string joined(const Faults& faults);

/// Fails the test unless `from` stands exactly once in the text; an empty one changes nothing.
std::string changed(std::string_view text, std::string_view from, std::string_view to);

/// A folder of its own for each test, gone at its end.
class TheBankCompilerProgram : public testing::Test {
 protected:
  TheBankCompilerProgram();
  ~TheBankCompilerProgram() override;

  void write(const std::filesystem::path& file, std::string_view text) const;
  std::string read(const std::filesystem::path& file) const;

  /// All banks of an exam with the categories that are planned for it, and no rows.
  void write_exam(const ExamPlan& plan) const;

  /// Returns the exit code; what the program says is in out_ and err_.
  int call(const std::vector<std::string_view>& arguments);

  /// With the folder of labs and the page index, when the test wrote them.
  int compile_falco();

  std::filesystem::path root_;
  std::ostringstream out_;
  std::ostringstream err_;
};

}  // namespace practice::compiler
