// What the question screen looks like before it is used, and which handler answers which control.
#include "platform/building.h"
#include "run/quest3.h"
#include "run/question_page.h"
#include "run/simulators.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr double form_width = 12000;
constexpr double form_height = 9000;
constexpr double panel_width = 1440;
constexpr double button_strip_top = 7770;
constexpr unsigned red = 0xC0392B;
constexpr unsigned green = 0x2E8B57;
constexpr unsigned grey = 0x9AA5AB;

Label panel_label(std::string caption, double top) {
  return captioned<Label>(std::move(caption), {120, top, 1200, 285});
}

}  // namespace

Quest::Quest(Program& program) : Screen("quest"), program_(program), run_(program.test_run) {
  list_controls();
  list_menus();
}

void Quest::design() {
  static_cast<QuestControls&>(*this) = QuestControls{};
  bounds = {0, 0, form_width, form_height};
  least_width = 9540;
  least_height = 6960;

  WebBrowser1 = placed<HtmlView>({10, 10, form_width - panel_width - 140, 7650});
  Frame1 = placed<Frame>({form_width - panel_width - 130, 10, panel_width, 7650});
  Label3 = panel_label("QUEST #", 90);
  question_number = panel_label("", 375);
  Gauge1 = hidden(placed<Shape>({120, 960, 495, 2175}));
  Gauge1.rgb = green;
  the_gauge = placed<Shape>({120, 960, 495, 2175});
  the_gauge.rgb = red;
  Percent_Right = panel_label("0%", 3225);
  Label2 = panel_label("SCORE:", 3660);
  score = panel_label("0/0", 3945);
  Label4 = panel_label("QID:", 4380);
  qid = panel_label("", 4665);
  lbltimeleft = hidden(panel_label("TIME LEFT:", 5100));
  lbltime = hidden(panel_label("", 5385));
  Line3 = hidden(placed<Shape>({120, 5040, 1080, 15}));
  Line3.rgb = grey;
  skq_side = hidden(placed<Picture>({120, 5760, 1200, 1800}));

  Frame2 = placed<Frame>({1300, button_strip_top, 9400, 840});
  cmd_buttons[0] = captioned<Button>("&Next ->");
  cmd_buttons[0].is_default = true;
  cmd_buttons[1] = captioned<Button>("<- Bac&k");
  cmd_buttons[2] = hidden(captioned<Button>("Launch Simulator"));
  cmd_buttons[3] = hidden(captioned<Button>("Launch Drag and Drop"));
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string number = std::to_string(i + 1);
    exhibitbutton[i] = hidden(captioned<Button>("Exhibit " + number));
    diagrambutton[i] = hidden(captioned<Button>("Diagram " + number));
  }
  cmdtutor = with_tip(hidden(captioned<Button>("Online Tutor")),
                      "Launches a web browser for a brief presentation.");
  cluebutton = hidden(captioned<Button>("CLUE"));
  Command1 = captioned<Button>("Review Chapter ");
  whatdoin = placed<Label>({120, form_height - 330, form_width - 240, 285});

  Timer1.interval = 2000;
  Timer2.interval = 100;

  menu_file = captioned<MenuEntry>("F&ile");
  menu_printquestion = captioned<MenuEntry>("&Print Question");
  menu_quittest = captioned<MenuEntry>("&End and Grade This Quiz");
  mnuBack = hidden(captioned<MenuEntry>("Back to Options Menu (Quit Test)"));
  menu_exit = captioned<MenuEntry>("E&xit Program");
  menu_fontsize = captioned<MenuEntry>("For&mat Font");
  menufont = {captioned<MenuEntry>("Times New Roman"), captioned<MenuEntry>("Arial")};
  mnuSeparator = captioned<MenuEntry>("-");
  menusize = {captioned<MenuEntry>("Size 8"),  captioned<MenuEntry>("Size 10"),
              captioned<MenuEntry>("Size 12"), captioned<MenuEntry>("Size 14"),
              captioned<MenuEntry>("Size 18"), captioned<MenuEntry>("Size 20")};
  menu_options = captioned<MenuEntry>("&Options");
  mnuSavefont = captioned<MenuEntry>("Save Current Font Settings");
  menu_showwrong = captioned<MenuEntry>("Show Answer when Wrong");
  menu_showright = captioned<MenuEntry>("Show Answer when Right");
  menu_shownumanswer = captioned<MenuEntry>("Show # of Answers");
  menu_backbutton = captioned<MenuEntry>("Back Button");
  mnuEmbed = captioned<MenuEntry>("Embed Media Player (for online tutor)");
  mnu_show_answer = captioned<MenuEntry>("When Showing Answer");
  mnu_answer_at_top = captioned<MenuEntry>("Put Correct Answer near top");
  mnu_answer_at_bottom = captioned<MenuEntry>("Put Correct Answer near bottom");
  mnu_emailsettings = hidden(captioned<MenuEntry>("Email Se&ttings"));
  mnu_outlookexpress = captioned<MenuEntry>("Outlook (Express)");
  mnu_webmail = captioned<MenuEntry>("Web Based Email");
  mnu_changeemailadd = captioned<MenuEntry>("Change Email Address");
  menu_help = captioned<MenuEntry>("&Help");
  menu_contents = captioned<MenuEntry>("&Contents");
  menu_about = captioned<MenuEntry>("&About");
}

