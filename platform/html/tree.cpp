#include "tree.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <string>

#include <libxml/HTMLparser.h>

#include "platform/values/fault.h"
#include "platform/values/text.h"

namespace practice::html {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view replacement_character = "\xEF\xBF\xBD";
// Cleaning triples a page at most, and the parser counts bytes in an int.
constexpr std::size_t most_bytes = std::size_t{1} << 28;
// The parser's own limit of depth would end the page there and lose the rest of it.
constexpr std::size_t most_open_elements = 256;
// So far beyond that limit a hidden text may still begin.
constexpr std::size_t spare_open_elements = 4;

bool hides_text(std::string_view tag) {
  return tag == "script" || tag == "style" || tag == "title";
}

bool belongs_to_head(std::string_view tag) {
  static constexpr std::array<std::string_view, 6> tags{"title", "script", "style",
                                                        "meta",  "link",   "base"};
  return std::ranges::find(tags, tag) != tags.end();
}

bool is_plain(char c) {
  const auto byte = static_cast<std::uint8_t>(c);
  return (byte >= ' ' && byte < 0x80) || c == '\n' || c == '\t';
}

// What the parser may be given: valid UTF-8 that says so by its mark, without control characters,
// its lines ended by '\n'. The parser would stop at some of these, complain about others to the
// standard error stream, and take a page with an invalid byte for Latin-1 as a whole.
std::string cleaned(std::string_view markup) {
  std::string result;
  result.reserve(byte_order_mark.size() + markup.size());
  result = byte_order_mark;
  if (markup.starts_with(byte_order_mark)) markup.remove_prefix(byte_order_mark.size());
  for (std::size_t place = 0; place < markup.size();) {
    std::size_t end = place;
    while (end < markup.size() && is_plain(markup[end])) ++end;
    result.append(markup, place, end - place);
    if (end == markup.size()) break;
    const std::size_t length = first_characters(markup.substr(end), 1).size();
    if (length > 1) {
      result.append(markup, end, length);
    } else if (static_cast<std::uint8_t>(markup[end]) >= 0x80) {
      result += replacement_character;
    } else if (markup[end] != '\r') {
      result += ' ';
    } else if (!markup.substr(end + 1).starts_with('\n')) {
      result += '\n';
    }
    place = end + length;
  }
  return result;
}

std::size_t find_any_case(std::string_view text, std::string_view what) {
  const auto same = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b;
  };
  const auto found = std::ranges::search(text, what, same);
  return found.empty() ? std::string_view::npos
                       : static_cast<std::size_t>(found.begin() - text.begin());
}

// Every page begins with the same scripts, which nobody runs. They are a third of it and would be
// read letter by letter.
std::string_view without_leading_scripts(std::string_view markup) {
  for (;;) {
    const auto start = std::min(markup.find_first_not_of(blanks), markup.size());
    const std::string_view tag = markup.substr(start);
    const bool is_script = find_any_case(tag.substr(0, 7), "<script") == 0 &&
                           tag.substr(7).find_first_of(" \t\r\n/>") == 0;
    if (!is_script) return markup;
    const auto end_tag = find_any_case(tag, "</script");
    if (end_tag == std::string_view::npos) return markup;
    const auto end = markup.find('>', start + end_tag);
    if (end == std::string_view::npos) return markup;
    markup.remove_prefix(end + 1);
  }
}

std::string_view view_of(const xmlChar* text) {
  return text == nullptr ? std::string_view{} : reinterpret_cast<const char*>(text);
}

Node* child_with_tag(const Node& parent, std::string_view tag) {
  const auto child = std::ranges::find(parent.children, tag, &Node::tag);
  return child == parent.children.end() ? nullptr : child->get();
}

// Takes what the parser reports. The tree differs from that where the parser leaves text outside
// the body, or opens a second html, head or body: what such a one holds goes where it stands.
class Builder {
 public:
  void start(std::string_view tag, const xmlChar** attributes);
  void end(std::string_view tag);
  void text(std::string_view piece);

  std::size_t open_elements() const { return open_.size(); }
  /// Forgets the open elements: what follows belongs to the body.
  void begin_section() { open_.clear(); }
  std::unique_ptr<Node> take_root() { return std::move(root_); }

 private:
  struct OpenElement {
    std::string tag;
    Node* node;
  };

  Node& root();
  Node& only_child_of_root(std::string_view tag);
  bool is_between() const { return open_.empty() || open_.back().node == root_.get(); }
  Node& node_for(std::string_view tag);
  Node& parent_for(std::string_view tag);
  static Node& append(Node& parent, std::string_view tag);

  std::unique_ptr<Node> root_;
  std::vector<OpenElement> open_;
};

Node& Builder::append(Node& parent, std::string_view tag) {
  Node& node = *parent.children.emplace_back(std::make_unique<Node>());
  node.tag = tag;
  node.parent = &parent;
  return node;
}

Node& Builder::root() {
  if (!root_) {
    root_ = std::make_unique<Node>();
    root_->tag = "html";
  }
  return *root_;
}

Node& Builder::only_child_of_root(std::string_view tag) {
  Node* child = child_with_tag(root(), tag);
  return child != nullptr ? *child : append(root(), tag);
}

// Where an element, or text for the empty tag, goes.
Node& Builder::parent_for(std::string_view tag) {
  if (is_between() || (open_.back().node->tag == "head" && !belongs_to_head(tag))) {
    return only_child_of_root("body");
  }
  return *open_.back().node;
}

