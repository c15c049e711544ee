// The time limit of a test run.
#include <cmath>

#include "platform/values/text.h"
#include "run/quest3.h"

namespace practice {
namespace {
constexpr int expired = 99;
}

void Quest::tick() {
  Trap trap{program_, "timer1_timer()", "quest3"};
  if (run_.timed_run != 1) return;
  const auto elapsed = program_.platform.clock.seconds() - run_.time_started;
  const double minutes_left =
      int{run_.time_limit_minutes} - std::floor(static_cast<double>(elapsed) * 10 / 60) / 10;
  if (std::int64_t{int{run_.time_limit_minutes}} * 60 - elapsed < 0) {
    expire();
    return;
  }
  trap([&] {
    const std::string left =
        text_form_tenths(minutes_left, program_.platform.decimal_point) + " min.";
    caption = "Practice Test for " + program_.catalogue.exam_title + " - Question " +
              text_form(run_.question_position) + " of" + text_form(run_.question_total) +
              " ---  Time Left:" + left;
    lbltime.caption = left;
  });
}

void Quest::expire() {
  Trap trap{program_, "timer1_timer()", "quest3"};
  // Before the box, which lets further ticks run.
  run_.timed_run = expired;
  trap([&] { program_.platform.messages.show({.text = "Time has expired", .title = {}}); });
  trap([&] { program_.forms.unload(Form::theanswer); });
  trap([&] { program_.forms.unload(Form::finalscore); });
  trap([&] { program_.forms.show(Form::finalscore); });
}

}  // namespace practice
