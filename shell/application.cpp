#include "shell/application.h"

#include <utility>

#include "results/book.h"
#include "results/mail.h"
#include "session/fault_patterns.h"

namespace practice {

Application::Application(Platform& platform, std::string command_line)
    : program_(platform, std::move(command_line)),
      welcome_(program_),
      about_(program_),
      pick_a_quiz_(program_),
      quest_(program_),
      theanswer_(program_),
      finalscore_(program_),
      exhibit_(program_),
      diagram_(program_),
      security_(program_) {
  program_.handover = this;
  Forms& forms = program_.forms;
  forms.enlist(Form::Welcome, welcome_);
  forms.enlist(Form::About1, about_);
  forms.enlist(Form::loading, loading_);
  forms.enlist(Form::pick_a_quiz, pick_a_quiz_);
  forms.enlist(Form::quest, quest_);
  forms.enlist(Form::theanswer, theanswer_);
  forms.enlist(Form::finalscore, finalscore_);
  forms.enlist(Form::Exhibit, exhibit_);
  forms.enlist(Form::Diagram, diagram_);
  forms.enlist(Form::Security, security_);
}

void Application::start() { program_.forms.load(Form::Welcome); }

void Application::show_quest() { quest_.show_quest(); }

void Application::enable_next(bool enabled) { quest_.cmd_buttons[0].enabled = enabled; }

void Application::show_answer() { theanswer_.show_answer(); }

void Application::open_exhibit(int number) { exhibit_.open_exhibit(number); }

void Application::open_diagram(int number) { diagram_.open_diagram(number); }

void Application::open_book() {
  skip([&] { practice::open_book(program_); });
}

void Application::save_history() { finalscore_.save_history(); }

void Application::mail_history_report() { practice::mail_history_report(program_); }

void Application::return_to_options() {
  const Catalogue& catalogue = program_.catalogue;
  if (!catalogue.is_book_edition() || catalogue.exam_code == "30021" ||
      catalogue.exam_code == "30204") {
    return;
  }
  program_.forms.hide(Form::Welcome);
  welcome_.start_quiz_click_sub();
}

void Application::close_all_forms() {
  if (ended_) return;
  ended_ = true;
  for (const Form form :
       {Form::About1, Form::Diagram, Form::Exhibit, Form::finalscore, Form::pick_a_quiz,
        Form::quest, Form::Security, Form::theanswer, Form::Welcome}) {
    skip([&] { program_.forms.unload(form); });
  }
  program_.platform.stage.end_process();
}

}  // namespace practice
