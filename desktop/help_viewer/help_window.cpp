#include "help_window.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "help_text.h"
#include "search_bar.h"
#include "tools.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// In letters of a text; lines of more than 80 are hard to follow.
constexpr double column = 76;
constexpr double contents_column = 38;
constexpr double text_margin = 2;
constexpr double lines_of_text = 40;
// The text is read for longer than what stands on buttons.
constexpr double reading_size = 1.1;
constexpr double zoom_step = 1.1;
constexpr double least_zoom = 0.5;
constexpr double greatest_zoom = 3;
constexpr int name_role = Qt::UserRole;

bool ask_for_a_printer(QPrinter& printer) {
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace

HelpWindow::HelpWindow()
    : open_address([](const QUrl& address) { QDesktopServices::openUrl(address); }),
      choose_printer(ask_for_a_printer) {
  setWindowTitle(u"Practice Exam Help"_s);
  // Else a click on the tool bar offers to hide it.
  setContextMenuPolicy(Qt::NoContextMenu);
  make_panes();
  make_tools();
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { escape(); });

  const double wide = letter_width(text_->font()) * (column + 2 * text_margin + 4) +
                      letter_width(contents_->font()) * contents_column;
  const double high = QFontMetricsF(text_->font()).lineSpacing() * lines_of_text;
  resize(QSize(qRound(wide), qRound(high)).boundedTo(screen()->availableSize() * 0.9));
  text_->setFocus();
}

void HelpWindow::make_panes() {
  contents_ = new QTreeWidget;
  contents_->setObjectName(u"contents"_s);
  contents_->setAccessibleName(u"Contents"_s);
  contents_->setHeaderHidden(true);
  contents_->setIndentation(qRound(letter_width(contents_->font()) * 2.5));
  const auto go_to_item = [this](QTreeWidgetItem* item) {
    go_to(item->data(0, name_role).toString());
  };
  connect(contents_, &QTreeWidget::itemClicked, this, go_to_item);
  connect(contents_, &QTreeWidget::itemActivated, this, go_to_item);

  text_ = new QTextBrowser;
  text_->setObjectName(u"text"_s);
  text_->setAccessibleName(u"Help text"_s);
  text_->setOpenLinks(false);
  // A bar that comes and goes would change the width that the text is laid out in.
  text_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  own_size_ = QFontInfo(text_->font()).pointSizeF() * reading_size;
  zoom_to(own_size_);
  text_->installEventFilter(this);
  text_->viewport()->installEventFilter(this);
  connect(text_, &QTextBrowser::anchorClicked, this, &HelpWindow::follow);
  connect(text_, &QTextBrowser::sourceChanged, this, [this](const QUrl& place) {
    contents_->setCurrentItem(headings_.value(place.fragment(), contents_->topLevelItem(0)));
  });

  auto* reading = new QWidget;
  auto* column_of_both = new QVBoxLayout(reading);
  column_of_both->setContentsMargins(0, 0, 0, 0);
  column_of_both->addWidget(text_);
  column_of_both->addWidget(make_search_bar());
  auto* both = new QSplitter;
  both->addWidget(contents_);
  both->addWidget(reading);
  both->setChildrenCollapsible(false);
  both->setStretchFactor(1, 1);
  const int contents_width = qRound(letter_width(contents_->font()) * contents_column);
  both->setSizes({contents_width, contents_width * 3});
  setCentralWidget(both);
}

QWidget* HelpWindow::make_search_bar() {
  auto* bar = new SearchBar({.search = [this] { search(); },
                             .step = [this](int by) { step(by); },
                             .close = [this] { close_search(); }});
  search_bar_ = bar;
  wanted_ = bar->wanted();
  found_ = bar->found();
  connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, [this] { step(1); });
  connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, this,
          [this] { step(-1); });
  return search_bar_;
}

