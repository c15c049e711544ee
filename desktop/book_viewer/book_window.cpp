#include "book_window.h"

#include <QAction>
#include <QFileInfo>
#include <QFontMetrics>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <algorithm>

#include "book_pages.h"
#include "tools.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr int letters_of_contents = 40;
constexpr int letters_of_message = 100;
constexpr int lines_of_message = 16;
constexpr int page_role = Qt::UserRole;
constexpr int down_role = Qt::UserRole + 1;
constexpr double zoom_step = 1.25;
// In width, all but the window's frame: the margins of a page may need it.
constexpr double part_of_screen_across = 0.98;
constexpr double part_of_screen_down = 0.9;

BookPlace place_of(const QTreeWidgetItem& bookmark) {
  return {bookmark.data(0, page_role).toInt(), bookmark.data(0, down_role).toDouble()};
}

}  // namespace

BookWindow::BookWindow(const QString& reader) : search_(document_), bookmarks_(reader) {
  setWindowTitle(u"Book"_s);
  // Else a click on the tool bar offers to hide it.
  setContextMenuPolicy(Qt::NoContextMenu);
  make_tools();
  make_panes();
  mirror();
  const auto on_key = [this](const QKeySequence& key, const std::function<void()>& act) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, act);
  };
  on_key(Qt::Key_Escape, [this] { escape(); });
  on_key(Qt::Key_F3, [this] { step(1); });
  on_key(Qt::SHIFT | Qt::Key_F3, [this] { step(-1); });
  on_key(Qt::CTRL | Qt::Key_Home, [this] { jump([this] { pages_->go_to_page(0); }); });
  on_key(Qt::CTRL | Qt::Key_End,
         [this] { jump([this] { pages_->go_to_page(pages_->page_count() - 1); }); });
  on_key(Qt::CTRL | Qt::Key_G, [this] {
    page_box_->setFocus();
    page_box_->selectAll();
  });
  on_key(Qt::CTRL | Qt::Key_W, [this] { close(); });
}

void BookWindow::make_tools() {
  tools_ = addToolBar(u"Tools"_s);
  QToolBar& bar = *tools_;
  bar.setMovable(false);
  show_contents_ = add_tool(bar, u"Contents"_s, u"Show or hide the contents"_s, {Qt::Key_F9},
                            [this] { contents_->setVisible(show_contents_->isChecked()); });
  show_contents_->setCheckable(true);
  bar.addSeparator();
  back_ = add_tool(bar, u"Back"_s, u"Back to where you were"_s, {Qt::ALT | Qt::Key_Left},
                   [this] { back_or_forward(places_back_, places_forward_); });
  forward_ = add_tool(bar, u"Forward"_s, u"Forward again"_s, {Qt::ALT | Qt::Key_Right},
                      [this] { back_or_forward(places_forward_, places_back_); });
  bar.addSeparator();
  previous_ = add_tool(bar, u"Previous"_s, u"Previous page"_s, {Qt::Key_PageUp},
                       [this] { pages_->go_to_page(pages_->page() - 1); });
  page_box_ = new QLineEdit;
  page_box_->setObjectName(u"page"_s);
  page_box_->setAccessibleName(u"Page"_s);
  page_box_->setToolTip(u"Page (Ctrl+G)"_s);
  page_box_->setAlignment(Qt::AlignRight);
  page_box_->setValidator(new QIntValidator(page_box_));
  page_box_->setFixedWidth(page_box_->minimumSizeHint().width() +
                           page_box_->fontMetrics().horizontalAdvance(u"0000"_s));
  connect(page_box_, &QLineEdit::returnPressed, this, [this] { go_to_number_in_box(); });
  bar.addWidget(page_box_);
  page_count_ = new QLabel;
  page_count_->setObjectName(u"page_count"_s);
  page_count_->setContentsMargins(fontMetrics().averageCharWidth(), 0,
                                  fontMetrics().averageCharWidth(), 0);
  bar.addWidget(page_count_);
  next_ = add_tool(bar, u"Next"_s, u"Next page"_s, {Qt::Key_PageDown},
                   [this] { pages_->go_to_page(pages_->page() + 1); });
  bar.addSeparator();
  QAction* smaller = add_tool(bar, u"\u2212"_s, u"Smaller pages"_s, {Qt::CTRL | Qt::Key_Minus},
                              [this] { zoom_by(1 / zoom_step); });
  zoom_ = new QLabel;
  zoom_->setObjectName(u"zoom"_s);
  zoom_->setAlignment(Qt::AlignCenter);
  zoom_->setMinimumWidth(fontMetrics().horizontalAdvance(u" 300 % "_s));
  bar.addWidget(zoom_);
  // The plus of many keyboards is the equals sign's key.
  QAction* larger =
      add_tool(bar, u"+"_s, u"Larger pages"_s, {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
               [this] { zoom_by(zoom_step); });
  bar.widgetForAction(smaller)->setAccessibleName(u"Zoom out"_s);
  bar.widgetForAction(larger)->setAccessibleName(u"Zoom in"_s);
  QAction* usual = add_tool(bar, u"100 %"_s, u"The pages in their own size"_s,
                            {Qt::CTRL | Qt::Key_0}, [this] { pages_->zoom_to(100); });
  QAction* width = add_tool(bar, u"Fit Width"_s, u"The page as wide as the window"_s,
                            {Qt::CTRL | Qt::Key_2}, [this] { pages_->fit_width(); });
  bar.addSeparator();
  QAction* find = add_tool(bar, u"Find"_s, u"Search the book"_s, {Qt::CTRL | Qt::Key_F},
                           [this] { open_search(); });
  book_tools_ = {smaller, larger, usual, width, find};
}

void BookWindow::make_panes() {
  contents_ = new QTreeWidget;
  contents_->setObjectName(u"contents"_s);
  contents_->setAccessibleName(u"Contents"_s);
  contents_->setHeaderHidden(true);
  contents_->setUniformRowHeights(true);
  contents_->hide();
  connect(contents_, &QTreeWidget::itemClicked, this, &BookWindow::follow);
  connect(contents_, &QTreeWidget::itemActivated, this, &BookWindow::follow);
  bookmarks_.arrived = [this](const std::vector<Bookmark>& bookmarks) { fill_contents(bookmarks); };

  pages_ = new BookPages(document_);
  pages_->setObjectName(u"pages"_s);
  pages_->setAccessibleName(u"Book"_s);
  pages_->changed = [this] { mirror(); };
  pages_->marks_on = [this](int page) { return marks_on(page); };
  pages_->zoom_wheel = [this](int steps) { zoom_by(steps > 0 ? zoom_step : 1 / zoom_step); };

  message_ = new QLabel;
  message_->setObjectName(u"message"_s);
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);
  message_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  message_->setMargin(fontMetrics().height() * 2);
  message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  message_->setFocusPolicy(Qt::StrongFocus);

  reading_ = new QStackedWidget;
  reading_->addWidget(pages_);
  reading_->addWidget(message_);
  auto* column = new QWidget;
  auto* both = new QVBoxLayout(column);
  both->setContentsMargins(0, 0, 0, 0);
  both->addWidget(reading_);
  both->addWidget(make_search_bar());

  auto* panes = new QSplitter;
  panes->addWidget(contents_);
  panes->addWidget(column);
  panes->setChildrenCollapsible(false);
  panes->setStretchFactor(1, 1);
  const int width = fontMetrics().averageCharWidth() * letters_of_contents;
  panes->setSizes({width, width * 3});
  setCentralWidget(panes);
}