Node& Builder::node_for(std::string_view tag) {
  const bool is_single = tag == "html" || tag == "head" || tag == "body";
  if (!is_single) return append(parent_for(tag), tag);
  if (!is_between()) return *open_.back().node;
  return tag == "html" ? root() : only_child_of_root(tag);
}

void Builder::start(std::string_view tag, const xmlChar** attributes) {
  Node& node = node_for(tag);
  open_.push_back({std::string(tag), &node});
  if (attributes == nullptr) return;
  // The parser drops repetitions within one tag.
  const bool may_repeat = !node.attributes.empty();
  for (; attributes[0] != nullptr; attributes += 2) {
    const std::string_view name = view_of(attributes[0]);
    if (may_repeat && node.has_attribute(name)) continue;
    node.attributes.emplace_back(name, view_of(attributes[1]));
  }
}

void Builder::end(std::string_view tag) {
  const auto opened = std::find_if(open_.rbegin(), open_.rend(),
                                   [&](const OpenElement& element) { return element.tag == tag; });
  if (opened != open_.rend()) open_.erase(std::prev(opened.base()), open_.end());
}

void Builder::text(std::string_view piece) {
  const bool is_outside_body = is_between() || open_.back().node->tag == "head";
  if (is_outside_body && piece.find_first_not_of(blanks) == std::string_view::npos) return;
  Node& parent = parent_for({});
  if (parent.children.empty() || !parent.children.back()->is_text()) append(parent, {});
  parent.children.back()->text += piece;
}

// One run of the parser, from a place of the page to its end or to the first element that lies too
// deep. Exceptions may not pass through the parser, so they are carried around it.
class Run {
 public:
  explicit Run(Builder& builder) : builder_(builder), context_(htmlNewParserCtxt()) {
    if (context_ == nullptr) throw Fault::out_of_memory();
    xmlSAXHandler handlers{};
    handlers.startElement = [](void* self, const xmlChar* tag, const xmlChar** attributes) {
      static_cast<Run*>(self)->start(tag, attributes);
    };
    handlers.endElement = [](void* self, const xmlChar* tag) {
      Run& run = *static_cast<Run*>(self);
      run.guarded([&] { run.builder_.end(view_of(tag)); });
    };
    handlers.characters = [](void* self, const xmlChar* text, int length) {
      Run& run = *static_cast<Run*>(self);
      const std::string_view piece{reinterpret_cast<const char*>(text),
                                   static_cast<std::size_t>(length)};
      run.guarded([&] { run.builder_.text(piece); });
    };
    handlers.ignorableWhitespace = handlers.characters;
    handlers.cdataBlock = handlers.characters;
    *context_->sax = handlers;
    context_->userData = this;
  }
  ~Run() { htmlFreeParserCtxt(context_); }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  /// Bytes of the text that are dealt with.
  std::size_t parse(std::string_view text) {
    consumed_ = text.size();
    text_ = text;
    htmlCtxtReadMemory(context_, text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                       HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                           HTML_PARSE_NONET | HTML_PARSE_NODEFDTD | HTML_PARSE_IGNORE_ENC);
    if (failure_) std::rethrow_exception(failure_);
    return consumed_;
  }

 private:
  void start(const xmlChar* tag, const xmlChar** attributes) {
    guarded([&] {
      builder_.start(view_of(tag), attributes);
      // Behind the start of a script the rest of it would be read as text.
      const std::size_t limit =
          most_open_elements + (hides_text(view_of(tag)) ? spare_open_elements : 0);
      if (builder_.open_elements() >= limit) stop_behind_tag();
    });
  }

  // The parser stands behind the last attribute of the tag.
  void stop_behind_tag() {
    const long place = xmlByteConsumed(context_);
    if (place >= 0) consumed_ = std::min(static_cast<std::size_t>(place), text_.size());
    const std::string_view rest = text_.substr(consumed_);
    consumed_ += rest.starts_with("/>") ? 2 : rest.starts_with('>') ? 1 : 0;
    stop();
  }

  void stop() {
    is_stopped_ = true;
    xmlStopParser(context_);
  }

  template <class Step>
  void guarded(Step step) noexcept {
    if (is_stopped_) return;
    try {
      step();
    } catch (...) {
      failure_ = std::current_exception();
      stop();
    }
  }

  Builder& builder_;
  htmlParserCtxtPtr context_;
  std::string_view text_;
  std::size_t consumed_ = 0;
  bool is_stopped_ = false;
  std::exception_ptr failure_;
};

}  // namespace

std::unique_ptr<Node> tree_of(std::string_view markup) {
  if (markup.size() > most_bytes) throw Fault::out_of_memory();
  std::string text = cleaned(without_leading_scripts(markup));
  if (text.find_first_not_of(blanks, byte_order_mark.size()) == std::string::npos) return nullptr;
  Builder builder;
  for (std::size_t place = 0;;) {
    builder.begin_section();
    place += Run{builder}.parse(std::string_view{text}.substr(place));
    if (place >= text.size()) break;
    // Each run wants the mark in front; what it overwrites is dealt with.
    place -= byte_order_mark.size();
    text.replace(place, byte_order_mark.size(), byte_order_mark);
  }
  return builder.take_root();
}

}  // namespace practice::html
