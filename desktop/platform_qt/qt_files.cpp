#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/values/fault.h"
#include "platform_qt/qt_platform.h"
#include "text.h"

namespace practice::desktop {
namespace {

Fault fault_of(QFileDevice::FileError error, const QString& path) {
  switch (error) {
    case QFileDevice::PermissionsError:
      return Fault::permission_denied();
    case QFileDevice::ResourceError:
    case QFileDevice::WriteError:
      return Fault::disk_full();
    default:
      break;
  }
  const QFileInfo folder(QFileInfo(path).absolutePath());
  if (!folder.isDir()) return Fault::path_not_found();
  if (!folder.isWritable()) return Fault::permission_denied();
  return Fault::path_access();
}

Fault fault_of(const QFile& file) { return fault_of(file.error(), file.fileName()); }

Fault fault_of_last_call() { return Fault::of({errno, std::generic_category()}); }

void write_all(QFile& file, const QString& path, std::string_view content) {
  const auto size = static_cast<qint64>(content.size());
  if (file.write(content.data(), size) != size || !file.flush()) throw fault_of(file.error(), path);
}

// Some disks take all bytes and tell only here that they have no room for them.
void keep(const QFile& file) {
  if (::fdatasync(file.handle()) == 0) return;
  // Not every disk can be asked.
  if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP) return;
  throw fault_of_last_call();
}

void open_to_read(QFile& file) {
  if (!file.exists()) throw Fault::file_not_found();
  if (!file.open(QIODevice::ReadOnly)) throw fault_of(file);
}

// The part of a file that could be read must not be taken for the whole.
std::string checked(const QFile& file, const QByteArray& content) {
  if (file.error() != QFileDevice::NoError) throw fault_of(file);
  return content.toStdString();
}

/// As the file that is replaced, or as any new file.
QFile::Permissions permissions_for(const QFileInfo& target) {
  if (target.exists()) return target.permissions();
  const mode_t mask = ::umask(0);
  ::umask(mask);
  QFile::Permissions result = QFile::ReadOwner | QFile::WriteOwner;
  if ((mask & S_IRGRP) == 0) result |= QFile::ReadGroup;
  if ((mask & S_IWGRP) == 0) result |= QFile::WriteGroup;
  if ((mask & S_IROTH) == 0) result |= QFile::ReadOther;
  if ((mask & S_IWOTH) == 0) result |= QFile::WriteOther;
  return result;
}

// Qt puts six letters in place of the X. Nobody else names a file so, which tells what a killed
// process left from a student's copy such as "46000.ANNA.results.backup".
QString unfinished_name() { return QStringLiteral("practice-exam-XXXXXX.unfinished"); }

void remove_stale_files(const QDir& folder) {
  static const QRegularExpression pattern(
      QStringLiteral("\\Apractice-exam-[A-Za-z0-9]{6}\\.unfinished\\z"));
  // Another running copy may be writing what is younger.
  constexpr qint64 least_age_seconds = 60;
  const QDateTime last = QDateTime::currentDateTime().addSecs(-least_age_seconds);
  const QFileInfoList files = folder.entryInfoList({QStringLiteral("practice-exam-*.unfinished")},
                                                   QDir::Files | QDir::NoSymLinks);
  for (const QFileInfo& file : files) {
    if (!pattern.match(file.fileName()).hasMatch() || file.lastModified() > last) continue;
    QFile::remove(file.filePath());
  }
}

}  // namespace

bool QtFiles::exists(std::string_view path) const {
  return !path.empty() && QFileInfo(system_path(path)).isFile();
}

std::string QtFiles::read(std::string_view path) const {
  QFile file(system_path(path));
  open_to_read(file);
  return checked(file, file.readAll());
}

std::string QtFiles::read_start(std::string_view path, std::size_t bytes) const {
  QFile file(system_path(path));
  open_to_read(file);
  return checked(file, file.read(static_cast<qint64>(bytes)));
}

void QtFiles::write(std::string_view path, std::string_view content) {
  QFileInfo target(system_path(path));
  // A link stays, and the file that it leads to is replaced.
  if (target.isSymLink()) target.setFile(target.symLinkTarget());
  if (target.exists() && !target.isWritable()) throw Fault::permission_denied();
  const QDir folder = target.absoluteDir();
  const QString place = target.absoluteFilePath();
  remove_stale_files(folder);

  // Goes again with this object until it has taken the place of the old file. Where the disk
  // allows, it has no name before it is complete.
  QTemporaryFile file(folder.filePath(unfinished_name()));
  if (!file.open()) throw fault_of(file.error(), place);
  file.setPermissions(permissions_for(target));
  write_all(file, place, content);
  keep(file);
  if (std::rename(QFile::encodeName(file.fileName()), QFile::encodeName(place)) != 0) {
    throw fault_of_last_call();
  }
  file.setAutoRemove(false);
}

void QtFiles::append(std::string_view path, std::string_view content) {
  QFile file(system_path(path));
  if (!file.open(QIODevice::Append)) throw fault_of(file);
  write_all(file, file.fileName(), content);
  ::fsync(file.handle());
}

void QtFiles::remove(std::string_view path) {
  if (!exists(path)) throw Fault::file_not_found();
  // Names that differ by case are one file to the program, and all of them go.
  while (exists(path)) {
    QFile file(system_path(path));
    if (!file.remove()) throw fault_of(file);
  }
}

}  // namespace practice::desktop
