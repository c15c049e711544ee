#include "book_setting/line_breaks.h"

#include <QStringView>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace practice::books {
namespace {

// Of the width of a blank.
constexpr double easy_growth = 0.55;
constexpr double most_shrinking = 0.22;

// What a break costs besides the look of its line, on the scale of a line's badness, where 100 is a
// line stretched as far as it easily goes.
constexpr double inside_word = 70;
constexpr double inside_code = 90;
constexpr double inside_word_of_code = 400;
constexpr double before_number = 60;
constexpr double before_unit = 300;
constexpr double short_end = 250;

constexpr std::array<QStringView, 26> units{
    u"m",    u"km",   u"cm",   u"mm",   u"nm",    u"dB",   u"dBm", u"s",      u"ms",
    u"W",    u"V",    u"A",    u"mA",   u"Hz",    u"kHz",  u"MHz", u"GHz",    u"Kbit",
    u"kb/s", u"Mb/s", u"Gb/s", u"bits", u"bytes", u"byte", u"bit", u"percent"};

std::vector<int> boundaries_in(const QString& text) {
  std::vector<int> places{0};
  QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
  for (auto place = finder.toNextBoundary(); place >= 0; place = finder.toNextBoundary()) {
    if (place > 0) places.push_back(static_cast<int>(place));
  }
  if (places.back() != text.size()) places.push_back(static_cast<int>(text.size()));
  return places;
}

int without_blanks(const QString& text, int begin, int end) {
  while (end > begin && text[end - 1] == QLatin1Char(' ')) --end;
  return end;
}

class LineBreaker {
 public:
  LineBreaker(const MeasuredText& text, const LineShape& shape)
      : text_(text), shape_(shape), boundaries_(boundaries_in(text.text)) {}

  std::vector<LineRange> lines() {
    const std::size_t count = boundaries_.size();
    std::vector<double> costs(count, std::numeric_limits<double>::infinity());
    std::vector<std::size_t> from(count, 0);
    costs[0] = 0;
    for (std::size_t end = 1; end < count; ++end) {
      const bool last = end + 1 == count;
      const double extra = last ? 0 : break_cost(boundaries_[end]);
      for (std::size_t begin = end; begin-- > 0;) {
        const double badness = badness_of(begin, end, last);
        // A part alone in its line may be too wide; a line of several may not.
        if (std::isinf(badness) && begin + 1 < end) break;
        const double line = std::isinf(badness) ? 1e7 : std::pow(10 + badness, 2);
        const double cost = costs[begin] + line + extra * extra;
        if (cost < costs[end]) {
          costs[end] = cost;
          from[end] = begin;
        }
      }
    }
    std::vector<LineRange> ranges;
    for (std::size_t end = count - 1; end > 0; end = from[end]) {
      ranges.push_back({.begin = boundaries_[from[end]],
                        .end = without_blanks(text_.text, boundaries_[from[end]], boundaries_[end]),
                        .last = end + 1 == count,
                        .too_wide = std::isinf(badness_of(from[end], end, true))});
    }
    std::ranges::reverse(ranges);
    return ranges;
  }

 private:
  // Infinite when the line is too wide.
  double badness_of(std::size_t from, std::size_t to, bool last) const {
    const int begin = boundaries_[from];
    const int end = without_blanks(text_.text, begin, boundaries_[to]);
    const double room = shape_.width - text_.width_between(begin, end);
    const double blanks = text_.blanks_between(begin, end);
    if (room < 0) {
      const double shrinking = shape_.justified ? blanks * shape_.blank * most_shrinking : 0.5;
      if (-room > shrinking) return std::numeric_limits<double>::infinity();
      return 100 * std::pow(-room / shrinking, 3);
    }
    if (last) return begin > 0 && room > 0.85 * shape_.width ? short_end : 0;
    if (!shape_.justified) return 100 * std::pow(room / (0.4 * shape_.width), 2);
    return 100 * std::pow(room / ((blanks + 0.2) * shape_.blank * easy_growth), 3);
  }

  double break_cost(int place) const {
    const QString& text = text_.text;
    const bool code = is_code(place - 1) && is_code(place);
    if (text[place - 1] != QLatin1Char(' ')) return code ? inside_word_of_code : inside_word;
    if (code) return inside_code;
    const QStringView rest = QStringView(text).mid(place);
    const QStringView before = QStringView(text).left(without_blanks(text, 0, place));
    if (rest.isEmpty() || before.isEmpty()) return 0;
    const bool digit_before = before.back().isDigit();
    if (digit_before && begins_with_unit(rest)) return before_unit;
    // "chapter 9", "VLAN 10", and the signs of a small sum.
    const bool sign_before = before.size() > 1 && before[before.size() - 2] == QLatin1Char(' ');
    return rest.front().isDigit() || (sign_before && !before.back().isLetterOrNumber())
               ? before_number
               : 0;
  }

  static bool begins_with_unit(QStringView rest) {
    qsizetype end = 0;
    while (end < rest.size() && (rest[end].isLetter() || rest[end] == QLatin1Char('/'))) ++end;
    return std::ranges::find(units, rest.left(end)) != units.end();
  }

  bool is_code(int place) const {
    for (const QTextLayout::FormatRange& range : text_.formats) {
      if (place < range.start || place >= range.start + range.length) continue;
      return range.format.hasProperty(code_property);
    }
    return false;
  }

  const MeasuredText& text_;
  const LineShape& shape_;
  std::vector<int> boundaries_;
};

}  // namespace

double MeasuredText::width_between(int begin, int end) const {
  return places[static_cast<std::size_t>(end)] - places[static_cast<std::size_t>(begin)];
}

double MeasuredText::blanks_between(int begin, int end) const {
  return blanks[static_cast<std::size_t>(end)] - blanks[static_cast<std::size_t>(begin)];
}

std::vector<LineRange> break_lines(const MeasuredText& text, const LineShape& shape) {
  if (text.text.isEmpty()) return {};
  return LineBreaker(text, shape).lines();
}

std::vector<LineRange> unbreakable_parts(const QString& text) {
  std::vector<LineRange> parts;
  const auto boundaries = boundaries_in(text);
  for (std::size_t i = 1; i < boundaries.size(); ++i) {
    parts.push_back({.begin = boundaries[i - 1],
                     .end = without_blanks(text, boundaries[i - 1], boundaries[i]),
                     .last = i + 1 == boundaries.size()});
  }
  return parts;
}

}  // namespace practice::books
