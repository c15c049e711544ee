// Fitting forms to screens of more pixels per inch.
#include "shell/scale_form.h"

#include "robot/testing.h"

namespace practice {
namespace {

struct Card : Screen {
  Label text;
  Button button;
  TextBox field;

  Card() : Screen("card") {
    list("text", text);
    list("button", button);
    list("field", field, 2);
  }
  void design() override {
    bounds = {300, 600, 6000, 3000};
    text.bounds = {120, 240, 2400, 360};
    button.bounds = {0, 1200, 1500, 450};
    field.bounds = {15, 30, 45, 60};
  }
  void close_window() override {}
};

TEST(ScaleForm, PlacesAndSizesAreDividedByThePixelsPerInchOver96) {
  const struct {
    int pixels_per_inch;
    Bounds form, text, button, field;
  } cases[] = {
      {96, {300, 600, 6000, 3000}, {120, 240, 2400, 360}, {0, 1200, 1500, 450}, {15, 30, 45, 60}},
      {120, {300, 600, 4800, 2400}, {96, 192, 1920, 288}, {0, 960, 1200, 360}, {12, 24, 36, 48}},
      {192, {300, 600, 3000, 1500}, {60, 120, 1200, 180}, {0, 600, 750, 225}, {7.5, 15, 22.5, 30}},
      {72, {300, 600, 8000, 4000}, {160, 320, 3200, 480}, {0, 1600, 2000, 600}, {20, 40, 60, 80}}};
  for (const auto& expected : cases) {
    robot::World world;
    world.stage.form_dots_per_inch = expected.pixels_per_inch;
    Program program(world.platform, "46000");
    Card card;
    card.design();
    scale_form_for_dpi(program, card);
    EXPECT_EQ(card.bounds, expected.form) << expected.pixels_per_inch;
    EXPECT_EQ(card.text.bounds, expected.text) << expected.pixels_per_inch;
    EXPECT_EQ(card.button.bounds, expected.button) << expected.pixels_per_inch;
    EXPECT_EQ(card.field.bounds, expected.field) << expected.pixels_per_inch;
  }
}

class ScaledWelcome : public robot::StudentTest {
 protected:
  void start_at(int pixels_per_inch) {
    robot.world.stage.form_dots_per_inch = pixels_per_inch;
    start();
  }
  Welcome& welcome() { return robot.app().welcome(); }
};

TEST_F(ScaledWelcome, AnOrdinaryScreenLeavesTheWelcomeScreenAtItsDesign) {
  start_at(96);
  EXPECT_EQ(welcome().Label6.bounds, (Bounds{240, 180, 3600, 300}));
  EXPECT_EQ(welcome().Image4[0].bounds, (Bounds{3675, 5940, 2100, 540}));
  EXPECT_EQ(welcome().bounds.width, 5925);
}

TEST_F(ScaledWelcome, AFinerScreenShrinksTheWelcomeScreenAndItsControls) {
  start_at(120);
  EXPECT_EQ(welcome().Label6.bounds, (Bounds{192, 144, 2880, 240}));
  EXPECT_EQ(welcome().Image4[0].bounds, (Bounds{2940, 4752, 1680, 432}));
  EXPECT_EQ(welcome().bounds.width, 4740) << "as wide as the cover";
  EXPECT_EQ(welcome().bounds.left, (1920 * 15 - 4740) / 2);
}

TEST_F(ScaledWelcome, TheFirstResizePutsTheButtonsAtTheirDistanceFromTheEdges) {
  start_at(120);
  welcome().resize();
  EXPECT_EQ(welcome().bounds.width, 5925);
  EXPECT_EQ(welcome().bounds.height, 7800);
  const double bottom_edges[] = {6480, 7095, 7710};
  for (std::size_t i = 0; i < 3; ++i) {
    const Bounds& button = welcome().Image4[i].bounds;
    EXPECT_EQ(button.left + button.width, 5775);
    EXPECT_EQ(button.top + button.height, bottom_edges[i]);
    EXPECT_EQ(button.width, 1680);
  }
}

}  // namespace
}  // namespace practice
