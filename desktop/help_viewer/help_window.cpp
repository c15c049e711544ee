#include "help_window.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
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
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr qint64 most_bytes = 4 << 20;
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
constexpr int heading_name = Qt::UserRole;
constexpr auto dialect = QTextDocument::MarkdownFeatures(QTextDocument::MarkdownDialectGitHub) |
                         QTextDocument::MarkdownNoHTML;

struct Reading {
  QString markdown;
  /// Why there is none; empty when there is.
  QString fault;
};

Reading read_help(const QString& path) {
  const QString again = u"\n\nInstalling Practice Exam again puts its help back."_s;
  const auto fault = [&](const QString& what) { return Reading{{}, what.arg(path) + again}; };
  if (!QFileInfo::exists(path)) return fault(u"There is no help file %1."_s);
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    return fault(u"The help file %1 can not be read."_s);
  }
  const QByteArray bytes = file.read(most_bytes + 1);
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString text = utf8(bytes);
  if (bytes.size() > most_bytes || bytes.contains('\0') || utf8.hasError()) {
    return fault(u"The help file %1 is no text."_s);
  }
  if (text.trimmed().isEmpty()) return fault(u"The help file %1 is empty."_s);
  return {text, {}};
}

QString name_of(const QString& heading) {
  QString name;
  for (const QChar c : heading.trimmed().toLower()) {
    if (c.isLetterOrNumber() || c == u'_' || c == u'-') {
      name += c;
    } else if (c.isSpace()) {
      name += u'-';
    }
  }
  return name;
}

// The mean letter of English words, which differs from font to font.
double letter_width(const QFont& font) {
  const QString words = u"the quick answer to a question is often in one of its own words"_s;
  return QFontMetricsF(font).horizontalAdvance(words) / static_cast<double>(words.size());
}

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
    go_to(item->data(0, heading_name).toString());
  };
  connect(contents_, &QTreeWidget::itemClicked, this, go_to_item);
  connect(contents_, &QTreeWidget::itemActivated, this, go_to_item);

  text_ = new QTextBrowser;
  text_->setObjectName(u"text"_s);
  text_->setAccessibleName(u"Help text"_s);
  text_->setOpenLinks(false);
  text_->setLineWrapMode(QTextEdit::FixedPixelWidth);
  // A bar that comes and goes would change the width that the text is laid out in.
  text_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  own_size_ = QFontInfo(text_->font()).pointSizeF() * reading_size;
  zoom_to(own_size_);
  text_->document()->setDocumentMargin(letter_width(text_->font()) * text_margin);
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
  search_bar_ = new QWidget;
  search_bar_->hide();
  auto* row = new QHBoxLayout(search_bar_);
  wanted_ = new QLineEdit;
  wanted_->setObjectName(u"wanted"_s);
  wanted_->setAccessibleName(u"Search for"_s);
  wanted_->setPlaceholderText(u"Search for"_s);
  wanted_->setClearButtonEnabled(true);
  connect(wanted_, &QLineEdit::textEdited, this, [this] { search(); });
  connect(wanted_, &QLineEdit::returnPressed, this,
          [this] { step(QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier) ? -1 : 1); });
  row->addWidget(wanted_, 1);
  found_ = new QLabel;
  found_->setObjectName(u"found"_s);
  row->addWidget(found_);
  const auto add_button = [&](const QString& name, const QString& tip, auto act) {
    auto* button = new QPushButton(name);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, act);
    row->addWidget(button);
  };
  add_button(u"Pre&vious"_s, u"Previous match (Shift+F3)"_s, [this] { step(-1); });
  add_button(u"&Next"_s, u"Next match (F3)"_s, [this] { step(1); });
  add_button(u"&Close"_s, u"Close the search (Esc)"_s, [this] { close_search(); });
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

QAction* HelpWindow::add_tool(QToolBar& bar, const QString& name, const QString& tip,
                              const QList<QKeySequence>& keys, const std::function<void()>& act) {
  QAction* action = bar.addAction(name);
  action->setShortcuts(keys);
  action->setToolTip(tip + u" ("_s + keys.first().toString(QKeySequence::NativeText) + u')');
  connect(action, &QAction::triggered, this, act);
  bar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
  return action;
}

bool HelpWindow::open(const QString& path) {
  const Reading help = read_help(path);
  has_text_ = help.fault.isEmpty();
  close_search();
  headings_.clear();
  contents_->clear();
  text_->document()->setUndoRedoEnabled(false);
  if (has_text_) {
    text_->document()->setMarkdown(help.markdown, dialect);
    dress_text();
    fill_contents();
  } else {
    text_->setPlainText(help.fault);
  }
  contents_->setVisible(!headings_.isEmpty());
  for (QAction* tool : text_tools_) tool->setEnabled(has_text_);
  // The first place that Back leads to.
  text_->setSource(QUrl(u"#"_s));
  return has_text_;
}

void HelpWindow::fill_contents() {
  // The headings that the next one may stand under, with their levels.
  std::vector<std::pair<int, QTreeWidgetItem*>> above;
  for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level == 0 || block.text().trimmed().isEmpty()) continue;
    const QString words = name_of(block.text());
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
    item->setData(0, heading_name, name);
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

// What Markdown leaves to its reader: the lines of tables, and the room between lines.
void HelpWindow::dress_text() {
  const double line = QFontMetricsF(text_->font()).lineSpacing();
  QTextDocument& text = *text_->document();
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    QTextBlockFormat lines;
    lines.setLineHeight(120, QTextBlockFormat::ProportionalHeight);
    const int level = block.blockFormat().headingLevel();
    if (level > 0 && block != text.begin()) lines.setTopMargin(line * (level > 2 ? 0.8 : 1.3));
    if (QTextCursor(block).currentTable() != nullptr) lines.setBottomMargin(0);
    QTextCursor(block).mergeBlockFormat(lines);
  }
  for (QTextFrame* frame : text.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderBrush(palette().mid());
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(line * 0.25);
    format.setTopMargin(line * 0.5);
    format.setBottomMargin(line);
    table->setFormat(format);
  }
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
  const double wide = QFontMetricsF(text_->font()).averageCharWidth() * column +
                      2 * text_->document()->documentMargin();
  text_->setLineWrapColumnOrWidth(std::min(qRound(wide), text_->viewport()->width()));
}

void HelpWindow::zoom_to(double points) {
  const QTextCursor first = text_->cursorForPosition({0, 0});
  QFont font = text_->font();
  font.setPointSizeF(std::clamp(points, own_size_ * least_zoom, own_size_ * greatest_zoom));
  text_->setFont(font);
  QScrollBar* bar = text_->verticalScrollBar();
  bar->setValue(bar->value() + text_->cursorRect(first).top());
}

void HelpWindow::open_search() {
  if (!has_text_) return;
  search_bar_->show();
  wanted_->setFocus();
  wanted_->selectAll();
  search_from_ = text_->cursorForPosition({0, 0}).position();
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
  text_->setTextCursor(place);
}

}  // namespace practice::desktop
