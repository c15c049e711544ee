// The viewer page: the small text that Practice Exam writes beside a book to have it opened at the
// page of a question.
//
// It names the book and tells how to show it. What it does not tell, or tells in another way than
// expected, has a default; so it can be read in whatever else it stands.
#pragma once

#include <QString>

namespace practice::desktop {

enum class PageLayout { one_column, single_page };

struct ViewerPage {
  QString title;
  /// As it is told: backslashes may be slashes, and a relative one starts from the page's folder.
  QString file;
  /// Counted from 1; may lie outside of the book.
  int page = 1;
  PageLayout layout = PageLayout::one_column;
  /// Percent.
  double zoom = 100;
  bool has_scroll_bars = true;
};

/// Takes from the text what it tells.
ViewerPage viewer_page_of(const QString& text);

struct BookRequest {
  ViewerPage page;
  /// The system's path of the book, whether or not it exists.
  QString book;
  /// Why no book is asked for, for the student; empty when one is.
  QString fault;
};

/// Reads a viewer page; a book itself is asked for at its first page. Where the book is not where
/// the viewer page says, it is looked for beside it: "x.pdf" beside "x.pdf.hta".
BookRequest read_request(const QString& path);

}  // namespace practice::desktop
