// The options screen: the student's name, the quiz, the options of a test, its categories.
//
// Between tests the controls are the state of the options; they are read once, at the start of a
// test, by start_the_quiz_from_command1(). The screen hides behind the test and is loaded anew
// when the test has ended.
#pragma once

#include <array>
#include <string>

#include "platform/screen.h"
#include "session/fault_patterns.h"
#include "session/program.h"

namespace practice {

struct PickAQuizControls {
  MenuEntry menu_file;
  MenuEntry mnu_savesettings;
  MenuEntry menu_exit;
  MenuEntry mnu_history;
  MenuEntry mnu_viewtestscorehistory;
  MenuEntry mnu_emailtestscorehistory;
  MenuEntry mnu_resetuserhistory;
  MenuEntry mnu_testingmode;
  MenuEntry mnu_learningmode;
  MenuEntry mnu_simulatormode;
  MenuEntry mnu_update123;
  MenuEntry mnu_check_for_upgrade123;
  MenuEntry menu_help;
  MenuEntry menu_contents;
  MenuEntry menu_about;

  Tabs SSTab1;
  Picture Marlo_P_A_Q;
  /// A partner's picture, in its place.
  Picture SKQ_P_A_Q;
  Label lblstudentname;
  TextBox txtstudentname;
  /// "Select a Quiz"
  Frame fra_quizzes;
  /// Entries 0 to 5 are which_quiz(1) to which_quiz(6).
  std::array<OptionButton, 6> which_quiz;
  std::array<Label, 3> lblORBIT_book;
  Label Label6;
  Label howmany;
  Frame Frame1;
  TextBox howmanyq;
  /// Starts the quiz; its caption is the quiz's name.
  Button Command1;
  Button restore_defaults;
  Button Command2;
  Button savesettings;
  Button cmd_reset_user_history;
  Button cmd_flashcards;
  /// Of an edition that lets a student choose how many questions are asked.
  Label Label1;
  Label Label2;
  Label Label5;
  ScrollBar VScroll2;

  CheckBox timeron;
  TextBox timeamount;
  Label timeamountlabel;
  ScrollBar VScroll1;
  Label lblshowanswers;
  CheckBox answer_when_wrong;
  CheckBox answer_when_right;
  Label lblrandomization;
  CheckBox random_questions;
  CheckBox random_answers;
  CheckBox scoregraph;
  CheckBox backb;
  CheckBox showhowmanyanswers;
  CheckBox chkEmbed;
  Label lblradio;
  CheckBox chkRadio;
  CheckBox askwrong;
  Button cmd_save_settings;

  Label lbl_cats_to_ask;
  ListBox lst_cats_to_ask;
  Label lbl_Cats_not_ask;
  ListBox lst_cats_not_to_ask;
  Button cmd_add_cat;
  Button cmd_remove_cat;
  Button cmd_add_all_cat;
  Button cmd_remove_all_cat;
  Label Label4;
  Button cmd_start_cat_quiz;
  Button cmdSaveSet;

  /// "Configure Your Study Saver"
  Label Label14;
  Label lbldisplayans;
  ScrollBar VScroll4;
  Label lbl1;
  Label lbldisplaycorr;
  ScrollBar VScroll3;
  Label Label13;
  CheckBox chkRandom;
  Button cmdok;
  /// "Make This Test Your Screensaver"
  Label Label12;
  Button cmdSet;
};

/// A scroll bar used as a spin: its moves count a label up and down.
struct SpinState {
  Integer last_value;
  Integer count;
};

class PickAQuiz : public Screen, public PickAQuizControls {
 public:
  explicit PickAQuiz(Program& program);

  void design() override;
  void load() override;
  void activate() override;
  void resize() override;
  /// Back to the welcome screen.
  void close_window() override;

  /// Turns the state of this screen into a test run and shows the question screen.
  void start_the_quiz_from_command1();
  /// Reads the student's results file into last_results.
  void read_last_results();

  /// Moves the selected entries from one category list to the other.
  void add_the_cats();
  void remove_the_cats();
  /// Fills the list of categories to ask with all categories of the bank.
  void fill_category_lists();

 private:
  void list_controls();
  void list_menus();

  void show_quiz_names();
  void click_quiz(int index);
  void tick_quiz(int index);
  int ticked_quiz() const;
  void start_category_quiz();
  void start_plain_quiz();
  void move_selected(ListBox& from, ListBox& to);
  void move_all(ListBox& from, ListBox& to);

  void restore_options();
  void save_options();
  void click_timer();
  void set_timed(bool timed);
  void scroll_timer();
  void apply_radio();
  void keep_robin_in_book_order();
  void practice_preset();
  void test_preset();

  void view_history();
  void clear_history();
  void mail_history();
  void check_for_upgrade();

  static void spin(ScrollBar& bar, Label& label, SpinState& state);
  void save_saver_settings();
  void set_as_screen_saver();
  void open_flash_cards();

  // The steps of a composition; see composition.cpp.
  void compose();
  void read_switches();
  void clean_student_name();
  void choose_bank();
  void read_option_fields();
  bool wants_this_name();
  bool order_the_questions();
  void order_by_category();
  bool order_by_saved_wrong();
  bool order_by_wrong_list();
  void mark_the_rows();
  void shuffle_the_order();

  Program& program_;
  TestRun& run_;
  /// Rows of the bank by category; nothing on the screen shows it.
  Slots<Integer, 150> category_size_;
  bool is_composing_ = false;
  SpinState answer_spin_;
  SpinState correct_spin_;
};

}  // namespace practice
