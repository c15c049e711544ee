// A bank source as its author wrote it, every value with its line.
//
// The reader reports what is not TOML, what has the wrong type, keys that are missing and keys that
// nobody knows. What the values have to be is told by the rules.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bank_compiler/fault.h"

namespace practice::compiler {

/// Line 0: the source has no such key. A line without a value: the type was wrong, which the
/// reader has reported.
template <typename T>
struct Entry {
  int line = 0;
  std::optional<T> value{};
};

/// An entry of the wrong type keeps its place in the list.
template <typename T>
struct ListEntry {
  int line = 0;
  /// False when there is something else in its place, which the reader has reported.
  bool is_list = true;
  std::vector<Entry<T>> entries{};
};

/// Lists in a list.
template <typename T>
struct NestedEntry {
  int line = 0;
  bool is_list = true;
  std::vector<ListEntry<T>> lists{};
};

using TextEntry = Entry<std::string>;
using NumberEntry = Entry<std::int64_t>;
using TextList = ListEntry<std::string>;
using NumberList = ListEntry<std::int64_t>;

struct HeadSource {
  int line = 0;
  TextEntry author_address{};
  TextEntry test_description{};
  TextEntry exam_title{};
  TextEntry exam_version{};
  Entry<bool> has_categories{};
  TextList categories{};
};

struct RowSource {
  int line = 0;
  NumberEntry category{};
  TextEntry type{};
  TextEntry question{};
  TextList answers{};
  /// From 1.
  NumberList correct{};
  /// The heading of the section of the book that answers the question.
  TextEntry section{};
  /// How the reference to it is written: heading, blank, page or none.
  TextEntry reference_form{};
  TextEntry explanation{};
  TextEntry clue{};
  TextList exhibits{};
  TextList diagrams{};
};

struct ChangeSource {
  int line = 0;
  /// From 1.
  NumberEntry extra_row{};
  NumberEntry category{};
};

enum class BankKind { book, extra, full };

/// "book", "extra" or "full", which is also the name of the file.
std::string_view name_of(BankKind kind);

struct BankSource {
  std::string file{};
  BankKind kind = BankKind::book;
  /// False when parts could not be read: then nothing is said about what is missing, and rows have
  /// no reliable numbers.
  bool whole = true;
  HeadSource head{};
  std::vector<RowSource> rows{};
  std::vector<ChangeSource> changes{};
};

/// Any bytes will do. A syntax error costs only the row it stands in.
BankSource parse_bank(std::string_view text, std::string file, BankKind kind, Faults& faults);

/// A file that can not be read is a fault and gives an empty source.
BankSource read_bank(const std::filesystem::path& file, BankKind kind, Faults& faults);

}  // namespace practice::compiler
