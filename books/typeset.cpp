#include "book_setting/typeset.h"

#include <utility>

#include "book_setting/block_setter.h"
#include "book_setting/design.h"
#include "book_setting/face_rules.h"
#include "book_setting/typography.h"

namespace practice::books {
namespace {

QString to_print(const std::string& text) { return QString::fromStdString(polished(text)); }

class BookSetter {
 public:
  BookSetter(const Book& book, compiler::Faults& faults) : book_(book), faults_(faults) {}

  SetBook set() {
    check_faces(book_, faults_);
    find_places();
    std::vector<std::vector<PlacedSlices>> chapters;
    for (std::size_t i = 0; i < book_.chapters.size(); ++i) chapters.push_back(cut_chapter(i));
    // Without all of its headings a book can have no contents.
    if (!faults_.empty()) return {};
    // The contents are set twice: to know how many pages they take, and with page numbers.
    const int first_page = 3 + static_cast<int>(cut(contents(set_.places)).size());
    number_places(chapters, first_page);

    append_plain(title_page(book_.head));
    append_plain(imprint_page(book_.head));
    append(cut(contents(set_.places)), "Contents");
    for (std::size_t i = 0; i < chapters.size(); ++i) {
      append(std::move(chapters[i]), book_.chapters[i].title);
    }
    return std::move(set_);
  }

 private:
  void find_places() {
    for (std::size_t i = 0; i < book_.chapters.size(); ++i) {
      const Chapter& chapter = book_.chapters[i];
      first_marks_.push_back(static_cast<int>(set_.places.size()));
      set_.places.push_back({.chapter = static_cast<int>(i) + 1, .heading = chapter.title});
      for (const Block& block : chapter.blocks) {
        if (const auto* section = std::get_if<SectionHeading>(&block)) {
          set_.places.push_back({.heading = section->text});
        }
      }
    }
  }

  std::vector<PlacedSlices> cut_chapter(std::size_t index) {
    const Chapter& chapter = book_.chapters[index];
    return cut(set_chapter(chapter, static_cast<int>(index) + 1, first_marks_[index],
                           book_.figure_folder, compiler::Reporter(chapter.file, faults_)));
  }

  std::vector<PlacedSlices> cut(Slices slices) {
    set_.slices.push_back(std::make_unique<const Slices>(std::move(slices)));
    return cut_into_pages(*set_.slices.back(), design::text_height);
  }

  void number_places(const std::vector<std::vector<PlacedSlices>>& chapters, int page) {
    for (const auto& pages : chapters) {
      for (const PlacedSlices& slices : pages) {
        for (const Placed& placed : slices) {
          const int mark = placed.slice->mark;
          if (mark >= 0) set_.places[static_cast<std::size_t>(mark)].page = page;
        }
        ++page;
      }
    }
  }

  void append_plain(Slices slices) {
    for (PlacedSlices& page : cut(std::move(slices))) {
      set_.pages.push_back({.slices = std::move(page), .shows_number = false});
    }
  }

  void append(std::vector<PlacedSlices> pages, const std::string& title) {
    for (std::size_t i = 0; i < pages.size(); ++i) {
      const bool left = set_.pages.size() % 2 == 1;
      QString head =
          left ? to_print(book_.head.title + ": " + book_.head.subtitle) : to_print(title);
      set_.pages.push_back(
          {.slices = std::move(pages[i]), .running_head = i == 0 ? QString() : std::move(head)});
    }
  }

  const Book& book_;
  compiler::Faults& faults_;
  SetBook set_{};
  std::vector<int> first_marks_{};
};

}  // namespace

SetBook set_book(const Book& book, compiler::Faults& faults) {
  return BookSetter(book, faults).set();
}

}  // namespace practice::books
