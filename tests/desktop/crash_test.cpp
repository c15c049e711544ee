// A student's files after a kill in the middle of grading, on a full disk and in a folder that can
// not be written to: each is what it was or what it was to become, and whole.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <csignal>
#include <functional>
#include <iostream>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include "platform/values/fault.h"
#include "platform_qt/qt_platform.h"
#include "text.h"

namespace practice::desktop {
namespace {

constexpr const char* results_name = "46000.ANNA.results";
constexpr const char* history_name = "history.46000.ANNA.htm";

std::string lines_of(const std::vector<std::string>& lines) {
  std::string content;
  for (const std::string& line : lines) content += line + "\r\n";
  return content;
}

bool is_right(unsigned grading, unsigned question) { return (grading >> (question - 1) & 1) != 0; }

/// The results file that a grading leaves; 0 stands for the file of old. Gradings one behind the
/// other differ.
std::string results_after(unsigned grading) {
  std::vector<std::string> lines;
  for (unsigned i = 1; i <= 1000; ++i) {
    bool wrong = i % 7 == 0;
    // Three of the test's fifty questions are answered; the others count as wrong until they are.
    if (grading > 0 && i <= 50) wrong = i > 3 || !is_right(grading, i);
    lines.push_back((wrong ? "1," : "0,") + std::to_string(i));
  }
  return lines_of(lines);
}

const std::string old_header = "<html><center><h2> History Report for ANNA </h2></html>\r\n";

const std::string& old_entries() {
  static const std::string content = [] {
    std::vector<std::string> lines;
    for (int i = 150; i >= 1; --i) {
      lines.push_back("<p><b> Old entry " + std::to_string(i) + "</b>" + std::string(2500, '-') +
                      "<p>&nbsp;</p>");
    }
    return lines_of(lines);
  }();
  return content;
}

/// The lines between the header and the old entries, newest first.
std::vector<std::string> new_entries_of(const std::string& history) {
  const std::size_t old_size = old_header.size() + old_entries().size();
  std::vector<std::string> result;
  if (history.size() < old_size || !history.starts_with(old_header) ||
      !history.ends_with(old_entries())) {
    ADD_FAILURE() << "the old history is not whole: " << history.size() << " of " << old_size
                  << " bytes";
    return result;
  }
  std::string rest = history.substr(old_header.size(), history.size() - old_size);
  for (auto end = rest.find("\r\n"); end != std::string::npos; end = rest.find("\r\n")) {
    result.push_back(rest.substr(0, end));
    rest.erase(0, end + 2);
  }
  EXPECT_EQ(rest, "") << "an entry is not whole";
  return result;
}

void expect_entry_of(unsigned grading, const std::string& line) {
  int right = 0;
  for (unsigned i = 1; i <= 3; ++i) right += is_right(grading, i) ? 1 : 0;
  const std::string start = "<p><b> FALCO Book Quiz Results:</b><br>" + std::to_string(2 * right) +
                            "%&nbsp;&nbsp;(" + std::to_string(right) +
                            "/50)&nbsp;&nbsp;-&nbsp;&nbsp;Date: ";
  EXPECT_TRUE(line.starts_with(start)) << "grading " << grading << ": " << line;
  EXPECT_TRUE(line.ends_with("</td></tr></table><p>&nbsp;</p>")) << line;
}

/// 1, 2 and so on.
std::vector<unsigned> gradings_up_to(unsigned last) {
  std::vector<unsigned> gradings(last);
  std::iota(gradings.begin(), gradings.end(), 1u);
  return gradings;
}

// The working folder of a student who took tests before.
class StudentFolder {
 public:
  explicit StudentFolder(QString path) : path_(std::move(path)) {
    const QString data = QStringLiteral(PRACTICE_EXAM_DATA "/distribution/");
    EXPECT_TRUE(QDir().mkpath(file("bw_falco")));
    EXPECT_TRUE(QFile::copy(data + QStringLiteral("q_bottom.ini"), file("q_bottom.ini")));
    EXPECT_TRUE(QFile::copy(data + QStringLiteral("blank.htm"), file("bw_falco/blank.htm")));
    put(results_name, results_after(0));
    put(history_name, old_header + old_entries());
  }

