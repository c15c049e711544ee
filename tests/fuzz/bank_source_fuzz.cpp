// Any bytes as each bank of an exam: the reader and the rules must take them, a fault must stay on
// its line, and the writer must take what was read.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bank_compiler/plan.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/source.h"
#include "bank_compiler/writer.h"

using namespace practice::compiler;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const ExamPlan& plan = plans[size % plans.size()];
  Faults faults;
  Shortfalls shortfalls;
  const ExamSource exam{.book = parse_bank(text, "book.toml", BankKind::book, faults),
                        .extra = parse_bank(text, "extra.toml", BankKind::extra, faults),
                        .full = parse_bank(text, "full.toml", BankKind::full, faults)};
  check_exam(exam, plan, {}, faults, shortfalls);
  sort_by_place(faults);
  for (const Fault& fault : faults) {
    if (to_text(fault).find('\n') != std::string::npos) __builtin_trap();
  }
  write_tables(exam, plan);
  return 0;
}
