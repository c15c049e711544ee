// Rules of a single text, wherever it stands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "bank_compiler/fault.h"
#include "bank_compiler/source.h"

namespace practice::compiler {

struct TextRules {
  /// The name of the text in a fault, such as "answer 3".
  std::string name;
  /// In characters; 0 leaves the length free.
  std::size_t most_characters = 0;
  /// HTML whose only tag is <br>.
  bool tags = true;
  /// An ampersand begins an entity.
  bool entities = true;
  bool line_breaks = false;
};

/// An absent text and one of the wrong type break no rule here.
void check_text(const TextEntry& text, const TextRules& rules, const Reporter& report);

/// Line breaks of either kind as CR LF, as a clue stands in the table.
std::string with_crlf(std::string_view text);

}  // namespace practice::compiler