  const QString& path() const { return path_; }
  QString file(const char* name) const { return path_ + u'/' + QString::fromLatin1(name); }

  std::string content(const char* name) const {
    QFile in(file(name));
    EXPECT_TRUE(in.open(QIODevice::ReadOnly)) << name;
    return in.readAll().toStdString();
  }
  std::size_t new_entries() const { return new_entries_of(content(history_name)).size(); }

  void expect_results_of(unsigned grading) const {
    const std::string results = content(results_name);
    // A plain comparison would print all the lines.
    EXPECT_TRUE(results == results_after(grading))
        << "not the results of grading " << grading << ", " << results.size() << " bytes";
  }
  void expect_history_of(const std::vector<unsigned>& gradings) const {
    const std::vector<std::string> entries = new_entries_of(content(history_name));
    ASSERT_EQ(entries.size(), gradings.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
      expect_entry_of(gradings[gradings.size() - 1 - i], entries[i]);
    }
  }

  /// The files that neither the distribution nor a finished grading accounts for.
  QStringList left_over() const {
    QStringList names = QDir(path_).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const char* name : {results_name, history_name, "temp.hist", "testing.log", "error.log",
                             "file.wrt", "q_bottom.ini", "filler"}) {
      names.removeAll(QString::fromLatin1(name));
    }
    return names;
  }

 private:
  void put(const char* name, const std::string& content) const {
    QFile out(file(name));
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    ASSERT_EQ(out.write(QByteArray::fromStdString(content)), static_cast<qint64>(content.size()));
  }

  QString path_;
};

/// As if the file had been written that many seconds ago.
void make_older(const QString& path, int seconds) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                               QFileDevice::FileModificationTime));
}

// The program with its student, in a process of its own.
class Student {
 public:
  explicit Student(const StudentFolder& folder) {
    process_.setWorkingDirectory(folder.path());
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(GRADING_STUDENT), {});
  }
  ~Student() {
    if (was_killed_) return;
    process_.closeWriteChannel();
    EXPECT_TRUE(process_.waitForFinished(longest_wait));
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process_.exitCode(), 0);
  }
  Student(const Student&) = delete;
  Student& operator=(const Student&) = delete;

  void tell(const std::string& command, long number) {
    process_.write(QByteArray::fromStdString(command + ' ' + std::to_string(number) + '\n'));
  }
  /// Returns when the student has done what it was told.
  void ask(const std::string& command, long number) {
    const unsigned before = count("done");
    tell(command, number);
    while (count("done") == before) ASSERT_TRUE(listen()) << command << ' ' << number;
  }
  void wait_for(const std::string& line) {
    while (count(line) == 0) ASSERT_TRUE(listen()) << line;
  }
  void kill_after(int microseconds) {
    // What is still to be told goes into the pipe first: the student must not come to a rest.
    while (process_.bytesToWrite() > 0) ASSERT_TRUE(process_.waitForBytesWritten(longest_wait));
    ::usleep(static_cast<useconds_t>(microseconds));
    ASSERT_EQ(::kill(static_cast<pid_t>(process_.processId()), SIGKILL), 0);
    was_killed_ = true;
    ASSERT_TRUE(process_.waitForFinished(longest_wait));
    read();
  }

  unsigned count(const std::string& line) const {
    return static_cast<unsigned>(std::count(lines_.begin(), lines_.end(), line));
  }
  unsigned written(const std::string& name) const { return count("end " + name); }
  /// The file that was being written when the process ended; empty when none was.
  std::string file_in_writing() const {
    const std::string begin = "begin ";
    const bool is_in_writing = !lines_.empty() && lines_.back().starts_with(begin);
    return is_in_writing ? lines_.back().substr(begin.size()) : std::string();
  }

 private:
  static constexpr int longest_wait = 60'000;

  bool listen() {
    if (!process_.waitForReadyRead(longest_wait)) return false;
    read();
    return true;
  }
  void read() {
    while (process_.canReadLine()) lines_.push_back(process_.readLine().trimmed().toStdString());
  }

  QProcess process_;
  std::vector<std::string> lines_;
  bool was_killed_ = false;
};

