// Sets a table: a rule above and below, one under its head, columns as wide as they need to be.
#pragma once

#include "bank_compiler/fault.h"
#include "book_setting/book.h"
#include "book_setting/slice.h"

namespace practice::books {

/// One slice for each row. A table that goes on on another page repeats its head there. Reports a
/// table whose words do not fit the width of the page.
Slices set_table(const Table& table, const compiler::Reporter& report);

}  // namespace practice::books
