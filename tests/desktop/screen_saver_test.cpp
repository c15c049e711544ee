// The study saver as a screen saver program: what a host asks of it, and a real host, XScreenSaver,
// on a screen of its own.
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <memory>

#include <gtest/gtest.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "platform_qt/qt_platform.h"
#include "platform_qt/screen_saver_list.h"
#include "saver_request.h"
#include "saver_run.h"
#include "saver_windows.h"
#include "text.h"

namespace practice::desktop {
namespace {

using Kind = SaverRequest::Kind;

TEST(ARequestOfAHost, IsReadInTheFormsOfAllHosts) {
  const struct {
    QStringList arguments;
    Kind kind;
    unsigned window;
  } cases[] = {
      {{}, Kind::configure, 0},
      {{QStringLiteral("--root")}, Kind::run, 0},
      {{QStringLiteral("-root")}, Kind::run, 0},
      {{QStringLiteral("/s")}, Kind::run, 0},
      {{QStringLiteral("/S")}, Kind::run, 0},
      {{QStringLiteral("--window-id"), QStringLiteral("0x1c00007")}, Kind::preview, 0x1c00007},
      {{QStringLiteral("-window-id"), QStringLiteral("29360135")}, Kind::preview, 29360135},
      {{QStringLiteral("/p"), QStringLiteral("1234")}, Kind::preview, 1234},
      {{QStringLiteral("/p:1234")}, Kind::preview, 1234},
      {{QStringLiteral("/p")}, Kind::preview, 0},
      {{QStringLiteral("/p"), QStringLiteral("rubbish")}, Kind::preview, 0},
      {{QStringLiteral("/c")}, Kind::configure, 0},
      {{QStringLiteral("/c:1234")}, Kind::configure, 0},
      {{QStringLiteral("--configure")}, Kind::configure, 0},
      {{QStringLiteral("--fps"), QStringLiteral("rubbish")}, Kind::configure, 0},
      {{QStringLiteral("--fps"), QStringLiteral("--root")}, Kind::run, 0},
  };
  for (const auto& expected : cases) {
    const SaverRequest request = saver_request(expected.arguments);
    EXPECT_EQ(request.kind, expected.kind) << expected.arguments.join(u' ').toStdString();
    EXPECT_EQ(request.window, expected.window) << expected.arguments.join(u' ').toStdString();
  }
}

QString words_of(const QWidget& window) {
  QString words;
  for (const QLabel* label : window.findChildren<QLabel*>()) words += label->text() + u'\n';
  return words;
}

TEST(TheConfiguration, TellsWhichTestItIsAndWhoStartsIt) {
  const ChosenTest robin{.code = QStringLiteral("46002"),
                         .exam = QStringLiteral("ROBIN"),
                         .program = QStringLiteral("/x"),
                         .fault = {}};
  const SaverConfiguration window(robin, {.has_xscreensaver = true});
  EXPECT_TRUE(words_of(window).contains(QStringLiteral("the questions of ROBIN")));
  EXPECT_TRUE(words_of(window).contains(QStringLiteral("XScreenSaver starts it.")));
}

TEST(TheConfiguration, TellsWhereTheDesktopTakesNoSavers) {
  const ChosenTest none{.code = {}, .exam = {}, .program = {}, .fault = QStringLiteral("none")};
  const SaverConfiguration locker(none, {.name = QStringLiteral("GNOME")});
  EXPECT_TRUE(words_of(locker).contains(QStringLiteral("No test is your screen saver yet.")));
  EXPECT_TRUE(
      words_of(locker).contains(QStringLiteral("Your desktop, GNOME, has no XScreenSaver")));
  const SaverConfiguration wayland(none, {.has_xscreensaver = true, .is_wayland = true});
  EXPECT_TRUE(words_of(wayland).contains(QStringLiteral("a screen locker of its own")));
  const auto buttons = locker.findChildren<QPushButton*>();
  const auto now = std::ranges::find(buttons, QStringLiteral("&Try It Now"), &QPushButton::text);
  ASSERT_NE(now, buttons.end());
  EXPECT_FALSE((*now)->isEnabled());
}

// Programs, settings and home of a student who is not the superuser, whom XScreenSaver serves not.
class SaverHome : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(home.isValid());
    for (const char* program : {PRACTICE_EXAM, STUDY_SAVER}) {
      const QString file = QString::fromUtf8(program);
      ASSERT_TRUE(QFile::copy(file, home.filePath(QFileInfo(file).fileName())));
    }
    ASSERT_TRUE(QFile::link(QStringLiteral("practice_exam"),
                            home.filePath(QStringLiteral("bw_robin.exe"))));
    for (const char* picture : {"/saver_logo.png", "/ROBIN_front_cover.jpg"}) {
      const QString name = QString::fromUtf8(picture);
      QFile::copy(QStringLiteral(PRACTICE_EXAM_PICTURES) + name, home.path() + name);
    }
    QDir(home.path()).mkpath(QStringLiteral(".config"));
    keep("which_test", "46002");
    keep("where_test", from_qt(home.path()) + "\\bw_robin.exe");
    keep("aspeed", "1");
    keep("cspeed", "1");
  }

