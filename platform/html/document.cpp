#include "platform/html/document.h"

#include <algorithm>

#include "contents.h"
#include "platform/values/fault.h"
#include "platform/values/text.h"
#include "tree.h"

namespace practice::html {

std::string_view Node::attribute(std::string_view name) const {
  const auto found =
      std::ranges::find(attributes, name, &std::pair<std::string, std::string>::first);
  return found == attributes.end() ? std::string_view{} : found->second;
}

bool Node::has_attribute(std::string_view name) const {
  return std::ranges::any_of(attributes,
                             [&](const auto& attribute) { return attribute.first == name; });
}

Document::Document() = default;
Document::~Document() = default;
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;

void Document::clear() {
  written_.clear();
  is_open_ = false;
  show(nullptr);
}

void Document::open() {
  written_.clear();
  is_open_ = true;
}

void Document::write(std::string_view text) {
  if (!is_open_) throw Fault::object_required();
  written_ += text;
}

void Document::close() {
  if (!is_open_) return;
  is_open_ = false;
  show(tree_of(written_));
}

void Document::show(std::unique_ptr<Node> tree) {
  Contents contents = tree ? contents_of(*tree) : Contents{};
  root_ = std::move(tree);
  inputs_ = std::move(contents.inputs);
  title_ = std::move(contents.title);
  style_ = std::move(contents.style);
  ++revision_;
}

const Node* Document::body() const {
  if (!root_) return nullptr;
  const auto found = std::ranges::find(root_->children, "body", &Node::tag);
  return found == root_->children.end() ? nullptr : found->get();
}

Node* Document::element_by_id(std::string_view id) {
  if (!root_ || id.empty()) return nullptr;
  std::vector<Node*> ahead{root_.get()};
  while (!ahead.empty()) {
    Node* const node = ahead.back();
    if (node->attribute("id") == id) return node;
    ahead.pop_back();
    for (auto child = node->children.rbegin(); child != node->children.rend(); ++child) {
      ahead.push_back(child->get());
    }
  }
  return nullptr;
}

Input* Document::input(std::string_view name, int index) {
  if (index < 0) return nullptr;
  const std::string wanted = lower(name);
  for (Input& input : inputs_) {
    if (lower(input.name) == wanted && index-- == 0) return &input;
  }
  return nullptr;
}

Input* Document::input_with_access_key(std::string_view key) {
  if (key.empty()) return nullptr;
  const auto found = std::ranges::find(inputs_, lower(key), &Input::access_key);
  return found == inputs_.end() ? nullptr : &*found;
}

void Document::set_checked(Input& input, bool checked) {
  if (!has_mark(input.kind)) return;
  if (checked && is_grouped(input)) {
    const std::string group = lower(input.name);
    for (Input& other : inputs_) {
      if (is_grouped(other) && lower(other.name) == group) other.checked = false;
    }
  }
  input.checked = checked;
}

}  // namespace practice::html
