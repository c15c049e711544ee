// What a screen asks of a screen in another room, beyond loading and showing it.
//
// Rooms of screens do not know each other; the application shell, which knows all, implements
// this.
#pragma once

namespace practice {

class Handover {
 public:
  virtual ~Handover() = default;

  /// The question screen moves on to its next position.
  virtual void show_quest() = 0;
  /// The Next button of the question screen.
  virtual void enable_next(bool enabled) = 0;
  /// Shows, or prints, the answer page of the current row; returns when it is closed.
  virtual void show_answer() = 0;
  /// Shows a text exhibit or a diagram of the question on show beside it; `number` from 1.
  virtual void open_exhibit(int number) = 0;
  virtual void open_diagram(int number) = 0;
  /// Opens the exam's book at the page of the question on show.
  virtual void open_book() = 0;
  /// Adds the graded test to the student's history.
  virtual void save_history() = 0;
  /// Prepares a mail with the student's history report.
  virtual void mail_history_report() = 0;
  /// For screens that the student leaves: a fresh options screen in place of the welcome screen.
  virtual void return_to_options() = 0;
  /// Unloads all screens and ends the process.
  virtual void close_all_forms() = 0;
};

}  // namespace practice
