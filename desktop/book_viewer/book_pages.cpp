#include "book_pages.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPdfDocument>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace practice::desktop {
namespace {

constexpr double points_in_an_inch = 72;
// What is read stands a little above the middle.
constexpr double reading_height = 0.4;
constexpr double found_height = 0.33;
constexpr int lines_in_a_step = 3;
constexpr qsizetype bytes_of_pictures = 24 << 20;

const QColor hit_colour(255, 240, 150);
const QColor current_hit_colour(255, 165, 0);

}  // namespace

BookPages::BookPages(QPdfDocument& document) : document_(document) {
  setFocusPolicy(Qt::StrongFocus);
  // Every pixel is painted.
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  // A bar that comes and goes would change the width that pages are fitted into.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void BookPages::reload() {
  sizes_.clear();
  pictures_.clear();
  page_ = 0;
  for (int page = 0; page < document_.pageCount(); ++page) {
    sizes_.push_back(document_.pagePointSize(page));
  }
  lay_out();
  go_to_page(0);
}

void BookPages::set_page_layout(PageLayout layout) {
  layout_ = layout;
  lay_out();
  go_to_page(page_);
}

double BookPages::scale() const { return logicalDpiX() / points_in_an_inch * zoom_ / 100; }

int BookPages::margin() const { return fontMetrics().height() / 2; }

QSize BookPages::size_of(int page) const {
  const QSizeF size = sizes_[static_cast<std::size_t>(page)] * scale();
  return size.toSize().expandedTo(QSize(1, 1));
}

void BookPages::lay_out() {
  tops_.clear();
  widest_ = 0;
  int bottom = margin();
  for (int page = 0; page < page_count(); ++page) {
    const QSize size = size_of(page);
    const bool is_alone = layout_ == PageLayout::single_page;
    tops_.push_back(is_alone ? margin() : bottom);
    widest_ = std::max(widest_, size.width());
    if (!is_alone) bottom += size.height() + margin();
  }
  if (layout_ == PageLayout::single_page && page_count() > 0) {
    bottom += size_of(page_).height() + margin();
  }

  const bool was_going = std::exchange(is_going_, true);
  QScrollBar& across = *horizontalScrollBar();
  const double middle =
      (across.value() + across.pageStep() / 2.0) / (across.maximum() + across.pageStep());
  const QSize room = viewport()->size();
  const int step = fontMetrics().lineSpacing() * lines_in_a_step;
  verticalScrollBar()->setRange(0, std::max(0, bottom - room.height()));
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setSingleStep(step);
  const int wide = widest_ + 2 * margin();
  across.setRange(0, std::max(0, wide - room.width()));
  across.setPageStep(room.width());
  across.setSingleStep(step);
  // Lines of text stand in the middle of a page that is wider than the window.
  across.setValue(qRound(middle * std::max(wide, room.width()) - room.width() / 2.0));
  is_going_ = was_going;
  viewport()->update();
}

QRect BookPages::rect_of(int page) const {
  const QSize size = size_of(page);
  const int wide = std::max(widest_ + 2 * margin(), viewport()->width());
  return {QPoint((wide - size.width()) / 2, tops_[static_cast<std::size_t>(page)]), size};
}

int BookPages::page_at(int y) const {
  if (layout_ == PageLayout::single_page) return page_;
  const auto below = std::ranges::upper_bound(tops_, y);
  return std::max(0, static_cast<int>(below - tops_.begin()) - 1);
}

