#include "page_browser.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QButtonGroup>
#include <QCursor>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>
#include <cmath>

#include "page_look.h"
#include "print_page.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// Pixels at 96 dots an inch.
constexpr int row_padding_across = 8;
constexpr int row_padding_down = 4;
constexpr int widget_margin = 2;
constexpr int reveal_margin = 12;

constexpr qint64 most_page_pixels = 12'000'000;

bool is_keyboard_focus(const QWidget& widget) {
  return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

/// N of "input:N"; -1 when the name is another.
int number_behind(QLatin1StringView opening, const QString& name) {
  if (!name.startsWith(opening)) return -1;
  bool is_number = false;
  const int number = QStringView(name).mid(opening.size()).toInt(&is_number);
  return is_number ? number : -1;
}

}  // namespace

PageBrowser::PageBrowser(PageView& owner)
    : QTextBrowser(&owner), owner_(owner), own_font_(font()), radio_group_(new QButtonGroup(this)) {
  radio_group_->setExclusive(false);
  setOpenLinks(false);
  setTextInteractionFlags(Qt::NoTextInteraction);
  setContextMenuPolicy(Qt::NoContextMenu);
  viewport()->setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  viewport()->setAcceptDrops(false);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::TabFocus);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::ArrowCursor);
  setAccessibleName(u"Question page"_s);
}

void PageBrowser::show_page(html::View& view, double scale) {
  view_ = &view;
  revision_ = view.document.revision();
  scale_ = scale;
  is_failure_ = false;
  draw();
}

void PageBrowser::show_failure(html::View& view, double scale) {
  view_ = &view;
  revision_ = view.document.revision();
  scale_ = scale;
  is_failure_ = true;
  draw();
}

void PageBrowser::forget() {
  view_ = nullptr;
  fields_.clear();
  links_.clear();
  text_ = RichText();
  hovered_ = pressed_ = {};
  current_link_ = -1;
}

bool PageBrowser::is_current() const {
  return view_ != nullptr && view_->document.revision() == revision_;
}

void PageBrowser::draw() {
  const QScopedValueRollback drawing(is_drawing_, true);
  const bool had_focus = has_focus_within();
  hovered_ = pressed_ = {};
  current_link_ = -1;
  fields_.clear();
  links_.clear();
  page_pictures_.clear();
  picture_positions_.clear();
  pixels_left_ = most_page_pixels;
  pictures_.set_folder(qt_text(view_->picture_folder));

  const QFont wanted = page_font(view_->document.style(), own_font_);
  if (wanted != font()) setFont(wanted);
  Look look = screen_look();
  look.picture_size = [this](std::string_view source) {
    const QPixmap picture = page_picture(source);
    return picture.isNull() ? failed_picture(source).deviceIndependentSize().toSize()
                            : picture.size() * scale_;
  };
  prepare(*document(), look, scale_);

  if (is_failure_) {
    text_ = RichText();
    text_.html = u"<p>The picture cannot be displayed.</p>"_s;
  } else {
    text_ = rich_text(view_->document, look);
  }
  document()->setHtml(text_.html);
  set_side_margins();
  const std::string& title = view_->document.title();
  const QString name = title.empty() ? u"Question page"_s : qt_text(title).simplified();
  setAccessibleName(name);
  owner_.setAccessibleName(name);

  find_objects();
  fit_objects();
  assign_widgets();
  tint_marks();
  mirror();
  verticalScrollBar()->setValue(0);
  horizontalScrollBar()->setValue(0);
  place();
  // Not before they are in place, or the mouse would seem to enter those that pass under it.
  for (const Field& field : fields_) field.widget->show();
  if (had_focus) focus_first_input();
  const auto hide_rest = [this](const std::vector<QWidget*>& pool) {
    for (QWidget* widget : pool) {
      if (field_of(widget) == nullptr) widget->hide();
    }
  };
  hide_rest(radios_);
  hide_rest(check_boxes_);
  hide_rest(line_edits_);
  viewport()->update();
}

Look PageBrowser::screen_look() const {
  const int indicator = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, this);
  Look look = look_of(font(), scale_, indicator, colours_of(palette()));
  look.column = column();
  const QFontMetricsF metrics(font());
  const int frame = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  look.field_extra = frame + static_cast<int>(10 * scale_);
  // The line edit's text stands on the baseline, so the line needs room above and below alike.
  look.field_height =
      static_cast<int>(std::ceil(metrics.height() + metrics.capHeight() + frame + 10 * scale_));
  return look;
}

