// Pictures of a page, from one folder and no other place.
//
// A source is a file name as a page writes it: slashes or backslashes, any case, alone or behind
// the path of the folder. It is followed only to a plain file within the folder, links resolved,
// and only to a picture of a sensible size. Whatever is refused is drawn as a box with its name.
#pragma once

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace practice::desktop {

/// The path as the disk spells it: backslashes are slashes, and a part that is not found as it is
/// written is found in another case. Empty when there is no such file or folder.
QString find_on_disk(const QString& path);

/// The canonical path of a page's picture within the folder; empty when the source leads anywhere
/// else, or nowhere.
QString find_in_folder(const QString& folder, const QString& source);

/// Empty when the file is no picture of a known kind or larger than 16 million pixels. One of more
/// than 4 million is made smaller.
QImage read_picture(const QString& path);

class Pictures {
 public:
  /// With or without a separator at its end; empty lets no picture in.
  void set_folder(const QString& folder) { folder_ = folder; }

  /// Null when the source is refused.
  QPixmap find(const QString& source);

 private:
  QString folder_;
  /// By path and time of the last change; cost in bytes.
  QCache<QString, QPixmap> cache_{4 << 20};
};

}  // namespace practice::desktop