bool BookWindow::open(const BookRequest& request) {
  request_ = request;
  const QString fault = request.fault.isEmpty() ? load(request.book) : request.fault;
  const QString& title = request.page.title;
  if (!title.isEmpty()) {
    setWindowTitle(title);
  } else if (!request.book.isEmpty()) {
    setWindowTitle(QFileInfo(request.book).fileName());
  }
  has_book_ = fault.isEmpty();
  close_search();
  places_back_.clear();
  places_forward_.clear();
  fill_contents({});
  page_box_->setEnabled(has_book_);
  for (QAction* tool : book_tools_) tool->setEnabled(has_book_);
  if (!has_book_) document_.close();
  pages_->reload();
  show_fault(fault);
  if (has_book_) {
    pages_->set_page_layout(request.page.layout);
    const auto bars = request.page.has_scroll_bars;
    pages_->setVerticalScrollBarPolicy(bars ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    pages_->setHorizontalScrollBarPolicy(bars ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    page_count_->setText(u"of "_s + QString::number(pages_->page_count()));
    page_box_->setAccessibleDescription(page_count_->text());
    bookmarks_.read(request.book);
    pages_->zoom_to(request.page.zoom);
    fit_to_book();
    pages_->go_to_page(request.page.page - 1);
  } else {
    resize(fontMetrics().averageCharWidth() * letters_of_message,
           fontMetrics().lineSpacing() * lines_of_message);
  }
  mirror();
  return has_book_;
}

QString BookWindow::load(const QString& book) {
  const QFileInfo file(book);
  if (!file.exists()) return u"There is no book %1."_s.arg(book);
  if (!file.isFile() || !file.isReadable()) return u"The file %1 can not be read."_s.arg(book);
  switch (document_.load(book)) {
    case QPdfDocument::Error::None:
      break;
    case QPdfDocument::Error::IncorrectPassword:
    case QPdfDocument::Error::UnsupportedSecurityScheme:
      return u"The file %1 is locked with a password, so it can not be shown here."_s.arg(book);
    case QPdfDocument::Error::FileNotFound:
      return u"The file %1 can not be read."_s.arg(book);
    default:
      return u"The file %1 is damaged, or it is no PDF file."_s.arg(book);
  }
  return document_.pageCount() > 0 ? QString() : u"The file %1 has no pages."_s.arg(book);
}

void BookWindow::show_fault(const QString& fault) {
  message_->setText(fault);
  tools_->setVisible(fault.isEmpty());
  reading_->setCurrentWidget(fault.isEmpty() ? static_cast<QWidget*>(pages_) : message_);
  reading_->currentWidget()->setFocus();
}

void BookWindow::fit_to_book() {
  const QSize room = screen()->availableSize();
  const QSize most(qRound(room.width() * part_of_screen_across),
                   qRound(room.height() * part_of_screen_down));
  const int beside = fontMetrics().averageCharWidth() * letters_of_contents +
                     style()->pixelMetric(QStyle::PM_SplitterWidth, nullptr, this);
  const int wide = pages_->whole_width();
  const bool has_room = wide + beside <= most.width();
  // Before the bookmarks are there, so that the pages need not move when they come.
  contents_->setVisible(has_room);
  show_contents_->setChecked(has_room);
  resize(std::min(has_room ? wide + beside : wide, most.width()), most.height());
}

void BookWindow::fill_contents(const std::vector<Bookmark>& bookmarks) {
  contents_->clear();
  // The bookmarks that the next one may stand under, by their levels.
  std::vector<QTreeWidgetItem*> above;
  for (const Bookmark& bookmark : bookmarks) {
    auto* item = new QTreeWidgetItem({bookmark.title});
    item->setData(0, page_role, bookmark.place.page);
    item->setData(0, down_role, bookmark.place.down);
    item->setToolTip(0, bookmark.title);
    above.resize(std::min(above.size(), static_cast<std::size_t>(bookmark.level)));
    if (above.empty()) {
      contents_->addTopLevelItem(item);
    } else {
      above.back()->addChild(item);
    }
    above.push_back(item);
  }
  show_contents_->setEnabled(!bookmarks.empty());
  if (bookmarks.empty()) {
    show_contents_->setChecked(false);
    contents_->hide();
  }
  // A book that stands under its own title.
  if (contents_->topLevelItemCount() == 1) contents_->expandToDepth(0);
  mark_in_contents();
}

void BookWindow::turn_to(int page) {
  if (!has_book_) {
    // It may be there by now.
    BookRequest again = request_;
    again.page.page = page;
    open(again);
  } else {
    jump([this, page] { pages_->go_to_page(page - 1); });
    pages_->setFocus();
  }
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void BookWindow::jump(const std::function<void()>& go) {
  if (!has_book_) return;
  const BookPlace before = pages_->place();
  go();
  const BookPlace after = pages_->place();
  if (before.page == after.page && before.down == after.down) return;
  places_back_.push_back(before);
  places_forward_.clear();
  mirror();
}

void BookWindow::back_or_forward(std::vector<BookPlace>& from, std::vector<BookPlace>& to) {
  if (from.empty()) return;
  to.push_back(pages_->place());
  const BookPlace place = from.back();
  from.pop_back();
  pages_->go_to(place);
}

void BookWindow::go_to_number_in_box() {
  bool is_number = false;
  const int page = page_box_->text().toInt(&is_number);
  if (is_number) jump([this, page] { pages_->go_to_page(page - 1); });
  mirror();
  pages_->setFocus();
}

void BookWindow::follow(const QTreeWidgetItem* bookmark) {
  const BookPlace place = place_of(*bookmark);
  if (place.page < 0) return;
  jump([&] {
    if (place.down > 0) {
      pages_->go_to(place);
    } else {
      pages_->go_to_page(place.page);
    }
  });
}

void BookWindow::zoom_by(double factor) { pages_->zoom_to(pages_->zoom() * factor); }

void BookWindow::mirror() {
  const int page = pages_->page();
  if (has_book_) {
    page_box_->setText(QString::number(page + 1));
    zoom_->setText(QString::number(qRound(pages_->zoom())) + u" %"_s);
    pages_->setAccessibleDescription(u"Page "_s + page_box_->text() + u' ' + page_count_->text());
    mark_in_contents();
  } else {
    page_box_->clear();
    page_count_->clear();
    zoom_->clear();
  }
  back_->setEnabled(!places_back_.empty());
  forward_->setEnabled(!places_forward_.empty());
  previous_->setEnabled(has_book_ && page > 0);
  next_->setEnabled(has_book_ && page + 1 < pages_->page_count());
}

void BookWindow::mark_in_contents() {
  const int page = pages_->page();
  QTreeWidgetItem* current = contents_->currentItem();
  // Of several on a page, the one that the student chose stays.
  if (current != nullptr && place_of(*current).page == page) return;
  QTreeWidgetItem* last = nullptr;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    const int begins = place_of(**item).page;
    if (begins > page) break;
    if (begins >= 0) last = *item;
  }
  if (last != current) contents_->setCurrentItem(last);
}

void BookWindow::escape() {
  if (page_box_->hasFocus()) {
    mirror();
    pages_->setFocus();
  } else if (search_bar_->isVisible()) {
    close_search();
  }
}

}  // namespace practice::desktop
