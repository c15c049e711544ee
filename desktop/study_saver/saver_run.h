// The saver at work: it starts the test that the student has chosen in its saver role, and goes
// when that test goes, when its window is asked to close, or when the host ends it.
#pragma once

#include <QProcess>
#include <QString>
#include <QWidget>
#include <functional>

#include "platform/platform.h"

namespace practice::desktop {

struct ChosenTest {
  /// Five digits.
  QString code;
  /// The exam's name, such as "FALCO".
  QString exam;
  /// The system's path of its program.
  QString program;
  /// Why it can not run, for a developer; empty when it can.
  QString fault;
};

/// The test that the student made the screen's saver.
ChosenTest chosen_test(const Settings& settings);

/// Has the title by which a test in its saver role asks for the end.
class SaverRun : public QWidget {
 public:
  SaverRun();
  ~SaverRun() override;

  void start(const ChosenTest& test);
  /// Runs once when all is over.
  std::function<void()> ended;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void end_test();

  QProcess test_;
};

}  // namespace practice::desktop
