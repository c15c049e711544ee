// The compiler of bank sources as a program.
//
//   bank_compiler --exam falco --banks data/banks/falco --content data/exams/falco
//                 --book data/books/falco --output falco_banks.cpp
//                 [--labs data/labs] [--pages pages.toml] [--depfile falco_banks.d]
//   bank_compiler --check ROOT
#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace practice::compiler {

/// Faults go to `err`, the rest to `out`. Returns the exit code: 0, 1 when a rule is broken or a
/// file can not be written, 2 when the arguments make no sense.
int run(std::span<const std::string_view> arguments, std::ostream& out, std::ostream& err);

}  // namespace practice::compiler
