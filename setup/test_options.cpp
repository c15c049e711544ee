// The options of a test: presets, storage, and what depends on what.
#include <cstdlib>

#include "platform/values/text.h"
#include "session/student_files.h"
#include "setup/pick_a_quiz.h"

namespace practice {
namespace {

constexpr std::string_view robin = "46002";
constexpr std::string_view user_settings = "User Settings";

std::string stored(Integer value) { return trimmed_text_form(value); }

}  // namespace

void PickAQuiz::restore_options() {
  const auto read = [&](std::string_view key, std::string_view default_value = {}) {
    std::string value;
    skip([&] { value = get_option(program_, key, default_value); });
    return value;
  };
  const auto box = [](const std::string& value) { return number_in(value) == 1 ? 1 : 0; };

  program_.options.student_name = read("studentname", "STUDENT");
  txtstudentname.text = program_.options.student_name;
  showhowmanyanswers.value = box(read("show#answers"));
  chkRadio.value = trim(read("radio", "1")) == "1" ? 1 : 0;
  apply_radio();
  program_.options.answer_position = read("putanswer", "top");
  if (read("savesettings") == "saved") {
    // The saved minutes are not brought back: every test is offered the exam's own time.
    timeamount.text = "75";
    timeron.value = box(read("timedtest"));
    answer_when_wrong.value = box(read("answerwhenwrong"));
    answer_when_right.value = box(read("answerwhenright"));
    random_questions.value = box(read("randomquestions1"));
    random_answers.value = box(read("randomanswers1"));
    backb.value = box(read("backb"));
    scoregraph.value = box(read("scoregraph1"));
    chkEmbed.value = box(read("EmbedWM", "0"));
  }
  const bool timed = timeron.value == 1;
  timeamount.visible = timed;
  timeamountlabel.visible = timed;
  VScroll1.visible = timed;
  keep_robin_in_book_order();
}

// ROBIN's questions, and their choices, keep the order of its book.
void PickAQuiz::keep_robin_in_book_order() {
  if (program_.catalogue.exam_code != robin) return;
  random_answers.value = 0;
  random_answers.visible = false;
}

void PickAQuiz::save_options() {
  const auto save = [&](std::string_view key, std::string_view value) {
    skip([&] { save_option(program_, key, value); });
  };
  save("savesettings", "saved");
  save("answerwhenwrong", stored(answer_when_wrong.value));
  save("answerwhenright", stored(answer_when_right.value));
  save("timedtest", stored(timeron.value));
  save("timedminutes", timeamount.text);
  save("randomanswers1", stored(random_answers.value));
  save("randomquestions1", stored(random_questions.value));
  save("scoregraph1", stored(scoregraph.value));
  save("backb", stored(backb.value));
  save("show#answers", stored(showhowmanyanswers.value));
  save("radio", stored(chkRadio.value));
  save("EmbedWM", stored(chkEmbed.value));
  skip([&] { program_.options.font_size = integer_in(get_option(program_, "savedfont", "12")); });
  if (program_.options.font_size <= 0) program_.options.font_size = 12;
  save("savedfont", trimmed_text_form(program_.options.font_size));
  program_.platform.messages.show({.text = "User Settings have been saved.", .title = {}});
}

void PickAQuiz::click_timer() {
  timeamount.visible = timeron.value == 1;
  timeamountlabel.visible = timeamount.visible;
  VScroll1.visible = false;
}

void PickAQuiz::set_timed(bool timed) {
  timeron.value = timed ? 1 : 0;
  click_timer();
}

void PickAQuiz::scroll_timer() {
  timeamount.text = trimmed_text_form(std::abs(200 - VScroll1.value));
}

void PickAQuiz::apply_radio() { program_.options.radio_for_single = chkRadio.value == 1; }

void PickAQuiz::practice_preset() {
  timeamount.text = "75";
  set_timed(false);
  answer_when_wrong.value = 1;
  answer_when_right.value = 0;
  random_questions.value = 1;
  random_answers.value = 1;
  scoregraph.value = 1;
  backb.value = 1;
  program_.options.test_mode_on = false;
  program_.platform.messages.show({.text = "User Settings have been changed to enhance learning.",
                                   .title = std::string(user_settings)});
}

void PickAQuiz::test_preset() {
  timeamount.text = "75";
  set_timed(true);
  answer_when_wrong.value = 0;
  answer_when_right.value = 0;
  random_questions.value = 1;
  random_answers.value = 1;
  scoregraph.value = 0;
  backb.value = 0;
  program_.options.test_mode_on = true;
  program_.platform.messages.show(
      {.text = "User Settings have been changed to simulate the actual exam.",
       .title = std::string(user_settings)});
}

void PickAQuiz::read_last_results() {
  for (int i = 1; i <= 300; ++i) run_.last_results[i] = "0";
  stop_at_first_fault([&] {
    const std::string file = results_file(program_);
    const Files& files = program_.platform.files;
    if (!files.exists(file)) return;
    int number = 0;
    const std::string content = files.read(file);
    for (std::string_view rest = content; !rest.empty();) {
      const auto end = rest.find('\n');
      const std::string_view line = rest.substr(0, end);
      rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
      const std::string_view field = line.substr(0, line.find(','));
      run_.last_results[++number] = trimmed_text_form(integer_in(trim(field)));
    }
  });
}

}  // namespace practice
