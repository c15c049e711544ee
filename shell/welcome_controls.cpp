// What the welcome screen looks like before it is used, and which handler answers which control.
#include "platform/building.h"
#include "session/fault_patterns.h"
#include "shell/welcome.h"

namespace practice {
namespace {

constexpr double width = 5925;
constexpr double height = 7800;
constexpr double button_width = 2100;
constexpr double button_height = 540;
constexpr double margin = 240;

Picture picture_button(std::string_view tip) {
  Picture button = placed<Picture>({3675, 5940, button_width, button_height});
  button.tool_tip = tip;
  return button;
}

}  // namespace

Welcome::Welcome(Program& program) : Screen("Welcome"), program_(program) { list_controls(); }

void Welcome::design() {
  static_cast<WelcomeControls&>(*this) = WelcomeControls{};
  bounds = {0, 0, width, height};
  least_width = width;
  least_height = height;
  Image1 = placed<Picture>({0, 0, width, height});
  Image3 = placed<Picture>({0, 0, width, height});
  Label6 = captioned<Label>("Practice test for:", {margin, 180, 3600, 300});
  constexpr std::string_view tips[] = {"Start", "Help", "Exit"};
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    Image4[i] = picture_button(tips[i]);
    Image4[i].bounds.top += 615 * static_cast<double>(i);
    oldImage4[i] = Image4[i];
  }
  lblOEMGreeting = hidden(captioned<Label>("", {margin, 6030, 3300, 285}));
  Image2 = hidden(placed<Picture>({margin, 6030, 2400, 600}));
  lblFeedback = hidden(captioned<Label>("Submit Feedback", {margin, 6840, 1900, 285}));
  lblEULALink = captioned<Label>("EULA", {margin, 7230, 700, 285});

  Start_Quiz = picture_button("Start");
  cmd_start_real = picture_button("Start");
  Command1 = picture_button("Exit");
  help_command = picture_button("Help");
  About = picture_button("About");
  HMI_Start = picture_button("Start");
  hmi_help = picture_button("Help");
  hmi_exit = picture_button("Exit");
  test_name = placed<Label>({margin, 900, 5400, 600});
  lblLabels = captioned<Label>("Written by", {margin, 1560, 2400, 285});
  author_name2 = placed<Label>({margin, 1860, 5400, 285});
  txtTestDescription = placed<Label>({margin, 2220, 5400, 600});
  lRelease = placed<Label>({margin, 2880, 2400, 285});
  Label2 = captioned<Label>("Copyright Marlo Software", {margin, 3240, 5400, 285});
  Label3 = captioned<Label>("Marlo Software", {margin, 3540, 5400, 285});
  Label5 = captioned<Label>("Free to use, see the license.", {margin, 3840, 5400, 285});
}

void Welcome::list_controls() {
  const auto start = [this] { start_quiz_click_sub(); };
  const auto help = [this] { open_help(); };
  const auto exit = [this] { program_.handover->close_all_forms(); };

  list("Image1", Image1);
  list("Image3", Image3);
  list("Image2", Image2);
  list("Label6", Label6);
  list("lblOEMGreeting", lblOEMGreeting);
  list("Image4", Image4[0], 0).on_click(start);
  list("Image4", Image4[1], 1).on_click(help);
  list("Image4", Image4[2], 2).on_click(exit);
  list("lblFeedback", lblFeedback).on_click([this] { give_feedback(); });
  list("lblEULALink", lblEULALink).on_click([this] { open_eula(); });

  list("Start_Quiz", Start_Quiz).on_click(start);
  list("cmd_start_real", cmd_start_real).on_click(start);
  list("help_command", help_command).on_click(help);
  list("Command1", Command1).on_click(exit);
  list("About", About).on_click([this] { skip([&] { program_.forms.show(Form::About1); }); });
  list("HMI_Start", HMI_Start).on_click([this, start] {
    if (program_.branding.partner_edition != partner_publisher) return start();
    // That edition's welcome screen begins anew.
    program_.forms.hide(Form::Welcome);
    program_.forms.unload(Form::Welcome);
    program_.forms.load(Form::Welcome);
  });
  list("hmi_help", hmi_help).on_click(help);
  list("hmi_exit", hmi_exit).on_click(exit);
  for (int i = 0; i < 3; ++i) list("oldImage4", oldImage4[static_cast<std::size_t>(i)], i);
  list("test_name", test_name);
  list("lblLabels", lblLabels);
  list("author_name2", author_name2);
  list("txtTestDescription", txtTestDescription);
  list("lRelease", lRelease);
  list("Label2", Label2);
  list("Label3", Label3);
  list("Label5", Label5);
}

}  // namespace practice
