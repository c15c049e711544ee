// The help: a Markdown text in a window, with its headings as a tree beside it. Pages and plain
// texts, such as a history and the terms of use, are shown the same way where a desktop has no
// program for them.
//
// Call open() once, then show(). A heading is known by its words in lower case with hyphens, such
// as "the-score-panel"; a second one of the same words by "the-score-panel-1". A link "#..." of the
// text leads there.
#pragma once

#include <QHash>
#include <QMainWindow>
#include <QString>
#include <QTextCursor>
#include <functional>
#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QPrinter;
class QTextBrowser;
class QTextDocument;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

namespace practice::desktop {

class HelpWindow : public QMainWindow {
 public:
  HelpWindow();

  /// Shows a file; see read_help(). When it can not be shown, the window tells why, and this
  /// returns false.
  bool open(const QString& path);
  /// Scrolls to a heading, as a step of Back and Forward; false when there is none of that name.
  bool go_to(const QString& heading);

  /// Opens a link that leads out of the help; a test injects its own.
  std::function<void(const QUrl&)> open_address;
  /// Chooses a printer, or returns false; a test injects its own.
  std::function<bool(QPrinter&)> choose_printer;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void make_tools();
  void make_panes();
  QWidget* make_search_bar();

  void fill_contents(const QTextDocument& text);
  void follow(const QUrl& link);
  void print();
  void escape();

  void lay_out_column();
  /// The start of the first paragraph that begins in view.
  QTextCursor first_in_view() const;
  void zoom_to(double points);

  void open_search();
  void close_search();
  void search();
  void step(int by);
  void show_match();

  /// The size of the text at Ctrl+0, in points.
  double own_size_ = 0;
  QTreeWidget* contents_ = nullptr;
  QTextBrowser* text_ = nullptr;
  QHash<QString, QTreeWidgetItem*> headings_;
  /// False while a message stands in the text's place.
  bool has_text_ = false;
  /// What needs a text to work on.
  std::vector<QAction*> text_tools_;

  QWidget* search_bar_ = nullptr;
  QLineEdit* wanted_ = nullptr;
  QLabel* found_ = nullptr;
  /// In the order of the text; the current one by its index.
  std::vector<QTextCursor> matches_;
  int match_ = 0;
  /// The place in the text from which a search goes on.
  int search_from_ = 0;
};

}  // namespace practice::desktop
