#include "saver_request.h"

namespace practice::desktop {
namespace {

// "-x", "--x" and "/X" are all x.
QString plain_name(const QString& argument) {
  qsizetype start = 0;
  while (start < argument.size() && (argument[start] == u'-' || argument[start] == u'/')) ++start;
  return start == 0 ? QString() : argument.mid(start).toLower();
}

}  // namespace

SaverRequest saver_request(const QStringList& arguments) {
  SaverRequest request{.kind = SaverRequest::Kind::configure};
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    // A host may write "/p:1234" as well as "/p 1234".
    const QString name = plain_name(arguments[i]).section(u':', 0, 0);
    QString value = arguments[i].section(u':', 1);
    if (value.isEmpty() && i + 1 < arguments.size()) value = arguments[i + 1];
    if (name == QStringLiteral("root") || name == QStringLiteral("s")) {
      request.kind = SaverRequest::Kind::run;
    } else if (name == QStringLiteral("window-id") || name == QStringLiteral("p")) {
      request.kind = SaverRequest::Kind::preview;
      request.window = value.toUInt(nullptr, 0);
    } else if (name == QStringLiteral("configure") || name == QStringLiteral("c")) {
      request.kind = SaverRequest::Kind::configure;
    }
  }
  return request;
}

}  // namespace practice::desktop
