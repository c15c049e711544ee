// The screens that stand beside a test: a text exhibit, and a diagram. They load at their first
// use, stay loaded while hidden, and may still show an earlier question's exhibit.
#pragma once

#include "platform/screen.h"
#include "results/kept_gaps.h"
#include "session/program.h"

namespace practice {

struct ExhibitControls {
  TextBox text1;
  Button Command1;
};

class Exhibit : public Screen, public ExhibitControls {
 public:
  explicit Exhibit(Program& program);

  void design() override;
  void load() override;
  void resize() override;
  void close_window() override;

  /// Adds the text of exhibit `number`, from 1, of the question on show, and shows the screen. What
  /// stood there stays above it.
  void open_exhibit(int number);

 private:
  Program& program_;
  KeptGaps gaps_;
};

struct DiagramControls {
  HtmlView Image1;
  Button Command1;
};

class Diagram : public Screen, public DiagramControls {
 public:
  explicit Diagram(Program& program);

  void design() override;
  void load() override;
  void resize() override;
  void close_window() override;

  /// Shows diagram `number`, from 1, of the question on show.
  void open_diagram(int number);

 private:
  Program& program_;
  KeptGaps gaps_;
};

}  // namespace practice