// Counts on the scroll bar, so that no picture changes its size when the bar comes or goes.
int PageBrowser::column() const {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  const int room = width() - bar - 2 * static_cast<int>(page_margin * scale_);
  const int widest = static_cast<int>(widest_column * QFontMetricsF(font()).height());
  return std::clamp(room, 40, widest);
}

int PageBrowser::side_margin() const {
  const int widest = static_cast<int>(widest_column * QFontMetricsF(font()).height());
  return std::max(static_cast<int>(page_margin * scale_), (viewport()->width() - widest) / 2);
}

void PageBrowser::set_side_margins() {
  QTextFrame* root = document()->rootFrame();
  QTextFrameFormat format = root->frameFormat();
  const int margin = side_margin();
  if (static_cast<int>(format.leftMargin()) == margin) return;
  format.setLeftMargin(margin);
  format.setRightMargin(margin);
  root->setFrameFormat(format);
}

QPixmap PageBrowser::page_picture(std::string_view source) {
  const auto [found, is_new] = page_pictures_.try_emplace(std::string(source));
  if (is_new) {
    const QPixmap picture = pictures_.find(qt_text(source));
    const qint64 pixels = qint64{picture.width()} * picture.height();
    if (pixels <= pixels_left_) {
      pixels_left_ -= pixels;
      found->second = picture;
    }
  }
  return found->second;
}

QPixmap PageBrowser::failed_picture(std::string_view source) const {
  QString name = qt_text(source.substr(0, 2'000));
  name = name.mid(std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1).simplified();
  const QFontMetrics metrics(font());
  const int padding = static_cast<int>(10 * scale_);
  name = metrics.elidedText(name, Qt::ElideMiddle, static_cast<int>(300 * scale_));
  const QRect frame(0, 0, metrics.horizontalAdvance(name) + 2 * padding,
                    metrics.height() + padding);
  QPixmap box((QSizeF(frame.size()) * devicePixelRatioF()).toSize());
  box.setDevicePixelRatio(devicePixelRatioF());
  box.fill(Qt::transparent);
  QPainter painter(&box);
  const Colours colours = colours_of(palette());
  painter.setPen(colours.rule);
  painter.drawRect(frame.adjusted(0, 0, -1, -1));
  painter.setPen(colours.quiet);
  painter.setFont(font());
  painter.drawText(frame, Qt::AlignCenter, name);
  return box;
}

// Nothing of a page is ever fetched: its pictures were given to the document when it was drawn,
// and placeholders are empty.
QVariant PageBrowser::loadResource(int /*type*/, const QUrl& /*name*/) {
  static const QPixmap nothing = [] {
    QPixmap pixmap(1, 1);
    pixmap.fill(Qt::transparent);
    return pixmap;
  }();
  return nothing;
}

void PageBrowser::find_objects() {
  fields_.resize(text_.fields.size());
  picture_positions_.assign(text_.pictures.size(), -1);
  link_of_node_.assign(text_.links.size(), -1);
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const QTextCharFormat format = fragment.charFormat();
      const int position = fragment.position();
      if (format.isImageFormat()) {
        const QString name = format.toImageFormat().name();
        const auto field = static_cast<std::size_t>(number_behind("input:"_L1, name));
        const auto picture = static_cast<std::size_t>(number_behind("picture:"_L1, name));
        if (field < fields_.size()) {
          fields_[field].input = &view_->document.inputs()[text_.fields[field].input];
          fields_[field].size = text_.fields[field].size;
          fields_[field].position = position;
        } else if (picture < picture_positions_.size()) {
          picture_positions_[picture] = position;
        }
      }
      if (!format.isAnchor()) continue;
      const auto node = static_cast<std::size_t>(number_behind("node:"_L1, format.anchorHref()));
      if (node >= link_of_node_.size()) continue;
      if (link_of_node_[node] < 0) {
        link_of_node_[node] = static_cast<int>(links_.size());
        links_.push_back({text_.links[node], {}});
      }
      auto& ranges = links_[static_cast<std::size_t>(link_of_node_[node])].ranges;
      const bool goes_on = !ranges.empty() && ranges.back().second == position;
      if (!goes_on) ranges.emplace_back(position, position);
      ranges.back().second = position + fragment.length();
    }
  }
  std::erase_if(fields_, [](const Field& field) { return field.position < 0; });
}

