#include "page_view/pictures.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

constexpr qint64 most_bytes = 32 << 20;
constexpr qint64 most_pixels = 16'000'000;
constexpr qint64 most_kept_pixels = 4'000'000;

QString with_slashes(QString path) {
  path.replace(u'\\', u'/');
  return path;
}

/// Follows the parts from `start`, each in any case; nothing when one is missing.
std::optional<QString> follow(const QString& start, const QStringList& parts) {
  QString path = start;
  for (const QString& part : parts) {
    if (part.isEmpty() || part == u".") continue;
    const QString exact = path + u'/' + part;
    if (QFileInfo::exists(exact)) {
      path = exact;
      continue;
    }
    const QStringList names =
        QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    const auto found = std::find_if(names.begin(), names.end(), [&](const QString& name) {
      return name.compare(part, Qt::CaseInsensitive) == 0;
    });
    if (found == names.end()) return std::nullopt;
    path += u'/' + *found;
  }
  return path;
}

QString without_file_scheme(const QString& path) {
  return path.startsWith("file://"_L1, Qt::CaseInsensitive) ? path.mid(7) : path;
}

}  // namespace

QString find_on_disk(const QString& path) {
  const QString slashed = with_slashes(path);
  if (slashed.isEmpty()) return {};
  const QString absolute =
      QDir::isAbsolutePath(slashed) ? slashed : QDir::currentPath() + u'/' + slashed;
  const std::optional<QString> found = follow(QString(), absolute.split(u'/'));
  if (!found) return {};
  return found->isEmpty() ? u"/"_s : *found;
}

QString find_in_folder(const QString& folder, const QString& source) {
  const QString root = QFileInfo(find_on_disk(folder)).canonicalFilePath();
  if (folder.isEmpty() || root.isEmpty()) return {};

  QString inner = without_file_scheme(with_slashes(source.trimmed()));
  QString opening = with_slashes(folder);
  if (!opening.endsWith(u'/')) opening += u'/';
  // A bare name is broken too: pages stand in no folder.
  if (!inner.startsWith(opening, Qt::CaseInsensitive)) return {};
  inner.remove(0, opening.size());
  const QStringList parts = inner.split(u'/');
  if (inner.isEmpty() || parts.contains(u".."_s)) return {};

  const std::optional<QString> found = follow(root, parts);
  if (!found) return {};
  const QFileInfo file(*found);
  const QString path = file.canonicalFilePath();
  return file.isFile() && path.startsWith(root + u'/') ? path : QString();
}

QImage read_picture(const QString& path) {
  const QFileInfo file(path);
  if (!file.isFile() || file.size() > most_bytes) return {};
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  static const QList<QByteArray> kinds = {"png", "gif", "jpeg", "jpg", "bmp"};
  if (!kinds.contains(reader.format())) return {};
  const QSize size = reader.size();
  if (size.isEmpty()) return {};
  const qint64 pixels = qint64{size.width()} * size.height();
  if (pixels > most_pixels) return {};
  if (pixels > most_kept_pixels) {
    const double part =
        std::sqrt(static_cast<double>(most_kept_pixels) / static_cast<double>(pixels));
    reader.setScaledSize(QSize(std::max(1, static_cast<int>(size.width() * part)),
                               std::max(1, static_cast<int>(size.height() * part))));
  }
  return reader.read();
}

QPixmap Pictures::find(const QString& source) {
  const QString path = find_in_folder(folder_, source);
  if (path.isEmpty()) return {};
  const QString key =
      path + u'\n' + QString::number(QFileInfo(path).lastModified().toMSecsSinceEpoch());
  if (const QPixmap* kept = cache_.object(key)) return *kept;
  const QPixmap picture = QPixmap::fromImage(read_picture(path));
  if (!picture.isNull()) {
    const qsizetype bytes = qsizetype{picture.width()} * picture.height() * 4;
    cache_.insert(key, new QPixmap(picture), bytes);
  }
  return picture;
}

}  // namespace practice::desktop
