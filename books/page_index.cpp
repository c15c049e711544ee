#include "book_setting/page_index.h"

#include <string_view>

namespace practice::books {
namespace {

std::string toml_text(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + '"';
}

}  // namespace

std::string page_index(const Book& book, const SetBook& set) {
  std::string text = "exam = " + toml_text(book.head.exam) +
                     "\npages = " + std::to_string(set.pages.size()) + "\n";
  bool in_sections = false;
  const auto end_sections = [&] {
    if (in_sections) text += "]\n";
    in_sections = false;
  };
  for (const Place& place : set.places) {
    const std::string page = std::to_string(place.page);
    if (place.chapter == 0) {
      if (!in_sections) text += "sections = [\n";
      in_sections = true;
      text += "  { heading = " + toml_text(place.heading) + ", page = " + page + " },\n";
      continue;
    }
    end_sections();
    text += "\n[[chapter]]\nnumber = " + std::to_string(place.chapter) +
            "\ntitle = " + toml_text(place.heading) + "\ncategory = " +
            toml_text(category_of(book, static_cast<std::size_t>(place.chapter))) +
            "\npage = " + page + "\n";
  }
  end_sections();
  return text;
}

}  // namespace practice::books