void PageBrowser::fit_objects() {
  const int widest = column();
  // One edit, or else each change would lay out the text anew.
  QTextCursor edit(document());
  edit.beginEditBlock();
  for (std::size_t i = 0; i < text_.pictures.size(); ++i) {
    const int position = picture_positions_[i];
    if (position < 0) continue;
    const std::string_view source = text_.pictures[i].source;
    const QSize size = fitted_picture(text_.pictures[i].size, widest);
    const QPixmap picture = page_picture(source);
    const QPixmap drawn = picture.isNull() ? failed_picture(source) : picture;
    const QSize sharp = (QSizeF(size) * devicePixelRatioF()).toSize();
    document()->addResource(QTextDocument::ImageResource, QUrl("picture:"_L1 + QString::number(i)),
                            drawn.size() == sharp ? drawn
                                                  : drawn.scaled(sharp, Qt::IgnoreAspectRatio,
                                                                 Qt::SmoothTransformation));
    set_object_size(position, size);
  }
  for (const Field& field : fields_) {
    if (field.input->kind != html::InputKind::text) continue;
    set_object_size(field.position, fitted_field(field.size, widest));
  }
  edit.endEditBlock();
}

void PageBrowser::set_object_size(int position, QSize size) {
  QTextCursor cursor(document());
  cursor.setPosition(position);
  cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
  QTextImageFormat format = cursor.charFormat().toImageFormat();
  if (QSizeF(format.width(), format.height()) == QSizeF(size)) return;
  format.setWidth(size.width());
  format.setHeight(size.height());
  cursor.setCharFormat(format);
}

PageBrowser::Spot PageBrowser::spot_of(int position) const {
  const QTextBlock block = document()->findBlock(position);
  const QPointF origin = document()->documentLayout()->blockBoundingRect(block).topLeft();
  const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
  if (!line.isValid()) return {origin.x(), origin.y()};
  // A line's own start is known without measuring its text.
  const int offset = position - block.position();
  const bool is_start =
      offset == line.textStart() && block.blockFormat().alignment() == Qt::AlignLeft;
  const double x = is_start ? line.x() : line.cursorToX(offset);
  return {origin.x() + x, origin.y() + line.y() + line.ascent()};
}

QRectF PageBrowser::row_of(int position) const {
  const QTextBlock block = document()->findBlock(position);
  const QPointF origin = document()->documentLayout()->blockBoundingRect(block).topLeft();
  const QTextLayout& layout = *block.layout();
  if (layout.lineCount() == 0) return {};
  const QTextLine first = layout.lineAt(0);
  const QTextLine last = layout.lineAt(layout.lineCount() - 1);
  double right = viewport()->width() - side_margin();
  if (QTextCursor(block).currentTable() != nullptr) {
    right = 0;
    for (int i = 0; i < layout.lineCount(); ++i) {
      right = std::max(right, origin.x() + layout.lineAt(i).naturalTextRect().right());
    }
  }
  const double left = origin.x() + first.x();
  const double top = origin.y() + first.y();
  const double bottom = origin.y() + last.y() + last.ascent() + last.descent();
  const double across = row_padding_across * scale_;
  const double down = row_padding_down * scale_;
  return QRectF(left, top, std::max(1.0, right - left), bottom - top)
      .adjusted(-across, -down, across, down);
}