class Kills {
 public:
  explicit Kills(unsigned seed) : dice_(seed) {}

  int in_a_write = 0;
  int left_unfinished = 0;

  void kill_once() {
    // From the first write of either file, and sooner more often than later, as a write is short
    // beside a test.
    const std::string start = dice_() % 2 == 0 ? results_name : history_name;
    // On one disk a file is whole before it has a name, on another it has one from its first byte
    // on. A fast disk is mostly hit when it keeps what it took, a slow one when it takes it.
    const int unnamed_files = dice_() % 2 == 0 ? 1 : 0;
    const int slow = dice_() % 2 == 0 ? 1 : 0;
    const double draw = std::uniform_real_distribution(0.0, 1.0)(dice_);
    const int microseconds = static_cast<int>(50'000 * draw * draw * draw);
    SCOPED_TRACE(std::to_string(microseconds) + " microseconds behind the start of " + start +
                 ", unnamed " + std::to_string(unnamed_files) + ", slow " + std::to_string(slow));
    const QTemporaryDir place;
    ASSERT_TRUE(place.isValid());
    const StudentFolder folder(place.path());
    unsigned entries = 0;
    {
      Student student(folder);
      student.ask("unnamed", unnamed_files);
      student.ask("slow", slow);
      for (unsigned grading = 1; grading <= 200; ++grading) student.tell("grade", grading);
      student.wait_for("begin " + start);
      student.kill_after(microseconds);
      expect_old_or_new(student, folder);
      if (!student.file_in_writing().empty()) ++in_a_write;
      entries = static_cast<unsigned>(folder.new_entries());
    }
    const QStringList unfinished = folder.left_over();
    EXPECT_LE(unfinished.size(), 1);
    if (!unfinished.empty()) ++left_unfinished;

    Student student(folder);
    student.ask("unnamed", unnamed_files);
    student.ask("grade", ++entries);
    folder.expect_results_of(entries);
    folder.expect_history_of(gradings_up_to(entries));
    for (const QString& name : folder.left_over()) make_older(place.filePath(name), 3600);
    student.ask("grade", ++entries);
    folder.expect_results_of(entries);
    folder.expect_history_of(gradings_up_to(entries));
    EXPECT_EQ(folder.left_over(), QStringList()) << "what the kill left is still there";
  }

 private:
  // What was written stays written; what was being written may be there already.
  static void expect_old_or_new(const Student& student, const StudentFolder& folder) {
    const std::string in_writing = student.file_in_writing();
    unsigned results = student.written(results_name);
    if (in_writing == results_name && folder.content(results_name) == results_after(results + 1)) {
      ++results;
    }
    folder.expect_results_of(results);
    unsigned entries = student.written(history_name);
    if (in_writing == history_name && folder.new_entries() == entries + 1) ++entries;
    folder.expect_history_of(gradings_up_to(entries));
  }

  std::mt19937 dice_;
};

TEST(Crash, AKillInTheMiddleOfGradingLeavesEachFileOldOrNewAndWhole) {
  const int wanted = qEnvironmentVariableIsSet("PRACTICE_EXAM_LONG_TESTS") ? 200 : 20;
  const char* seed_name = "PRACTICE_EXAM_CRASH_SEED";
  const unsigned seed =
      qEnvironmentVariableIsSet(seed_name) ? qgetenv(seed_name).toUInt() : std::random_device()();
  SCOPED_TRACE(seed_name + ("=" + std::to_string(seed)));
  Kills kills(seed);
  for (int i = 1; i <= wanted && !HasFailure(); ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    kills.kill_once();
  }
  EXPECT_GT(kills.in_a_write, 0) << "no kill fell into a write";
  std::cout << kills.in_a_write << " of " << wanted << " kills fell into a write, "
            << kills.left_unfinished << " left a file unfinished\n";
}

// A student who grades on a disk that fails in between, without a new start.
class FailingDisk : public testing::Test {
 protected:
  using Step = std::function<void()>;

