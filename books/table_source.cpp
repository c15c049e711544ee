#include "book_setting/table_source.h"

#include <string>
#include <utility>

#include "bank_compiler/text_form.h"
#include "book_setting/spans.h"

namespace practice::books {
namespace {

using compiler::in_quotes;
using compiler::trimmed;

// Between the bars; a bar behind a backslash is text.
std::vector<std::string_view> cells_in(std::string_view row) {
  std::vector<std::string_view> cells;
  std::size_t begin = 1;
  for (std::size_t place = 1; place < row.size(); ++place) {
    if (row[place] != '|' || row[place - 1] == '\\') continue;
    cells.push_back(trimmed(row.substr(begin, place - begin)));
    begin = place + 1;
  }
  return cells;
}

bool is_closed(std::string_view row) {
  return row.size() > 1 && row.ends_with('|') && !row.ends_with("\\|");
}

bool is_dashes(std::string_view cell) {
  if (cell.starts_with(':')) cell.remove_prefix(1);
  if (cell.ends_with(':')) cell.remove_suffix(1);
  return cell.size() >= 3 && cell.find_first_not_of('-') == cell.npos;
}

ColumnAlignment alignment_in(std::string_view dashes) {
  if (!dashes.ends_with(':')) return ColumnAlignment::left;
  return dashes.starts_with(':') ? ColumnAlignment::centre : ColumnAlignment::right;
}

}  // namespace

Table read_table(const std::vector<std::string_view>& rows, int line,
                 const compiler::Reporter& report) {
  Table table{.line = line};
  const std::size_t columns = cells_in(rows.front()).size();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int number = line + static_cast<int>(i);
    const auto cells = cells_in(rows[i]);
    if (!is_closed(rows[i])) {
      report(number, "a row of a table ends in a bar", in_quotes(rows[i]));
    }
    if (cells.size() != columns) {
      report(number, "all rows of a table have as many cells as its head",
             std::to_string(cells.size()) + " instead of " + std::to_string(columns));
      continue;
    }
    if (i == 1) {
      for (const std::string_view cell : cells) {
        if (!is_dashes(cell)) {
          report(number, "the second line of a table is made of dashes", in_quotes(cell));
        }
        table.alignments.push_back(alignment_in(cell));
      }
      continue;
    }
    std::vector<Paragraph> row;
    for (const std::string_view cell : cells) {
      row.push_back({.spans = read_spans(cell, number, report), .line = number});
    }
    table.rows.push_back(std::move(row));
  }
  if (rows.size() < 3) {
    report(line, "a table has a head, a line of dashes and a row", in_quotes(rows.front()));
  }
  return table;
}

}  // namespace practice::books
