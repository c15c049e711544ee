#include "page_view/rich_text.h"

#include <algorithm>
#include <string>
#include <utility>

#include "page_tags.h"
#include "rich_text_runs.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// Room between blocks, pixels at 96 dots an inch.
constexpr int paragraph_gap = 12;
constexpr int wide_gap = 20;
constexpr int choice_gap = 9;
constexpr int choices_gap = 16;
constexpr int line_gap = 5;
// On top of half a line, as the rule runs through the middle of one.
constexpr int rule_gap = 6;

constexpr int line_height_percent = 112;
constexpr int deepest_element = 1'000;
constexpr int deepest_table = 2;
constexpr int most_cells = 1'000;
constexpr int most_columns = 30;
constexpr int largest_picture = 4'000;

// Characters.
constexpr int default_input_size = 20;
constexpr int largest_input_size = 200;
constexpr int longest_blank = 40;

/// What an element hands down to its children.
struct Context {
  RunStyle style;
  Align align = Align::left;
  bool keeps_blanks = false;
  /// Centred as a paragraph of its own, as instructions are.
  bool may_be_quiet = false;
  int indent = 0;
  int table_depth = 0;
  /// Counts the items of a numbered list; null in others.
  int* item_number = nullptr;
};

class Writer {
 public:
  Writer(html::Document& document, const Look& look) : document_(document), look_(look) {}

  RichText write() {
    html() += "<body style=\"white-space:pre-wrap\">"_L1;
    if (document_.root() != nullptr) element(*document_.root(), Context(), 0);
    end_block();
    html() += "</body>"_L1;
    return std::move(result_);
  }

 private:
  enum class Shape { paragraph, choice, item };

  QString& html() { return result_.html; }
  int pixels(int at_96) const { return qRound(at_96 * look_.scale); }

  void children(html::Node& node, const Context& context, int depth) {
    for (const auto& child : node.children) {
      if (child->is_text()) {
        text(child->text, context);
      } else if (depth < deepest_element) {
        element(*child, context, depth + 1);
      }
    }
  }

  void text(std::string_view utf8, const Context& context) {
    if (characters_ <= 0) return;
    const QString read = qt_text(utf8);
    if (runs_.empty()) begin_text(context);
    characters_ -= runs_.add_text(read, context.style, context.keeps_blanks, characters_);
    if (characters_ <= 0) runs_.add_text(u" \u2026", context.style, true, 2);
  }

  void begin_text(const Context& context) {
    align_ = context.align;
    may_be_quiet_ = context.may_be_quiet;
    indent_ = context.indent;
  }

