// What the options screen looks like before it is used, and which handler answers which control.
#include "platform/building.h"
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
  bounds = {0, 0, 11250, 8100};
  least_width = 9780;
  least_height = 6795;

  menu_file = captioned<MenuEntry>("&File");
  mnu_savesettings = captioned<MenuEntry>("Save Settings");
  menu_exit = captioned<MenuEntry>("E&xit Program");
  mnu_testingmode = captioned<MenuEntry>("Testing M&ode");
  mnu_learningmode = captioned<MenuEntry>("Practice (default)");
  mnu_simulatormode = captioned<MenuEntry>("Test Mode");

  SSTab1.captions = {"General", " Advanced Options", "Select Categories", "Study Saver"};
  // The study saver's tab comes with the study saver.
  SSTab1.tab_on = {true, true, true, false};
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
}

void PickAQuiz::list_menus() {
  list_menu("", "menu_file", menu_file);
  list_menu("menu_file", "mnu_savesettings", mnu_savesettings).on_click([this] { save_options(); });
  list_menu("menu_file", "menu_exit", menu_exit).on_click([this] {
    program_.handover->close_all_forms();
  });
  list_menu("", "mnu_testingmode", mnu_testingmode);
  list_menu("mnu_testingmode", "mnu_learningmode", mnu_learningmode).on_click([this] {
    practice_preset();
  });
  list_menu("mnu_testingmode", "mnu_simulatormode", mnu_simulatormode).on_click([this] {
    test_preset();
  });
}

void PickAQuiz::list_controls() {
  list("SSTab1", SSTab1);
  list("Marlo_P_A_Q", Marlo_P_A_Q);
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
}

}  // namespace practice
