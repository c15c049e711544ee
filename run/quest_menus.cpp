// The menus of the question screen. Changes take effect at once; a new font shows the question
// anew.
#include "run/quest3.h"
#include "session/helpers.h"

namespace practice {
namespace {
constexpr int printing = 99;
constexpr int not_printing = 1;
}  // namespace

void Quest::toggle(MenuEntry& entry, Integer& flag) {
  entry.checked = false;
  skip([&] { flag = 1 - flag; });
  if (flag == 1) entry.checked = true;
}

void Quest::toggle_back_button() {
  cmd_buttons[1].visible = false;
  toggle(menu_backbutton, program_.options.back_button_on);
  if (program_.options.back_button_on == 1) cmd_buttons[1].visible = true;
}

void Quest::toggle_embed() {
  mnuEmbed.checked = !mnuEmbed.checked;
  program_.options.embed_media = program_.options.embed_media != 0 ? 0 : 1;
}

void Quest::show_again() {
  skip([&] { --run_.question_position; });
  show_quest();
}

void Quest::choose_font(int index) {
  const std::string& chosen = menufont[static_cast<std::size_t>(index - 1)].caption;
  program_.options.font_name = chosen.empty() ? "Times New Roman" : chosen;
  skip([&] { save_option(program_, "savedfontname", program_.options.font_name); });
  for (MenuEntry& entry : menufont) entry.checked = false;
  menufont[static_cast<std::size_t>(index - 1)].checked = true;
  show_again();
}

// The captions of the last two entries promise two points more than this gives.
void Quest::choose_size(int index) {
  program_.options.font_size = index * 2 + 6;
  skip([&] { save_option(program_, "savedfont", std::to_string(program_.options.font_size)); });
  for (MenuEntry& entry : menusize) entry.checked = false;
  menusize[static_cast<std::size_t>(index - 1)].checked = true;
  show_again();
}

void Quest::put_answer(std::string_view position) {
  skip([&] { save_option(program_, "putanswer", position); });
  program_.options.answer_position = position;
  mnu_answer_at_top.checked = position == "top";
  mnu_answer_at_bottom.checked = position == "bottom";
}

void Quest::keep_mail_kind(std::string_view kind) {
  mnu_outlookexpress.checked = kind == "outlook";
  mnu_webmail.checked = kind == "web";
  skip([&] { save_option(program_, "mailtype", kind); });
}

void Quest::mail_by_program() {
  keep_mail_kind("outlook");
  program_.options.mail_kind = "outlook";
}

// The web script answers to the student's own address, so there is no way on without one.
void Quest::mail_by_web() {
  keep_mail_kind("web");
  std::string address;
  skip([&] { address = stored_mail_address(program_); });
  if (address.empty()) {
    while (address.empty()) address = ask_for_mail_address(program_);
    skip([&] { keep_mail_address(program_, address); });
  }
  program_.options.mail_kind = "web";
}

void Quest::change_mail_address() {
  std::string old_address;
  skip([&] { old_address = stored_mail_address(program_); });
  const std::string address = ask_for_mail_address(program_, old_address);
  skip([&] { keep_mail_address(program_, address.empty() ? old_address : address); });
}

void Quest::print_question() {
  run_.print_mode = printing;
  skip([&] { program_.handover->show_answer(); });
  run_.print_mode = not_printing;
  skip([&] { program_.forms.unload(Form::theanswer); });
}

void Quest::back_to_options() {
  skip([&] { program_.forms.unload(Form::quest); });
  skip([&] { program_.forms.unload(Form::theanswer); });
  skip([&] { program_.forms.show(Form::pick_a_quiz); });
}

void Quest::ask_to_exit() {
  const Answer answer =
      program_.platform.messages.show({.text = "Are you sure you want to exit the program?",
                                       .title = "Exit Program?",
                                       .buttons = Buttons::yes_no,
                                       .icon = Icon::question});
  if (answer != Answer::no) program_.handover->close_all_forms();
}

}  // namespace practice
