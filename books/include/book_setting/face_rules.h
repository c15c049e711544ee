// The faces of the book: they must be there, with every sign that the book uses.
#pragma once

#include "bank_compiler/fault.h"
#include "book_setting/book.h"

namespace practice::books {

/// Without this a missing face, or a missing sign, would silently come from some other one. Wants a
/// QGuiApplication.
void check_faces(const Book& book, compiler::Faults& faults);

}  // namespace practice::books