  void element(html::Node& node, const Context& outer, int depth) {
    Context context = outer;
    const Tag tag = tag_of(node.tag);
    if (tag != Tag::hidden && tag != Tag::anchor && (node.has_attribute("id") || node.onclick)) {
      context.style.node = number_of_link(node);
    }
    switch (tag) {
      case Tag::hidden:
        return;
      case Tag::flat:
        children(node, context, depth);
        return;
      case Tag::paragraph:
        context.align = align_of(node, outer.align);
        context.may_be_quiet = context.align == Align::centre;
        block(node, context, depth, paragraph_gap);
        return;
      case Tag::division:
        context.align = align_of(node, outer.align);
        block(node, context, depth, 0);
        return;
      case Tag::centre:
        context.align = Align::centre;
        block(node, context, depth, paragraph_gap);
        return;
      case Tag::heading:
        context.align = align_of(node, outer.align);
        context.style.bold = true;
        context.style.size = static_cast<signed char>(std::max('4' - node.tag.back(), 0));
        block(node, context, depth, wide_gap);
        return;
      case Tag::quote:
        context.indent = std::min(outer.indent + 1, 6);
        block(node, context, depth, paragraph_gap);
        return;
      case Tag::preformatted:
        context.keeps_blanks = true;
        context.style.typewriter = true;
        block(node, context, depth, paragraph_gap);
        return;
      case Tag::rule:
        rule();
        return;
      case Tag::line_break:
        if (characters_-- > 0) runs_.add_break();
        return;
      case Tag::image:
        image(node, context);
        return;
      case Tag::input:
        input(node, context);
        return;
      case Tag::anchor:
        context.style.link = !node.attribute("href").empty() || node.onclick;
        if (context.style.link || node.has_attribute("id")) {
          context.style.node = number_of_link(node);
        }
        break;
      case Tag::bold:
        context.style.bold = true;
        break;
      case Tag::italic:
        context.style.italic = true;
        break;
      case Tag::underlined:
        context.style.underlined = true;
        break;
      case Tag::struck:
        context.style.struck = true;
        break;
      case Tag::subscript:
        context.style.script = -1;
        break;
      case Tag::superscript:
        context.style.script = 1;
        break;
      case Tag::typewriter:
        context.style.typewriter = true;
        break;
      case Tag::larger:
        context.style.size = resized(outer.style.size, 1);
        break;
      case Tag::smaller:
        context.style.size = resized(outer.style.size, -1);
        break;
      case Tag::font:
        font(node, context);
        break;
      case Tag::bullets:
      case Tag::numbers:
        list(node, context, depth, tag == Tag::numbers);
        return;
      case Tag::item:
        item(node, context, depth);
        return;
      case Tag::table:
        table(node, context, depth);
        return;
      case Tag::row:
        context.align = align_of(node, outer.align);
        block(node, context, depth, 0);
        return;
      case Tag::cell:
        context.align = align_of(node, outer.align);
        block(node, context, depth, paragraph_gap);
        return;
    }
    children(node, context, depth);
  }

  static signed char resized(int size, int steps) {
    return static_cast<signed char>(std::clamp(size + steps, -2, 4));
  }

  void font(const html::Node& node, Context& context) const {
    const std::string_view size = node.attribute("size");
    if (size.empty()) return;
    const bool is_relative = size.front() == '+' || size.front() == '-';
    const int number = number_of(size.substr(is_relative ? 1 : 0));
    if (number < 0 || number > 9) return;
    const int steps = size.front() == '-' ? -number : is_relative ? number : number - 3;
    context.style.size = resized(0, steps);
  }

  int number_of_link(html::Node& node) {
    result_.links.push_back(&node);
    return static_cast<int>(result_.links.size()) - 1;
  }

  void block(html::Node& node, const Context& context, int depth, int gap) {
    end_block();
    gap_ = std::max(gap_, gap);
    children(node, context, depth);
    end_block();
    gap_ = std::max(gap_, gap);
  }

  void list(html::Node& node, Context& context, int depth, bool is_numbered) {
    int number = 0;
    context.item_number = is_numbered ? &number : nullptr;
    context.indent = std::min(context.indent + 1, 6);
    block(node, context, depth, paragraph_gap);
  }

  void item(html::Node& node, Context& context, int depth) {
    end_block();
    gap_ = std::max(gap_, line_gap);
    begin_text(context);
    shape_ = Shape::item;
    const QString mark = context.item_number == nullptr
                             ? u"\u2022"_s
                             : QString::number(++*context.item_number) + u'.';
    runs_.add_object(mark + u'\t', RunStyle());
    context.item_number = nullptr;
    children(node, context, depth);
    end_block();
  }

  // A table that only lays out the page in one column is no table to the reader.
  void table(html::Node& node, Context& context, int depth) {
    context.align = Align::left;
    const std::vector<html::Node*> rows = rows_of(node);
    std::size_t cells = 0;
    std::size_t columns = 0;
    for (const html::Node* row : rows) {
      const std::size_t count = cells_of(*row).size();
      cells += count;
      columns = std::max(columns, count);
    }
    const bool is_kept = columns > 1 && columns <= most_columns &&
                         context.table_depth < deepest_table && cells <= cells_;
    if (!is_kept) {
      block(node, context, depth, 0);
      return;
    }
    cells_ -= cells;
    end_block();
    ++context.table_depth;
    write_table(rows, context, depth, number_of(node.attribute("border")) > 0);
    gap_ = std::max(gap_, paragraph_gap);
  }

