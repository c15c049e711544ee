// The page index that is written beside the PDF: where each chapter and each section begins.
#pragma once

#include <string>

#include "book_setting/book.h"
#include "book_setting/typeset.h"

namespace practice::books {

/// TOML: the exam, the number of pages, and a [[chapter]] for each with number, title, category,
/// page and its sections.
std::string page_index(const Book& book, const SetBook& set);

}  // namespace practice::books
