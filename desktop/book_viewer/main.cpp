// book_viewer FILE: shows an exam's book. The file is a viewer page, which tells the book and the
// page, or a book itself. A second start for a book that is shown turns its window to the page.
//
// book_viewer --contents BOOK: writes the bookmarks of a book, for the window.
#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QStringList>
#include <cstdio>

#include "book_contents.h"
#include "book_search.h"
#include "book_window.h"
#include "one_window.h"
#include "viewer_page.h"

int main(int argc, char** argv) {
  using namespace practice::desktop;
  using namespace Qt::StringLiterals;
  if (argc == 3 && QFile::decodeName(argv[1]) == contents_argument) {
    const QCoreApplication without_windows(argc, argv);
    const QByteArray contents = written_contents(QFile::decodeName(argv[2]));
    const auto size = static_cast<std::size_t>(contents.size());
    const bool is_written = std::fwrite(contents.data(), 1, size, stdout) == size;
    return is_written && std::fflush(stdout) == 0 ? 0 : 1;
  }
  QApplication qt(argc, argv);
  QApplication::setApplicationName(u"Practice Exam Book"_s);
  const QString icon = QApplication::applicationDirPath() + u"/practice_exam_48.png"_s;
  QApplication::setWindowIcon(QIcon(icon));

  const QStringList arguments = QApplication::arguments();
  BookRequest request;
  if (arguments.size() > 1) {
    request = read_request(arguments[1]);
  } else {
    request.fault =
        u"No book was named. Review Chapter at a question of Practice Exam opens its book here."_s;
  }
  const bool is_asked_for = request.fault.isEmpty();
  OneWindow one_window(is_asked_for ? OneWindow::folder_of_user() : QString(), request.book);
  if (one_window.hand_over(request.page.page)) return 0;

  BookSearch::hush_qt();
  BookWindow window(QApplication::applicationFilePath());
  window.open(request);
  one_window.listen([&](int page) { window.turn_to(page); });
  window.show();
  return QApplication::exec();
}
