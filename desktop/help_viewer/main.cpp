// help_viewer [FILE]: shows a help file, by default the guide beside the program; also a page or a
// plain text.
#include <QApplication>
#include <QIcon>
#include <QStringList>

#include "help_window.h"

int main(int argc, char** argv) {
  using namespace Qt::StringLiterals;
  QApplication qt(argc, argv);
  QApplication::setApplicationName(u"Practice Exam Help"_s);
  const QString folder = QApplication::applicationDirPath();
  QApplication::setWindowIcon(QIcon(folder + u"/practice_exam_48.png"_s));

  practice::desktop::HelpWindow window;
  const QStringList arguments = QApplication::arguments();
  window.open(arguments.size() > 1 ? arguments[1] : folder + u"/marlo.chm"_s);
  window.show();
  return QApplication::exec();
}
