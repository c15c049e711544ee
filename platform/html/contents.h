// What the program asks of a page beside its tree: inputs with their labels, title, style rules.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "platform/html/document.h"

namespace practice::html {

struct Contents {
  std::deque<Input> inputs;
  std::string title;
  Style style;
};

Contents contents_of(Node& root);

/// True for the kinds that can be checked.
bool has_mark(InputKind kind);
/// True for a radio input that excludes others: those of its name. One without a name stands alone.
bool is_grouped(const Input& input);

/// Applies the rules of one style element to what earlier ones left.
void apply_rules(std::string_view rules, Style& style);

}  // namespace practice::html
