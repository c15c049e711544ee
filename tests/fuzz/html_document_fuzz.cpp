// Any text at all may be written into a document.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>

#include "platform/html/document.h"
#include "platform/values/text.h"

namespace {

using namespace practice;
using namespace practice::html;

constexpr int deepest = 300;

void require(bool condition) {
  if (!condition) std::abort();
}

void check_tree(const Node& node, int depth, std::set<const Node*>& nodes) {
  require(depth <= deepest);
  nodes.insert(&node);
  require(!node.is_text() || (!node.text.empty() && node.children.empty()));
  require(node.is_text() || node.text.empty());
  for (const auto& child : node.children) {
    require(child->parent == &node);
    check_tree(*child, depth + 1, nodes);
  }
}

void check_inputs(Document& document, const std::set<const Node*>& nodes) {
  std::set<std::string> checked;
  for (Input& input : document.inputs()) {
    require(nodes.contains(input.node) && input.node->tag == "input");
    require(document.input(input.name) != nullptr);
    require(input.access_key.empty() ||
            document.input_with_access_key(input.access_key) != nullptr);
    require(!input.label.starts_with('\n') && !input.label.ends_with('\n'));
    const bool is_grouped = input.kind == InputKind::radio && !input.name.empty();
    if (input.checked && is_grouped) require(checked.insert(lower(input.name)).second);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text{reinterpret_cast<const char*>(data), size};
  Document document;
  document.open();
  document.write(text.substr(0, size / 2));
  document.write(text.substr(size / 2));
  document.close();
  require(document.written() == text);
  if (document.root() == nullptr) {
    require(document.inputs().empty());
    return 0;
  }
  std::set<const Node*> nodes;
  require(document.root()->tag == "html" && document.root()->parent == nullptr);
  check_tree(*document.root(), 1, nodes);
  check_inputs(document, nodes);
  for (Input& input : document.inputs()) document.set_checked(input, true);
  check_inputs(document, nodes);
  require(document.style().font_points == 0 ||
          (document.style().font_points >= 1 && document.style().font_points <= 200));
  document.clear();
  require(document.root() == nullptr && document.inputs().empty());
  return 0;
}
