#include "run/quest3.h"

#include <algorithm>

#include "platform/values/text.h"
#include "run/html_event.h"
#include "run/page_writing.h"
#include "run/question_page.h"
#include "run/simulators.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr std::string_view source = "quest3";
constexpr int page_scripts_ready = 123;

}  // namespace

void Quest::show_quest() {
  Trap trap{program_, "show_quest()", source};
  const auto show_all = [](auto& controls, bool shown) {
    for (auto& control : controls) control.visible = shown;
  };

  trap([&] {
    run_.next_pressed = false;
    cmd_buttons[0].enabled = true;
    cmd_buttons[2].visible = false;
    cmd_buttons[3].visible = false;
    show_all(exhibitbutton, false);
    show_all(diagrambutton, false);
    set_focus("cmd_buttons", 0);
  });
  ++shows_;
  single_correct_ = true;
  program_.pages.book_page.clear();
  trap([&] { program_.platform.random.seed_from_clock(); });
  trap([&] { ++run_.question_position; });
  trap([&] {
    caption =
        is_white_label(program_.branding) ? "TestCraft Practice Test for: " : "Practice Test for ";
    caption += program_.catalogue.exam_title + " - Question " + text_form(run_.question_position) +
               " of" + text_form(run_.question_total);
  });
  trap([&] { show_score_panel(); });
  if (run_.question_position > run_.question_total) {
    end_the_test();
    return;
  }
  trap([&] { run_.current_row = row_of_position(run_, run_.question_position); });
  trap([&] { qid.caption = text_form(row_on_show(program_).question_id); });
  trap([&] { question_number.caption = text_form(run_.question_position); });
  permute_answers(trap);
  trap([&] {
    set_focus("cmd_buttons", 0);
    run_.correct_count = count_correct(program_.current_question);
    if (run_.correct_count > 1) single_correct_ = false;
    run_.correct_count_shown = run_.correct_count;
  });
  trap([&] { decide_kind(); });
  if (run_.question_kind == kind::drag_drop) cmd_buttons[3].visible = true;
  if (run_.question_kind == kind::ms_sim || run_.question_kind == kind::ms_sim_2 ||
      run_.question_kind == kind::sim) {
    cmd_buttons[2].visible = true;
  }
  prepare_simulator(program_, trap);
  cluebutton.visible = false;
  show_attachment_buttons(trap);
  cmdtutor.visible = false;
  trap([&] { show_book_button(); });
  std::string header;
  std::string page;
  trap([&] { header = read_page_header(program_); });
  trap([&] { page = build_question_page(program_, program_.current_question); });
  trap([&] { set_wow_question_html(header + page); });
  set_focus("cmd_buttons", 0);
}

void Quest::show_score_panel() {
  const bool shown = program_.options.show_running_score != 0;
  Gauge1.visible = shown;
  the_gauge.visible = shown && the_gauge.bounds.height >= least_bar_height;
  Percent_Right.visible = shown;
  score.visible = shown;
  Label2.visible = shown;
  if (program_.options.back_button_on == 0) cmd_buttons[1].visible = false;
}

// The row itself is permuted, once per test run, so that answers, flags and marks agree by entry
// for as long as the run lasts.
void Quest::permute_answers(Trap& trap) {
  Slots<int, 6> p;
  for (int i = 0; i <= 6; ++i) p[i] = i;
  trap([&] { run_.answer_count = count_answers(row_on_show(program_)); });
  if (program_.options.shuffle_answers == 1) {
    const int count = run_.answer_count;
    trap([&] {
      for (int i = 1; i <= count; ++i) {
        const int r =
            static_cast<int>(program_.platform.random.next() * static_cast<float>(count)) + 1;
        std::swap(p[i], p[r]);
      }
    });
  }
  trap([&] {
    const std::string& type = row_on_show(program_).question_type;
    if (lower(type) == "no_reorder" || is_fill_in(type)) {
      for (int i = 0; i <= 6; ++i) p[i] = i;
    }
  });
  trap([&] { program_.current_question = row_on_show(program_); });
  trap([&] {
    Question& row = row_on_show(program_);
    if (row.answers_shuffled != 0) return;
    row.answers_shuffled = 1;
    Question& question = program_.current_question;
    for (int i = 1; i <= 6; ++i) {
      question.answers[i] = row.answers[p[i]];
      question.answer_correct[i] = row.answer_correct[p[i]];
    }
    row.answers = question.answers;
    row.answer_correct = question.answer_correct;
  });
}

