// What the options screen looks like before it is used, and which handler answers which control.
#include "platform/building.h"
#include "session/helpers.h"
#include "setup/pick_a_quiz.h"

namespace practice {
namespace {

constexpr std::string_view timed_tip = "Limits the amount of time you have to take the quiz.";
constexpr std::string_view count_tip = "Tells you the number of correct answers for a question.";

CheckBox box(std::string caption, int value, std::string_view tip = {}) {
  CheckBox control = captioned<CheckBox>(std::move(caption));
  control.value = value;
  control.tool_tip = tip;
  return control;
}

TextBox text_box(std::string text, std::string_view tip = {}) {
  TextBox control;
  control.text = std::move(text);
  control.tool_tip = tip;
  return control;
}

}  // namespace

PickAQuiz::PickAQuiz(Program& program)
    : Screen("pick_a_quiz"), program_(program), run_(program.test_run) {
  list_menus();
  list_controls();
}

void PickAQuiz::design() {
  static_cast<PickAQuizControls&>(*this) = PickAQuizControls{};
  caption = "Practice Exam";
  bounds = {0, 0, 9900, 6900};
  least_width = 9780;
  least_height = 6795;

  menu_file = captioned<MenuEntry>("&File");
  mnu_savesettings = captioned<MenuEntry>("Save Settings");
  menu_exit = captioned<MenuEntry>("E&xit Program");
  mnu_history = captioned<MenuEntry>("Histor&y");
  mnu_viewtestscorehistory = captioned<MenuEntry>("View Test Score History");
  mnu_emailtestscorehistory = captioned<MenuEntry>("Email Test Score History");
  mnu_resetuserhistory = captioned<MenuEntry>("Reset User History");
  mnu_testingmode = captioned<MenuEntry>("Testing M&ode");
  mnu_learningmode = captioned<MenuEntry>("Practice (default)");
  mnu_simulatormode = captioned<MenuEntry>("Test Mode");
  mnu_update123 = captioned<MenuEntry>("&Update");
  mnu_check_for_upgrade123 = captioned<MenuEntry>("Check for Upgrade");
  menu_help = captioned<MenuEntry>("&Help");
  menu_contents = captioned<MenuEntry>("&Contents");
  menu_about = captioned<MenuEntry>("&About");

  SSTab1.captions = {"General", " Advanced Options", "Select Categories", "Study Saver"};
  SSTab1.tab_on = {true, true, true, true};
  SKQ_P_A_Q.visible = false;
  lblstudentname = captioned<Label>("Enter Your Name:");
  txtstudentname = text_box("STUDENT", "Type your name here to keep a record of your scores");
  fra_quizzes = captioned<Frame>("Select a Quiz");
  which_quiz[0].value = true;
  which_quiz[3] = hidden(captioned<OptionButton>("Quiz &D"));
  which_quiz[4] = hidden(captioned<OptionButton>("Ask ALL Questions"));
  which_quiz[5] = hidden(captioned<OptionButton>("Final Exam"));
  Label6 = captioned<Label>("Total Questions:");
  Frame1 = captioned<Frame>("50 Questions per Quiz");
  howmanyq.visible = false;
  Command1.is_default = true;
  restore_defaults = with_tip(captioned<Button>("&Practice Mode (default)"),
                              "Shows full answer, allows back button and is not timed.");
  Command2 = with_tip(captioned<Button>("Test &Mode"), "Simulates the real exam environment.");
  savesettings = with_tip(captioned<Button>("Sa&ve Settings"),
                          "This will remember your settings for next time.");
  cmd_reset_user_history =
      with_tip(captioned<Button>("Reset &User History"), "This will clear the students history.");
  cmd_flashcards = with_tip(captioned<Button>("F&lash Cards"),
                            "Shows the questions one by one, as cards to learn with.");
  Label1 = hidden(captioned<Label>("Ask"));
  Label2 = hidden(captioned<Label>("OR"));
  Label5.visible = false;
  VScroll2.visible = false;

  timeron = box("&Timed Quiz", 0, timed_tip);
  timeamount = text_box("75", timed_tip);
  timeamountlabel = captioned<Label>("min.");
  VScroll1.lowest = 0;
  VScroll1.highest = 199;
  VScroll1.value = 170;
  lblshowanswers = captioned<Label>("Show Correct Answers When I'm");
  answer_when_wrong =
      box("&Wrong", 1, "Displays answer and explanation when question is answered wrong.");
  answer_when_right =
      box("&Right", 0, "Displays answer and explanation when question is answered right.");
  lblrandomization = captioned<Label>("Randomization Options");
  random_questions = box("Q&uestions", 1, "Randomizes the order in which the questions are asked.");
  random_answers = box("A&nswers", 1, "Randomizes the order that the answers are displayed.");
  scoregraph = box("L&ive Scoring", 1, "Shows you your percentage correct as you take the quiz.");
  backb = box("Bac&k Button", 1, "Allows you to review previously asked questions.");
  showhowmanyanswers = box("Show &# of Answers", 1, count_tip);
  chkEmbed = hidden(box("&Embed Media Player for Online Tutor Files", 0, count_tip));
  lblradio = captioned<Label>("Use Radio Buttons for Single Answer Questions");
  chkRadio = box("Yes", 1);
  askwrong = hidden(box("Only ask qu&estions answered incorrectly last time.", 0,
                        "If you have taken this quiz before, this option will only ask the "
                        "questions you got wrong last time."));
  cmd_save_settings = captioned<Button>("&Save Settings");

  lbl_cats_to_ask = captioned<Label>("Categories to Ask:");
  lst_cats_to_ask.multi_select = true;
  lbl_Cats_not_ask = captioned<Label>("Categories NOT to Ask:");
  lst_cats_not_to_ask.multi_select = true;
  cmd_add_cat = captioned<Button>("<");
  cmd_remove_cat = captioned<Button>(">");
  cmd_add_all_cat = captioned<Button>("<<");
  cmd_remove_all_cat = captioned<Button>(">>");
  Label4 = captioned<Label>("Note:  Questions will be asked from your selected quiz.");
  cmd_start_cat_quiz =
      captioned<Button>("Start Quiz, Asking Only Questions in Selected Categories");
  cmdSaveSet = captioned<Button>("Save Settings");

  Label14 = captioned<Label>("Configure Your Study Saver");
  lbldisplayans = captioned<Label>("3");
  lbl1 = captioned<Label>("seconds before displaying answers");
  lbldisplaycorr = captioned<Label>("6");
  Label13 = captioned<Label>("seconds before displaying correct answer(s)");
  for (ScrollBar* bar : {&VScroll3, &VScroll4}) {
    bar->lowest = Integer::lowest;
    bar->highest = Integer::highest;
    bar->value = 0;
  }
  chkRandom = box("Randomize Questions", 0);
  cmdok =
      with_tip(captioned<Button>("Save Configuration"), "Click Here to Save Your Configuration");
  Label12 = captioned<Label>("Make This Test Your Screensaver");
  cmdSet = captioned<Button>(" Set as &DEFAULT Screen Saver ");
}

void PickAQuiz::list_menus() {
  list_menu("", "menu_file", menu_file);
  list_menu("menu_file", "mnu_savesettings", mnu_savesettings).on_click([this] { save_options(); });
  list_menu("menu_file", "menu_exit", menu_exit).on_click([this] {
    program_.handover->close_all_forms();
  });
  list_menu("", "mnu_history", mnu_history);
  list_menu("mnu_history", "mnu_viewtestscorehistory", mnu_viewtestscorehistory).on_click([this] {
    view_history();
  });
  list_menu("mnu_history", "mnu_emailtestscorehistory", mnu_emailtestscorehistory).on_click([this] {
    mail_history();
  });
  list_menu("mnu_history", "mnu_resetuserhistory", mnu_resetuserhistory).on_click([this] {
    clear_history();
  });
  list_menu("", "mnu_testingmode", mnu_testingmode);
  list_menu("mnu_testingmode", "mnu_learningmode", mnu_learningmode).on_click([this] {
    practice_preset();
  });
  list_menu("mnu_testingmode", "mnu_simulatormode", mnu_simulatormode).on_click([this] {
    test_preset();
  });
  list_menu("", "mnu_update123", mnu_update123);
  list_menu("mnu_update123", "mnu_check_for_upgrade123", mnu_check_for_upgrade123).on_click([this] {
    check_for_upgrade();
  });
  list_menu("", "menu_help", menu_help);
  list_menu("menu_help", "menu_contents", menu_contents).on_click([this] {
    skip([&] { open_document(program_, "marlo.chm", WindowShow::normal); });
  });
  list_menu("menu_help", "menu_about", menu_about).on_click([this] {
    skip([&] { program_.forms.show(Form::About1); });
  });
}

void PickAQuiz::list_controls() {
  list("SSTab1", SSTab1);
  list("Marlo_P_A_Q", Marlo_P_A_Q);
  list("SKQ_P_A_Q", SKQ_P_A_Q);
  list("lblstudentname", lblstudentname);
  list("txtstudentname", txtstudentname).on_change([this] {
    program_.options.student_name = txtstudentname.text;
  });
  list("fra_quizzes", fra_quizzes);
  for (int i = 1; i <= 6; ++i) {
    list("which_quiz", which_quiz[static_cast<std::size_t>(i - 1)], i).on_click([this, i] {
      tick_quiz(i);
    });
  }
  for (int i = 0; i < 3; ++i) list("lblORBIT_book", lblORBIT_book[static_cast<std::size_t>(i)], i);
  list("Label6", Label6);
  list("howmany", howmany);
  list("Frame1", Frame1);
  list("howmanyq", howmanyq);
  list("Command1", Command1).on_click([this] { start_plain_quiz(); });
  list("restore_defaults", restore_defaults).on_click([this] { practice_preset(); });
  list("Command2", Command2).on_click([this] { test_preset(); });
  list("savesettings", savesettings).on_click([this] { save_options(); });
  list("cmd_reset_user_history", cmd_reset_user_history).on_click([this] { clear_history(); });
  list("cmd_flashcards", cmd_flashcards).on_click([this] { open_flash_cards(); });
  list("Label1", Label1);
  list("Label2", Label2);
  list("Label5", Label5);
  list("VScroll2", VScroll2);

  list("lblshowanswers", lblshowanswers);
  list("answer_when_wrong", answer_when_wrong);
  list("answer_when_right", answer_when_right);
  list("lblrandomization", lblrandomization);
  list("random_questions", random_questions);
  list("random_answers", random_answers);
  list("timeron", timeron).on_click([this] { click_timer(); });
  list("timeamount", timeamount);
  list("timeamountlabel", timeamountlabel);
  list("VScroll1", VScroll1).on_change([this] { scroll_timer(); });
  list("scoregraph", scoregraph);
  list("backb", backb);
  list("showhowmanyanswers", showhowmanyanswers);
  list("chkEmbed", chkEmbed);
  list("lblradio", lblradio);
  list("chkRadio", chkRadio).on_click([this] { apply_radio(); });
  list("askwrong", askwrong);
  list("cmd_save_settings", cmd_save_settings).on_click([this] { save_options(); });

  list("lbl_cats_to_ask", lbl_cats_to_ask);
  list("lst_cats_to_ask", lst_cats_to_ask).on_double_click([this] { remove_the_cats(); });
  list("cmd_add_cat", cmd_add_cat).on_click([this] { add_the_cats(); });
  list("cmd_remove_cat", cmd_remove_cat).on_click([this] { remove_the_cats(); });
  list("cmd_add_all_cat", cmd_add_all_cat).on_click([this] {
    move_all(lst_cats_not_to_ask, lst_cats_to_ask);
  });
  list("cmd_remove_all_cat", cmd_remove_all_cat).on_click([this] {
    move_all(lst_cats_to_ask, lst_cats_not_to_ask);
  });
  list("lbl_Cats_not_ask", lbl_Cats_not_ask);
  list("lst_cats_not_to_ask", lst_cats_not_to_ask).on_double_click([this] { add_the_cats(); });
  list("Label4", Label4);
  list("cmd_start_cat_quiz", cmd_start_cat_quiz).on_click([this] { start_category_quiz(); });
  list("cmdSaveSet", cmdSaveSet).on_click([this] { save_options(); });

  list("Label14", Label14);
  list("lbldisplayans", lbldisplayans);
  list("VScroll4", VScroll4).on_change([this] { spin(VScroll4, lbldisplayans, answer_spin_); });
  list("lbl1", lbl1);
  list("lbldisplaycorr", lbldisplaycorr);
  list("VScroll3", VScroll3).on_change([this] { spin(VScroll3, lbldisplaycorr, correct_spin_); });
  list("Label13", Label13);
  list("chkRandom", chkRandom);
  list("cmdok", cmdok).on_click([this] { save_saver_settings(); });
  list("Label12", Label12).on_click([this] { set_as_screen_saver(); });
  list("cmdSet", cmdSet).on_click([this] { set_as_screen_saver(); });
}

}  // namespace practice
