#include "book_setting/block_setter.h"

#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "bank_compiler/text_form.h"
#include "book_setting/design.h"
#include "book_setting/figure_picture.h"
#include "book_setting/table_setter.h"
#include "book_setting/typography.h"

namespace practice::books {
namespace {

using compiler::in_quotes;

constexpr double opener_sink = 330;
constexpr double title_gap = 50;
constexpr double opener_rule_gap = 120;
constexpr double opener_rule = 12;
constexpr double opener_rule_width = 520;
constexpr double below_opener = 250;
constexpr double caption_gap = 70;
constexpr double most_figure_height = 0.55 * design::text_height;
// Lines of a listing that stay together at its edges.
constexpr std::size_t listing_edge = 4;

Drawing drawing_of(SetLine line, double indent) {
  return [line = std::move(line), indent](QPainter& painter, double left, double top) {
    draw_line(painter, line, left + indent, top);
  };
}

class ChapterSetter {
 public:
  ChapterSetter(const Chapter& chapter, int number, int first_mark,
                const std::string& figure_folder, const compiler::Reporter& report)
      : chapter_(chapter),
        number_(number),
        mark_(first_mark),
        figure_folder_(figure_folder),
        report_(report) {}

  Slices set() {
    set_opener();
    for (const Block& block : chapter_.blocks) {
      std::visit([this](const auto& one) { set_block(one); }, block);
    }
    keep_headings();
    return std::move(slices_);
  }

 private:
  SetText set_text(const Paragraph& paragraph, const TextStyle& style, double width,
                   Setting setting) {
    Spans spans = paragraph.spans;
    polish(spans);
    SetText text = set_lines(spans, style, width, setting);
    check_width(text, paragraph.line);
    return text;
  }

  SetText set_heading(const std::string& heading, int line, const TextStyle& style) {
    SetText text =
        set_lines({{.text = polished(heading)}}, style, design::text_width, Setting::left);
    check_width(text, line);
    return text;
  }

  void check_width(const SetText& text, int line) const {
    if (text.too_wide.isEmpty()) return;
    report_(line, "a word fits the width of its line", in_quotes(text.too_wide.toStdString()));
  }

  // The space that the block before wants below itself counts as well.
  double space_above(double wanted) { return std::max(wanted, std::exchange(space_below_, 0)); }

  void append(Slices slices) {
    if (slices.empty()) return;
    // What a text announces by a colon stands below it.
    if (announced_) slices.front().before = Break::in_group;
    announced_ = false;
    std::ranges::move(slices, std::back_inserter(slices_));
  }

  void set_opener() {
    const SetText label = set_lines({{.text = "CHAPTER " + std::to_string(number_)}},
                                    styles::chapter_label, design::text_width, Setting::left);
    SetText title = set_heading(chapter_.title, chapter_.title_line, styles::chapter_title);
    const double title_top = opener_sink + styles::chapter_label.leading + title_gap;
    const double rule_top = title_top + opener_rule_gap +
                            static_cast<double>(title.lines.size()) * styles::chapter_title.leading;
    slices_.push_back({.height = rule_top + opener_rule + below_opener,
                       .mark = mark_++,
                       .draw = [label = label.lines.front(), title = std::move(title), title_top,
                                rule_top](QPainter& painter, double left, double top) {
                         draw_line(painter, label, left, top + opener_sink);
                         double y = top + title_top;
                         for (const SetLine& line : title.lines) {
                           draw_line(painter, line, left, y);
                           y += line.leading;
                         }
                         painter.fillRect(
                             QRectF(left, top + rule_top, opener_rule_width, opener_rule),
                             design::accent);
                       }});
    headings_.push_back(0);
  }

  void set_block(const SectionHeading& heading) {
    Slices lines = slices_of(set_heading(heading.text, heading.line, styles::section), 0,
                             space_above(design::section_space));
    for (std::size_t i = 1; i < lines.size(); ++i) lines[i].before = Break::never;
    lines.front().mark = mark_++;
    announced_ = false;
    append(std::move(lines));
    headings_.push_back(slices_.size() - 1);
  }

  void set_block(const Paragraph& paragraph) {
    append(slices_of(set_text(paragraph, styles::body, design::text_width, Setting::justified), 0,
                     space_above(design::paragraph_space)));
    announced_ = !paragraph.spans.empty() && paragraph.spans.back().text.ends_with(':');
  }

  void set_block(const List& list) { append(list_slices(list, 0, design::paragraph_space)); }

  Slices list_slices(const List& list, double indent, double first_space) {
    Slices slices;
    const double text_indent = indent + design::list_indent;
    int number = list.first_number;
    for (const ListItem& item : list.items) {
      const double space = slices.empty() ? space_above(first_space) : design::item_space;
      Slices lines = slices_of(
          set_text(item.text, styles::body, design::text_width - text_indent, Setting::justified),
          text_indent, space);
      if (lines.empty()) continue;
      add_marker(lines.front(), list.numbered ? std::to_string(number) + "." : "\u2022", indent);
      ++number;
      if (!slices.empty()) lines.front().before = Break::in_paragraph;
      std::ranges::move(lines, std::back_inserter(slices));
      for (const List& nested : item.nested) {
        Slices inner = list_slices(nested, text_indent, design::item_space);
        if (!inner.empty()) inner.front().before = Break::in_paragraph;
        std::ranges::move(inner, std::back_inserter(slices));
      }
    }
    return slices;
  }

