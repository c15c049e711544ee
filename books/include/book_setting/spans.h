// The marks inside a text: **bold**, *italic*, `code`, and a backslash before a mark that is meant
// as it stands.
#pragma once

#include <string>
#include <string_view>

#include "bank_compiler/fault.h"
#include "book_setting/book.h"

namespace practice::books {

/// The rule that everything breaks which a book's markup does not have.
inline constexpr std::string_view unknown_construct = "this is not part of a book's markup";

/// Line feeds of the text become blanks; `line` is that of its first character. Reports marks that
/// are not closed, and links, HTML and other constructs that a book does not have.
Spans read_spans(std::string_view text, int line, const compiler::Reporter& report);

std::string plain_text(const Spans& spans);

}  // namespace practice::books
