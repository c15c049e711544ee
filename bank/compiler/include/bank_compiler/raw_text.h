// What is done to the bytes of a bank source before and between attempts to parse them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bank_compiler/fault.h"

namespace practice::compiler {

/// Bytes that can be handed to the parser, and whether nothing had to be taken out of them.
struct ReadableText {
  std::string text;
  bool whole = true;
};

/// Reports bytes that are no text and takes them out. Lines keep their numbers.
ReadableText make_readable(std::string_view bytes, const Reporter& report);

/// Text that the parser must not see, because it is not sure to come back from it.
struct Hazard {
  int line;
  std::string_view rule;
  std::string found;
};

/// The first hazard of the text, which must be UTF-8: a key of so many parts that the stack could
/// be exhausted, or a character outside ASCII where the parser looks for white space.
std::optional<Hazard> find_hazard(std::string_view text);

/// Empties the block, from one [head], [[row]] or [[change]] to the next, to which a syntax error
/// at `line` belongs. Lines keep their numbers. False when there is nothing left to empty.
bool blank_faulty_block(std::string& text, int line);

}  // namespace practice::compiler
