// How a page looks: its measures, in tenths of a point from its upper left corner, and the styles
// of its texts.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

namespace practice::books {

namespace design {

inline constexpr int units_per_inch = 720;
/// 6 by 9 inches.
inline constexpr double page_width = 4320;
inline constexpr double page_height = 6480;
inline constexpr double margin = 500;
inline constexpr double text_width = page_width - 2 * margin;
inline constexpr double text_top = 620;
/// 37 lines of body text.
inline constexpr double text_height = 5180;
inline constexpr double head_baseline = 430;
inline constexpr double folio_baseline = 6120;

inline constexpr double body_leading = 140;
inline constexpr double paragraph_space = 65;
inline constexpr double block_space = 95;
/// Above and below a figure.
inline constexpr double figure_space = 150;
inline constexpr double section_space = 210;
inline constexpr double item_space = 28;
inline constexpr double list_indent = 170;
/// A ground reaches this far beyond the lines on it.
inline constexpr double ground_padding = 55;
inline constexpr double hairline = 4;

inline const QColor ink(0x1a, 0x1c, 0x1e);
inline const QColor quiet(0x5b, 0x66, 0x70);
inline const QColor accent(0x1f, 0x5f, 0x8b);
inline const QColor ground(0xf1, 0xf3, 0xf5);
inline const QColor ground_edge(0xdc, 0xe1, 0xe6);

}  // namespace design

enum class Face { serif, sans, mono };

struct TextStyle {
  Face face = Face::serif;
  /// In tenths of a point, like everything.
  int size = 105;
  double leading = design::body_leading;
  /// Of `code` between the words: the two faces look alike in size then.
  int code_size = 88;
  bool bold = false;
  QColor ink = design::ink;
  /// Put between the letters.
  double tracking = 0;
};

namespace styles {

inline const TextStyle body{};
inline const TextStyle section{.face = Face::sans, .size = 128, .leading = 160, .bold = true};
inline const TextStyle chapter_label{.face = Face::sans,
                                     .size = 92,
                                     .leading = 140,
                                     .bold = true,
                                     .ink = design::accent,
                                     .tracking = 7};
inline const TextStyle chapter_title{.face = Face::sans, .size = 235, .leading = 285, .bold = true};
/// 76 columns of it are as wide as the text.
inline const TextStyle listing{.face = Face::mono, .size = 72, .leading = 100, .code_size = 72};
inline const TextStyle table{.face = Face::sans, .size = 86, .leading = 118, .code_size = 78};
inline const TextStyle table_head{
    .face = Face::sans, .size = 86, .leading = 118, .code_size = 78, .bold = true};
inline const TextStyle caption{
    .face = Face::sans, .size = 84, .leading = 116, .code_size = 76, .ink = design::quiet};
inline const TextStyle running_head{
    .face = Face::sans, .size = 80, .leading = 110, .ink = design::quiet};
inline const TextStyle folio{.face = Face::sans, .size = 88, .leading = 110};
inline const TextStyle contents_chapter{
    .face = Face::sans, .size = 96, .leading = 140, .bold = true};
inline const TextStyle contents_section{.size = 96, .leading = 116};

}  // namespace styles

/// Drawn as the outlines tell, without fitting to a screen's dots.
QFont font_of(Face face, int size, bool bold, bool italic);

QString family_of(Face face);

}  // namespace practice::books