  void begin(const QString& path) {
    folder = std::make_unique<StudentFolder>(path);
    student = std::make_unique<Student>(*folder);
    grade();
    expect_all_is_well();
  }
  void TearDown() override { student.reset(); }

  void grade() {
    student->ask("grade", ++grading);
    graded.push_back(grading);
  }
  void expect_all_is_well() {
    folder->expect_results_of(grading);
    folder->expect_history_of(graded);
    EXPECT_EQ(folder->left_over(), QStringList());
  }
  /// Grades once between `fail` and `mend`, and once behind them.
  void grade_in_between(const Step& fail, const Step& mend, bool results_fit = false) {
    const unsigned before = grading;
    fail();
    grade();
    graded.pop_back();
    folder->expect_results_of(results_fit ? grading : before);
    folder->expect_history_of(graded);
    EXPECT_EQ(folder->left_over(), QStringList());
    mend();
    grade();
    expect_all_is_well();
  }

  QTemporaryDir place;
  std::unique_ptr<StudentFolder> folder;
  std::unique_ptr<Student> student;
  unsigned grading = 0;
  /// The gradings in the history.
  std::vector<unsigned> graded;
};

TEST_F(FailingDisk, FilesThatCanNotGrowStayTheOldOnes) {
  begin(place.path());
  const Step mend = [this] { student->ask("limit", -1); };
  for (const long unnamed_files : {1L, 0L}) {
    student->ask("unnamed", unnamed_files);
    for (const long bytes : {0L, 1L, 4096L, 6892L}) {
      SCOPED_TRACE(bytes);
      grade_in_between([&] { student->ask("limit", bytes); }, mend);
    }
    for (const long bytes : {6893L, 100'000L}) {
      SCOPED_TRACE(bytes);
      grade_in_between([&] { student->ask("limit", bytes); }, mend, true);
    }
  }
}

// Network folders and those with a quota may take all bytes and fail at the end.
TEST_F(FailingDisk, FilesThatTheDiskTookButCanNotKeepDoNotReplaceTheOldOnes) {
  begin(place.path());
  for (const long unnamed_files : {1L, 0L}) {
    student->ask("unnamed", unnamed_files);
    grade_in_between([&] { student->ask("sync", 0); }, [&] { student->ask("sync", 1); });
  }
}

// A small disk that only this process and its children see.
class SmallDisk : public FailingDisk {
 protected:
  void SetUp() override {
    const QByteArray path = place.path().toUtf8();
    is_mounted = ::unshare(CLONE_NEWNS) == 0 &&
                 ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                 ::mount("small", path.constData(), "tmpfs", 0, size) == 0;
  }
  void TearDown() override {
    FailingDisk::TearDown();
    if (is_mounted) {
      EXPECT_EQ(::umount(place.path().toUtf8().constData()), 0);
    }
  }

  void fill_but(long pages) {
    const long page = ::sysconf(_SC_PAGESIZE);
    QFile filler(folder->file("filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const QByteArray block(page, 'x');
    while (filler.write(block) == page) continue;
    ASSERT_TRUE(filler.resize(filler.size() - pages * page));
  }
  void free_again() { ASSERT_TRUE(QFile::remove(folder->file("filler"))); }
  void remount(unsigned long flags) {
    ASSERT_EQ(
        ::mount("small", place.path().toUtf8().constData(), nullptr, MS_REMOUNT | flags, size), 0);
  }

  static constexpr const char* size = "size=8m";
  bool is_mounted = false;
};

TEST_F(SmallDisk, AFullDiskLeavesTheOldFiles) {
  if (!is_mounted) GTEST_SKIP() << "needs the right to mount a disk";
  begin(place.path());
  for (const long pages : {0L, 1L}) {
    SCOPED_TRACE(pages);
    grade_in_between([&] { fill_but(pages); }, [&] { free_again(); });
  }
  // Enough for the results, and then for a part of the history.
  for (const long pages : {2L, 40L}) {
    SCOPED_TRACE(pages);
    grade_in_between([&] { fill_but(pages); }, [&] { free_again(); }, true);
  }
}

TEST_F(SmallDisk, AReadOnlyDiskLeavesTheOldFiles) {
  if (!is_mounted) GTEST_SKIP() << "needs the right to mount a disk";
  begin(place.path());
  grade_in_between([&] { remount(MS_RDONLY); }, [&] { remount(0); });
}

TEST_F(FailingDisk, AFolderThatCanNotBeWrittenToKeepsTheOldFiles) {
  if (::geteuid() == 0) GTEST_SKIP() << "nothing is forbidden to root";
  begin(place.path());
  const auto allow = [&](QFile::Permissions rights) {
    ASSERT_TRUE(QFile::setPermissions(place.path(), rights));
  };
  const QFile::Permissions read_only = QFile::ReadOwner | QFile::ExeOwner;
  grade_in_between([&] { allow(read_only); }, [&] { allow(read_only | QFile::WriteOwner); });
}

class WrittenFile : public testing::Test {
 protected:
  std::string path(const char* name) const {
    return from_qt(place.filePath(QString::fromLatin1(name)));
  }
  QStringList names() const {
    return QDir(place.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  QTemporaryDir place;
  QtFiles files;
};

TEST_F(WrittenFile, GoesTogetherWithWhatAKillLeftLongAgoAndWithNothingElse) {
  const std::vector<const char*> others = {"results.backup",
                                           "results.AbCdEf",
                                           "practice-exam-notes.unfinished",
                                           "old.unfinished",
                                           "practice-exam-abcdef.unfinished.txt",
                                           "my practice-exam-abcdef.unfinished"};
  for (const char* name : others) files.append(path(name), "a student's own");
  files.append(path("practice-exam-oldOne.unfinished"), "half");
  files.append(path("practice-exam-newOne.unfinished"), "half, and still being written");
  ASSERT_TRUE(QDir(place.path()).mkdir(QStringLiteral("practice-exam-folder.unfinished")));
  for (const QFileInfo& file : QDir(place.path()).entryInfoList(QDir::Files)) {
    if (!file.fileName().contains(u"newOne")) make_older(file.filePath(), 61);
  }
  const QStringList before = names();
  files.write(path("results"), "new");
  QStringList expected = before + QStringList{QStringLiteral("results")};
  expected.removeAll(QStringLiteral("practice-exam-oldOne.unfinished"));
  expected.sort();
  QStringList after = names();
  after.sort();
  EXPECT_EQ(after.join(u' ').toStdString(), expected.join(u' ').toStdString());
}

TEST_F(WrittenFile, HasThePermissionsOfTheOldOneOrThoseOfANewFile) {
  files.append(path("as any new file"), "x");
  files.write(path("results"), "x");
  const QString results = to_qt(path("results"));
  EXPECT_EQ(QFile::permissions(results), QFile::permissions(to_qt(path("as any new file"))));
  const QFile::Permissions ours = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
  ASSERT_TRUE(QFile::setPermissions(results, ours));
  const QFile::Permissions before = QFile::permissions(results);
  files.write(path("results"), "new");
  EXPECT_EQ(QFile::permissions(results), before);
}

TEST_F(WrittenFile, IsReplacedBehindALink) {
  ASSERT_TRUE(QDir(place.path()).mkdir(QStringLiteral("elsewhere")));
  files.write(path("elsewhere/results"), "old");
  ASSERT_TRUE(QFile::link(to_qt(path("elsewhere/results")), to_qt(path("results"))));
  files.write(path("results"), "new");
  EXPECT_EQ(files.read(path("elsewhere/results")), "new");
  EXPECT_TRUE(QFileInfo(to_qt(path("results"))).isSymLink());
}

// Else a history would be replaced by the part of it that could be read.
TEST_F(WrittenFile, IsNotTakenForWholeWhereItsDiskFailsToReadIt) {
  // The first page of a process is never there, and reading it fails as on a broken disk.
  ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), to_qt(path("broken"))));
  EXPECT_THROW(static_cast<void>(files.read(path("broken"))), Fault);
  EXPECT_THROW(static_cast<void>(files.read_start(path("broken"), 8)), Fault);
}

}  // namespace
}  // namespace practice::desktop
