#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

#include "platform/values/fault.h"
#include "platform_qt/qt_platform.h"
#include "text.h"

namespace practice::desktop {
namespace {

Fault fault_of(const QFileDevice& file) {
  switch (file.error()) {
    case QFileDevice::PermissionsError:
      return Fault::permission_denied();
    case QFileDevice::ResourceError:
      return Fault::disk_full();
    case QFileDevice::WriteError:
      return Fault::disk_full();
    default:
      break;
  }
  const QFileInfo folder(QFileInfo(file.fileName()).absolutePath());
  if (!folder.isDir()) return Fault::path_not_found();
  if (!folder.isWritable()) return Fault::permission_denied();
  return Fault::path_access();
}

void write_all(QFileDevice& file, std::string_view content) {
  const auto size = static_cast<qint64>(content.size());
  if (file.write(content.data(), size) != size || !file.flush()) throw fault_of(file);
}

void open_to_read(QFile& file) {
  if (!file.exists()) throw Fault::file_not_found();
  if (!file.open(QIODevice::ReadOnly)) throw fault_of(file);
}

}  // namespace

bool QtFiles::exists(std::string_view path) const {
  return !path.empty() && QFileInfo(system_path(path)).isFile();
}

std::string QtFiles::read(std::string_view path) const {
  QFile file(system_path(path));
  open_to_read(file);
  return file.readAll().toStdString();
}

std::string QtFiles::read_start(std::string_view path, std::size_t bytes) const {
  QFile file(system_path(path));
  open_to_read(file);
  return file.read(static_cast<qint64>(bytes)).toStdString();
}

void QtFiles::write(std::string_view path, std::string_view content) {
  QSaveFile file(system_path(path));
  if (!file.open(QIODevice::WriteOnly)) throw fault_of(file);
  write_all(file, content);
  if (!file.commit()) throw fault_of(file);
}

void QtFiles::append(std::string_view path, std::string_view content) {
  QFile file(system_path(path));
  if (!file.open(QIODevice::Append)) throw fault_of(file);
  write_all(file, content);
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
