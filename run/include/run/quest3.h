// The question screen of a test run.
//
// The options screen composes a test, shows this screen with question_position at 0 and calls
// show_quest(), which is the only way a question reaches the screen. Next checks the answer and
// moves on; past the last position the screen leaves for the final score. To show the same position
// again, lower question_position by one first; for the previous one, by two.
#pragma once

#include <array>
#include <string>

#include "platform/screen.h"
#include "session/fault_patterns.h"
#include "session/program.h"

namespace practice {

/// The controls of the question screen; they are its state.
struct QuestControls {
  HtmlView WebBrowser1;
  /// Right of the view: the score panel.
  Frame Frame1;
  Shape Gauge1;
  Shape the_gauge;
  Label Percent_Right;
  Label score;
  Label Label2;
  Label question_number;
  Label Label3;
  Label qid;
  Label Label4;
  Label lbltime;
  Label lbltimeleft;
  Shape Line3;
  /// A partner's picture at the foot of the panel.
  Picture skq_side;
  /// Under the view: the buttons.
  Frame Frame2;
  std::array<Button, 4> cmd_buttons;
  std::array<Button, 3> exhibitbutton;
  std::array<Button, 3> diagrambutton;
  Button cmdtutor;
  Button cluebutton;
  /// "Review Chapter "
  Button Command1;
  /// The status line.
  Label whatdoin;
  Timer Timer1;
  Timer Timer2;

  MenuEntry menu_file;
  MenuEntry menu_printquestion;
  MenuEntry menu_quittest;
  MenuEntry mnuBack;
  MenuEntry menu_exit;
  MenuEntry menu_fontsize;
  /// Entries 0 and 1 are menufont(1) and menufont(2).
  std::array<MenuEntry, 2> menufont;
  MenuEntry mnuSeparator;
  /// Entries 0 to 5 are menusize(1) to menusize(6).
  std::array<MenuEntry, 6> menusize;
  MenuEntry menu_options;
  MenuEntry mnuSavefont;
  MenuEntry menu_showwrong;
  MenuEntry menu_showright;
  MenuEntry menu_shownumanswer;
  MenuEntry menu_backbutton;
  MenuEntry mnuEmbed;
  MenuEntry mnu_show_answer;
  MenuEntry mnu_answer_at_top;
  MenuEntry mnu_answer_at_bottom;
  MenuEntry mnu_emailsettings;
  MenuEntry mnu_outlookexpress;
  MenuEntry mnu_webmail;
  MenuEntry mnu_changeemailadd;
  MenuEntry menu_help;
  MenuEntry menu_contents;
  MenuEntry menu_about;
};

class Quest : public Screen, public QuestControls {
 public:
  explicit Quest(Program& program);

  void design() override;
  void load() override;
  void activate() override;
  void resize() override;
  void unload() override;
  /// With Alt held the keyboard is the page's, so that its access keys work.
  void key_down(bool with_alt) override;
  /// As "E&xit Program": the student is asked first.
  void close_window() override;
  /// HTML_Click.
  void call_by_name(std::string_view method, std::string_view argument) override;

  /// Advances question_position by one and shows that position, or ends the test.
  void show_quest();
  /// Ends the test as if all questions had been seen.
  void grade_now();
  /// Leaves for the final score screen.
  void end_the_test();
  void write_results_file();

  /// Shows a page; returns when the view is idle.
  void set_wow_question_html(std::string_view html);
  /// Opens exhibit "1", "2" or "3" with the desktop's program; any other value does nothing.
  void HTML_Click(std::string_view which);

  /// Decides whether the question on show was answered right and records it.
  void check_answer();
  /// Recounts the run and refreshes the score panel.
  void calculate_score();
  /// Counts the questions of the run by category.
  void count_category_questions();

 private:
  void list_controls();
  void list_menus();

  void show_score_panel();
  void permute_answers(Trap& trap);
  void decide_kind();
  void show_attachment_buttons(Trap& trap);
  void show_book_button();
  void set_status_line(bool at_load);
  void check_menus_at_load(Trap& trap);

  void read_page_inputs();
  void next_question();
  void finish_question();
  void go_back();

  void tick();
  void expire();

  void choose_font(int index);
  void choose_size(int index);
  void toggle(MenuEntry& entry, Integer& flag);
  void toggle_back_button();
  void toggle_embed();
  void put_answer(std::string_view position);
  void show_again();
  void keep_mail_kind(std::string_view kind);
  void mail_by_program();
  void mail_by_web();
  void change_mail_address();
  void print_question();
  void back_to_options();
  void ask_to_exit();

  bool fill_in_is_right();
  bool choice_is_right();
  bool result_is_right();
  bool configuration_is_right();
  void record(bool right);

  /// Twips; a bar that is thinner is hidden.
  static constexpr double least_bar_height = 20;

  Program& program_;
  TestRun& run_;
  bool single_correct_ = true;
  /// Counts the calls of show_quest() since the load, so that a page that was overtaken is known.
  int shows_ = 0;
  /// The name of the quiz as the status line tells it, by quiz number.
  Slots<std::string, 6> status_labels_;
  /// Distances kept from the design, twips.
  double frame2_gap_ = 0;
  double view_gap_ = 0;
  double frame1_width_ = 0;
};

}  // namespace practice