QPoint PageBrowser::scrolled() const {
  return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void PageBrowser::place() {
  for (Field& field : fields_) place(field);
}

void PageBrowser::place(Field& field) {
  const Spot spot = spot_of(field.position);
  const QFontMetricsF metrics(font());
  const double middle = spot.baseline - metrics.capHeight() / 2;
  const int margin = static_cast<int>(widget_margin * scale_);
  QSize size;
  double left = spot.left;
  if (field.input->kind == html::InputKind::text) {
    size = fitted_field(field.size, column());
    size.setHeight(field.widget->sizeHint().height());
  } else {
    const bool is_radio = field.input->kind == html::InputKind::radio;
    const QStyle::PixelMetric width =
        is_radio ? QStyle::PM_ExclusiveIndicatorWidth : QStyle::PM_IndicatorWidth;
    const QStyle::PixelMetric height =
        is_radio ? QStyle::PM_ExclusiveIndicatorHeight : QStyle::PM_IndicatorHeight;
    size = QSize(style()->pixelMetric(width, nullptr, field.widget) + 2 * margin,
                 style()->pixelMetric(height, nullptr, field.widget) + 2 * margin);
    field.row = row_of(field.position);
  }
  const QPointF corner(left, middle - size.height() / 2.0);
  field.widget->setGeometry(QRect(corner.toPoint() - scrolled(), size));
}

void PageBrowser::reveal(const QRectF& rect) {
  const int margin = static_cast<int>(reveal_margin * scale_);
  QScrollBar* bar = verticalScrollBar();
  const int top = static_cast<int>(rect.top()) - margin;
  const int bottom = static_cast<int>(rect.bottom()) + margin;
  if (bottom > bar->value() + viewport()->height()) bar->setValue(bottom - viewport()->height());
  if (top < bar->value()) bar->setValue(top);
}

std::vector<QRectF> PageBrowser::rects_of(const Link& link) const {
  std::vector<QRectF> rects;
  for (const auto& [from, upto] : link.ranges) {
    const QTextBlock block = document()->findBlock(from);
    const QPointF origin = document()->documentLayout()->blockBoundingRect(block).topLeft();
    const int first = from - block.position();
    const int last = upto - block.position();
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
      const QTextLine line = block.layout()->lineAt(i);
      const int start = std::max(first, line.textStart());
      const int end = std::min(last, line.textStart() + line.textLength());
      if (start >= end) continue;
      const double left = line.cursorToX(start);
      const double right = line.cursorToX(end);
      rects.emplace_back(origin.x() + std::min(left, right), origin.y() + line.y(),
                         std::abs(right - left), line.ascent() + line.descent());
    }
  }
  return rects;
}

void PageBrowser::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-scrolled());
    const double radius = 4 * scale_;
    const Colours colours = colours_of(palette());
    if (hovered_.field >= 0 && static_cast<std::size_t>(hovered_.field) < fields_.size()) {
      QColor tint = colours.link;
      tint.setAlphaF(0.07F);
      painter.setPen(Qt::NoPen);
      painter.setBrush(tint);
      painter.drawRoundedRect(fields_[static_cast<std::size_t>(hovered_.field)].row, radius,
                              radius);
    }
    QColor ring = colours.link;
    ring.setAlphaF(0.6F);
    painter.setPen(QPen(ring, scale_));
    painter.setBrush(Qt::NoBrush);
    const double half = scale_ / 2;
    const Field* field = focused_field();
    if (field != nullptr && is_keyboard_focus(*field->widget)) {
      painter.drawRoundedRect(field->row.adjusted(half, half, -half, -half), radius, radius);
    }
    if (current_link_ >= 0 && hasFocus()) {
      const double room = 2 * scale_;
      for (const QRectF& rect : rects_of(links_[static_cast<std::size_t>(current_link_)])) {
        painter.drawRoundedRect(rect.adjusted(-room, -half, room, half), radius / 2, radius / 2);
      }
    }
  }
  QTextBrowser::paintEvent(event);
}

void PageBrowser::resizeEvent(QResizeEvent* event) {
  if (!is_drawing_) set_side_margins();
  QTextBrowser::resizeEvent(event);
  if (is_drawing_ || !is_current()) return;
  fit_objects();
  place();
}

void PageBrowser::scrollContentsBy(int dx, int dy) {
  QTextBrowser::scrollContentsBy(dx, dy);
  if (is_drawing_ || !is_current()) return;
  place();
  if (viewport()->underMouse()) set_hovered(target_at(viewport()->mapFromGlobal(QCursor::pos())));
}

void PageBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  const bool matters =
      event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
  if (!matters || is_drawing_ || !is_current()) return;
  const int scrolled_to = verticalScrollBar()->value();
  draw();
  verticalScrollBar()->setValue(scrolled_to);
}

void PageBrowser::print_on(QPrinter& printer) {
  if (is_failure_ || !is_current()) {
    document()->print(&printer);
  } else {
    print_page(
        *view_, [this](std::string_view source) { return page_picture(source); }, own_font_, scale_,
        printer);
  }
}

}  // namespace practice::desktop
