// Writes the checked banks of an exam as C++ tables.
#pragma once

#include <string>
#include <string_view>

#include "bank_compiler/plan.h"
#include "bank_compiler/rules.h"

namespace practice::compiler {

/// The text as a C++ string literal with its quotes. It means the same to every compiler: no
/// trigraph, no escape that swallows the character behind it.
std::string literal(std::string_view text);

/// The source of the variable <exam>_banks. The banks must have no fault.
std::string write_tables(const ExamSource& exam, const ExamPlan& plan);

}  // namespace practice::compiler
