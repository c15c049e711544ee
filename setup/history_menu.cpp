// The student's history: looking at it, and clearing it.
#include "session/helpers.h"
#include "session/student_files.h"
#include "setup/pick_a_quiz.h"

namespace practice {

void PickAQuiz::view_history() {
  skip([&] {
    const std::string file = history_file(program_);
    if (!program_.platform.files.exists(file)) {
      program_.platform.messages.show({.text = "No history found for user " +
                                               program_.options.student_name +
                                               ".  Please take a quiz first and try again.",
                                       .title = {}});
      return;
    }
    open_document(program_, file, WindowShow::maximised);
  });
}

void PickAQuiz::mail_history() {
  skip([&] {
    if (get_option(program_, "mailtype", "web") == "web") program_.options.mail_kind = "web";
  });
  skip([&] { program_.handover->mail_history_report(); });
}

void PickAQuiz::clear_history() {
  Messages& messages = program_.platform.messages;
  const std::string title = "Clear History?";
  const std::string& name = program_.options.student_name;
  const Answer answer =
      messages.show({.text = "Are you sure you want to clear all history for user " + name + "?",
                     .title = title,
                     .buttons = Buttons::yes_no,
                     .icon = Icon::question});
  if (answer == Answer::no) {
    messages.show({.text = "History NOT cleared.", .title = title});
    return;
  }
  Files& files = program_.platform.files;
  skip([&] { files.remove(results_file(program_)); });
  skip([&] { files.remove(history_file(program_)); });
  read_last_results();
  messages.show({.text = name + " history has been cleared.", .title = title});
}

}  // namespace practice