void Quest::list_controls() {
  list("WebBrowser1", WebBrowser1);
  list("Frame1", Frame1);
  list("Label3", Label3);
  list("question_number", question_number);
  list("Gauge1", Gauge1);
  list("the_gauge", the_gauge);
  list("Percent_Right", Percent_Right);
  list("Label2", Label2);
  list("score", score);
  list("Label4", Label4);
  list("qid", qid);
  list("lbltimeleft", lbltimeleft);
  list("lbltime", lbltime);
  list("Line3", Line3);
  list("skq_side", skq_side);
  list("Frame2", Frame2);
  list("cmd_buttons", cmd_buttons[1], 1).on_click([this] { go_back(); });
  list("cmd_buttons", cmd_buttons[0], 0).on_click([this] { next_question(); });
  list("cmd_buttons", cmd_buttons[2], 2).on_click([this] { launch_simulator(program_); });
  list("cmd_buttons", cmd_buttons[3], 3).on_click([this] { launch_simulator(program_); });
  for (int i = 0; i < 3; ++i) {
    list("exhibitbutton", exhibitbutton[static_cast<std::size_t>(i)], i).on_click([this, i] {
      program_.handover->open_exhibit(i + 1);
    });
  }
  for (int i = 0; i < 3; ++i) {
    list("diagrambutton", diagrambutton[static_cast<std::size_t>(i)], i).on_click([this, i] {
      program_.handover->open_diagram(i + 1);
    });
  }
  list("cmdtutor", cmdtutor).on_click([this] {
    skip([&] {
      play_sound(program_, tutor_address(program_, program_.current_question.tutor_file,
                                         {".WMV", ".WAV", ".MP3"}));
    });
  });
  list("cluebutton", cluebutton).on_click([this] {
    program_.platform.messages.show({.text = program_.current_question.clue, .title = "Clue"});
  });
  list("Command1", Command1).on_click([this] { program_.handover->open_book(); });
  list("whatdoin", whatdoin);
  list("Timer1", Timer1).on_click([this] { tick(); });
  list("Timer2", Timer2);
}

void Quest::list_menus() {
  list_menu("", "menu_file", menu_file);
  list_menu("menu_file", "menu_printquestion", menu_printquestion).on_click([this] {
    print_question();
  });
  list_menu("menu_file", "menu_quittest", menu_quittest).on_click([this] { grade_now(); });
  list_menu("menu_file", "mnuBack", mnuBack).on_click([this] { back_to_options(); });
  list_menu("menu_file", "menu_exit", menu_exit).on_click([this] { ask_to_exit(); });

  list_menu("", "menu_fontsize", menu_fontsize);
  for (int i = 1; i <= 2; ++i) {
    list_menu("menu_fontsize", "menufont", menufont[static_cast<std::size_t>(i - 1)], i)
        .on_click([this, i] { choose_font(i); });
  }
  list_menu("menu_fontsize", "mnuSeparator", mnuSeparator);
  for (int i = 1; i <= 6; ++i) {
    list_menu("menu_fontsize", "menusize", menusize[static_cast<std::size_t>(i - 1)], i)
        .on_click([this, i] { choose_size(i); });
  }

  list_menu("", "menu_options", menu_options);
  list_menu("menu_options", "mnuSavefont", mnuSavefont).on_click([this] {
    skip([&] { save_option(program_, "savedfont", std::to_string(program_.options.font_size)); });
    skip([&] { save_option(program_, "savedfontname", program_.options.font_name); });
  });
  Options& options = program_.options;
  list_menu("menu_options", "menu_showwrong", menu_showwrong).on_click([this, &options] {
    toggle(menu_showwrong, options.show_answer_when_wrong);
  });
  list_menu("menu_options", "menu_showright", menu_showright).on_click([this, &options] {
    toggle(menu_showright, options.show_answer_when_right);
  });
  list_menu("menu_options", "menu_shownumanswer", menu_shownumanswer).on_click([this, &options] {
    toggle(menu_shownumanswer, options.show_answer_count);
  });
  list_menu("menu_options", "menu_backbutton", menu_backbutton).on_click([this] {
    toggle_back_button();
  });
  list_menu("menu_options", "mnuEmbed", mnuEmbed).on_click([this] { toggle_embed(); });
  list_menu("menu_options", "mnu_show_answer", mnu_show_answer);
  list_menu("mnu_show_answer", "mnu_answer_at_top", mnu_answer_at_top).on_click([this] {
    put_answer("top");
  });
  list_menu("mnu_show_answer", "mnu_answer_at_bottom", mnu_answer_at_bottom).on_click([this] {
    put_answer("bottom");
  });

  list_menu("", "mnu_emailsettings", mnu_emailsettings);
  list_menu("mnu_emailsettings", "mnu_outlookexpress", mnu_outlookexpress).on_click([this] {
    mail_by_program();
  });
  list_menu("mnu_emailsettings", "mnu_webmail", mnu_webmail).on_click([this] { mail_by_web(); });
  list_menu("mnu_emailsettings", "mnu_changeemailadd", mnu_changeemailadd).on_click([this] {
    change_mail_address();
  });

  list_menu("", "menu_help", menu_help);
  list_menu("menu_help", "menu_contents", menu_contents).on_click([this] {
    skip([&] { open_document(program_, "marlo.chm", WindowShow::normal); });
  });
  list_menu("menu_help", "menu_about", menu_about).on_click([this] {
    skip([&] { program_.forms.show_modal(Form::About1); });
  });
}

}  // namespace practice
