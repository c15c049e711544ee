// Chooses the places where a text is broken into lines: of all ways the one whose lines, taken
// together, need the least stretching.
#pragma once

#include <QList>
#include <QString>
#include <QTextFormat>
#include <QTextLayout>
#include <vector>

namespace practice::books {

/// The property of a format whose text is code.
inline constexpr int code_property = QTextFormat::UserProperty + 1;

/// A text, where its characters would stand in one line, and its blanks.
struct MeasuredText {
  QString text{};
  QList<QTextLayout::FormatRange> formats{};
  /// Of each character and of the end.
  std::vector<double> places{};
  /// Before each character and before the end: how many blanks may be stretched. Those in code
  /// show how it is typed.
  std::vector<int> blanks{};

  double width_between(int begin, int end) const;
  double blanks_between(int begin, int end) const;
};

struct LineShape {
  double width;
  /// Width of a blank.
  double blank;
  /// Blanks are stretched and shrunk; otherwise the right edge may be ragged.
  bool justified;
};

/// From `begin` up to `end`, without the blanks that the break swallows.
struct LineRange {
  int begin = 0;
  int end = 0;
  bool last = false;
  /// Wider than the space: nothing in it can be broken.
  bool too_wide = false;
};

std::vector<LineRange> break_lines(const MeasuredText& text, const LineShape& shape);

std::vector<LineRange> unbreakable_parts(const QString& text);

}  // namespace practice::books
