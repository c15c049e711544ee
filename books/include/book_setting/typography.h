// Makes print of what a keyboard has: curly quotes and apostrophes, a minus and a multiplication
// sign. Code stays as it is.
#pragma once

#include <string>
#include <string_view>

#include "book_setting/book.h"

namespace practice::books {

/// `The port's "name"` becomes `The port’s “name”`, `64 - 18` and `2 x 3` get their signs.
void polish(Spans& spans);

/// The same for a text without marks, such as a heading.
std::string polished(std::string_view text);

}  // namespace practice::books
