// Start-up and the welcome screen.
//
// The process begins by loading this screen; its load event does all start-up work and ends by
// showing the screen.
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
  /// Background of the layout without a cover.
  Picture Image1;
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
  void apply_cover_layout();
  void test_file_permissions();

  Program& program_;
  bool first_resize_ = false;
  /// From the right and bottom edge of the design to those of the buttons, twips.
  std::array<double, 3> right_gap_{};
  std::array<double, 3> bottom_gap_{};
};

}  // namespace practice
