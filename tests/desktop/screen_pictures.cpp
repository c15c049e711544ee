// Pictures of all screens, for a look at them after a change:
//
//   QT_FONT_DPI=144 screen_pictures FOLDER
//
// The windows are drawn as they are shown, without their frames. Not a test: nothing is compared.
#include <QAbstractButton>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>
#include <iostream>
#include <set>

#include "desktop_student.h"

namespace practice::desktop {
namespace {

QString pictures_folder;

class ScreenPictures : public DesktopTest {
 protected:
  void take(std::string_view screen, const char* name) {
    desk->mirror_all();
    QTest::qWait(60);
    const QString file = pictures_folder + u'/' + QLatin1String(name) + QStringLiteral(".png");
    EXPECT_TRUE(window(screen)->grab().save(file)) << file.toStdString();
  }

  /// Runs `step` with an answer view being closed after its picture was taken.
  void with_answer(const char* name, const std::function<void()>& step) {
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [&] {
      if (!application->theanswer().visible || !window("theanswer")->isVisible()) return;
      closing.stop();
      take("theanswer", name);
      click("theanswer", "Closeb");
    });
    closing.start(20);
    step();
    EXPECT_FALSE(closing.isActive()) << "no answer view for " << name;
  }

  void start_test(const char* command_line, int quiz) {
    start(command_line);
    click("Welcome", "Image4", 0);
    click("pick_a_quiz", "which_quiz", quiz);
    application->pick_a_quiz().random_questions.value = 0;
    application->pick_a_quiz().random_answers.value = 0;
    application->pick_a_quiz().answer_when_wrong.value = 0;
    desk->mirror_all();
    click("pick_a_quiz", "Command1");
  }

  /// Shows the first question of the bank that is wanted; false when there is none.
  bool show_first(const std::function<bool(const Question&)>& is_wanted) {
    for (int row = 1; row <= application->program().catalogue.bank_total; ++row) {
      if (!is_wanted(application->program().question_table[row])) continue;
      run().question_order[1] = row;
      run().question_position = 0;
      desk->enter([&] { quest().show_quest(); });
      return true;
    }
    ADD_FAILURE() << "the bank has no such question";
    return false;
  }

  void answer(bool rightly) {
    html::Document& page = quest().WebBrowser1.view.document;
    const Question& question = application->program().current_question;
    for (int i = 1; i <= run().answer_count; ++i) {
      html::Input* mark = page.input("radio1", i - 1);
      if (mark == nullptr) mark = page.input("ans" + std::to_string(i));
      if (mark != nullptr && (question.answer_correct[i] == 1) == rightly) {
        page.set_checked(*mark, true);
      }
    }
    desk->mirror_all();
  }

