// What the questions of an exam need to know of its book: the sections, in which chapter each
// stands, and on which page it begins.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "bank_compiler/fault.h"

namespace practice::compiler {

struct Section {
  /// From 1.
  int chapter = 0;
  /// Of the PDF, from 1, where a book that is not set opens as well.
  int page = 1;
};

struct Chapters {
  /// By heading, which stands once in a book.
  std::map<std::string, Section, std::less<>> sections{};
  /// The chapters that were read, 01.md and on.
  std::vector<std::filesystem::path> files{};
};

/// Adds the sections of a chapter's text. Their form is for the setter of the book to judge.
void add_sections(std::string_view text, int chapter, Chapters& chapters);

/// The chapters up to the first that is missing; none when there is no such folder.
Chapters read_chapters(const std::filesystem::path& folder);

/// Takes the pages from the index that the setter of the book writes. A file that is no such index,
/// and a section that is not in it, are faults.
void read_pages(const std::filesystem::path& index, Chapters& chapters, Faults& faults);

}  // namespace practice::compiler