  void TearDown() override { ended(); }

  void keep(const char* key, const std::string& value) {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       home.filePath(QStringLiteral(".config")));
    QtSettings().save("marlo_study_saver", "settings", key, value);
  }

  QString saver() const { return home.filePath(QFileInfo(QStringLiteral(STUDY_SAVER)).fileName()); }

  // As the superuser, through a user without rights.
  std::unique_ptr<QProcess> start(QStringList command) {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display);
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.remove(QStringLiteral("XDG_CONFIG_HOME"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(home.path());
    if (geteuid() == 0) {
      command = QStringList{QStringLiteral("runuser"), QStringLiteral("-u"),
                            QStringLiteral("nobody"),  QStringLiteral("--"),
                            QStringLiteral("env"),     QStringLiteral("HOME=") + home.path()} +
                command;
    }
    process->start(command.takeFirst(), command);
    EXPECT_TRUE(process->waitForStarted()) << process->errorString().toStdString();
    return process;
  }

  QString output_of(const QStringList& command) {
    const auto process = start(command);
    EXPECT_TRUE(process->waitForFinished());
    EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
    return QString::fromUtf8(process->readAllStandardError());
  }

  void give_to_the_student() {
    if (geteuid() != 0) return;
    QProcess::execute(QStringLiteral("chown"),
                      {QStringLiteral("-R"), QStringLiteral("nobody"), home.path()});
  }

  // It must not begin anew when its only client has gone, as each look at it is.
  void start_a_screen() {
    screen.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                  QStringLiteral("0"), QStringLiteral("1024x768x24"), QStringLiteral("-noreset"),
                  QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    ASSERT_TRUE(screen.waitForStarted());
    ASSERT_TRUE(screen.waitForReadyRead(20000));
    display = u':' + QString::fromUtf8(screen.readLine()).trimmed();
    give_to_the_student();
  }

  // Programs of this home that are running.
  QStringList running() const {
    QStringList programs;
    for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
      const QString program = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(entry));
      if (program.startsWith(home.path())) programs << QFileInfo(program).fileName();
    }
    return programs;
  }

  bool none_is_left() {
    return QTest::qWaitFor([this] { return running().isEmpty(); }, 5000);
  }

  // Pixels of the right answers' green.
  int lit_pixels() const {
    xcb_connection_t* server = xcb_connect(display.toUtf8().constData(), nullptr);
    int lit = 0;
    if (xcb_connection_has_error(server) == 0) {
      const xcb_screen_t* root = xcb_setup_roots_iterator(xcb_get_setup(server)).data;
      const auto cookie = xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, root->root, 0, 0,
                                        root->width_in_pixels, root->height_in_pixels, ~0u);
      if (auto* image = xcb_get_image_reply(server, cookie, nullptr)) {
        const auto* bytes = xcb_get_image_data(image);
        for (int i = 0; i + 3 < xcb_get_image_data_length(image); i += 4) {
          lit += bytes[i] == 0 && bytes[i + 1] == 204 && bytes[i + 2] == 0 ? 1 : 0;
        }
        std::free(image);
      }
    }
    xcb_disconnect(server);
    return lit;
  }

  bool an_answer_is_lit() {
    return QTest::qWaitFor([this] { return lit_pixels() > 2000; }, 30000);
  }

  void ended() {
    screen.terminate();
    screen.waitForFinished(5000);
  }

  QTemporaryDir home;
  QString display;
  QProcess screen;
};

