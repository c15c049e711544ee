// Between the core's UTF-8 texts and backslash paths, and Qt's strings and the system's paths. The
// only place that converts.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace practice::desktop {

inline QString to_qt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string from_qt(const QString& text) { return text.toStdString(); }

/// The system's path for a path of the program: backslashes are slashes, and each name that does
/// not exist as it is written is looked for whatever its case. A path without a folder lies in the
/// working folder. What is not found stays as it is written.
QString system_path(std::string_view path);

}  // namespace practice::desktop