void Quest::decide_kind() {
  const Question& question = program_.current_question;
  const bool radio = program_.options.radio_for_single && single_correct_;
  run_.question_kind = radio ? kind::radio_button : kind::check_box;
  if (is_fill_in(question.question_type)) run_.question_kind = kind::fill_in;
  const std::string& diagram = question.diagrams[1];
  if (diagram == marker::drag_drop) run_.question_kind = kind::drag_drop;
  if (diagram == marker::dialogue_simulator) run_.question_kind = kind::ms_sim;
  if (diagram == marker::dialogue_simulator_2) run_.question_kind = kind::ms_sim_2;
  if (diagram == marker::device_simulator) run_.question_kind = kind::sim;
}

void Quest::show_attachment_buttons(Trap& trap) {
  const Question& question = program_.current_question;
  // Only the first exhibit has a button; the design keeps room for the other two.
  trap([&] {
    if (!trim(question.exhibits[1]).empty()) exhibitbutton[0].visible = true;
  });
  for (int i = 1; i <= 3; ++i) {
    trap([&] {
      const std::string& diagram = question.diagrams[i];
      if (trim(diagram).empty()) return;
      // "xxmssim" and "xxmssim2" are no markers, so a dialogue simulator does show this button.
      diagrambutton[static_cast<std::size_t>(i - 1)].visible =
          diagram != marker::drag_drop && diagram != marker::device_simulator &&
          diagram != "xxmssim" && diagram != "xxmssim2";
    });
  }
  if (question.diagrams[2] == "1900" || question.diagrams[2] == "2950") {
    diagrambutton[1].visible = false;
  }
}

void Quest::show_book_button() {
  const std::string& reference = program_.current_question.book_reference;
  if (trim(reference).empty()) {
    Command1.visible = false;
  } else if (!program_.options.test_mode_on) {
    Command1.visible = contains(reference, "##");
  }
}

void Quest::set_wow_question_html(std::string_view html) {
  html::View& view = WebBrowser1.view;
  const int this_show = shows_;
  // A wait lets the student press Next again, or time run out; the newest page is the one to stay.
  const auto is_wanted = [&] { return loaded && this_show == shows_; };
  if (program_.pages.page_scripts_state != page_scripts_ready) {
    program_.pages.page_scripts_state = page_scripts_ready;
    program_.pages.page_scripts = page_guard_scripts();
    show_blank_page(program_, view);
    if (!is_wanted()) return;
  }
  write_page(program_, view, html);
  program_.pages.current_page = html;
  while (view.busy && is_wanted()) program_.platform.stage.pump();
  wire_exhibit_links(view.document, *this, "HTML_Click");
}

void Quest::next_question() {
  // The test is still being composed.
  if (shows_ == 0) return;
  run_.next_pressed = true;
  set_focus("WebBrowser1");
  skip([&] { read_page_inputs(); });
  finish_question();
}

void Quest::read_page_inputs() {
  html::Document& page = WebBrowser1.view.document;
  Question& row = row_on_show(program_);
  const auto is_checked = [&](const std::string& name, int index) {
    const html::Input* input = page.input(name, index);
    if (input == nullptr) throw Fault::object_required();
    return input->checked ? 1 : 0;
  };
  if (run_.question_kind == kind::radio_button) {
    for (int i = 1; i <= run_.answer_count; ++i) {
      skip([&] { row.answer_chosen[i] = is_checked("radio1", i - 1); });
    }
  } else if (run_.question_kind == kind::check_box) {
    for (int i = 1; i <= 6; ++i) row.answer_chosen[i] = 0;
    for (int k = 1; k <= 6 && run_.answer_count >= k; ++k) {
      skip([&] { row.answer_chosen[k] = is_checked("ans" + std::to_string(k), 0); });
    }
  } else if (run_.question_kind == kind::fill_in) {
    if (const html::Input* box = page.input("txt_fill")) row.typed_answer = box->value;
  }
}

void Quest::finish_question() {
  skip([&] { set_status_line(false); });
  const int this_test = generation;
  check_answer();
  // Time may have run out, or the student may have quit, while the answer was on show.
  if (!loaded || generation != this_test) return;
  show_quest();
}

void Quest::go_back() {
  skip([&] { read_page_inputs(); });
  run_.question_position = std::max(0, int{run_.question_position} - 2);
  skip([&] { program_.forms.unload(Form::Diagram); });
  skip([&] { program_.forms.unload(Form::Exhibit); });
  show_quest();
}

void Quest::grade_now() {
  skip([&] { run_.question_position = run_.question_total + 1; });
  end_the_test();
}

void Quest::HTML_Click(std::string_view which) {
  if (which != "1" && which != "2" && which != "3") return;
  const std::string& exhibit = program_.current_question.exhibits[which[0] - '0'];
  open_document(program_, program_.catalogue.content_dir + exhibit, WindowShow::normal);
}

void Quest::call_by_name(std::string_view method, std::string_view argument) {
  if (method != "HTML_Click") throw Fault::no_such_member();
  HTML_Click(argument);
}

}  // namespace practice
