// From markup to a tree of nodes.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/html/document.h"

namespace practice::html {

/// The html element of the page; null when the page is blank. Everything
/// that does not belong to the head ends up inside the body, wherever it was written.
/// Raises fault 7 for more than 256 MB.
std::unique_ptr<Node> tree_of(std::string_view markup);

/// Visits all nodes in page order, without recursion: `enter` before the children of a node,
/// `leave` behind them.
template <class Enter, class Leave>
void walk(Node& root, Enter enter, Leave leave) {
  std::vector<std::pair<Node*, std::size_t>> open{{&root, 0}};
  enter(root);
  while (!open.empty()) {
    auto& [node, next] = open.back();
    if (next == node->children.size()) {
      leave(*node);
      open.pop_back();
      continue;
    }
    Node& child = *node->children[next++];
    enter(child);
    open.emplace_back(&child, 0);
  }
}

}  // namespace practice::html
