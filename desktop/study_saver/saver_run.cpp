#include "saver_run.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <algorithm>
#include <csignal>

#include <sys/prctl.h>

#include "bank/catalogue.h"
#include "text.h"

namespace practice::desktop {
namespace {

constexpr int time_to_end = 1000;

}  // namespace

ChosenTest chosen_test(const Settings& settings) {
  const auto setting = [&](std::string_view key) {
    return settings.get("marlo_study_saver", "settings", key, "");
  };
  const std::string code = setting("which_test");
  const std::string place = setting("where_test");
  const auto exam = std::ranges::find(exams(), code, &Exam::code);
  ChosenTest test{.code = to_qt(code), .exam = {}, .program = {}, .fault = {}};
  if (exam != exams().end()) test.exam = to_qt(exam->name);
  if (code.empty() && place.empty()) {
    test.fault = QStringLiteral("no test has been made the screen saver");
  } else if (test.exam.isEmpty()) {
    test.fault = QStringLiteral("there is no exam \"%1\"").arg(test.code);
  } else {
    const QFileInfo program(system_path(place));
    test.program = program.absoluteFilePath();
    if (!program.isFile() || !program.isExecutable()) {
      test.fault = QStringLiteral("there is no program \"%1\"").arg(to_qt(place));
    }
  }
  return test;
}

SaverRun::SaverRun() : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint) {
  setWindowTitle(QStringLiteral("marlo_study_saver"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFixedSize(1, 1);
  move(0, 0);
  connect(&test_, &QProcess::finished, this, [this] {
    if (ended) ended();
  });
  // The test goes in whatever way this program ends.
  test_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  test_.setProcessChannelMode(QProcess::ForwardedChannels);
}

SaverRun::~SaverRun() { end_test(); }

void SaverRun::start(const ChosenTest& test) {
  show();
  lower();
  test_.setWorkingDirectory(QFileInfo(test.program).absolutePath());
  test_.start(test.program, {QStringLiteral("aaaa") + test.code});
  if (!test_.waitForStarted() && ended) ended();
}

void SaverRun::closeEvent(QCloseEvent* event) {
  event->accept();
  end_test();
  if (ended) ended();
}

void SaverRun::end_test() {
  test_.disconnect(this);
  if (test_.state() == QProcess::NotRunning) return;
  test_.terminate();
  if (!test_.waitForFinished(time_to_end)) test_.kill();
  test_.waitForFinished(time_to_end);
}

}  // namespace practice::desktop
