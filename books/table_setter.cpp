#include "book_setting/table_setter.h"

#include <QPainter>
#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "book_setting/design.h"
#include "book_setting/lines.h"
#include "book_setting/typography.h"

namespace practice::books {
namespace {

constexpr double cell_padding = 24;
constexpr double least_gap = 110;
constexpr double most_gap = 260;
constexpr double outer_rule = 9;
constexpr double inner_rule = 5;
// A table of this height is not cut.
constexpr double most_whole_height = 0.4 * design::text_height;

using Row = std::vector<SetText>;

Setting setting_of(ColumnAlignment alignment) {
  switch (alignment) {
    case ColumnAlignment::centre:
      return Setting::centred;
    case ColumnAlignment::right:
      return Setting::right;
    case ColumnAlignment::left:
      break;
  }
  return Setting::left;
}

double sum_of(const std::vector<double>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

double height_of(const Slices& slices) {
  return std::accumulate(slices.begin(), slices.end(), 0.0,
                         [](double sum, const Slice& slice) { return sum + slice.height; });
}

class TableSetter {
 public:
  TableSetter(const Table& table, const compiler::Reporter& report)
      : table_(table), report_(report) {}

  Slices set() {
    if (table_.alignments.empty() || !find_widths()) return {};
    Slices slices;
    for (std::size_t i = 0; i < table_.rows.size(); ++i) slices.push_back(set_row(i));
    const std::size_t count = slices.size();
    const bool small = height_of(slices) < most_whole_height;
    for (std::size_t i = 1; i < count; ++i) {
      const bool edge = small || i < 3 || i + 2 > count;
      slices[i].before = edge ? Break::never : Break::in_group;
      slices[i].repeated = {slices[0]};
    }
    return slices;
  }

 private:
  static const TextStyle& style_of(std::size_t row) {
    return row == 0 ? styles::table_head : styles::table;
  }

  // Each column as wide as its longest text if there is room; else the widest ones give way.
  bool find_widths() {
    const std::size_t columns = table_.alignments.size();
    std::vector<double> natural(columns, 0);
    std::vector<double> least(columns, 0);
    for (std::size_t row = 0; row < table_.rows.size(); ++row) {
      for (std::size_t i = 0; i < columns; ++i) {
        const TextWidths widths = widths_of(print_of(row, i), style_of(row));
        // A line may come out a little wider than the sum of its words.
        natural[i] = std::max(natural[i], widths.natural + 1);
        least[i] = std::max(least[i], widths.least + 1);
      }
    }
    const auto gaps = static_cast<double>(columns - 1);
    const double room = design::text_width - gaps * least_gap;
    if (sum_of(least) > room) {
      report_(table_.line, "a table fits the width of a page",
              std::to_string(static_cast<int>(sum_of(least) - room) / 10 + 1) + " points too wide");
      return false;
    }
    widths_ = sum_of(natural) <= room ? natural : narrowed(natural, least, room);
    gap_ = least_gap;
    if (gaps > 0) {
      gap_ = std::min(most_gap, (design::text_width - sum_of(widths_)) / gaps);
    }
    // The last column ends with the rules.
    widths_.back() += design::text_width - sum_of(widths_) - gaps * gap_;
    return true;
  }

  // Finds the width that no column may exceed by halving.
  static std::vector<double> narrowed(const std::vector<double>& natural,
                                      const std::vector<double>& least, double room) {
    double low = 0;
    double high = room;
    std::vector<double> widths = least;
    for (int step = 0; step < 40; ++step) {
      const double most = (low + high) / 2;
      std::vector<double> tried;
      for (std::size_t i = 0; i < natural.size(); ++i) {
        tried.push_back(std::max(least[i], std::min(natural[i], most)));
      }
      const bool fits = sum_of(tried) <= room;
      (fits ? low : high) = most;
      if (fits) widths = std::move(tried);
    }
    return widths;
  }

  Spans print_of(std::size_t row, std::size_t column) const {
    Spans spans = table_.rows[row][column].spans;
    polish(spans);
    return spans;
  }

  Slice set_row(std::size_t index) const {
    const bool head = index == 0;
    const bool last = index + 1 == table_.rows.size();
    Row row;
    std::size_t lines = 1;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      row.push_back(set_lines(print_of(index, i), style_of(index), widths_[i],
                              setting_of(table_.alignments[i])));
      lines = std::max(lines, row.back().lines.size());
    }
    const double height = static_cast<double>(lines) * style_of(index).leading + 2 * cell_padding;
    return {.height = height,
            .draw = [row = std::move(row), widths = widths_, gap = gap_, height, head, last](
                        QPainter& painter, double left, double top) {
              double x = left;
              for (std::size_t i = 0; i < row.size(); x += widths[i] + gap, ++i) {
                double y = top + cell_padding;
                for (const SetLine& line : row[i].lines) {
                  draw_line(painter, line, x, y);
                  y += line.leading;
                }
              }
              const auto rule = [&](double y, double width) {
                painter.fillRect(QRectF(left, y - width / 2, design::text_width, width),
                                 design::ink);
              };
              if (head) rule(top, outer_rule);
              if (head) rule(top + height, inner_rule);
              if (last) rule(top + height, outer_rule);
            }};
  }

  const Table& table_;
  const compiler::Reporter& report_;
  std::vector<double> widths_{};
  double gap_ = 0;
};

}  // namespace

Slices set_table(const Table& table, const compiler::Reporter& report) {
  return TableSetter(table, report).set();
}

}  // namespace practice::books