TEST_F(SaverHome, XScreenSaverShowsOurQuestionsAndLeavesNothingRunning) {
  QFile list(home.filePath(QStringLiteral(".xscreensaver")));
  ASSERT_TRUE(list.open(QIODevice::WriteOnly));
  list.write(QByteArray::fromStdString(with_our_saver(
      "lock:\tFalse\nsplash:\tFalse\nfade:\tFalse\nunfade:\tFalse\n", from_qt(saver()))));
  list.close();
  start_a_screen();
  const auto host = start({QStringLiteral("xscreensaver"), QStringLiteral("--no-splash")});
  const auto ask = [&](const char* what) {
    return start({QStringLiteral("xscreensaver-command"), QString::fromUtf8(what)});
  };
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        const auto asked = ask("-activate");
        return asked->waitForFinished() && asked->exitCode() == 0;
      },
      20000));
  EXPECT_TRUE(an_answer_is_lit());
  EXPECT_EQ(running().size(), 2) << running().join(u' ').toStdString();
  EXPECT_TRUE(ask("-deactivate")->waitForFinished());
  EXPECT_TRUE(none_is_left()) << running().join(u' ').toStdString();
  EXPECT_TRUE(ask("-exit")->waitForFinished());
  EXPECT_TRUE(host->waitForFinished());
}

TEST_F(SaverHome, AKeyEndsTheTestAndTheSaverWithIt) {
  start_a_screen();
  const auto manager = start({QStringLiteral("openbox")});
  const auto host = start({saver(), QStringLiteral("--root")});
  ASSERT_TRUE(an_answer_is_lit()) << running().join(u' ').toStdString();
  EXPECT_TRUE(start({QStringLiteral("xdotool"), QStringLiteral("key"), QStringLiteral("space")})
                  ->waitForFinished());
  EXPECT_TRUE(none_is_left()) << running().join(u' ').toStdString();
  manager->kill();
  manager->waitForFinished();
}

TEST_F(SaverHome, EndsItsTestHoweverItEnds) {
  start_a_screen();
  for (const char* signal : {"-TERM", "-HUP", "-KILL"}) {
    const auto host = start({saver(), QStringLiteral("/s")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return running().size() == 2; }, 10000)) << signal;
    QTest::qWait(300);
    QProcess::execute(QStringLiteral("pkill"),
                      {QString::fromUtf8(signal), QStringLiteral("-f"), saver()});
    EXPECT_TRUE(none_is_left()) << signal;
  }
}

TEST_F(SaverHome, GoesQuietlyAndTellsADeveloperWhyWhenThereIsNothingToShow) {
  start_a_screen();
  const struct {
    const char* key;
    const char* value;
    const char* told;
  } cases[] = {
      {"where_test", "/nowhere\\bw_robin.exe", "there is no program \"/nowhere\\bw_robin.exe\""},
      {"where_test", "", "there is no program"},
      {"which_test", "46001", "there is no exam \"46001\""},
      {"which_test", "rubbish", "there is no exam \"rubbish\""},
  };
  for (const auto& wrong : cases) {
    keep("which_test", "46002");
    keep("where_test", from_qt(home.path()) + "\\bw_robin.exe");
    keep(wrong.key, wrong.value);
    give_to_the_student();
    const QString told = output_of({saver(), QStringLiteral("--root")});
    EXPECT_TRUE(told.contains(QString::fromUtf8(wrong.told))) << told.toStdString();
    EXPECT_TRUE(running().isEmpty());
  }
}

TEST_F(SaverHome, APreviewWithoutAWindowGoesQuietlyToo) {
  start_a_screen();
  const QString told = output_of({saver(), QStringLiteral("--window-id"), QStringLiteral("0x7")});
  EXPECT_TRUE(told.contains(QStringLiteral("no window to show a preview in")))
      << told.toStdString();
}

}  // namespace
}  // namespace practice::desktop
