// The study saver's screen, which teaches while nobody works, and the flash cards.
//
// In the saver role it covers the desk: one question at a time fades in on black, its answers
// appear, the correct ones are lit, all fades out. In the other role the same screen shows the
// questions as cards. Which role it has is told at load, by saver_mode.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/screen.h"
#include "platform/values/slots.h"
#include "session/program.h"

namespace practice {

inline constexpr int answer_labels = 6;

struct SecurityControls {
  /// The saver's ground, which holds all of it.
  Frame Frame1;
  Label lblQuestnum;
  Label lblQuestion;
  /// Answer 1 stands first.
  std::array<Label, answer_labels> lblAnswer;
  /// The logo that crawls along the bottom.
  Picture Picture1;
  Label Label1;
  Label lblTestinfo;
  Label Label3;
  /// A partner's logo, the exam's cover, a second publisher's logo, ours.
  Picture Image1;
  Picture img_cp;
  Picture img_HLB;
  Picture Image2;
  Timer FadeTimer;
  Timer scrolllogo;

  Label Label2;
  TextBox text1;
  Button cmd_main;
  Button cmd_next;
  Button Command3;
};

/// Line breaks and angle brackets of a question's text as plain text; other tags stay.
std::string clean_text(std::string_view text);

class Security : public Screen, public SecurityControls {
 public:
  explicit Security(Program& program);

  void design() override;
  void load() override;
  void activate() override;
  void resize() override;
  void unload() override;
  void close_window() override;

  /// Puts the card of the current position into the text box: its question, or its answer.
  void show_quest();
  void show_answer();

 private:
  void read_settings();
  void shuffle_rows();

  void tick();
  void go_to_next_row();
  void show_question();
  void show_answers();
  void place_answers();
  void light_correct_answers();
  void fade_in();
  void fade_out();
  void crawl();
  void paint_question(unsigned rgb);
  void make_room_for_the_number();
  void keep_question_on_the_screen();
  void fit(Label& label);
  Label& answer_label(int i) { return lblAnswer[static_cast<std::size_t>(i - 1)]; }

  void mouse_moved(double x, double y);
  void end_saver();

  void load_flash_cards();
  void turn_card();
  void skip_card();
  void leave_flash_cards();

  bool is_saver() const { return program_.saver_mode == 1; }

  Program& program_;
  /// By the sum of the screen's sides; 0 leaves the letters at their design size.
  Integer resolution_class_;
  Slots<Integer, MAX_QUESTIONS> row_order_;
  Integer order_index_;
  Integer saver_row_;
  Integer random_questions_;
  /// Seconds.
  Integer answer_delay_;
  Integer correct_delay_;
  int cycle_length_ = 0;
  Integer tick_count_;
  Integer last_x_;
  Integer last_y_;

  Integer flash_position_;
  Integer showing_question_;
};

}  // namespace practice
