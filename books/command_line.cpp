#include "book_setting/command_line.h"

#include <QByteArray>
#include <QHashSeed>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <system_error>

#include "book_setting/book_reader.h"
#include "book_setting/page_index.h"
#include "book_setting/typeset.h"

namespace practice::books {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view usage =
    "book_setter --book FOLDER --output FILE.pdf --pages FILE.toml\n"
    "  sets a book, and writes on which page its chapters and sections begin\n"
    "book_setter --check FOLDER\n"
    "  tells the faults of a book, or how long it is\n";

using Options = std::map<std::string_view, std::string_view>;

// Empty when something is no option, has no value or stands twice.
Options options_in(std::span<const std::string_view> arguments) {
  if (arguments.size() % 2 != 0) return {};
  Options options;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    if (!arguments[i].starts_with("--") || arguments[i + 1].empty()) return {};
    if (!options.try_emplace(arguments[i], arguments[i + 1]).second) return {};
  }
  return options;
}

struct ReadyBook {
  Book book;
  SetBook set;
};

// Nothing when there are faults, which are printed. Chapters are set in spite of faults in their
// form, so that one run tells what does not fit as well.
std::optional<ReadyBook> prepare(const fs::path& folder, std::ostream& err) {
  compiler::Faults faults;
  ReadyBook ready{.book = read_book(folder, faults), .set = {}};
  ready.set = set_book(ready.book, faults);
  if (faults.empty()) return ready;
  compiler::sort_by_place(faults);
  for (const compiler::Fault& fault : faults) err << to_text(fault) << '\n';
  return std::nullopt;
}

bool write_file(const fs::path& file, std::string_view bytes, std::ostream& err) {
  std::error_code error;
  if (file.has_parent_path()) fs::create_directories(file.parent_path(), error);
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << bytes;
  stream.close();
  if (stream) return true;
  err << file.generic_string() << ": the file can not be written\n";
  return false;
}

void remove_file(const fs::path& file) {
  std::error_code error;
  if (fs::is_regular_file(file, error)) fs::remove(file, error);
}

int set(const Options& options, std::ostream& err) {
  const fs::path output = options.at("--output");
  const fs::path pages = options.at("--pages");
  const auto ready = prepare(options.at("--book"), err);
  if (!ready) {
    // A book from before the fault must not pass for the present one.
    remove_file(output);
    remove_file(pages);
    return 1;
  }
  const QByteArray pdf = to_pdf(ready->set, ready->book.head);
  const std::string_view bytes(pdf.constData(), static_cast<std::size_t>(pdf.size()));
  const bool written =
      write_file(output, bytes, err) && write_file(pages, page_index(ready->book, ready->set), err);
  return written ? 0 : 1;
}

int check(const fs::path& folder, std::ostream& out, std::ostream& err) {
  const auto ready = prepare(folder, err);
  if (!ready) return 1;
  out << ready->book.head.title << ": " << ready->book.chapters.size() << " chapters, "
      << ready->set.places.size() - ready->book.chapters.size() << " sections, "
      << ready->set.pages.size() << " pages, no rule broken\n";
  return 0;
}

int run_options(const Options& options, std::ostream& out, std::ostream& err) {
  if (options.size() == 1 && options.contains("--check")) {
    return check(options.at("--check"), out, err);
  }
  if (options.size() == 3 && options.contains("--book") && options.contains("--output") &&
      options.contains("--pages")) {
    return set(options, err);
  }
  err << usage;
  return 2;
}

}  // namespace

void prepare_process() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // A date's length in the PDF depends on the time zone, the order of fonts on that of a hash.
  qputenv("TZ", "UTC");
  QHashSeed::setDeterministicGlobalSeed();
}

int run(std::span<const std::string_view> arguments, std::ostream& out, std::ostream& err) {
  if (arguments.size() == 1 && arguments[0] == "--help") {
    out << usage;
    return 0;
  }
  try {
    return run_options(options_in(arguments), out, err);
  } catch (const std::exception& fault) {
    err << "book_setter: " << fault.what() << '\n';
    return 1;
  }
}

}  // namespace practice::books
