#include "book_setting/front_pages.h"

#include <QPainter>
#include <QPen>
#include <iterator>
#include <utility>

#include "book_setting/block_setter.h"
#include "book_setting/design.h"
#include "book_setting/lines.h"
#include "book_setting/typography.h"

namespace practice::books {
namespace {

constexpr double numeral_width = 180;
constexpr double page_number_width = 240;
constexpr double leader_step = 44;
constexpr double leader_dot = 9;

const TextStyle book_title{.face = Face::sans, .size = 420, .leading = 480, .bold = true};
const TextStyle book_subtitle{
    .face = Face::sans, .size = 220, .leading = 280, .ink = design::accent};
const TextStyle edition_line{.face = Face::sans, .size = 105, .leading = 140, .ink = design::quiet};
const TextStyle publisher_line{.face = Face::sans, .size = 120, .leading = 150, .bold = true};
const TextStyle imprint_text{.size = 95, .leading = 125, .code_size = 80};

SetText plain_lines(const std::string& text, const TextStyle& style, double width,
                    Setting setting = Setting::left) {
  return set_lines({{.text = polished(text)}}, style, width, setting);
}

void draw_lines(QPainter& painter, const SetText& text, double left, double top) {
  for (const SetLine& line : text.lines) {
    draw_line(painter, line, left, top);
    top += line.leading;
  }
}

double height_of(const SetText& text) {
  double height = 0;
  for (const SetLine& line : text.lines) height += line.leading;
  return height;
}

// A whole page of its own, drawn at fixed places.
Slices whole_page(Drawing draw) {
  return {{.height = design::text_height, .draw = std::move(draw)}};
}

// Dots on a grid of the page, so that those of all lines stand below each other.
void draw_leader(QPainter& painter, double from, double to, double baseline) {
  painter.save();
  painter.setPen(Qt::NoPen);
  painter.setBrush(design::quiet);
  const double steps = static_cast<double>(static_cast<int>(from / leader_step) + 1);
  for (double x = steps * leader_step; x < to; x += leader_step) {
    painter.drawEllipse(QPointF(x, baseline - leader_dot / 2), leader_dot / 2, leader_dot / 2);
  }
  painter.restore();
}

// Lines of one entry; its page number stands behind the last one.
Slices entry(const Place& place, double indent, const TextStyle& style, double space) {
  const SetText heading =
      plain_lines(place.heading, style, design::text_width - indent - page_number_width);
  const SetText number =
      plain_lines(std::to_string(place.page), style, page_number_width, Setting::right);
  Slices slices = slices_of(heading, indent, space);
  Slice& last = slices.back();
  const bool leader = place.chapter == 0;
  last.draw = [draw = last.draw, heading = heading.lines.back(), number = number.lines.front(),
               indent, leader](QPainter& painter, double left, double top) {
    draw(painter, left, top);
    const double number_left = left + design::text_width - page_number_width;
    draw_line(painter, number, number_left, top);
    if (!leader) return;
    draw_leader(painter, left + indent + heading.width + 25, number_left + number.x - 30,
                top + heading.baseline);
  };
  return slices;
}

}  // namespace

Slices title_page(const BookHead& head) {
  return whole_page([head](QPainter& painter, double left, double top) {
    const double width = design::text_width;
    const SetText title = plain_lines(head.title, book_title, width);
    const SetText subtitle = plain_lines(head.subtitle, book_subtitle, width);
    double y = top + 900;
    painter.fillRect(QRectF(left, y, 900, 28), design::accent);
    y += 200;
    draw_lines(painter, title, left, y);
    y += height_of(title) + 60;
    draw_lines(painter, subtitle, left, y);
    y += height_of(subtitle) + 160;
    draw_lines(painter, plain_lines(head.edition, edition_line, width), left, y);
    const SetText publisher = plain_lines(head.publisher, publisher_line, width);
    draw_lines(painter, publisher, left, top + design::text_height - height_of(publisher));
  });
}

Slices imprint_page(const BookHead& head) {
  std::vector<SetText> texts{
      set_lines({{.text = polished(head.title + ": " + head.subtitle), .bold = true}}, imprint_text,
                design::text_width, Setting::left),
      plain_lines(head.edition, imprint_text, design::text_width),
      plain_lines(head.publisher, imprint_text, design::text_width)};
  const std::size_t names = texts.size();
  for (const Paragraph& paragraph : head.imprint) {
    Spans spans = paragraph.spans;
    polish(spans);
    texts.push_back(set_lines(spans, imprint_text, 0.85 * design::text_width, Setting::left));
  }
  return whole_page([texts = std::move(texts), names](QPainter& painter, double left, double top) {
    double height = 0;
    const auto gap_above = [names](std::size_t i) { return i < names ? 0.0 : 80.0; };
    for (std::size_t i = 0; i < texts.size(); ++i) height += gap_above(i) + height_of(texts[i]);
    double y = top + design::text_height - height;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      draw_lines(painter, texts[i], left, y + gap_above(i));
      y += gap_above(i) + height_of(texts[i]);
    }
  });
}

Slices contents(const Places& places) {
  Slices slices;
  const SetText title = plain_lines("Contents", styles::chapter_title, design::text_width);
  slices.push_back({.height = height_of(title) + 260,
                    .draw = [title](QPainter& painter, double left, double top) {
                      draw_lines(painter, title, left, top);
                    }});
  int sections = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const Place& place = places[i];
    const bool chapter = place.chapter > 0;
    Slices lines =
        entry(place, numeral_width, chapter ? styles::contents_chapter : styles::contents_section,
              chapter ? 115 : 0);
    if (chapter) {
      const SetText numeral =
          plain_lines(std::to_string(place.chapter), styles::contents_chapter, numeral_width);
      Slice& first = lines.front();
      first.draw = [draw = first.draw, numeral](QPainter& painter, double left, double top) {
        draw_lines(painter, numeral, left, top);
        draw(painter, left, top);
      };
    }
    // No page ends with a chapter and one of its sections, or begins with its last one.
    sections = chapter ? 0 : sections + 1;
    const bool ends = i + 1 == places.size() || places[i + 1].chapter > 0;
    if (!chapter && (sections < 3 || ends)) lines.front().before = Break::never;
    std::ranges::move(lines, std::back_inserter(slices));
  }
  return slices;
}

}  // namespace practice::books
