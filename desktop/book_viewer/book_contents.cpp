#include "book_contents.h"

#include <QPdfBookmarkModel>
#include <QPdfDocument>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr int deepest = 16;

void write_below(const QPdfBookmarkModel& model, const QModelIndex& parent, int level,
                 QByteArray& lines) {
  using Role = QPdfBookmarkModel::Role;
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex bookmark = model.index(row, 0, parent);
    const auto told = [&](Role role) { return bookmark.data(static_cast<int>(role)); };
    const QString title = told(Role::Title).toString().simplified();
    lines += QByteArray::number(level) + '\t';
    lines += QByteArray::number(told(Role::Page).toInt()) + '\t';
    lines += QByteArray::number(told(Role::Location).toPointF().y()) + '\t';
    lines += title.toUtf8() + '\n';
    if (level < deepest) write_below(model, bookmark, level + 1, lines);
  }
}

std::vector<Bookmark> read_lines(const QByteArray& lines) {
  std::vector<Bookmark> bookmarks;
  for (const QByteArray& line : lines.split('\n')) {
    const QList<QByteArray> parts = line.split('\t');
    if (parts.size() != 4) continue;
    bookmarks.push_back({parts[0].toInt(),
                         {parts[1].toInt(), std::max(0.0, parts[2].toDouble())},
                         QString::fromUtf8(parts[3])});
  }
  return bookmarks;
}

}  // namespace

const QString contents_argument = u"--contents"_s;

QByteArray written_contents(const QString& book) {
  QPdfDocument document;
  QByteArray lines;
  if (document.load(book) != QPdfDocument::Error::None) return lines;
  QPdfBookmarkModel model;
  model.setDocument(&document);
  write_below(model, {}, 0, lines);
  return lines;
}

BookContents::BookContents(const QString& reader) : reader_(reader) {
  process_.setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(&process_, &QProcess::finished, &process_, [this] { finish(); });
  QObject::connect(&process_, &QProcess::errorOccurred, &process_,
                   [this](QProcess::ProcessError error) {
                     // All other errors are followed by the end.
                     if (error == QProcess::FailedToStart) finish();
                   });
}

BookContents::~BookContents() {
  arrived = nullptr;
  if (process_.state() == QProcess::NotRunning) return;
  process_.kill();
  process_.waitForFinished();
}

void BookContents::read(const QString& book) {
  if (process_.state() != QProcess::NotRunning) return;
  process_.start(reader_, {contents_argument, book}, QIODevice::ReadOnly);
}

void BookContents::finish() {
  if (arrived) arrived(read_lines(process_.readAllStandardOutput()));
}

}  // namespace practice::desktop
