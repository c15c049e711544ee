// What the compiler of bank sources has to say: faults, which stop the build, and shortfalls, which
// tell what is missing: an author may build without it, but all exams together are refused.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace practice::compiler {

struct Fault {
  std::string file{};
  /// From 1; 0 when the fault is the file itself.
  int line = 0;
  /// The broken rule in words.
  std::string rule{};
  /// What the source has instead.
  std::string found{};
};

using Faults = std::vector<Fault>;

/// Such as "falco book: 80 of 242 rows".
using Shortfalls = std::vector<std::string>;

/// "book.toml:12: an answer must not be blank: answer 3"
std::string to_text(const Fault& fault);

/// By file, then by line; faults of one line stay in the order in which they were found.
void sort_by_place(Faults& faults);

/// Reports the faults of one file. Holds the list by reference.
class Reporter {
 public:
  Reporter(std::string file, Faults& faults);

  void operator()(int line, std::string_view rule, std::string_view found) const;

 private:
  std::string file_;
  Faults& faults_;
};

}  // namespace practice::compiler
