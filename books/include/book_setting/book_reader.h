// Reads the folder of a book: book.toml, the chapters 01.md, 02.md and so on, and figures/.
#pragma once

#include <filesystem>

#include "bank_compiler/fault.h"
#include "book_setting/book.h"

namespace practice::books {

/// Reports every fault of the sources, in the order of the files. A figure that no file stands for
/// is such a fault; whether it can be drawn is seen when the book is set.
Book read_book(const std::filesystem::path& folder, compiler::Faults& faults);

/// Reads book.toml from its text. The exam is that of the folder with this name.
BookHead read_head(std::string_view text, std::string_view folder_name,
                   const compiler::Reporter& report);

}  // namespace practice::books
