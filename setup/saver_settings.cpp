// The second life of the bank: the study saver's pace, making the current test the screen's saver,
// and the way to the flash cards.
#include "platform/values/text.h"
#include "setup/pick_a_quiz.h"

namespace practice {
namespace {

void save(Program& program, std::string_view key, const std::string& value) {
  skip([&] { program.platform.settings.save("marlo_study_saver", "settings", key, value); });
}

}  // namespace

// Up counts down, as on the arrows of a scroll bar; the count stops at 1.
void PickAQuiz::spin(ScrollBar& bar, Label& label, SpinState& state) {
  skip([&] { state.count = integer_in(label.caption); });
  skip([&] {
    if (bar.value > state.last_value) {
      --state.count;
      if (state.count == 0) state.count = 1;
    }
    if (bar.value < state.last_value) ++state.count;
  });
  label.caption = trimmed_text_form(state.count);
  skip([&] { state.last_value = bar.value; });
}

void PickAQuiz::save_saver_settings() {
  const auto number = [](const Label& label) {
    return trimmed_text_form(static_cast<int>(number_in(label.caption)));
  };
  save(program_, "aspeed", number(lbldisplayans));
  save(program_, "cspeed", number(lbldisplaycorr));
  save(program_, "RandQuestions", trimmed_text_form(chkRandom.value));
}

void PickAQuiz::set_as_screen_saver() {
  const Catalogue& catalogue = program_.catalogue;
  Platform& platform = program_.platform;
  std::string target = platform.program_folder;
  if (!target.ends_with('\\')) target += '\\';
  if (catalogue.has_cover_layout()) {
    target += catalogue.saver_program;
  } else {
    const std::string& file = platform.program_file;
    target += file.substr(0, file.find(".exe"));
  }
  save(program_, "which_test", catalogue.exam_code);
  save(program_, "where_test", target);
  std::string saver;
  skip([&] { saver = platform.shell.find_on_path("brightwater_press_study_saver.scr"); });
  skip([&] { platform.shell.make_screen_saver(saver); });
}

void PickAQuiz::open_flash_cards() {
  skip([&] {
    program_.platform.messages.show(
        {.text = "Flash Cards show you ONLY the question (no possible answers, exhibits, or "
                 "diagrams).  NOTE:  Some questions may not make sense in this mode, which may "
                 "require the use of regular testing mode.",
         .title = "Flash Cards"});
  });
  skip([&] { program_.forms.show(Form::Security); });
  skip([&] { program_.forms.unload(Form::pick_a_quiz); });
}

}  // namespace practice
