#include "bank_compiler/chapters.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include <toml++/toml.h>

#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view heading_mark = "## ";
constexpr std::string_view fence = "```";

fs::path chapter_file(const fs::path& folder, int chapter) {
  const std::string number = std::to_string(chapter);
  return folder / ((number.size() < 2 ? "0" : "") + number + ".md");
}

std::map<std::string, int, std::less<>> pages_in(const toml::table& index) {
  std::map<std::string, int, std::less<>> pages;
  const toml::array* chapters = index["chapter"].as_array();
  if (chapters == nullptr) return pages;
  for (const toml::node& chapter : *chapters) {
    const toml::table* table = chapter.as_table();
    const toml::array* sections = table == nullptr ? nullptr : (*table)["sections"].as_array();
    if (sections == nullptr) continue;
    for (const toml::node& section : *sections) {
      const toml::table* entry = section.as_table();
      if (entry == nullptr) continue;
      const auto page = (*entry)["page"].value<int>();
      if (page) pages[(*entry)["heading"].value_or(std::string())] = *page;
    }
  }
  return pages;
}

}  // namespace

void add_sections(std::string_view text, int chapter, Chapters& chapters) {
  bool in_code = false;
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    if (line.starts_with(fence)) {
      in_code = !in_code;
    } else if (!in_code && line.starts_with(heading_mark)) {
      chapters.sections.try_emplace(std::string(trimmed(line.substr(heading_mark.size()))),
                                    Section{.chapter = chapter});
    }
  }
}

Chapters read_chapters(const fs::path& folder) {
  Chapters chapters;
  for (int chapter = 1;; ++chapter) {
    const fs::path file = chapter_file(folder, chapter);
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return chapters;
    std::ifstream stream(file, std::ios::binary);
    add_sections(std::string(std::istreambuf_iterator<char>(stream), {}), chapter, chapters);
    chapters.files.push_back(file);
  }
}

void read_pages(const fs::path& index, Chapters& chapters, Faults& faults) {
  const Reporter report(index.generic_string(), faults);
  std::map<std::string, int, std::less<>> pages;
  try {
    pages = pages_in(toml::parse_file(index.native()));
  } catch (const toml::parse_error& error) {
    report(static_cast<int>(error.source().begin.line), "this must be the page index of a book",
           error.description());
    return;
  }
  for (auto& [heading, section] : chapters.sections) {
    const auto page = pages.find(heading);
    if (page == pages.end()) {
      report(0, "every section of the book is in its page index", in_quotes(heading));
    } else {
      section.page = page->second;
    }
  }
}

}  // namespace practice::compiler
