// Saves a hundred settings, one by one, as a second running copy of the program would.
//   settings_writer FOLDER COPY
#include <QCoreApplication>
#include <QSettings>

#include "platform_qt/qt_platform.h"
#include "text.h"

int main(int argc, char** argv) {
  using namespace practice::desktop;
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, arguments.at(1));
  QtSettings settings;
  for (int i = 0; i < 100; ++i) {
    settings.save("marlotest", "stuff", from_qt(arguments.at(2)) + std::to_string(i),
                  std::to_string(i));
  }
}
