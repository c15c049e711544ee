// How a row refers to the book. Banks were written by several hands, and their references come in
// four forms; the program reads all of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bank_compiler/chapters.h"
#include "bank_compiler/source.h"

namespace practice::compiler {

enum class ReferenceForm {
  /// "55##Flooding"
  heading,
  /// "55## Flooding"
  blank,
  /// "55##"
  page,
  /// ""
  none
};

/// Nothing for a name that is no form.
std::optional<ReferenceForm> reference_form_of(std::string_view name);

/// The reference as it stands in the table; empty for a row without a section. A section that is
/// not in the book begins on page 1.
std::string reference_of(const RowSource& row, const Chapters& chapters);

}  // namespace practice::compiler
