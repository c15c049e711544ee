// An exam's book in a window: its pages, its bookmarks as a tree beside them, a search.
//
// Call open() once, then show(). Later starts for the same book come in through turn_to().
#pragma once

#include <QMainWindow>
#include <QPdfDocument>
#include <QString>
#include <functional>
#include <vector>

#include "book_contents.h"
#include "book_place.h"
#include "book_search.h"
#include "viewer_page.h"

class QAction;
class QLabel;
class QLineEdit;
class QStackedWidget;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace practice::desktop {

class BookPages;
struct BookMark;

class BookWindow : public QMainWindow {
 public:
  /// The bookmarks are read by the book_viewer of that path.
  explicit BookWindow(const QString& reader);

  /// Shows the book. When that can not be, the window tells why, and this returns false.
  bool open(const BookRequest& request);
  /// Goes to a page, counted from 1, and comes to the front.
  void turn_to(int page);

 private:
  void make_tools();
  void make_panes();
  QWidget* make_search_bar();

  /// Why the book can not be shown, for the student; empty when it was loaded.
  QString load(const QString& book);
  void show_fault(const QString& fault);
  /// Sizes the window for the book, with room for the contents where the screen has it.
  void fit_to_book();
  void fill_contents(const std::vector<Bookmark>& bookmarks);

  /// Goes to a place as a step of Back and Forward.
  void jump(const std::function<void()>& go);
  void back_or_forward(std::vector<BookPlace>& from, std::vector<BookPlace>& to);
  void go_to_number_in_box();
  void follow(const QTreeWidgetItem* bookmark);
  void zoom_by(double factor);
  /// Brings page box, tools and contents in line with what is shown.
  void mirror();
  void mark_in_contents();

  void open_search();
  void close_search();
  void search();
  void step(int by);
  void show_hit();
  void tell_hits();
  std::vector<BookMark> marks_on(int page) const;
  void escape();

  QPdfDocument document_;
  BookSearch search_;
  BookContents bookmarks_;
  BookRequest request_;
  /// False while a message stands in the pages' place.
  bool has_book_ = false;

  QToolBar* tools_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QStackedWidget* reading_ = nullptr;
  BookPages* pages_ = nullptr;
  QLabel* message_ = nullptr;
  QLineEdit* page_box_ = nullptr;
  QLabel* page_count_ = nullptr;
  QLabel* zoom_ = nullptr;
  QAction* back_ = nullptr;
  QAction* forward_ = nullptr;
  QAction* previous_ = nullptr;
  QAction* next_ = nullptr;
  QAction* show_contents_ = nullptr;
  /// What needs a book to work on.
  std::vector<QAction*> book_tools_;

  std::vector<BookPlace> places_back_;
  std::vector<BookPlace> places_forward_;

  QWidget* search_bar_ = nullptr;
  QLineEdit* wanted_ = nullptr;
  QLabel* found_ = nullptr;
  /// Where the student read when the search was opened.
  BookPlace search_from_;
  /// The search left that place, which is then a step of Back.
  bool search_has_jumped_ = false;
};

}  // namespace practice::desktop