  void write_table(const std::vector<html::Node*>& rows, const Context& context, int depth,
                   bool has_border) {
    html() +=
        u"<table cellspacing=\"0\" cellpadding=\"%1\" style=\"margin-top:%2px"_s.arg(pixels(4)).arg(
            pixels(is_first_ ? 0 : std::max(gap_, paragraph_gap)));
    if (has_border) {
      html() += ";border-collapse:collapse;border-style:solid;border-color:"_L1 +
                look_.rule_colour + "\" border=\"1"_L1;
    }
    html() += "\">"_L1;
    for (const html::Node* row : rows) {
      html() += "<tr>"_L1;
      for (html::Node* cell : cells_of(*row)) {
        html() += "<td"_L1;
        const int span = number_of(cell->attribute("colspan"));
        if (span > 1 && span <= most_columns)
          html() += " colspan=\""_L1 + QString::number(span) + u'"';
        html() += u'>';
        Context inner = context;
        inner.align = align_of(*cell, align_of(*row, Align::left));
        inner.style.bold = inner.style.bold || cell->tag == "th";
        is_first_ = true;
        gap_ = 0;
        children(*cell, inner, depth + 2);
        end_block();
        html() += "</td>"_L1;
      }
      html() += "</tr>"_L1;
    }
    html() += "</table>"_L1;
    is_first_ = false;
    gap_ = 0;
  }

  void rule() {
    end_block();
    if (blocks_-- <= 0) return;
    html() += "<hr style=\"margin-top:"_L1 + QString::number(pixels(is_first_ ? 0 : rule_gap)) +
              "px;margin-bottom:0px;background-color:"_L1 + look_.rule_colour + "\">"_L1;
    is_first_ = false;
    gap_ = rule_gap;
  }

  void image(html::Node& node, const Context& context) {
    const std::string_view source = node.attribute("src");
    if (source.empty() || result_.pictures.size() >= most_pictures || !look_.picture_size) return;
    QSize size = look_.picture_size(source);
    const int width = number_of(node.attribute("width"));
    const int height = number_of(node.attribute("height"));
    if (width > 0 && height > 0) {
      size = QSize(pixels(std::min(width, largest_picture)),
                   pixels(std::min(height, largest_picture)));
    } else if (width > 0) {
      size = size.scaled(pixels(std::min(width, largest_picture)), 1 << 24, Qt::KeepAspectRatio);
    } else if (height > 0) {
      size = size.scaled(1 << 24, pixels(std::min(height, largest_picture)), Qt::KeepAspectRatio);
    }
    if (size.isEmpty()) return;
    const QSize drawn = fitted_picture(size, look_.column);
    if (runs_.empty()) begin_text(context);
    has_object_ = true;
    runs_.add_object(
        image_tag("picture:"_L1 + QString::number(result_.pictures.size()), drawn) + u'>',
        context.style);
    result_.pictures.push_back({source, size});
  }

  static QString image_tag(const QString& name, QSize size) {
    return "<img src=\""_L1 + name + "\" width=\""_L1 + QString::number(size.width()) +
           "\" height=\""_L1 + QString::number(size.height()) + u'"';
  }

  // Inputs come in page order, so the search goes on where the last one was found.
  const html::Input* find_input(const html::Node& node) {
    const auto& inputs = document_.inputs();
    for (std::size_t i = next_input_; i < inputs.size(); ++i) {
      if (inputs[i].node != &node) continue;
      next_input_ = i + 1;
      return &inputs[i];
    }
    return nullptr;
  }

