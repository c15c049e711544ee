#include "text.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace practice::desktop {

QString system_path(std::string_view path) {
  QString wanted = to_qt(path);
  wanted.replace(u'\\', u'/');
  wanted = QDir::cleanPath(wanted);
  if (QFileInfo::exists(wanted)) return wanted;

  const QStringList names = wanted.split(u'/');
  QString found = QDir::isAbsolutePath(wanted) ? QString() : QStringLiteral(".");
  for (qsizetype i = 0; i < names.size(); ++i) {
    if (names[i].isEmpty()) continue;
    QString next = found + u'/' + names[i];
    if (!QFileInfo::exists(next)) {
      const QDir folder(found.isEmpty() ? QStringLiteral("/") : found);
      const QStringList entries =
          folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
      for (const QString& entry : entries) {
        if (entry.compare(names[i], Qt::CaseInsensitive) == 0) {
          next = found + u'/' + entry;
          break;
        }
      }
    }
    found = next;
  }
  return found;
}

}  // namespace practice::desktop
