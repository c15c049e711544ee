#include "book_setting/book_reader.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "bank_compiler/raw_text.h"
#include "bank_compiler/text_form.h"
#include "book_setting/markdown.h"

namespace practice::books {
namespace {

namespace fs = std::filesystem;
using compiler::in_quotes;

// Nothing, and reported, when the file can not be read.
std::optional<std::string> text_of(const fs::path& file, const compiler::Reporter& report) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream || bytes.empty()) {
    report(0, "this file can be read, and is not empty", in_quotes(file.filename().string()));
    return std::nullopt;
  }
  return compiler::make_readable(bytes, report).text;
}

// 1 for "01.md"; nothing for another name.
std::optional<std::size_t> chapter_number(const std::string& name) {
  const bool numbered =
      name.size() == 5 && name.ends_with(".md") && name.find_first_not_of("0123456789") == 2;
  if (!numbered || name.starts_with("00")) return std::nullopt;
  return std::stoul(name.substr(0, 2));
}

std::vector<fs::path> chapter_files(const fs::path& folder, const compiler::Reporter& report) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (entry->path().extension() == ".md") files.push_back(entry->path());
  }
  std::ranges::sort(files);
  if (files.empty()) report(0, "a book has chapters", in_quotes("01.md"));
  std::size_t expected = 1;
  for (const fs::path& file : files) {
    const std::string name = file.filename().string();
    const auto number = chapter_number(name);
    if (number != expected) {
      report(0, "chapters are called 01.md, 02.md and so on, without a gap", in_quotes(name));
    }
    expected = number.value_or(expected) + 1;
  }
  return files;
}

// What can only be seen with the whole book in hand.
class BookRules {
 public:
  BookRules(const Book& book, compiler::Faults& faults) : book_(book), faults_(faults) {}

  void check() {
    for (const Chapter& chapter : book_.chapters) {
      const compiler::Reporter report(chapter.file, faults_);
      check_heading(chapter, chapter.title, chapter.title_line, report);
      for (const Block& block : chapter.blocks) {
        if (const auto* heading = std::get_if<SectionHeading>(&block)) {
          check_heading(chapter, heading->text, heading->line, report);
        } else if (const auto* figure = std::get_if<Figure>(&block)) {
          check_figure(*figure, report);
        }
      }
    }
    check_categories();
  }

 private:
  // A question refers to a place by its heading.
  void check_heading(const Chapter& chapter, const std::string& text, int line,
                     const compiler::Reporter& report) {
    if (text.empty()) return;
    const std::string place = chapter.file + ":" + std::to_string(line);
    const auto [first, fresh] = headings_.emplace(text, place);
    if (fresh) return;
    report(line, "a heading stands once in a book",
           in_quotes(text).append(" as in ").append(first->second));
  }

  void check_figure(const Figure& figure, const compiler::Reporter& report) const {
    std::error_code error;
    if (fs::is_regular_file(fs::path(book_.figure_folder) / figure.file, error)) return;
    report(figure.caption.line, "a figure lies in the book's folder of figures",
           in_quotes(figure.file));
  }

  void check_categories() const {
    const compiler::Reporter report(book_.head_file, faults_);
    for (const auto& [number, name] : book_.head.categories) {
      if (number <= static_cast<int>(book_.chapters.size())) continue;
      report(0, "a category belongs to the number of a chapter", std::to_string(number));
    }
  }

  const Book& book_;
  compiler::Faults& faults_;
  std::map<std::string, std::string> headings_{};
};

}  // namespace

Book read_book(const fs::path& folder, compiler::Faults& faults) {
  const fs::path root = (folder / "").lexically_normal().parent_path();
  Book book{.head_file = (root / "book.toml").generic_string(),
            .figure_folder = (root / "figures").generic_string()};
  const compiler::Reporter report(book.head_file, faults);
  if (const auto text = text_of(root / "book.toml", report)) {
    book.head = read_head(*text, fs::absolute(root).filename().string(), report);
  }
  for (const fs::path& file : chapter_files(root, report)) {
    const compiler::Reporter chapter_report(file.generic_string(), faults);
    if (const auto text = text_of(file, chapter_report)) {
      book.chapters.push_back(read_chapter(*text, chapter_report));
      book.chapters.back().file = file.generic_string();
    }
  }
  BookRules(book, faults).check();
  return book;
}

std::string category_of(const Book& book, std::size_t chapter) {
  const auto number = static_cast<int>(chapter);
  const auto named = book.head.categories.find(number);
  if (named != book.head.categories.end()) return named->second;
  std::string name = book.head.category_form;
  const auto put = [&](std::string_view mark, const std::string& text) {
    if (const auto place = name.find(mark); place != name.npos) {
      name.replace(place, mark.size(), text);
    }
  };
  put("{number}", std::to_string(number));
  put("{title}", book.chapters[chapter - 1].title);
  return name;
}

}  // namespace practice::books
