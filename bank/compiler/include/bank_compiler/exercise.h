// The drag and drop exercises of an exam. A question names its exercise by number; what is dragged
// where, and what is right, stands in one file per exam.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bank_compiler/fault.h"
#include "bank_compiler/source.h"

namespace practice::compiler {

struct Exercise {
  int line = 0;
  /// From 1.
  NumberEntry number{};
  TextEntry title{};
  /// "order", "match" or "sort"
  TextEntry kind{};
  TextEntry instruction{};
  TextList items{};
  TextList targets{};
  /// Pairs of an item and its target, both from 1.
  NestedEntry<std::int64_t> right{};
};

struct Exercises {
  std::string file{};
  /// False when the file could not be read: then nobody can tell which exercise is missing.
  bool whole = false;
  TextEntry exam{};
  std::vector<Exercise> list{};
};

/// What is no TOML, has the wrong type, is missing or unknown is a fault.
Exercises parse_exercises(std::string_view text, std::string file, Faults& faults);

/// Each exercise for itself, and what they must not do together.
void check_exercises(const Exercises& exercises, std::string_view exam, Faults& faults);

}  // namespace practice::compiler
