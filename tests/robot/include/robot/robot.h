// A student in memory: starts the program, clicks, types, looks. It refuses to operate what is
// hidden or disabled, as a real student could not.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "robot/world.h"
#include "shell/application.h"

namespace practice::robot {

class Robot {
 public:
  Robot();

  World world;

  /// Puts the files of the distribution into the program's folder, and the exhibits of all exams
  /// into theirs.
  void put_distribution();

  /// Starts the program with that command line.
  void start(std::string command_line);
  bool is_started() const { return application_ != nullptr; }
  Application& app();
  Program& program() { return app().program(); }
  TestRun& run() { return program().test_run; }

  /// Raise RobotFailure for unknown names and for what is hidden or disabled.
  Screen& screen(std::string_view name);
  const ControlEntry& control(std::string_view screen, std::string_view name, int index = 0);

  void click(std::string_view screen, std::string_view name, int index = 0);
  void double_click(std::string_view screen, std::string_view name, int index = 0);
  void type(std::string_view screen, std::string_view name, int index, std::string_view text);
  void give_focus(std::string_view screen, std::string_view name);
  /// Moves the mouse over a control, pixels.
  void move_mouse(std::string_view screen, std::string_view name, double x, double y);
  /// Presses a key in the control that has the focus.
  void press_key(std::string_view screen, int key_code);
  /// Selects entry `entry`, from 0, of a list, and that alone unless `also`.
  void select(std::string_view screen, std::string_view name, int entry, bool also = false);

  /// The page of the topmost screen with an HTML view.
  html::Document& page();
  /// Chooses the n-th, from 1, radio input of that name.
  void choose(std::string_view input, int n);
  /// Ticks or clears a check box of the page.
  void tick(std::string_view input, bool checked = true);
  void type_on_page(std::string_view input, std::string_view text);
  void click_element(std::string_view id);
  /// Marks or types the right answer of the question on show, or leaves the result that its
  /// simulator would.
  void answer_rightly();

  /// Lets time pass; the timers of open screens tick.
  void pass(double seconds);
  void tick_timer(std::string_view screen, std::string_view name);

  /// Presses Close on every answer view from now on.
  void close_answers();

 private:
  const ControlEntry& usable(std::string_view screen, std::string_view name, int index);
  void tick_due_timers(std::int64_t step);

  std::unique_ptr<Application> application_;
  std::map<std::pair<std::string, std::string>, std::int64_t> waited_;
};

}  // namespace practice::robot
