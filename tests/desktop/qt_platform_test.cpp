// What Qt answers to the program: files, settings, shell.
#include "platform_qt/qt_platform.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextBrowser>

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/values/fault.h"
#include "text.h"

namespace practice::desktop {
namespace {

class QtPlatformTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.isValid());
    QDir::setCurrent(folder.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       folder.filePath(QStringLiteral("config")));
  }
  void TearDown() override { QDir::setCurrent(QDir::tempPath()); }

  template <class Step>
  static int fault_number(Step step) {
    try {
      step();
    } catch (const Fault& fault) {
      return fault.number();
    }
    return 0;
  }

  QTemporaryDir folder;
  QtFiles files;
};

TEST_F(QtPlatformTest, AFileIsFoundWhateverTheCaseOfItsNameAndOfItsFolders) {
  QDir().mkpath(folder.filePath(QStringLiteral("Sims")));
  files.write("Sims\\OUT.ini", "[Answer]");
  EXPECT_TRUE(files.exists("sims\\out.ini"));
  EXPECT_EQ(files.read("SIMS/Out.INI"), "[Answer]");
  files.write("sims\\out.ini", "new");
  EXPECT_EQ(QDir(folder.filePath(QStringLiteral("Sims"))).entryList(QDir::Files).size(), 1);
  EXPECT_EQ(files.read("Sims\\OUT.ini"), "new");
  files.remove("sims\\OUT.INI");
  EXPECT_FALSE(files.exists("Sims\\OUT.ini"));
}

TEST_F(QtPlatformTest, AnExactNameWinsOverOneOfAnotherCase) {
  QFile upper(QStringLiteral("OUT.ini"));
  ASSERT_TRUE(upper.open(QIODevice::WriteOnly));
  upper.write("upper");
  upper.close();
  QFile lower(QStringLiteral("out.ini"));
  ASSERT_TRUE(lower.open(QIODevice::WriteOnly));
  lower.write("lower");
  lower.close();
  EXPECT_EQ(files.read("out.ini"), "lower");
  EXPECT_EQ(files.read("OUT.ini"), "upper");
}

