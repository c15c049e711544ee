#include "book_setting/command_line.h"

#include <QByteArray>
#include <QHashSeed>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "bank_compiler/tool.h"
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

int set(const compiler::Options& options, std::ostream& err) {
  const fs::path output = options.at("--output");
  const fs::path pages = options.at("--pages");
  const auto ready = prepare(options.at("--book"), err);
  if (!ready) {
    compiler::remove_stale(output);
    compiler::remove_stale(pages);
    return 1;
  }
  const QByteArray pdf = to_pdf(ready->set, ready->book.head);
  const std::string_view bytes(pdf.constData(), static_cast<std::size_t>(pdf.size()));
  const bool written = compiler::write_file(output, bytes, err) &&
                       compiler::write_file(pages, page_index(ready->book, ready->set), err);
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

int run_options(const compiler::Options& options, std::ostream& out, std::ostream& err) {
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
    return run_options(compiler::options_in(arguments), out, err);
  } catch (const std::exception& fault) {
    err << "book_setter: " << fault.what() << '\n';
    return 1;
  }
}

}  // namespace practice::books
