// The menus of the question screen. Changes take effect at once; a new font shows the question
// anew.
#include "run/quest3.h"

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

void Quest::print_question() {
  run_.print_mode = printing;
  skip([&] { program_.handover->show_answer(); });
  run_.print_mode = not_printing;
  skip([&] { program_.forms.unload(Form::theanswer); });
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
