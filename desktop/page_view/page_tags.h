// What the tags and attributes of a page mean to its drawing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/html/document.h"

namespace practice::desktop {

enum class Tag {
  flat,
  hidden,
  paragraph,
  division,
  centre,
  heading,
  quote,
  preformatted,
  rule,
  line_break,
  image,
  input,
  anchor,
  bold,
  italic,
  underlined,
  struck,
  subscript,
  superscript,
  typewriter,
  larger,
  smaller,
  font,
  bullets,
  numbers,
  item,
  table,
  row,
  cell,
};

/// Tag::flat for one of no meaning, whose children count all the same.
Tag tag_of(const std::string& name);

enum class Align { left, centre, right };

Align align_of(const html::Node& node, Align inherited);

/// The whole number that an attribute opens with; -1 when it holds none or a share of the page.
int number_of(std::string_view attribute);

/// The rows of a table, whether or not they stand in a table body.
std::vector<html::Node*> rows_of(const html::Node& table);
std::vector<html::Node*> cells_of(const html::Node& row);

}  // namespace practice::desktop
