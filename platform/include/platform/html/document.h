// The document behind an HTML view: what was written, as a tree, with its inputs by name.
//
// The order of calls is open(), one or more write(), close(); close() parses what was written
// since open(); until then the page before it stays. Nothing executes and nothing is fetched:
// scripts and styles are kept as inert text. Parsing recovers from every fault of the markup, and
// text written outside the body ends up in the body. Pointers into the tree and to inputs stay
// valid until the next close() or clear(), also when the document is moved.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace practice::html {

/// An element, or a run of text where `tag` is empty. Tag and attribute names are lower case; text
/// is valid UTF-8 without control characters, blanks as written, lines ended by '\n'. A tree is
/// at most some 260 nodes deep, so it may be walked by recursion.
struct Node {
  std::string tag;
  std::string text;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<std::unique_ptr<Node>> children;
  Node* parent = nullptr;
  /// Set by the program on an element that answers to a click.
  std::function<void()> onclick;

  bool is_text() const { return tag.empty(); }
  /// Empty when the attribute is absent or has no value; `name` in lower case.
  std::string_view attribute(std::string_view name) const;
  bool has_attribute(std::string_view name) const;
};

enum class InputKind { radio, checkbox, text, other };

/// One input of the page, in page order.
struct Input {
  InputKind kind = InputKind::other;
  std::string name;
  std::string value;
  bool checked = false;
  /// One lower-case letter or digit, or empty.
  std::string access_key;
  /// The text behind the input, up to the next input or the edge of a block: "A.\tOSPF".
  /// Blanks folded, inner line breaks as '\n', the tab behind the letter kept.
  std::string label;
  /// In characters, at most 1000; 0 when not told.
  int size = 0;
  const Node* node = nullptr;
};

/// What the page's style rules ask for the body; the last rule that makes sense wins.
struct Style {
  /// From 1 to 200; 0 when the page does not say. "12 pt", with the blank, is 12, and so are
  /// "12" and "16px".
  double font_points = 0;
  /// The first name of the rule's list; empty when the page does not say.
  std::string font_family;
};

class Document {
 public:
  Document();
  ~Document();
  Document(Document&&) noexcept;
  Document& operator=(Document&&) noexcept;

  /// Empties the document and leaves it closed.
  void clear();
  /// Drops what was written before.
  void open();
  /// Raises fault 424 when the document is not open.
  void write(std::string_view text);
  /// Does nothing when the document is not open.
  void close();

  /// Everything written since the last open().
  const std::string& written() const { return written_; }
  /// The html element; null while the document is empty or blank.
  const Node* root() const { return root_.get(); }
  Node* root() { return root_.get(); }
  /// The body element; null when there is none.
  const Node* body() const;
  const std::string& title() const { return title_; }
  const Style& style() const { return style_; }
  /// Counts the closes and clears, so that a drawing knows when to lay out anew.
  unsigned revision() const { return revision_; }

  /// The first element of that id, in that spelling; null when there is none.
  Node* element_by_id(std::string_view id);

  std::deque<Input>& inputs() { return inputs_; }
  const std::deque<Input>& inputs() const { return inputs_; }
  /// The index-th input of that name, from 0; null when there is none. Names regard no case.
  Input* input(std::string_view name, int index = 0);
  /// The first input with the key, in either case; null when there is none.
  Input* input_with_access_key(std::string_view key);
  /// Checking a radio input clears the others of its name. Does nothing to an input of a kind
  /// that can not be checked.
  void set_checked(Input& input, bool checked);

 private:
  void show(std::unique_ptr<Node> tree);

  std::string written_;
  std::unique_ptr<Node> root_;
  std::deque<Input> inputs_;
  std::string title_;
  Style style_;
  unsigned revision_ = 0;
  bool is_open_ = false;
};

}  // namespace practice::html
