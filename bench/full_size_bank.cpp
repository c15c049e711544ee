#include "full_size_bank.h"

#include <vector>

#include "bank/tables.h"

namespace practice {
namespace {

constexpr std::size_t book_size = 200;

std::vector<BankRow> repeated(std::span<const BankRow> rows, std::size_t count) {
  std::vector<BankRow> result;
  for (std::size_t i = 0; i < count; ++i) result.push_back(rows[i % rows.size()]);
  return result;
}

const std::vector<BankRow> book_rows = repeated(falco_banks.book_rows, book_size);
const std::vector<BankRow> extra_rows =
    repeated(falco_banks.extra_rows, bench::full_size - book_size);

}  // namespace

// Stands in for the table of the same name: the linker takes that one from its archive only while
// the name is missing. FALCO's own tables are constants and so exist before this is made of them.
const ExamBanks wren_banks{.book_head = falco_banks.book_head,
                           .extra_head = falco_banks.extra_head,
                           .full_head = falco_banks.full_head,
                           .book_rows = book_rows,
                           .extra_rows = extra_rows,
                           .full_changes = {}};

}  // namespace practice
