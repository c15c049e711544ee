// The bookmarks of a book, read in a process of their own.
//
// Qt's reader of bookmarks keeps each page that one leads to in memory, loaded, until the process
// ends: 60 MB for a hundred. So a second book_viewer, without a window, reads them, writes them to
// its output and ends; meanwhile the window is there. What a damaged book does to the reader does
// not concern the window either.
#pragma once

#include <QProcess>
#include <QString>
#include <functional>
#include <vector>

#include "book_place.h"

namespace practice::desktop {

struct Bookmark {
  /// 0 for those that stand under no other.
  int level = 0;
  /// Its page is -1 when it leads nowhere; `down` is 0 when it names the page only.
  BookPlace place;
  QString title;
};

/// The argument that makes book_viewer the reader, before the book's path.
extern const QString contents_argument;

/// What the reader writes: a line for each bookmark, in the order of the book; empty when there are
/// none or the book can not be read.
QByteArray written_contents(const QString& book);

class BookContents {
 public:
  /// `reader` is the path of book_viewer.
  explicit BookContents(const QString& reader);
  ~BookContents();

  /// Reads the bookmarks of a book, and calls `arrived` once with them, or with none.
  void read(const QString& book);

  std::function<void(const std::vector<Bookmark>&)> arrived;

 private:
  void finish();

  QString reader_;
  QProcess process_;
};

}  // namespace practice::desktop
