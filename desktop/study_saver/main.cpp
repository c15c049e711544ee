// The study saver as a screen saver program: a host starts it to run, to show a preview or to be
// configured.
#include <QApplication>
#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <iostream>

#include <sys/socket.h>
#include <unistd.h>

#include "platform_qt/qt_platform.h"
#include "saver_request.h"
#include "saver_run.h"
#include "saver_windows.h"

namespace {

int signal_ends[2];

void pass_on(int) {
  const char byte = 1;
  // The end of the program must not wait for a full pipe.
  [[maybe_unused]] const auto sent = ::write(signal_ends[0], &byte, 1);
}

// A host ends its savers by a signal. It comes out of the event loop, where the test can be ended.
void end_at_a_signal(QObject& owner, const std::function<void()>& end) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signal_ends) != 0)
    return;
  auto* notifier = new QSocketNotifier(signal_ends[1], QSocketNotifier::Read, &owner);
  QObject::connect(notifier, &QSocketNotifier::activated, &owner, end);
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) std::signal(number, pass_on);
}

int run(const practice::desktop::ChosenTest& test) {
  if (!test.fault.isEmpty()) {
    std::cerr << "brightwater_press_study_saver: " << test.fault.toStdString() << '\n';
    return 0;
  }
  practice::desktop::SaverRun saver;
  saver.ended = [] { QCoreApplication::exit(0); };
  end_at_a_signal(saver, [&] { saver.close(); });
  saver.start(test);
  return QApplication::exec();
}

int show_preview(unsigned window) {
  practice::desktop::SaverPreview preview(QApplication::applicationDirPath() +
                                          QStringLiteral("/saver_logo.png"));
  if (!preview.show_in(window)) {
    std::cerr << "brightwater_press_study_saver: there is no window to show a preview in\n";
    return 0;
  }
  return QApplication::exec();
}

int configure(const practice::desktop::ChosenTest& test) {
  using namespace practice::desktop;
  SaverConfiguration window(test, SaverDesktop::here());
  SaverRun saver;
  window.try_it = [&] { saver.start(test); };
  window.exec();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace practice::desktop;
  QApplication qt(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Study Saver"));
  QApplication::setQuitOnLastWindowClosed(false);
  QtSettings settings;
  const SaverRequest request = saver_request(QApplication::arguments().mid(1));
  const ChosenTest test = chosen_test(settings);
  switch (request.kind) {
    case SaverRequest::Kind::run:
      return run(test);
    case SaverRequest::Kind::preview:
      return show_preview(request.window);
    case SaverRequest::Kind::configure:
      return configure(test);
  }
  return 0;
}
