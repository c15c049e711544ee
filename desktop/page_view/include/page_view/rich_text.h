// A page's tree, written out again as the rich text that QTextDocument reads.
//
// What the page lays out with tables, line breaks and stray tags becomes a plain row of blocks:
// question text, one hanging block for each choice, quiet instruction, rules, pictures. Whatever
// else the page holds is flattened to its text; scripts, style rules and the head are left out.
// Inputs, pictures and links are numbered: "input:0", "picture:0", "node:0".
#pragma once

#include <QSize>
#include <QString>
#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/html/document.h"

namespace practice::desktop {

/// Sizes and colours of one drawing. Sizes are device pixels.
struct Look {
  /// Device pixels for one pixel at 96 dots an inch.
  double scale = 1;
  /// The body size.
  double font_points = 12;
  /// Width that is there for text, pictures and text inputs.
  int column = 720;
  /// Width of the column of the mark, and of the column of the letter behind it. The text of a
  /// choice hangs behind both; tab stops are this far apart.
  int hang = 26;
  /// Height of the placeholder of a mark: at most the ascent, or else lines grow.
  int mark_height = 12;
  /// A text input: one character, the frame around all, and the height that the line gives to it.
  int character_width = 8;
  int field_extra = 10;
  int field_height = 30;
  /// "#rrggbb"
  QString text_colour = QStringLiteral("#000000");
  QString quiet_colour = QStringLiteral("#666666");
  QString link_colour = QStringLiteral("#1f5f8b");
  QString rule_colour = QStringLiteral("#cccccc");
  /// Inputs as text, "(•)", "[x]" or what was typed, in place of placeholders: for paper.
  bool marks_as_text = false;
  /// Size of a picture, told by the page's source, in device pixels; asked once for each picture.
  std::function<QSize(std::string_view source)> picture_size;
};

/// More inputs than this have no widget: they are written as text.
inline constexpr std::size_t most_fields = 500;
/// Longer pages are cut.
inline constexpr int most_characters = 60'000;
inline constexpr int most_blocks = 3'000;
inline constexpr std::size_t most_pictures = 64;

struct RichText {
  struct Field {
    /// Index in Document::inputs().
    std::size_t input = 0;
    /// Of the placeholder, before the column limits it.
    QSize size;
  };
  struct Picture {
    std::string_view source;
    /// Before the column limits it.
    QSize size;
  };

  QString html;
  std::vector<Field> fields;
  std::vector<Picture> pictures;
  /// What was clicked, for an anchor "node:N": a link, or an element that may have a handler.
  std::vector<html::Node*> links;
};

/// The views and pointers in the result are those of the document's tree.
RichText rich_text(html::Document& document, const Look& look);

/// The picture's size in a column: never wider than it.
QSize fitted_picture(QSize size, int column);
QSize fitted_field(QSize size, int column);

QString qt_text(std::string_view text);

}  // namespace practice::desktop
