// Sets the blocks of a chapter as slices.
#pragma once

#include <string>

#include "bank_compiler/fault.h"
#include "book_setting/book.h"
#include "book_setting/lines.h"
#include "book_setting/slice.h"

namespace practice::books {

/// A chapter from its opening to its end. Its title is the place `first_mark`, its sections are
/// those behind it. Reports text that is wider than its space, and figures that can not be drawn.
Slices set_chapter(const Chapter& chapter, int number, int first_mark,
                   const std::string& figure_folder, const compiler::Reporter& report);

/// The lines of a text as slices: no single line of them ends or begins a page.
Slices slices_of(const SetText& text, double indent, double space);

}  // namespace practice::books
