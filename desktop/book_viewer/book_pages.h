// The pages of a book under each other, or one at a time, in a scroll area.
//
// Qt's own view of a PDF keeps twenty pages as pictures whatever their size, which is 700 MB at
// 300 %; it loses its place at each change of size and can mark nothing. This one draws what is
// seen and keeps a few megabytes besides.
//
// Call reload() after the document has been loaded or closed. Places are kept at every change of
// size, of the window as of the pages.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <functional>
#include <list>
#include <vector>

#include "book_place.h"
#include "viewer_page.h"

class QPdfDocument;

namespace practice::desktop {

/// What is marked on a page, in points from its upper left corner.
struct BookMark {
  QRectF area;
  bool is_current = false;
};

class BookPages : public QAbstractScrollArea {
 public:
  static constexpr double least_zoom = 25;
  static constexpr double greatest_zoom = 300;

  explicit BookPages(QPdfDocument& document);

  void reload();
  void set_page_layout(PageLayout layout);

  int page_count() const { return static_cast<int>(sizes_.size()); }
  /// The page that is read, from 0: the one last gone to, or found a little above the middle of
  /// the window after scrolling.
  int page() const { return page_; }
  /// The upper edge of the window, told from page().
  BookPlace place() const;
  void go_to(const BookPlace& place);
  /// The nearest page of the book, with its upper edge at the window's.
  void go_to_page(int page);
  /// Scrolls only if the area is not in view.
  void show_area(int page, const QRectF& area);

  /// In percent, kept between the least and the greatest.
  double zoom() const { return zoom_; }
  void zoom_to(double percent);
  /// The page that is read fills the window's width, until the next zoom_to().
  void fit_width();
  bool fits_width() const { return fits_width_; }

  /// The size of a window that shows the widest page whole at this zoom, with the scroll bar.
  int whole_width() const;

  /// Another page is read, or the zoom is another.
  std::function<void()> changed = [] {};
  /// What is marked on a page.
  std::function<std::vector<BookMark>(int page)> marks_on;
  /// The student turns the wheel with Ctrl; positive away from the student.
  std::function<void(int steps)> zoom_wheel = [](int) {};

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  struct Picture {
    int page;
    QImage image;
  };

  /// Pixels in a point.
  double scale() const;
  QSize size_of(int page) const;
  int margin() const;
  /// Where a page stands in the area that is scrolled.
  QRect rect_of(int page) const;
  int page_at(int y) const;
  /// What is drawn at the scroll bars' places.
  QPoint offset() const;

  void set_zoom(double percent);
  void lay_out();
  const QImage& picture_of(int page);
  void drop_pictures_except(int first, int last);

  QPdfDocument& document_;
  /// In points.
  std::vector<QSizeF> sizes_;
  PageLayout layout_ = PageLayout::one_column;
  double zoom_ = 100;
  bool fits_width_ = false;
  int page_ = 0;

  /// The upper edges of the pages.
  std::vector<int> tops_;
  int widest_ = 0;
  /// True while a place is gone to, so that scrolling does not name another page.
  bool is_going_ = false;
  /// The last one used first.
  std::list<Picture> pictures_;
};

}  // namespace practice::desktop