  Options& options() { return application->program().options; }
};

TEST_F(ScreenPictures, OfTheWayToATest) {
  start("46000");
  take("Welcome", "welcome");
  click("Welcome", "Image4", 0);
  constexpr const char* tabs[] = {"options_general", "options_advanced", "options_categories",
                                  "options_saver"};
  for (int tab = 0; tab < 4; ++tab) {
    turn_to_tab(tab);
    take("pick_a_quiz", tabs[tab]);
  }
}

TEST_F(ScreenPictures, OfTheWelcomeScreensOfAllEditions) {
  const auto again = [&](const char* picture) {
    end();
    start("46000");
    take("Welcome", picture);
  };
  QtSettings().save("marlo", "46000", "num_times", "4");
  again("welcome_feedback");
  files.write("oem.oem", "ETESTCRAFT\r\nSomebody\r\n");
  again("welcome_reseller");
  files.remove("oem.oem");
  files.write("bw_falco.log", "MRL_kws\r\n");
  again("welcome_partner_greeting");
  files.write("bw_falco.log", "MRL_skq\r\n");
  again("welcome_partner_logo");
  click("Welcome", "Image4", 0);
  take("pick_a_quiz", "options_partner");
  desk->enter([&] { application->program().forms.show(Form::About1); });
  take("About1", "about");
}

TEST_F(ScreenPictures, OfEveryKindOfQuestion) {
  start_test("46003", 2);
  std::set<std::string> taken;
  while (quest().visible) {
    const std::string kind = run().question_kind;
    if (taken.insert(kind).second) take("quest", ("question_" + kind).c_str());
    answer(run().question_position % 2 == 0);
    click("quest", "cmd_buttons", 0);
  }
  EXPECT_GE(taken.size(), 5u);
  take("finalscore", "final_score");
}

TEST_F(ScreenPictures, OfFinalScores) {
  const auto take_score = [&](const char* command_line, int quiz, bool rightly, const char* name) {
    start_test(command_line, quiz);
    run().question_total = std::min<int>(run().question_total, 5);
    while (quest().visible) {
      const Question& question = application->program().current_question;
      if (run().question_kind == kind::fill_in && rightly) {
        quest().WebBrowser1.view.document.input("txt_fill")->value = question.answers[1];
      } else if (rightly && is_simulator_marker(question.diagrams[1])) {
        files.write("OUT.ini", "[Answer]\r\nresult=Success\r\n");
      }
      answer(rightly);
      click("quest", "cmd_buttons", 0);
    }
    take("finalscore", name);
    end();
  };
  take_score("46000", 1, true, "final_score_perfect");
  take_score("46000", 1, false, "final_score_bad");
  take_score("46002", 2, true, "final_score_without_categories");
}

TEST_F(ScreenPictures, OfTheStudySaver) {
  launch("aaaa46004");
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window("Security")));
  const auto tick = [&](int times) {
    for (int i = 0; i < times; ++i) {
      desk->enter([&] { application->security().find("FadeTimer")->click(); });
    }
  };
  tick(2);
  take("Security", "saver_hidden");
  tick(1);
  take("Security", "saver_question");
  tick(3);
  take("Security", "saver_answers");
  tick(6);
  take("Security", "saver_right_answer");
  tick(3);
  take("Security", "saver_faded");
}

TEST_F(ScreenPictures, OfFlashCards) {
  start("46004");
  click("Welcome", "Image4", 0);
  click("pick_a_quiz", "cmd_flashcards");
  take("Security", "flash_card_question");
  click("Security", "cmd_main");
  take("Security", "flash_card_answer");
}

TEST_F(ScreenPictures, OfAnswers) {
  start_test("46000", 2);
  const auto is_choice = [](const Question& question) {
    return question.question_type.starts_with("single") && question.diagrams[1].empty();
  };
  const auto has_diagram = [](const Question& question) {
    return question.diagrams[1].ends_with(".png");
  };
  options().show_answer_when_wrong = 1;
  options().show_answer_when_right = 1;
  show_first(is_choice);
  answer(true);
  with_answer("answer_right", [&] { click("quest", "cmd_buttons", 0); });
  show_first(is_choice);
  answer(false);
  with_answer("answer_wrong", [&] { click("quest", "cmd_buttons", 0); });
  options().answer_position = "bottom";
  show_first(has_diagram);
  with_answer("answer_diagram_bottom", [&] { click("quest", "cmd_buttons", 0); });
  options().answer_position = "top";
  Question& row = application->program().question_table[1];
  row.explanation += "<br><br>Read on at http://notes.example/switching .";
  row.book_reference = "284##Modifying STP Timers";
  show_first([&](const Question& question) { return &question == &row; });
  with_answer("answer_link", [&] { click("quest", "cmd_buttons", 0); });
}

TEST_F(ScreenPictures, OfWhatStandsBesideAQuestion) {
  start_test("46000", 2);
  if (show_first([](const Question& q) { return q.exhibits[1].ends_with(".txt"); })) {
    take("quest", "question_with_exhibit");
    click("quest", "exhibitbutton", 0);
    take("Exhibit", "exhibit");
    click("Exhibit", "Command1");
  }
  if (show_first([](const Question& q) { return q.diagrams[1].ends_with(".png"); })) {
    take("quest", "question_with_diagram");
    click("quest", "diagrambutton", 0);
    take("Diagram", "diagram");
  }
}

}  // namespace
}  // namespace practice::desktop

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::cerr << "Usage: screen_pictures FOLDER\n";
    return 2;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  practice::desktop::pictures_folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
