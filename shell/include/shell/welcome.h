// Start-up and the welcome screen.
//
// The process begins by loading this screen; its load event does all start-up work and ends by
// showing the screen, or by showing the study saver in its place.
#pragma once

#include <array>

#include "platform/screen.h"
#include "session/program.h"

namespace practice {

struct WelcomeControls {
  /// The book's front cover.
  Picture Image3;
  /// Start, help, exit.
  std::array<Picture, 3> Image4;
  Label Label6;
  /// "EULA"
  Label lblEULALink;
  Label lblFeedback;
  /// Of a partner: a greeting, or a logo.
  Label lblOEMGreeting;
  Picture Image2;

  // The layout without a cover, of which this edition shows nothing.
  Picture Image1;
  Picture Start_Quiz;
  Picture cmd_start_real;
  Picture Command1;
  Picture help_command;
  Picture About;
  Picture HMI_Start;
  Picture hmi_help;
  Picture hmi_exit;
  std::array<Picture, 3> oldImage4;
  Label test_name;
  Label author_name2;
  /// "Written by"
  Label lblLabels;
  Label txtTestDescription;
  Label lRelease;
  Label Label2;
  Label Label3;
  Label Label5;
};

class Welcome : public Screen, public WelcomeControls {
 public:
  explicit Welcome(Program& program);

  void design() override;
  void load() override;
  void activate() override;
  /// The first one lays the cover over the whole window; later ones change nothing.
  void resize() override;
  void unload() override;
  void close_window() override;

  /// Opens the options screen.
  void start_quiz_click_sub();

 private:
  void list_controls();
  void keep_button_gaps();
  void apply_cover_layout();
  void apply_partner_publisher();
  void apply_branding();
  void show_feedback_link();
  void test_file_permissions();
  void start_saver();
  void open_help();
  void open_eula();
  void give_feedback();

  Program& program_;
  bool first_resize_ = false;
  /// From the right and bottom edge of the design to those of the buttons, twips.
  std::array<double, 3> right_gap_{};
  std::array<double, 3> bottom_gap_{};
};

}  // namespace practice
