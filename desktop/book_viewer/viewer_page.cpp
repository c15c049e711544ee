#include "viewer_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <limits>

#include "text.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr qint64 most_bytes = 1 << 20;

QRegularExpression pattern(const QString& text) {
  return QRegularExpression(text, QRegularExpression::CaseInsensitiveOption);
}

// The settings stand below the path, in which the same words may stand.
QString last_setting(const QString& text, const QString& name, const QString& value) {
  auto all = pattern(name + u"\\s*\\(\\s*['\"]?\\s*("_s + value + u')').globalMatch(text);
  QString last;
  while (all.hasNext()) last = all.next().captured(1);
  return last;
}

// A path may hold the quotes that stand around it.
QString source_of(const QString& text) {
  const QString opening = u"NAME\\s*=\\s*['\"]?SRC['\"]?\\s*VALUE\\s*=\\s*"_s;
  for (const QString& value : {u"(['\"])(.*?\\.pdf)\\1\\s*/?>"_s, u"(['\"])(.*)\\1\\s*/?>"_s}) {
    const auto match = pattern(opening + value).match(text);
    if (match.hasMatch()) return match.captured(2).trimmed();
  }
  return {};
}

int page_number_of(const QString& digits) {
  if (digits.isEmpty()) return 1;
  bool is_number = false;
  const int page = digits.toInt(&is_number);
  if (is_number) return page;
  return digits.startsWith(u'-') ? 1 : std::numeric_limits<int>::max();
}

QString find_book(const QString& named, const QFileInfo& page) {
  QString path = named;
  path.replace(u'\\', u'/');
  const QString found = system_path(from_qt(page.absoluteDir().absoluteFilePath(path)));
  if (!named.isEmpty() && QFileInfo(found).isFile()) return found;
  const QString beside = page.absoluteDir().absoluteFilePath(page.completeBaseName());
  if (beside != page.absoluteFilePath() && QFileInfo(beside).isFile()) return beside;
  return named.isEmpty() ? QString() : found;
}

}  // namespace

ViewerPage viewer_page_of(const QString& text) {
  ViewerPage page;
  page.title = pattern(u"<title[^>]*>([^<]*)"_s).match(text).captured(1).simplified();
  page.file = source_of(text);
  page.page = page_number_of(last_setting(text, u"setCurrentPage"_s, u"-?\\d+"_s));
  const QString zoom = last_setting(text, u"setZoom"_s, u"\\d+(?:\\.\\d+)?"_s);
  if (!zoom.isEmpty()) page.zoom = zoom.toDouble();
  const QString layout = last_setting(text, u"setLayoutMode"_s, u"\\w+"_s);
  if (layout.contains(u"single", Qt::CaseInsensitive)) page.layout = PageLayout::single_page;
  const QString bars = last_setting(text, u"setShowScrollbars"_s, u"\\w+"_s).toLower();
  page.has_scroll_bars = bars != u"false" && bars != u"0";
  return page;
}

BookRequest read_request(const QString& path) {
  const QFileInfo place(path);
  BookRequest request;
  if (place.suffix().toLower() == u"pdf") {
    request.book = place.absoluteFilePath();
    return request;
  }
  if (!place.exists()) {
    request.fault = u"There is no file %1."_s.arg(place.absoluteFilePath());
    return request;
  }
  QFile file(path);
  if (!place.isFile() || !file.open(QIODevice::ReadOnly)) {
    request.fault = u"The file %1 can not be read."_s.arg(place.absoluteFilePath());
    return request;
  }
  const QByteArray bytes = file.read(most_bytes);
  if (bytes.startsWith("%PDF-")) {
    request.book = place.absoluteFilePath();
    return request;
  }
  request.page = viewer_page_of(QString::fromUtf8(bytes));
  request.book = find_book(request.page.file, place);
  if (request.book.isEmpty()) {
    request.fault = u"The file %1 names no book."_s.arg(place.absoluteFilePath());
  }
  return request;
}

}  // namespace practice::desktop
