// The settings store on the disk: readable, shared by running copies, and hard to break.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform_qt/qt_platform.h"
#include "text.h"

namespace practice::desktop {
namespace {

class SettingsStore : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("practice-exam")));
  }

  QString file() const { return folder.filePath(QStringLiteral("practice-exam/marlotest.ini")); }
  void put(const QByteArray& content) {
    QFile ini(file());
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(content);
  }
  static QByteArray content_of(const QString& name) {
    QFile ini(name);
    return ini.open(QIODevice::ReadOnly) ? ini.readAll() : QByteArray();
  }
  std::string get(const char* key, const char* otherwise = "default") {
    return settings.get("marlotest", "stuff", key, otherwise);
  }

  QTemporaryDir folder;
  QtSettings settings;
};

TEST_F(SettingsStore, IsATextThatAnEditorCanChange) {
  settings.save("marlotest", "stuff", "studentname", "ADA");
  EXPECT_TRUE(content_of(file()).contains("studentname=ADA"));
  put("[stuff]\nstudentname=GRACE\n");
  EXPECT_EQ(get("studentname"), "GRACE");
}

TEST_F(SettingsStore, ABinaryFileIsKeptAsideAndTheDefaultsAreUsed) {
  QByteArray bytes;
  for (int i = 0; i < 5000; ++i) bytes += static_cast<char>(i * 31 % 256);
  put(bytes);
  EXPECT_EQ(get("studentname"), "default");
  settings.save("marlotest", "stuff", "studentname", "ADA");
  EXPECT_EQ(get("studentname"), "ADA");
  EXPECT_EQ(content_of(file() + QStringLiteral(".damaged")), bytes);
}

TEST_F(SettingsStore, WhatCanBeReadOfADamagedFileIsUsed) {
  put("[stuff]\nstudentname=ADA\nthis is no setting\nradio=0\n");
  EXPECT_EQ(get("studentname"), "ADA");
  EXPECT_EQ(get("radio"), "0");
  settings.save("marlotest", "stuff", "backb", "1");
  EXPECT_EQ(get("studentname"), "ADA");
  EXPECT_EQ(get("backb"), "1");
  EXPECT_TRUE(content_of(file() + QStringLiteral(".damaged")).contains("this is no setting"));
}

TEST_F(SettingsStore, AFolderInPlaceOfTheFileIsKeptAside) {
  ASSERT_TRUE(QDir().mkpath(file() + QStringLiteral("/inner")));
  EXPECT_EQ(get("studentname"), "default");
  settings.save("marlotest", "stuff", "studentname", "ADA");
  EXPECT_EQ(get("studentname"), "ADA");
  EXPECT_TRUE(QDir(file() + QStringLiteral(".damaged/inner")).exists());
}

TEST_F(SettingsStore, SettingsOfALaterVersionStay) {
  put("[stuff]\nstudentname=ADA\n[of the future]\nshape=@Variant(new)\n");
  settings.save("marlotest", "stuff", "backb", "1");
  EXPECT_EQ(get("studentname"), "ADA");
  EXPECT_TRUE(content_of(file()).contains("[of%20the%20future]"));
}

TEST_F(SettingsStore, TwoRunningCopiesLoseNothingOfEachOther) {
  QProcess copies[2];
  for (int i = 0; i < 2; ++i) {
    copies[i].start(QStringLiteral(SETTINGS_WRITER),
                    {folder.path(), i == 0 ? QStringLiteral("one") : QStringLiteral("two")});
  }
  for (QProcess& copy : copies) {
    ASSERT_TRUE(copy.waitForFinished(60'000));
    EXPECT_EQ(copy.exitCode(), 0);
  }
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(get(("one" + std::to_string(i)).c_str()), std::to_string(i));
    EXPECT_EQ(get(("two" + std::to_string(i)).c_str()), std::to_string(i));
  }
}

}  // namespace
}  // namespace practice::desktop
