// The form of a chapter's source: "# Title" in its first line, "## Section" headings, paragraphs,
// lists nested once, fenced blocks, pipe tables and figures on a line of their own.
#pragma once

#include <string_view>

#include "bank_compiler/fault.h"
#include "book_setting/book.h"

namespace practice::books {

/// As many columns of a listing fit the width of a page.
inline constexpr std::size_t most_columns = 76;

/// Reports all faults of form and returns what can be read in spite of them.
Chapter read_chapter(std::string_view text, const compiler::Reporter& report);

}  // namespace practice::books
