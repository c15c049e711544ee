// A student who takes a short test and grades it, again and again, on the real disk and without
// windows. The files lie in the working folder. Told what to do on standard input, a line each:
//   grade N     takes a test of three questions, question k right when bit k - 1 of N is set
//   limit N     no file grows beyond N bytes any more; -1 takes that back
//   sync 0      the disk fails when it is to keep what it took; 1 takes that back
//   unnamed 0   the disk knows no files without a name, as those of other systems
//   slow 1      the disk takes its time, and little at once
// Standard output tells "begin NAME" in front of each write of a file and "end NAME" or "failed
// NAME" behind it, and "done" behind each command: what stands there when the process is killed
// tells where it was.
#include <QCoreApplication>
#include <QDir>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform_qt/qt_platform.h"
#include "robot/world.h"
#include "shell/application.h"
#include "text.h"

namespace {
bool sync_works = true;
bool unnamed_files_work = true;
bool is_slow = false;
}  // namespace

// These three stand in front of the system's own. Some disks tell only here that they are full.
extern "C" int fdatasync(int file) {
  if (sync_works) return static_cast<int>(::syscall(SYS_fdatasync, file));
  errno = ENOSPC;
  return -1;
}

extern "C" int open64(const char* path, int flags, ...) {
  const bool is_unnamed = (flags & O_TMPFILE) == O_TMPFILE;
  if (is_unnamed && !unnamed_files_work) {
    errno = EOPNOTSUPP;
    return -1;
  }
  mode_t mode = 0;
  if (is_unnamed || (flags & O_CREAT) != 0) {
    va_list more;
    va_start(more, flags);
    mode = va_arg(more, mode_t);
    va_end(more);
  }
  return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" ssize_t write(int file, const void* bytes, std::size_t size) {
  if (is_slow && file != STDOUT_FILENO) {
    ::usleep(50);
    size = std::min<std::size_t>(size, 2048);
  }
  return static_cast<ssize_t>(::syscall(SYS_write, file, bytes, size));
}

namespace practice::desktop {
namespace {

void tell(const std::string& text) {
  const std::string line = text + '\n';
  if (::write(STDOUT_FILENO, line.data(), line.size()) < 0) std::_Exit(3);
}

[[noreturn]] void give_up(const std::string& why) {
  std::cerr << why << '\n';
  std::exit(2);
}

class ToldFiles : public QtFiles {
 public:
  void write(std::string_view path, std::string_view content) override {
    const std::string name(path);
    tell("begin " + name);
    try {
      QtFiles::write(path, content);
    } catch (...) {
      tell("failed " + name);
      throw;
    }
    tell("end " + name);
  }
};

class GradingStudent {
 public:
  GradingStudent() {
    stage_.modal_user = [](Screen& shown) { press(shown, "Closeb"); };
    stage_.forms = &application_.program().forms;
    application_.start();
    press(application_.welcome(), "Image4");
    application_.pick_a_quiz().txtstudentname.text = "anna";
    application_.pick_a_quiz().find("txtstudentname")->change();
  }

  void grade(unsigned right) {
    PickAQuiz& options = application_.pick_a_quiz();
    for (CheckBox* box : {&options.random_questions, &options.random_answers}) box->value = 0;
    press(options, "Command1");
    application_.program().options.show_answer_when_wrong = 0;
    for (unsigned question = 1; question <= 4; question <<= 1) {
      if ((right & question) != 0) mark_right_answers();
      press(application_.quest(), "cmd_buttons");
    }
    press(application_.quest(), "menu_quittest");
    press(application_.finalscore(), "Command1");
  }

 private:
  static void press(Screen& screen, std::string_view name) {
    const ControlEntry* entry = screen.find(name);
    if (entry == nullptr || !screen.visible || !base_of(entry->control).visible || !entry->click) {
      give_up(screen.form_name + ": no student can press " + std::string(name));
    }
    entry->click();
  }

  void mark_right_answers() {
    const Question& question = application_.program().current_question;
    html::Document& page = application_.quest().WebBrowser1.view.document;
    const bool one = application_.program().test_run.question_kind == kind::radio_button;
    for (int i = 1; i <= 6; ++i) {
      if (question.answer_correct[i] != 1) continue;
      html::Input* input =
          one ? page.input("radio1", i - 1) : page.input("ans" + std::to_string(i));
      if (input == nullptr) give_up("a question without marks");
      page.set_checked(*input, true);
    }
  }

  ToldFiles files_;
  robot::MemorySettings settings_;
  robot::RecordedShell shell_;
  robot::ScriptedInternet internet_;
  robot::MemoryClipboard clipboard_;
  robot::ScriptedMessages messages_;
  robot::ScriptedClock clock_;
  robot::ScriptedRandom random_;
  robot::MemoryStage stage_{files_, clock_};
  Platform platform_{files_,    settings_, shell_,  internet_, clipboard_,
                     messages_, clock_,    random_, stage_,    from_qt(QDir::currentPath())};
  Application application_{platform_, "46000"};
};

void limit_file_size(long bytes) {
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes < 0 ? limit.rlim_max : static_cast<rlim_t>(bytes);
  if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) give_up("the size of files can not be limited");
}

}  // namespace
}  // namespace practice::desktop

int main(int argc, char** argv) {
  using namespace practice::desktop;
  const QCoreApplication qt(argc, argv);
  // What goes beyond the limit fails as on a full disk, and does not end the process.
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    GradingStudent student;
    for (std::string line; std::getline(std::cin, line);) {
      std::istringstream words(line);
      std::string command;
      long number = 0;
      words >> command >> number;
      if (command == "grade") {
        student.grade(static_cast<unsigned>(number));
      } else if (command == "limit") {
        limit_file_size(number);
      } else if (command == "sync") {
        sync_works = number != 0;
      } else if (command == "unnamed") {
        unnamed_files_work = number != 0;
      } else if (command == "slow") {
        is_slow = number != 0;
      } else {
        give_up("an unknown command: " + line);
      }
      tell("done");
    }
  } catch (const practice::robot::RobotFailure& failure) {
    give_up(failure.text);
  }
}