TEST_F(QtPlatformTest, RemovingAFileRemovesItUnderEverySpelling) {
  for (const char* name : {"OUT.ini", "out.ini", "Out.Ini"}) {
    QFile file(QString::fromLatin1(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  files.remove("out.ini");
  EXPECT_FALSE(files.exists("OUT.ini"));
  EXPECT_TRUE(QDir().entryList(QDir::Files).isEmpty());
}

TEST_F(QtPlatformTest, TheStartOfAFileIsReadWhateverItsSize) {
  QFile huge(QStringLiteral("huge.ini"));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
  huge.write("[Answer]");
  // A sparse file: a terabyte to read, nothing on the disk.
  ASSERT_TRUE(huge.resize(qint64{1} << 40));
  huge.close();
  EXPECT_EQ(files.read_start("huge.ini", 8), "[Answer]");
  EXPECT_EQ(files.read_start("huge.ini", 9), std::string("[Answer]\0", 9));
  EXPECT_EQ(fault_number([&] { static_cast<void>(files.read_start("none.ini", 8)); }), 53);
}

TEST_F(QtPlatformTest, FailuresHaveTheNumbersThatTheLogKnows) {
  EXPECT_EQ(fault_number([&] { static_cast<void>(files.read("none.txt")); }), 53);
  EXPECT_EQ(fault_number([&] { files.remove("none.txt"); }), 53);
  EXPECT_EQ(fault_number([&] { files.write("no folder\\file.txt", "x"); }), 76);
  QDir().mkpath(folder.filePath(QStringLiteral("folder")));
  EXPECT_NE(fault_number([&] { files.write("folder", "x"); }), 0);
  EXPECT_FALSE(files.exists("folder"));
}

TEST_F(QtPlatformTest, AWriteThatFailsLeavesTheOldFile) {
  files.write("results", "old");
  // /dev/full takes no byte; a link to it stands for a disk that has just become full.
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), QStringLiteral("full")));
  EXPECT_NE(fault_number([&] { files.append("full", std::string(100'000, 'x')); }), 0);
  EXPECT_EQ(files.read("results"), "old");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST_F(QtPlatformTest, AppendingMakesTheFileAndKeepsWhatIsThere) {
  files.append("error.log", "one\r\n");
  files.append("error.log", "two\r\n");
  EXPECT_EQ(files.read("error.log"), "one\r\ntwo\r\n");
}

TEST_F(QtPlatformTest, SettingsComeBackInAnotherRunAndAreReadable) {
  QtSettings().save("marlotest", "stuff", "show#answers", "1");
  EXPECT_EQ(QtSettings().get("marlotest", "stuff", "show#answers", "0"), "1");
  EXPECT_EQ(QtSettings().get("marlotest", "stuff", "studentname", "STUDENT"), "STUDENT");
  EXPECT_NE(
      QtFiles()
          .read(from_qt(folder.filePath(QStringLiteral("config/practice-exam/marlotest.ini"))))
          .find("[stuff]"),
      std::string::npos);
}

TEST_F(QtPlatformTest, AProgramIsTheLongestPathInFrontOfABlank) {
  QDir().mkpath(folder.filePath(QStringLiteral("with blank")));
  const QString program = folder.filePath(QStringLiteral("with blank/bwDragnDrop"));
  {
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf '%s|' \"$@\" > told.tmp; mv told.tmp told\n");
  }
  QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QtShell().start(from_qt(folder.path()) + "\\with blank\\bwDragnDrop.exe  46000Q1");
  // In the working folder, where the program leaves the task for its simulators.
  for (int i = 0; i < 500 && !files.exists("told"); ++i) ::usleep(10'000);
  EXPECT_EQ(files.read("told"), "46000Q1|");
  EXPECT_EQ(fault_number([&] { QtShell().start("nothing.exe 1"); }), 53);
}

// An address may be written in capitals, as a link in an explanation is.
TEST_F(QtPlatformTest, AnAddressIsKnownWhateverItsCase) {
  QTextBrowser desktop;
  QDesktopServices::setUrlHandler(QStringLiteral("http"), &desktop, "setSource");
  EXPECT_GT(QtShell().open("HTTP://Notes.example/VLANs", {}, WindowShow::normal), 32);
  QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
  EXPECT_EQ(desktop.source().host(), QStringLiteral("notes.example"));
}

// Escapes stay what they are, and what stands plain is escaped for the mail program.
TEST_F(QtPlatformTest, AMailReachesTheDesktopWithItsSubjectAndItsLines) {
  QTextBrowser desktop;
  QDesktopServices::setUrlHandler(QStringLiteral("mailto"), &desktop, "setSource");
  const bool opened =
      QtShell().open("mailto:?subject= History Report for ANNA &BODY=8%25 right%0d%0aEnd", {},
                     WindowShow::normal) > 32;
  const QUrl history = desktop.source();
  QtShell().open(
      "mailto:a.b@brightwater.example?subject=46000 QuestionID=7  (v5.20) &cc=&BODY=Note", {},
      WindowShow::normal);
  QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
  EXPECT_TRUE(opened);
  EXPECT_EQ(history.toEncoded().toStdString(),
            "mailto:?subject=%20History%20Report%20for%20ANNA%20&BODY=8%25%20right%0D%0AEnd");
  EXPECT_EQ(desktop.source().toEncoded().toStdString(),
            "mailto:a.b@brightwater.example?subject=46000%20QuestionID=7%20%20(v5.20)%20&cc=&BODY="
            "Note");
}

TEST_F(QtPlatformTest, OpeningAFileThatIsNotThereIsNoSuccess) {
  EXPECT_LT(QtShell().open("none.txt", {}, WindowShow::normal), 33);
}

// The viewer and the desktop's opener as scripts that tell what they were asked to show.
class OpeningFiles : public QtPlatformTest {
 protected:
  void SetUp() override {
    QtPlatformTest::SetUp();
    shell.viewer = script("viewer", "printf %s \"$1\" > shown.part; mv shown.part shown");
    path = qgetenv("PATH");
    qputenv("PATH", folder.path().toUtf8() + ":" + path);
    files.write("page.txt", "text");
    files.write("guide.chm", "text");
  }
  void TearDown() override {
    qputenv("PATH", path);
    QtPlatformTest::TearDown();
  }

  QString script(const char* name, const char* body) {
    const QString file = folder.filePath(QString::fromLatin1(name));
    files.write(from_qt(file), "#!/bin/sh\n" + std::string(body) + "\n");
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file;
  }
  std::string shown() {
    for (int i = 0; i < 500 && !files.exists("shown"); ++i) ::usleep(10'000);
    return files.exists("shown") ? files.read("shown") : std::string();
  }

  QtShell shell;
  QByteArray path;
};

TEST_F(OpeningFiles, TheHelpFileIsShownByOurViewer) {
  EXPECT_GT(shell.open("GUIDE.chm", {}, WindowShow::normal), 32);
  EXPECT_EQ(shown(), from_qt(folder.filePath(QStringLiteral("guide.chm"))));
}

TEST_F(OpeningFiles, ABooksPageIsShownByTheBookViewer) {
  files.write("book_falco.pdf.hta", "page");
  EXPECT_EQ(shell.open("book_falco.pdf.hta", {}, WindowShow::maximised), 31);
  EXPECT_EQ(shell.class_of(".pdf"), "");
  shell.book_viewer = shell.viewer;
  EXPECT_GT(shell.open("book_falco.pdf.hta", {}, WindowShow::maximised), 32);
  EXPECT_EQ(shown(), from_qt(folder.filePath(QStringLiteral("book_falco.pdf.hta"))));
  EXPECT_EQ(shell.class_of(".pdf"), "AcroExch.Document");
}

TEST_F(OpeningFiles, APageTheDesktopHasNoProgramForIsShownByOurViewer) {
  script("xdg-open", "exit 3");
  EXPECT_GT(shell.open("file:///" + from_qt(folder.filePath(QStringLiteral("page.txt"))), {},
                       WindowShow::normal),
            32);
  EXPECT_EQ(shown(), from_qt(folder.filePath(QStringLiteral("page.txt"))));
}

TEST_F(OpeningFiles, APageIsLeftToTheDesktopsProgram) {
  script("xdg-open", "printf 'desktop %s' \"$1\" > shown.part; mv shown.part shown; exit 1");
  EXPECT_GT(shell.open("page.txt", {}, WindowShow::normal), 32);
  EXPECT_EQ(shown(), "desktop " + from_qt(folder.filePath(QStringLiteral("page.txt"))));
}

TEST_F(QtPlatformTest, DrawsStayBelowOne) {
  QtRandom random;
  random.seed_from_clock();
  for (int i = 0; i < 10'000; ++i) {
    const float draw = random.next();
    ASSERT_GE(draw, 0.0f);
    ASSERT_LT(draw, 1.0f);
  }
}

}  // namespace
}  // namespace practice::desktop
