// "Review Chapter ": the exam's book, opened at the page that the question's reference names.
#pragma once

#include <string>
#include <string_view>

#include "session/program.h"

namespace practice {

/// Writes the page that the book viewer opens, beside the book, and opens it. Tells the student
/// when there is no reader or no book.
void open_book(Program& program);

/// The page that the book viewer reads: file, page, layout and zoom. The edition stands in front of
/// its title.
std::string pdf_page(std::string_view page, std::string_view file,
                     std::string_view edition = "Brightwater Press ");

}  // namespace practice
