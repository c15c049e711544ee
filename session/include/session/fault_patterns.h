// The four ways in which a routine meets a fault of one of its steps.
//
//   Trap trap{program, "show_quest()", "quest3"};
//   trap([&] { ... one step ... });           // a line in error.log, then the next step
//   skip([&] { ... one step ... });           // no record, then the next step
//   stop_at_first_fault([&] { ... all ... }); // ends quietly, keeps what was done
//
// A plain routine uses none of them: its caller's pattern acts on the calling step. One fault costs
// one step, never the rest of a routine, so keep the steps short.
#pragma once

#include <string_view>

#include "platform/values/fault.h"
#include "session/program.h"

namespace practice {

/// Appends one line to error.log in the working folder. Never raises: what can not be logged is
/// lost.
void log_error(Program& program, std::string_view routine, std::string_view source,
               const Fault& fault) noexcept;

class Trap {
 public:
  /// The labels stand in error.log as given; they must outlive the trap.
  Trap(Program& program, std::string_view routine, std::string_view source)
      : program_(program), routine_(routine), source_(source) {}

  template <class Step>
  void operator()(Step step) {
    try {
      step();
    } catch (const std::exception&) {
      log_error(program_, routine_, source_, fault_of_current_exception());
    }
  }

 private:
  Program& program_;
  std::string_view routine_;
  std::string_view source_;
};

/// Returns whether the step ran to its end.
template <class Step>
bool skip(Step step) {
  try {
    step();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

template <class Steps>
void stop_at_first_fault(Steps steps) {
  skip(steps);
}

}  // namespace practice
