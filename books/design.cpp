#include "book_setting/design.h"

namespace practice::books {

QString family_of(Face face) {
  switch (face) {
    case Face::serif:
      return QStringLiteral("Liberation Serif");
    case Face::sans:
      return QStringLiteral("Liberation Sans");
    case Face::mono:
      break;
  }
  return QStringLiteral("DejaVu Sans Mono");
}

QFont font_of(Face face, int size, bool bold, bool italic) {
  QFont font(family_of(face));
  font.setPixelSize(size);
  font.setBold(bold);
  font.setItalic(italic);
  font.setHintingPreference(QFont::PreferNoHinting);
  // A sign that the face lacks is a fault; a sign from some other face would hide it.
  font.setStyleStrategy(QFont::NoFontMerging);
  return font;
}

}  // namespace practice::books
