#include "rich_text_runs.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// Breaking a word over many lines takes time by the square of its length.
constexpr int longest_word = 200;
constexpr char16_t zero_width_space = 0x200b;

bool is_html_blank(QChar c) {
  return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f';
}

// Qt's rich text keeps its own structure in characters such as these.
bool is_structural(QChar c) {
  const char16_t code = c.unicode();
  return code < 0x20 || code == 0x7f || code == 0x2028 || code == 0x2029 ||
         (code >= 0xfdd0 && code <= 0xfdef) || code >= 0xfff9;
}

void append_styled(QString& html, const Run& run, const Look& look) {
  const RunStyle& style = run.style;
  if (style.node >= 0) {
    html += "<a href=\"node:"_L1 + QString::number(style.node) + "\" style=\"color:"_L1 +
            (style.link ? look.link_colour + "\">"_L1
                        : look.text_colour + ";text-decoration:none\">"_L1);
  }
  const bool is_resized = style.size != 0 || style.typewriter;
  if (is_resized) {
    // Fonts of one width look larger than others of their size.
    const double points =
        look.font_points * std::pow(1.2, style.size) * (style.typewriter ? 0.86 : 1);
    html += "<span style=\"font-size:"_L1 + QString::number(points, 'f', 1) + "pt\">"_L1;
  }
  if (style.bold) html += "<b>"_L1;
  if (style.italic) html += "<i>"_L1;
  if (style.underlined) html += "<u>"_L1;
  if (style.struck) html += "<s>"_L1;
  if (style.typewriter) html += "<tt>"_L1;
  if (style.script > 0) html += "<sup>"_L1;
  if (style.script < 0) html += "<sub>"_L1;
  if (run.kind == Run::Kind::object) {
    html += run.text;
  } else {
    append_escaped(html, run.text);
  }
  if (style.script < 0) html += "</sub>"_L1;
  if (style.script > 0) html += "</sup>"_L1;
  if (style.typewriter) html += "</tt>"_L1;
  if (style.struck) html += "</s>"_L1;
  if (style.underlined) html += "</u>"_L1;
  if (style.italic) html += "</i>"_L1;
  if (style.bold) html += "</b>"_L1;
  if (is_resized) html += "</span>"_L1;
  if (style.node >= 0) html += "</a>"_L1;
}

}  // namespace

int Runs::add_text(QStringView text, const RunStyle& style, bool keeps_blanks, int room) {
  int taken = 0;
  int word = 0;
  QString* open = nullptr;
  const auto append = [&](QChar c) {
    if (open == nullptr) {
      const bool joins =
          !runs_.empty() && runs_.back().kind == Run::Kind::text && runs_.back().style == style;
      if (!joins) runs_.push_back({Run::Kind::text, QString(), style});
      open = &runs_.back().text;
    }
    word = c.isSpace() ? 0 : word + 1;
    if (word % longest_word == 0 && word > 0 && !c.isLowSurrogate()) open->append(zero_width_space);
    open->append(c);
    ++taken;
  };
  for (const QChar c : text) {
    if (taken >= room) break;
    if (keeps_blanks && c == u'\n') {
      add_break();
      open = nullptr;
      ++taken;
    } else if (keeps_blanks && is_html_blank(c)) {
      if (c != u'\r') append(u' ');
    } else if (is_html_blank(c) || is_structural(c)) {
      blank_pending_ = true;
      word = 0;
    } else {
      if (blank_pending_ && !line_empty_) {
        // No link, underlined text or code should begin or end with a blank.
        const Run& last = runs_.back();
        const bool is_bare = last.style.node < 0 && !last.style.underlined && !last.style.struck &&
                             !last.style.typewriter;
        if (last.kind == Run::Kind::text && is_bare) {
          runs_.back().text.append(u' ');
        } else {
          append(u' ');
        }
      }
      blank_pending_ = false;
      line_empty_ = false;
      append(c);
    }
  }
  return taken;
}

void Runs::add_object(QString rich_text, const RunStyle& style) {
  if (blank_pending_ && !line_empty_) runs_.push_back({Run::Kind::text, u" "_s, style});
  blank_pending_ = false;
  line_empty_ = false;
  runs_.push_back({Run::Kind::object, std::move(rich_text), style});
}

void Runs::add_break() {
  runs_.push_back({Run::Kind::line_break, QString(), RunStyle()});
  blank_pending_ = false;
  line_empty_ = true;
}

void Runs::trim_end() {
  while (!runs_.empty() && runs_.back().kind == Run::Kind::line_break) runs_.pop_back();
  blank_pending_ = false;
}

int Runs::trim_start() {
  const auto first = std::find_if(runs_.begin(), runs_.end(),
                                  [](const Run& run) { return run.kind != Run::Kind::line_break; });
  const auto count = static_cast<int>(first - runs_.begin());
  runs_.erase(runs_.begin(), first);
  return count;
}

void Runs::clear() {
  runs_.clear();
  blank_pending_ = false;
  line_empty_ = true;
}

void append_rich_text(QString& html, const std::vector<Run>& runs, std::size_t first,
                      std::size_t last, const Look& look) {
  for (std::size_t i = first; i < last; ++i) {
    if (runs[i].kind == Run::Kind::line_break) {
      html += "<br>"_L1;
    } else {
      append_styled(html, runs[i], look);
    }
  }
}

void append_escaped(QString& html, QStringView text) {
  for (const QChar c : text) {
    if (c == u'<') {
      html += "&lt;"_L1;
    } else if (c == u'>') {
      html += "&gt;"_L1;
    } else if (c == u'&') {
      html += "&amp;"_L1;
    } else {
      html += c;
    }
  }
}

qsizetype letter_length(QStringView line) {
  if (line.size() < 3 || !line[0].isUpper() || line[1] != u'.') return 0;
  const qsizetype length = line[2] == u')' ? 3 : 2;
  return line.size() > length && (line[length] == u' ' || line[length] == u'\t') ? length : 0;
}

}  // namespace practice::desktop
