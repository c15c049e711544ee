#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QStringList>

#include "desk.h"
#include "platform_qt/qt_platform.h"
#include "saver_host.h"
#include "shell/application.h"
#include "text.h"

int main(int argc, char** argv) {
  using namespace practice;
  QApplication qt(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Practice Exam"));
  QApplication::setDesktopFileName(QStringLiteral("practice-exam"));
  QApplication::setQuitOnLastWindowClosed(false);
  const QString folder = QApplication::applicationDirPath();
  QApplication::setWindowIcon(QIcon(folder + QStringLiteral("/practice_exam_48.png")));

  desktop::QtFiles files;
  desktop::QtSettings settings;
  desktop::QtShell shell;
  desktop::QtInternet internet;
  desktop::QtClipboard clipboard;
  desktop::QtMessages messages;
  desktop::QtClock clock;
  desktop::QtRandom random;
  desktop::Desk desk(files);
  Platform platform{files,
                    settings,
                    shell,
                    internet,
                    clipboard,
                    messages,
                    clock,
                    random,
                    desk,
                    desktop::from_qt(folder),
                    desktop::from_qt(QLocale::system().decimalPoint()),
                    desktop::from_qt(QFileInfo(QApplication::applicationFilePath()).fileName())};
  messages.before_a_box = [&desk]() -> QWidget* {
    desk.mirror_all();
    return desk.front_widget();
  };
  desk.open_address = [&shell](const std::string& address) {
    shell.open(address, {}, WindowShow::normal);
  };

  const std::string command_line =
      desktop::from_qt(QApplication::arguments().mid(1).join(QLatin1Char(' ')));
  if (is_saver_start(command_line)) desktop::give_the_saver_its_place(desk);
  Application application(platform, command_line);
  desk.show_screens_of(application.program().forms);
  desk.enter([&] { application.start(); });
  const int code = application.has_ended() ? 0 : QApplication::exec();
  desk.take_down();
  return code;
}
