// A pipe table: a head, a line of dashes that aligns the columns, and rows of as many cells.
#pragma once

#include <string_view>
#include <vector>

#include "bank_compiler/fault.h"
#include "book_setting/book.h"

namespace practice::books {

/// Each row begins with a bar; the first one stands in `line`. Of a table with faults the rows that
/// are as wide as the head remain.
Table read_table(const std::vector<std::string_view>& rows, int line,
                 const compiler::Reporter& report);

}  // namespace practice::books
