#include "bank_compiler/fault.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace practice::compiler {

std::string to_text(const Fault& fault) {
  std::string text = fault.file;
  if (fault.line > 0) text.append(":").append(std::to_string(fault.line));
  return text.append(": ").append(fault.rule).append(": ").append(fault.found);
}

void sort_by_place(Faults& faults) {
  std::ranges::stable_sort(faults, [](const Fault& a, const Fault& b) {
    return std::tie(a.file, a.line) < std::tie(b.file, b.line);
  });
}

Reporter::Reporter(std::string file, Faults& faults) : file_(std::move(file)), faults_(faults) {}

void Reporter::operator()(int line, std::string_view rule, std::string_view found) const {
  faults_.push_back(
      {.file = file_, .line = line, .rule = std::string(rule), .found = std::string(found)});
}

}  // namespace practice::compiler