QPoint BookPages::offset() const {
  return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

BookPlace BookPages::place() const {
  if (sizes_.empty()) return {};
  return {page_, (offset().y() - tops_[static_cast<std::size_t>(page_)]) / scale()};
}

void BookPages::go_to(const BookPlace& place) {
  if (sizes_.empty()) return;
  page_ = std::clamp(place.page, 0, page_count() - 1);
  if (layout_ == PageLayout::single_page) lay_out();
  is_going_ = true;
  verticalScrollBar()->setValue(tops_[static_cast<std::size_t>(page_)] +
                                qRound(place.down * scale()));
  is_going_ = false;
  changed();
}

void BookPages::go_to_page(int page) { go_to({page, -margin() / scale()}); }

void BookPages::show_area(int page, const QRectF& area) {
  if (page < 0 || page >= page_count()) return;
  const QRect room(offset(), viewport()->size());
  const bool is_another_alone = layout_ == PageLayout::single_page && page != page_;
  const QRectF wanted(area.topLeft() * scale() + rect_of(page).topLeft(), area.size() * scale());
  const bool is_in_view = wanted.top() >= room.top() && wanted.bottom() <= room.bottom();
  if (is_in_view && !is_another_alone) {
    page_ = page;
    changed();
  } else {
    go_to({page, area.top() - room.height() * found_height / scale()});
  }
  QScrollBar& across = *horizontalScrollBar();
  if (wanted.left() < room.left() || wanted.right() > room.right()) {
    across.setValue(qRound(wanted.center().x() - room.width() / 2.0));
  }
}

void BookPages::set_zoom(double percent) {
  zoom_ = std::clamp(percent, least_zoom, greatest_zoom);
  pictures_.clear();
}

void BookPages::zoom_to(double percent) {
  const BookPlace before = place();
  fits_width_ = false;
  set_zoom(percent);
  lay_out();
  go_to(before);
}

void BookPages::fit_width() {
  const BookPlace before = place();
  fits_width_ = true;
  if (!sizes_.empty()) {
    const double inches = sizes_[static_cast<std::size_t>(page_)].width() / points_in_an_inch;
    const int room = viewport()->width() - 2 * margin();
    // The last pixel would be lost to rounding.
    set_zoom(std::floor(1000.0 * room / (inches * logicalDpiX())) / 10);
  }
  lay_out();
  go_to(before);
}

int BookPages::whole_width() const {
  return widest_ + 2 * margin() + 2 * frameWidth() +
         style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
}

void BookPages::resizeEvent(QResizeEvent*) {
  const BookPlace before = place();
  if (fits_width_) {
    fit_width();
    return;
  }
  lay_out();
  go_to(before);
}

void BookPages::scrollContentsBy(int, int) {
  viewport()->update();
  if (is_going_ || sizes_.empty()) return;
  const int page = page_at(offset().y() + qRound(viewport()->height() * reading_height));
  if (page == page_) return;
  page_ = page;
  changed();
}

void BookPages::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) {
    QAbstractScrollArea::keyPressEvent(event);
    return;
  }
  const bool is_up = event->modifiers().testFlag(Qt::ShiftModifier);
  QScrollBar& bar = *verticalScrollBar();
  // The last line read stays in view.
  const int screen = bar.pageStep() - bar.singleStep();
  bar.setValue(bar.value() + (is_up ? -screen : screen));
}

void BookPages::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  if (const int turned = event->angleDelta().y(); turned != 0) zoom_wheel(turned > 0 ? 1 : -1);
  event->accept();
}

const QImage& BookPages::picture_of(int page) {
  const auto kept = std::ranges::find(pictures_, page, &Picture::page);
  if (kept != pictures_.end()) {
    pictures_.splice(pictures_.begin(), pictures_, kept);
    return kept->image;
  }
  const double sharpness = devicePixelRatioF();
  QImage image = document_.render(page, (QSizeF(size_of(page)) * sharpness).toSize());
  image.setDevicePixelRatio(sharpness);
  pictures_.push_front({page, std::move(image)});
  return pictures_.front().image;
}

void BookPages::drop_pictures_except(int first, int last) {
  qsizetype bytes = 0;
  std::erase_if(pictures_, [&](const Picture& picture) {
    bytes += picture.image.sizeInBytes();
    return bytes > bytes_of_pictures && (picture.page < first || picture.page > last);
  });
}

void BookPages::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), palette().dark());
  if (sizes_.empty()) return;
  painter.translate(-offset());
  const QRect room(offset(), viewport()->size());
  const int first = page_at(room.top());
  const int last = page_at(room.bottom());
  for (int page = first; page <= last; ++page) {
    const QRect rect = rect_of(page);
    if (!rect.intersects(room)) continue;
    painter.fillRect(rect, Qt::white);
    painter.drawImage(rect.topLeft(), picture_of(page));
    if (!marks_on) continue;
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    for (const BookMark& mark : marks_on(page)) {
      const QRectF area(mark.area.topLeft() * scale() + rect.topLeft(), mark.area.size() * scale());
      painter.fillRect(area, mark.is_current ? current_hit_colour : hit_colour);
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  }
  drop_pictures_except(first, last);
}

}  // namespace practice::desktop