  void input(const html::Node& node, const Context& context) {
    const html::Input* found = find_input(node);
    if (found == nullptr || found->kind == html::InputKind::other || characters_ <= 0) return;
    saw_input_ = true;
    const std::size_t index = next_input_ - 1;
    if (found->kind == html::InputKind::text) {
      if (runs_.empty()) begin_text(context);
      has_object_ = true;
      runs_.add_object(text_field(*found, index), RunStyle());
      return;
    }
    end_block();
    begin_text(context);
    gap_ = is_after_choice_ ? choice_gap : std::max(gap_, choices_gap);
    shape_ = Shape::choice;
    runs_.add_object(mark(*found, index), RunStyle());
  }

  QString mark(const html::Input& found, std::size_t index) {
    if (look_.marks_as_text || result_.fields.size() >= most_fields) {
      if (found.kind == html::InputKind::radio) return found.checked ? u"(\u2022)\t"_s : u"( )\t"_s;
      return found.checked ? u"[x]\t"_s : u"[ ]\t"_s;
    }
    return placeholder(index, QSize(look_.hang, look_.mark_height)) + u'>';
  }

  QString text_field(const html::Input& found, std::size_t index) {
    const int characters =
        std::clamp(found.size > 0 ? found.size : default_input_size, 1, largest_input_size);
    if (look_.marks_as_text || result_.fields.size() >= most_fields) {
      QString typed = qt_text(found.value).left(1'000);
      const auto gap = std::min<qsizetype>(characters - typed.size(), longest_blank);
      if (gap > 0) typed.append(QString(gap, u'\u00a0'));
      characters_ -= static_cast<int>(typed.size());
      QString escaped;
      append_escaped(escaped, typed);
      return "<u>"_L1 + escaped + "</u> "_L1;
    }
    const QSize size(characters * look_.character_width + look_.field_extra, look_.field_height);
    return placeholder(index, size) + " style=\"vertical-align:middle\">"_L1;
  }

  QString placeholder(std::size_t index, QSize size) {
    result_.fields.push_back({index, size});
    return image_tag("input:"_L1 + QString::number(result_.fields.size() - 1),
                     fitted_field(size, look_.column));
  }

  // A choice keeps its breaks, for it is one thing to click. Elsewhere two breaks or more part
  // paragraphs, and lines such as "A.) text" hang.
  void end_block() {
    runs_.trim_end();
    if (runs_.empty()) {
      reset_block();
      return;
    }
    const std::vector<Run>& runs = runs_.runs();
    if (shape_ == Shape::choice) {
      write_choice();
      is_after_choice_ = true;
      gap_ = choices_gap;
      reset_block();
      return;
    }
    const bool is_quiet = may_be_quiet_ && align_ == Align::centre && saw_input_ && !has_object_ &&
                          std::none_of(runs.begin(), runs.end(), [](const Run& run) {
                            return run.style.bold || run.style.node >= 0;
                          });
    if (shape_ == Shape::paragraph) {
      note_breaks(runs_.trim_start());
    }
    write_paragraphs(is_quiet);
    is_after_choice_ = false;
    gap_ = 0;
    reset_block();
  }

  void reset_block() {
    runs_.clear();
    shape_ = Shape::paragraph;
    has_object_ = false;
  }

  void note_breaks(int count) {
    if (count > 1) gap_ = std::max(gap_, count > 2 ? wide_gap : paragraph_gap);
  }

  void write_paragraphs(bool is_quiet) {
    std::vector<Run>& runs = runs_.runs();
    const auto is_break = [&](std::size_t i) { return runs[i].kind == Run::Kind::line_break; };
    const auto letter_at = [&](std::size_t i) {
      const bool opens = i < runs.size() && runs[i].kind == Run::Kind::text;
      return opens && letter_length(runs[i].text) == 3;
    };
    std::size_t first = 0;
    while (first < runs.size()) {
      const bool has_letter = shape_ == Shape::paragraph && letter_at(first);
      if (has_letter) runs[first].text = with_tab(runs[first].text, 3);
      std::size_t last = first;
      std::size_t next = runs.size();
      int breaks = 0;
      for (; last < runs.size(); ++last) {
        if (!is_break(last)) continue;
        next = last;
        while (next < runs.size() && is_break(next)) ++next;
        breaks = static_cast<int>(next - last);
        const bool parts = breaks > 1 || has_letter || letter_at(next);
        if (parts && shape_ == Shape::paragraph) break;
        last = next - 1;
        next = runs.size();
      }
      const bool hangs = has_letter || shape_ == Shape::item;
      open_block(hangs ? 1 : 0, is_quiet);
      append_rich_text(html(), runs, first, std::min(last, runs.size()), look_);
      html() += "</div>"_L1;
      gap_ = has_letter ? line_gap : choice_gap;
      note_breaks(breaks);
      first = next;
    }
  }

  static QString with_tab(const QString& text, qsizetype letter) {
    qsizetype rest = letter;
    while (rest < text.size() && (text[rest] == u' ' || text[rest] == u'\u00a0')) ++rest;
    return text.left(letter) + u'\t' + text.mid(rest);
  }

  void write_choice() {
    std::vector<Run>& runs = runs_.runs();
    int hang = 1;
    if (runs.size() > 1 && runs[1].kind == Run::Kind::text) {
      QString& opening = runs[1].text;
      while (opening.startsWith(u' ')) opening.remove(0, 1);
      const qsizetype letter = letter_length(opening);
      if (letter > 0) {
        opening = with_tab(opening, letter);
        hang = 2;
      }
    }
    open_block(hang, false);
    append_rich_text(html(), runs, 0, runs.size(), look_);
    html() += "</div>"_L1;
  }

  /// `hang` columns stand in front of the text, the first line reaching into them.
  void open_block(int hang, bool is_quiet) {
    if (blocks_-- <= 0) characters_ = 0;
    const int left = (indent_ + hang - (shape_ == Shape::item ? 1 : 0)) * look_.hang;
    html() += "<div"_L1;
    if (align_ != Align::left) {
      html() += align_ == Align::centre ? " align=\"center\""_L1 : " align=\"right\""_L1;
    }
    html() += " style=\"line-height:"_L1 + QString::number(line_height_percent) + u'%';
    if (!is_first_ && gap_ > 0)
      html() += ";margin-top:"_L1 + QString::number(pixels(gap_)) + "px"_L1;
    if (left > 0) html() += ";margin-left:"_L1 + QString::number(left) + "px"_L1;
    if (hang > 0) html() += ";text-indent:-"_L1 + QString::number(hang * look_.hang) + "px"_L1;
    if (is_quiet) html() += ";color:"_L1 + look_.quiet_colour;
    html() += "\">"_L1;
    is_first_ = false;
  }

  html::Document& document_;
  const Look& look_;
  RichText result_;

  Runs runs_;
  Shape shape_ = Shape::paragraph;
  Align align_ = Align::left;
  bool may_be_quiet_ = false;
  bool has_object_ = false;
  int indent_ = 0;

  /// Room before the next block, pixels at 96 dots an inch.
  int gap_ = 0;
  bool is_first_ = true;
  bool saw_input_ = false;
  bool is_after_choice_ = false;
  std::size_t next_input_ = 0;
  std::size_t cells_ = most_cells;
  int characters_ = most_characters;
  int blocks_ = most_blocks;
};

}  // namespace

RichText rich_text(html::Document& document, const Look& look) {
  return Writer(document, look).write();
}

QSize fitted_picture(QSize size, int column) {
  if (size.width() <= column) return size;
  return {column, std::max(1, static_cast<int>(qint64{size.height()} * column / size.width()))};
}

QSize fitted_field(QSize size, int column) {
  return {std::min(size.width(), column), size.height()};
}

QString qt_text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace practice::desktop