void HelpWindow::make_tools() {
  QToolBar& bar = *addToolBar(u"Tools"_s);
  bar.setMovable(false);
  QAction* back = add_tool(bar, u"Back"_s, u"Back to where you were"_s, {Qt::ALT | Qt::Key_Left},
                           [this] { text_->backward(); });
  QAction* forward = add_tool(bar, u"Forward"_s, u"Forward again"_s, {Qt::ALT | Qt::Key_Right},
                              [this] { text_->forward(); });
  for (QAction* action : {back, forward}) action->setEnabled(false);
  connect(text_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(text_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  bar.addSeparator();
  text_tools_ = {
      add_tool(bar, u"Find"_s, u"Search the text"_s, {Qt::CTRL | Qt::Key_F},
               [this] { open_search(); }),
      add_tool(bar, u"Print"_s, u"Print the text"_s, {Qt::CTRL | Qt::Key_P}, [this] { print(); })};
  bar.addSeparator();
  const auto size = [this] { return text_->font().pointSizeF(); };
  // The plus of many keyboards is the equals sign's key.
  add_tool(bar, u"Larger"_s, u"Larger text"_s, {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
           [this, size] { zoom_to(size() * zoom_step); });
  add_tool(bar, u"Smaller"_s, u"Smaller text"_s, {Qt::CTRL | Qt::Key_Minus},
           [this, size] { zoom_to(size() / zoom_step); });
  add_tool(bar, u"Usual Size"_s, u"The text in its usual size"_s, {Qt::CTRL | Qt::Key_0},
           [this] { zoom_to(own_size_); });
}

bool HelpWindow::open(const QString& path) {
  const HelpText help = read_help(path);
  has_text_ = help.fault.isEmpty();
  if (help.form != TextForm::markdown) setWindowTitle(QFileInfo(path).fileName());
  close_search();
  headings_.clear();
  contents_->clear();
  // Plain texts are tables and the screens of devices, whose columns are to stay.
  const bool is_plain = has_text_ && help.form == TextForm::plain;
  if (is_plain) {
    QFont columns = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    columns.setPointSizeF(own_size_);
    text_->setFont(columns);
  }
  text_->setLineWrapMode(is_plain ? QTextEdit::NoWrap : QTextEdit::FixedPixelWidth);
  // Made whole before it is shown, as the window lays a text out again at each change.
  auto* document = new QTextDocument(text_);
  document->setUndoRedoEnabled(false);
  document->setDefaultFont(text_->font());
  document->setDocumentMargin(letter_width(text_->font()) * text_margin);
  fill_document(*document, help);
  fill_contents(*document);
  text_->setDocument(document);
  lay_out_column();
  contents_->setVisible(!headings_.isEmpty());
  for (QAction* tool : text_tools_) tool->setEnabled(has_text_);
  // The first place that Back leads to.
  text_->setSource(QUrl(u"#"_s));
  return has_text_;
}

void HelpWindow::fill_contents(const QTextDocument& text) {
  // The headings that the next one may stand under, with their levels.
  std::vector<std::pair<int, QTreeWidgetItem*>> above;
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level == 0 || block.text().trimmed().isEmpty()) continue;
    const QString words = heading_name(block.text());
    QString name = words;
    for (int i = 1; headings_.contains(name); ++i) name = words + u'-' + QString::number(i);

    QTextCharFormat anchor;
    anchor.setAnchor(true);
    anchor.setAnchorNames({name});
    QTextCursor heading(block);
    heading.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    heading.mergeCharFormat(anchor);

    // The title heads the whole text, so nothing needs to stand under it.
    while (!above.empty() && (above.back().first >= level || above.back().first == 1)) {
      above.pop_back();
    }
    auto* item = new QTreeWidgetItem({block.text()});
    item->setData(0, name_role, name);
    item->setToolTip(0, block.text());
    if (above.empty()) {
      contents_->addTopLevelItem(item);
    } else {
      above.back().second->addChild(item);
    }
    above.emplace_back(level, item);
    headings_.insert(name, item);
  }
  contents_->expandAll();
}

bool HelpWindow::go_to(const QString& heading) {
  if (!headings_.contains(heading)) return false;
  QUrl place;
  place.setFragment(heading);
  text_->setSource(place);
  return true;
}

void HelpWindow::follow(const QUrl& link) {
  const QString scheme = link.scheme();
  if (scheme == u"http" || scheme == u"https" || scheme == u"mailto") {
    open_address(link);
  } else if (scheme.isEmpty() && link.path().isEmpty()) {
    go_to(link.fragment());
  }
}

void HelpWindow::print() {
  QPrinter printer;
  printer.setDocName(windowTitle());
  if (choose_printer(printer)) text_->print(&printer);
}

void HelpWindow::escape() {
  if (search_bar_->isVisible()) {
    close_search();
  } else {
    close();
  }
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
  if ((watched == text_->viewport() && event->type() == QEvent::Resize) ||
      (watched == text_ && event->type() == QEvent::FontChange)) {
    lay_out_column();
  }
  return QMainWindow::eventFilter(watched, event);
}

void HelpWindow::lay_out_column() {
  if (text_->lineWrapMode() != QTextEdit::FixedPixelWidth) return;
  const double wide =
      letter_width(text_->font()) * column + 2 * text_->document()->documentMargin();
  const int width = std::min(qRound(wide), text_->viewport()->width());
  if (width != text_->lineWrapColumnOrWidth()) text_->setLineWrapColumnOrWidth(width);
}

QTextCursor HelpWindow::first_in_view() const {
  QTextCursor place(text_->document());
  while (text_->cursorRect(place).top() < 0 && place.movePosition(QTextCursor::NextBlock)) {
  }
  return place;
}

void HelpWindow::zoom_to(double points) {
  const QTextCursor first = first_in_view();
  const int top = text_->cursorRect(first).top();
  QFont font = text_->font();
  font.setPointSizeF(std::clamp(points, own_size_ * least_zoom, own_size_ * greatest_zoom));
  text_->setFont(font);
  QScrollBar* bar = text_->verticalScrollBar();
  bar->setValue(bar->value() + text_->cursorRect(first).top() - top);
}

void HelpWindow::open_search() {
  if (!has_text_) return;
  search_bar_->show();
  wanted_->setFocus();
  wanted_->selectAll();
  search_from_ = first_in_view().position();
  search();
}

void HelpWindow::close_search() {
  if (!matches_.empty()) text_->setTextCursor(matches_[static_cast<std::size_t>(match_)]);
  matches_.clear();
  text_->setExtraSelections({});
  search_bar_->hide();
  text_->setFocus();
}

void HelpWindow::search() {
  matches_.clear();
  const QTextDocument& text = *text_->document();
  const QString wanted = wanted_->text();
  if (!wanted.isEmpty()) {
    for (QTextCursor at = text.find(wanted); !at.isNull(); at = text.find(wanted, at)) {
      matches_.push_back(at);
    }
  }
  const auto next = std::ranges::find_if(
      matches_, [this](const QTextCursor& at) { return at.selectionStart() >= search_from_; });
  match_ = next == matches_.end() ? 0 : static_cast<int>(next - matches_.begin());
  show_match();
}

void HelpWindow::step(int by) {
  if (search_bar_->isHidden()) {
    open_search();
    return;
  }
  if (matches_.empty()) return;
  const int count = static_cast<int>(matches_.size());
  match_ = (match_ + by + count) % count;
  search_from_ = matches_[static_cast<std::size_t>(match_)].selectionStart();
  show_match();
}

void HelpWindow::show_match() {
  QList<QTextEdit::ExtraSelection> marks;
  for (std::size_t i = 0; i < matches_.size(); ++i) {
    const bool is_current = i == static_cast<std::size_t>(match_);
    QTextEdit::ExtraSelection mark;
    mark.cursor = matches_[i];
    mark.format.setForeground(Qt::black);
    mark.format.setBackground(is_current ? QColor(255, 165, 0) : QColor(255, 240, 150));
    marks.push_back(mark);
  }
  text_->setExtraSelections(marks);
  const QString count = QString::number(matches_.size());
  found_->setText(wanted_->text().isEmpty() ? QString()
                  : matches_.empty()        ? u"Not found"_s
                                            : QString::number(match_ + 1) + u" of "_s + count);
  if (matches_.empty()) return;
  QTextCursor place = matches_[static_cast<std::size_t>(match_)];
  place.setPosition(place.selectionStart());
  const QRect room = text_->viewport()->rect();
  if (const QRect line = text_->cursorRect(place); !room.contains(line)) {
    QScrollBar* bar = text_->verticalScrollBar();
    bar->setValue(bar->value() + line.top() - room.height() / 3);
  }
  text_->setTextCursor(place);
}

}  // namespace practice::desktop
