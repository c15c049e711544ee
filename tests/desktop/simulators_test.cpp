// Questions that are answered in another program, with real processes: launch, result file, Next.
#include <QFile>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

/// A kind of simulator question, and where its program and its result stand.
struct Kind {
  const char* marker;
  int button;
  const char* program;
  const char* folder;
  const char* result_file;
  const char* other_spelling;
};

constexpr Kind kinds[] = {
    {"xxxdnd", 3, "bwDragnDrop", "", "OUT.ini", "out.ini"},
    {"xxxmssim", 2, "Sims/dlgsim", "Sims/", "OUT.ini", "Out.INI"},
    {"xxxmssim2", 2, "Sims/dnd5", "Sims/", "OUT.ini", "out.ini"},
};

class RealSimulators : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    QDir().mkpath(folder.filePath(QStringLiteral("Sims")));
    for (const char* program : {"bwDragnDrop", "testsim", "Sims/dlgsim", "Sims/dnd5"}) {
      ASSERT_TRUE(QFile::copy(QStringLiteral(STAND_IN_SIMULATOR),
                              folder.filePath(QString::fromLatin1(program))));
    }
    start("46000");
    click("Welcome", "Image4", 0);
    turn_to_tab(1);
    click("pick_a_quiz", "answer_when_wrong");
    turn_to_tab(0);
    click("pick_a_quiz", "Command1");
    ASSERT_TRUE(window("quest")->isVisible());
  }

  void TearDown() override {
    qunsetenv("STAND_IN_FILE");
    qunsetenv("STAND_IN_RESULT");
    DesktopTest::TearDown();
  }

  Question& row(int number) { return application->program().question_table[number]; }

  void show(Question question) {
    question.question_id = 1;
    question.question_text = "Do it.";
    question.category = 1;
    row(1) = std::move(question);
    run().question_order[1] = 1;
    run().question_position = 0;
    desk->enter([&] { quest().show_quest(); });
  }

  void show_exercise(const char* marker, const char* number) {
    Question question;
    question.diagrams[1] = marker;
    question.answers[1] = number;
    show(question);
  }

  /// Presses the launch button and waits for the program to have done its work.
  void work(int button, const std::string& where) {
    click("quest", "cmd_buttons", button);
    ASSERT_TRUE(QTest::qWaitFor([&] { return files.exists(where + "arguments.txt"); }, 10'000));
  }

  static void leave(const char* file, const char* result) {
    qputenv("STAND_IN_FILE", file);
    qputenv("STAND_IN_RESULT", result);
  }

  void next() { click("quest", "cmd_buttons", 0); }
};

TEST_F(RealSimulators, ASuccessIsReadUnderEitherSpellingAndItsFileIsGone) {
  for (const Kind& kind : kinds) {
    for (const char* name : {kind.result_file, kind.other_spelling}) {
      SCOPED_TRACE(std::string(kind.program) + " " + name);
      leave(name, "[Answer]\r\nresult=Success\r\n");
      show_exercise(kind.marker, "12");
      work(kind.button, kind.folder);
      EXPECT_EQ(files.read(std::string(kind.folder) + "arguments.txt"), "46000Q12|");
      EXPECT_TRUE(QFile::exists(QString::fromLatin1(kind.folder) + QString::fromLatin1(name)));
      next();
      EXPECT_EQ(row(1).result_state, 1);
      EXPECT_FALSE(files.exists(std::string(kind.folder) + "out.ini"));
      files.remove(std::string(kind.folder) + "arguments.txt");
    }
  }
}

TEST_F(RealSimulators, AFailureIsWrongAndItsFileIsGone) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.program);
    leave(kind.result_file, "[Answer]\r\nresult=Failure\r\n");
    show_exercise(kind.marker, "3");
    work(kind.button, kind.folder);
    next();
    EXPECT_EQ(row(1).result_state, 2);
    EXPECT_FALSE(files.exists(std::string(kind.folder) + "out.ini"));
    files.remove(std::string(kind.folder) + "arguments.txt");
  }
}

TEST_F(RealSimulators, ADeviceIsConfiguredAndItsConfigurationStays) {
  Question question;
  question.diagrams[1] = "xxsim";
  question.exhibits[2] = "access switch";
  question.answers[1] = "[hostname]Access1";
  question.answers[2] = "vlan 20 name=Sales";
  question.clue = "configure terminal\r\nhostname Access1";
  leave("out.ini", "[general]\r\nhostname=access1\r\nVLAN 20 name= Sales\r\n");
  show(question);
  EXPECT_EQ(files.read("sim.txt"), "Do it.\r\n");
  EXPECT_EQ(files.read("sim_showme.txt"), "configure terminal\r\nhostname Access1\r\n");
  work(2, "");
  EXPECT_EQ(files.read("arguments.txt"), "access|switch|") << "a lab's name is not quoted";
  next();
  EXPECT_EQ(row(1).result_state, 1);
  EXPECT_TRUE(files.exists("OUT.ini"));
  show(question);
  EXPECT_FALSE(files.exists("OUT.ini"));
}

TEST_F(RealSimulators, AStudentWhoLeavesTheProgramAloneIsWrong) {
  qunsetenv("STAND_IN_FILE");
  show_exercise("xxxdnd", "12");
  work(3, "");
  next();
  EXPECT_EQ(row(1).result_state, 2);
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(RealSimulators, ASecondPressStartsASecondCopy) {
  leave("OUT.ini", "[Answer]\r\nresult=Success\r\n");
  show_exercise("xxxdnd", "12");
  work(3, "");
  files.remove("arguments.txt");
  work(3, "");
  next();
  EXPECT_EQ(row(1).result_state, 1);
}

}  // namespace
}  // namespace practice::desktop
