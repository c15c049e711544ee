#include "contents.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/values/text.h"
#include "tree.h"

namespace practice::html {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr int widest_input = 1000;

bool is_block(std::string_view tag) {
  static constexpr std::array<std::string_view, 40> tags{
      "address", "article", "aside", "blockquote", "body",     "caption", "center", "dd",
      "dir",     "div",     "dl",    "dt",         "fieldset", "footer",  "form",   "h1",
      "h2",      "h3",      "h4",    "h5",         "h6",       "header",  "hr",     "html",
      "legend",  "li",      "main",  "nav",        "ol",       "p",       "pre",    "section",
      "table",   "tbody",   "td",    "tfoot",      "th",       "thead",   "tr",     "ul"};
  return std::ranges::find(tags, tag) != tags.end();
}

// Text as a page shows it, on its way to one string: blanks folded, line breaks as '\n', neither
// in front of the text nor behind it. The tab behind a leading letter, as in "A.\tOSPF", stays.
class FoldedText {
 public:
  explicit FoldedText(std::string& text) : text_(text) {}

  void add(std::string_view piece) {
    while (!piece.empty()) {
      const std::size_t word = std::min(piece.find_first_not_of(blanks), piece.size());
      note_blanks(piece.substr(0, word));
      piece.remove_prefix(word);
      const std::size_t end = std::min(piece.find_first_of(blanks), piece.size());
      if (end > 0) add_word(piece.substr(0, end));
      piece.remove_prefix(end);
    }
  }
  void add_break() { ++breaks_; }

 private:
  void note_blanks(std::string_view run) {
    has_blank_ = has_blank_ || !run.empty();
    has_tab_ = has_tab_ || contains(run, "\t");
  }

  void add_word(std::string_view word) {
    if (!text_.empty() && breaks_ > 0) {
      text_.append(breaks_, '\n');
    } else if (!text_.empty() && has_blank_) {
      text_ += has_tab_ && is_letter_with_point() ? '\t' : ' ';
    }
    text_ += word;
    breaks_ = 0;
    has_blank_ = has_tab_ = false;
  }

  bool is_letter_with_point() const { return text_.size() == 2 && text_[1] == '.'; }

  std::string& text_;
  std::size_t breaks_ = 0;
  bool has_blank_ = false;
  bool has_tab_ = false;
};

InputKind kind_of(std::string_view type) {
  const std::string name = lower(trim(type));
  if (name == "radio") return InputKind::radio;
  if (name == "checkbox") return InputKind::checkbox;
  if (name == "text" || name.empty()) return InputKind::text;
  return InputKind::other;
}

std::string access_key_in(std::string_view attribute) {
  const std::string_view first = first_characters(attribute, 1);
  const std::string key = lower(first);
  const bool is_digit = !key.empty() && key[0] >= '0' && key[0] <= '9';
  const bool is_letter = key != upper(first);
  return is_digit || is_letter ? key : std::string{};
}

int size_in(std::string_view attribute) {
  return static_cast<int>(std::clamp<double>(number_in(attribute), 0, widest_input));
}

// Gathers in one pass over the page.
class Reader {
 public:
  Contents read(Node& root) {
    walk(
        root, [this](const Node& node) { enter(node); }, [this](const Node& node) { leave(node); });
    keep_last_checked();
    return std::move(contents_);
  }

 private:
  void enter(const Node& node) {
    if (label_ && is_block(node.tag)) label_.reset();
    if (node.is_text()) {
      add_text(node);
    } else if (node.tag == "input") {
      add_input(node);
    } else if (node.tag == "br") {
      if (label_) label_->add_break();
    } else if (node.tag == "title" && title_node_ == nullptr) {
      title_node_ = &node;
      title_.emplace(contents_.title);
    }
  }

  void leave(const Node& node) {
    if (label_ && is_block(node.tag)) label_.reset();
    if (&node == title_node_) title_.reset();
  }

  void add_text(const Node& node) {
    const std::string_view place = node.parent->tag;
    if (place == "style") {
      apply_rules(node.text, contents_.style);
    } else if (title_) {
      title_->add(node.text);
    } else if (label_ && place != "script" && place != "title") {
      label_->add(node.text);
    }
  }

  void add_input(const Node& node) {
    Input& input = contents_.inputs.emplace_back();
    input.kind = kind_of(node.attribute("type"));
    input.name = node.attribute("name");
    input.value = node.attribute("value");
    input.checked = has_mark(input.kind) && node.has_attribute("checked");
    input.access_key = access_key_in(node.attribute("accesskey"));
    input.size = size_in(node.attribute("size"));
    input.node = &node;
    label_.emplace(input.label);
  }

  void keep_last_checked() {
    std::unordered_map<std::string, Input*> checked;
    for (Input& input : contents_.inputs) {
      if (!input.checked || !is_grouped(input)) continue;
      Input*& last = checked[lower(input.name)];
      if (last != nullptr) last->checked = false;
      last = &input;
    }
  }

  Contents contents_;
  std::optional<FoldedText> label_;
  std::optional<FoldedText> title_;
  const Node* title_node_ = nullptr;
};

}  // namespace

bool has_mark(InputKind kind) { return kind == InputKind::radio || kind == InputKind::checkbox; }

bool is_grouped(const Input& input) {
  return input.kind == InputKind::radio && !input.name.empty();
}

Contents contents_of(Node& root) { return Reader{}.read(root); }

}  // namespace practice::html