  // To the left of the text, with a gap of half an em.
  static void add_marker(Slice& line, const std::string& marker, double indent) {
    const SetText text =
        set_lines({{.text = marker}}, styles::body, design::list_indent - 55, Setting::right);
    line.draw = [text = line.draw, marker = drawing_of(text.lines.front(), indent)](
                    QPainter& painter, double left, double top) {
      marker(painter, left, top);
      text(painter, left, top);
    };
  }

  void set_block(const Listing& listing) {
    ++ground_;
    Slices lines;
    for (const std::string& line : listing.lines) {
      const SetText text = set_lines({{.text = line, .code = true}}, styles::listing,
                                     design::text_width, Setting::left);
      Slice slice{.height = styles::listing.leading, .ground = ground_};
      if (!text.lines.empty()) slice.draw = drawing_of(text.lines.front(), 0);
      lines.push_back(std::move(slice));
    }
    for (std::size_t i = 1; i < lines.size(); ++i) {
      const bool edge = i < listing_edge || i + listing_edge > lines.size();
      lines[i].before = edge ? Break::never : Break::in_group;
    }
    const double space = design::block_space + design::ground_padding;
    // Text has some air of its own; a rule or another ground has none.
    const double air = space_below_ > 0 ? design::ground_padding : 0;
    if (!lines.empty()) lines.front().space = space_above(space + air);
    append(std::move(lines));
    space_below_ = space;
  }

  void set_block(const Table& table) {
    Slices rows = set_table(table, report_);
    if (!rows.empty()) rows.front().space = space_above(design::block_space);
    append(std::move(rows));
    space_below_ = design::block_space + 30;
  }

  void set_block(const Figure& figure) {
    const QString file = QString::fromStdString(figure_folder_ + "/" + figure.file);
    // One fault is enough for a figure that is not there.
    if (!QFileInfo::exists(file)) return;
    const auto picture = std::make_shared<const FigurePicture>(file);
    const QSizeF size = picture->size();
    if (size.isEmpty()) {
      report_(figure.caption.line, "a figure is an SVG picture with plain texts",
              in_quotes(figure.file));
      return;
    }
    const QSizeF drawn =
        size * std::min(design::text_width / size.width(), most_figure_height / size.height());
    Paragraph caption = figure.caption;
    caption.spans.insert(caption.spans.begin(), {.text = "Figure " + std::to_string(number_) + "." +
                                                         std::to_string(++figures_) + "\u2002",
                                                 .bold = true});
    SetText text = set_text(caption, styles::caption, 0.9 * design::text_width, Setting::centred);
    const double height = drawn.height() + caption_gap +
                          static_cast<double>(text.lines.size()) * styles::caption.leading;
    append({{.height = height,
             .space = design::figure_space,
             .floats = true,
             .draw = [picture, drawn, text = std::move(text)](QPainter& painter, double left,
                                                              double top) {
               const QPointF corner(left + (design::text_width - drawn.width()) / 2, top);
               picture->draw(painter, QRectF(corner, drawn));
               double y = top + drawn.height() + caption_gap;
               for (const SetLine& line : text.lines) {
                 draw_line(painter, line, left + 0.05 * design::text_width, y);
                 y += line.leading;
               }
             }}});
  }

  // No page ends with a heading or with one line behind it.
  void keep_headings() {
    for (const std::size_t heading : headings_) {
      int kept = 0;
      for (std::size_t i = heading + 1; i < slices_.size() && kept < 2; ++i) {
        if (slices_[i].floats) continue;
        slices_[i].before = Break::never;
        ++kept;
      }
    }
  }

  const Chapter& chapter_;
  int number_;
  int mark_;
  const std::string& figure_folder_;
  const compiler::Reporter& report_;
  Slices slices_{};
  // Indices of the last lines of headings.
  std::vector<std::size_t> headings_{};
  double space_below_ = 0;
  bool announced_ = false;
  int ground_ = 0;
  int figures_ = 0;
};

}  // namespace

Slices slices_of(const SetText& text, double indent, double space) {
  Slices slices;
  const std::size_t count = text.lines.size();
  for (std::size_t i = 0; i < count; ++i) {
    const bool edge = i == 1 || i + 1 == count;
    slices.push_back({.height = text.lines[i].leading,
                      .space = i == 0 ? space : 0,
                      .before = i == 0 ? Break::free
                                : edge ? Break::never
                                       : Break::in_paragraph,
                      .draw = drawing_of(text.lines[i], indent)});
  }
  return slices;
}

Slices set_chapter(const Chapter& chapter, int number, int first_mark,
                   const std::string& figure_folder, const compiler::Reporter& report) {
  return ChapterSetter(chapter, number, first_mark, figure_folder, report).set();
}

}  // namespace practice::books
