// The application: one program with its screens, put together.
//
// This is where the rooms of the screens meet; none of them knows another.
#pragma once

#include <memory>
#include <string>

#include "results/exhibits.h"
#include "results/finalscore.h"
#include "results/theanswer.h"
#include "run/quest3.h"
#include "saver/sec_form.h"
#include "session/handover.h"
#include "session/program.h"
#include "setup/pick_a_quiz.h"
#include "shell/about.h"
#include "shell/welcome.h"

namespace practice {

class Application : private Handover {
 public:
  /// The platform must outlive the application.
  Application(Platform& platform, std::string command_line);

  /// Start-up: loads the welcome screen, which shows itself.
  void start();

  /// Ends the program by the road of all ways of quitting.
  void quit() { close_all_forms(); }
  bool has_ended() const { return ended_; }

  Program& program() { return program_; }
  Welcome& welcome() { return welcome_; }
  About1& about() { return about_; }
  PickAQuiz& pick_a_quiz() { return pick_a_quiz_; }
  Quest& quest() { return quest_; }
  TheAnswer& theanswer() { return theanswer_; }
  FinalScore& finalscore() { return finalscore_; }
  Exhibit& exhibit() { return exhibit_; }
  Diagram& diagram() { return diagram_; }
  Security& security() { return security_; }

 private:
  void show_quest() override;
  void enable_next(bool enabled) override;
  void show_answer() override;
  void open_exhibit(int number) override;
  void open_diagram(int number) override;
  void open_book() override;
  void save_history() override;
  void mail_history_report() override;
  void return_to_options() override;
  void close_all_forms() override;

  Program program_;
  Welcome welcome_;
  About1 about_;
  Loading loading_;
  PickAQuiz pick_a_quiz_;
  Quest quest_;
  TheAnswer theanswer_;
  FinalScore finalscore_;
  Exhibit exhibit_;
  Diagram diagram_;
  Security security_;
  bool ended_ = false;
};

}  // namespace practice
