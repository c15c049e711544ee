#include "results/theanswer.h"

#include <algorithm>

#include "platform/building.h"
#include "platform/values/text.h"
#include "results/mail.h"
#include "run/html_event.h"
#include "run/page_writing.h"
#include "run/question_page.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr int printing = 99;
constexpr int page_scripts_ready = 123;

std::string letter(int entry) { return {static_cast<char>('A' + entry - 1)}; }

// Where the last web link begins, whatever its case. Not by upper(), whose result may be shorter
// than the text.
std::size_t last_link(std::string_view text) {
  constexpr std::string_view scheme = "HTTP://";
  const auto same = [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 32 : a) == b; };
  const auto found = std::ranges::find_end(text, scheme, same);
  return found.empty() ? std::string::npos : static_cast<std::size_t>(found.begin() - text.begin());
}

}  // namespace

TheAnswer::TheAnswer(Program& program) : Screen("theanswer"), program_(program) {
  list("text1", text1);
  list("Frame1", Frame1);
  list("Command1", Command1).on_click([this] { skip([&] { mail_question_report(program_); }); });
  list("webcmd", webcmd).on_click([this] {
    skip([&] { open_document(program_, program_.pages.jump_link, WindowShow::normal); });
  });
  list("Command2", Command2).on_click([this] { stop_at_first_fault([&] { print_page(); }); });
  list("cmdtutor", cmdtutor).on_click([this] {
    skip([&] {
      play_sound(program_,
                 tutor_address(program_, program_.current_question.tutor_file, {".WMV", ".WAV"}));
    });
  });
  list("Closeb", Closeb).on_click([this] { close_window(); });
}

void TheAnswer::design() {
  static_cast<TheAnswerControls&>(*this) = TheAnswerControls{};
  caption = "The Answer";
  bounds = {0, 0, 11400, 8400};
  least_width = 9540;
  least_height = 6960;
  text1 = placed<HtmlView>({60, 60, 11280, 7620});
  Frame1 = placed<Frame>({1800, 7740, 7800, 600});
  Command1 = captioned<Button>("&E-mail feedback to author");
  webcmd = captioned<Button>("&Jump to WEB Link");
  Command2 = captioned<Button>("&Print");
  cmdtutor = hidden(with_tip(captioned<Button>("Online Tutor"),
                             "Launches a web browser for a brief presentation."));
  Closeb = captioned<Button>("&Close");
  Closeb.is_default = true;
}

void TheAnswer::load() {
  cmdtutor.visible = false;
  note_completion(program_, text1.view);
  if (program_.test_run.next_pressed) {
    skip([&] { program_.handover->enable_next(false); });
    program_.test_run.next_pressed = false;
  }
  gaps_.take(*this, text1, Frame1);
  skip([&] { center_form(program_, *this); });
}

void TheAnswer::resize() { gaps_.lay_out(*this, text1, Frame1); }

void TheAnswer::close_window() {
  skip([&] { program_.handover->enable_next(true); });
  program_.forms.hide(Form::theanswer);
}

void TheAnswer::show_answer() {
  TestRun& run = program_.test_run;
  skip([&] { program_.current_question = row_on_show(program_); });
  correct_verdict();
  std::string text;
  skip([&] { text = answer_text(); });
  skip([&] { program_.forms.unload(Form::theanswer); });
  skip([&] { program_.forms.load(Form::theanswer); });
  std::string page = text;
  skip([&] { set_wow_explanation_html(page); });
  // Time may have run out while the page was on its way.
  if (!loaded) return;
  skip([&] { find_jump_link(text); });
  skip([&] { center_form(program_, *this); });
  if (run.print_mode == printing) {
    stop_at_first_fault([&] { print_page(); });
    skip([&] { program_.forms.hide(Form::theanswer); });
    return;
  }
  set_focus("Closeb");
  skip([&] { program_.forms.show_modal(Form::theanswer); });
  skip([&] { program_.forms.unload(Form::theanswer); });
}

void TheAnswer::correct_verdict() {
  const int state = program_.current_question.result_state;
  if (state == result::right) program_.test_run.answer_verdict = verdict::right;
  if (state == result::wrong) program_.test_run.answer_verdict = verdict::wrong;
}

std::string TheAnswer::verdict_block(const Question& question) const {
  const TestRun& run = program_.test_run;
  std::string block = run.answer_verdict == verdict::right
                          ? "Correct.<br>The answer(s): "
                          : "Incorrect.  Your answer was: " + run.answer_given[run.current_row] +
                                "<br>The correct answer(s): ";
  if (is_fill_in(question.question_type)) return block + question.answers[1];
  for (int i = 1; i <= 6; ++i) {
    if (question.answer_correct[i] == 1) block += letter(i) + " ";
  }
  return block;
}

std::string TheAnswer::answer_text() {
  // A copy: the folders of pictures belong on this page, not into the question.
  Question question = program_.current_question;
  const std::string& folder = program_.catalogue.content_dir;
  add_picture_folder(question.question_text, folder);
  for (int i = 1; i <= 6; ++i) add_picture_folder(question.answers[i], folder);
  add_picture_folder(question.explanation, folder);

  if (is_simulator_marker(question.diagrams[1])) {
    return question.explanation + "<br><br>" + question.book_reference;
  }
  std::string body = "<br><br>" + question.question_text;
  if (!is_fill_in(question.question_type)) {
    for (int i = 1; i <= 6; ++i) {
      if (trim(question.answers[i]).empty()) continue;
      body += "<br>" + letter(i) + ".)  " + question.answers[i];
    }
  }
  std::string book_line = question.book_reference;
  if (contains(book_line, "##")) {
    book_line =
        "Brightwater Press Book Reference: PDF Page - " + replace_all(book_line, "##", "<br>");
  }
  body += "<br><br><br>" + question.explanation + "<br><br>" + book_line;
  std::string block;
  skip([&] { block = verdict_block(question); });
  return program_.options.answer_position == "bottom" ? body + "<br><br><br>" + block
                                                      : block + body;
}

void TheAnswer::set_wow_explanation_html(std::string& html) {
  const Question& question = program_.current_question;
  std::string page(crlf);
  page.append(style_block(program_.options)).append(crlf).append(html);
  page.append("<br><br> QID: ")
      .append(trimmed_text_form(question.question_id))
      .append(" ")
      .append(program_.catalogue.exam_title);
  if (!program_.catalogue.is_book_edition()) {
    page.append(" v").append(program_.catalogue.exam_version);
  }
  for (int i = 1; i <= 3; ++i) {
    const std::string& diagram = question.diagrams[i];
    if (trim(diagram).empty() || is_simulator_marker(diagram)) continue;
    page.append(crlf)
        .append("<hr>Diagram ")
        .append(trimmed_text_form(i))
        .append("<br>")
        .append(crlf)
        .append("<img src=\"")
        .append(program_.catalogue.content_dir)
        .append(diagram)
        .append("\"><p>");
  }
  if (!trim(question.tutor_file).empty()) {
    page.append(crlf).append(
        tutor_html(program_, tutor_address(program_, question.tutor_file, {".WMV", ".WAV"})));
  }
  page.append(
      "<script language=javascript>\r\n"
      "Function myfunction()\r\n"
      "{\r\n"
      "return 0;\r\n"
      "};\r\n"
      "</script>\r\n");
  html = std::move(page);

  program_.pages.page_scripts_state = page_scripts_ready;
  skip([&] { show_blank_page(program_, text1.view); });
  write_page(program_, text1.view, html);
  program_.platform.stage.pump();
  wire_exhibit_links(text1.view.document, *this, "HTML_Click1");
}

void TheAnswer::find_jump_link(const std::string& text) {
  webcmd.visible = false;
  const auto start = last_link(text);
  if (start == std::string::npos) return;
  const auto end = text.find_first_of("\r\n ", start);
  const auto count = end == std::string::npos ? end : end - start + 1;
  program_.pages.jump_link = trim(std::string_view(text).substr(start, count));
  webcmd.visible = true;
}

void TheAnswer::HTML_Click1(std::string_view which) {
  if (which != "1" && which != "2" && which != "3") return;
  skip([&] {
    open_document(
        program_,
        program_.catalogue.content_dir + program_.current_question.exhibits[which[0] - '0'],
        WindowShow::normal);
  });
}

void TheAnswer::call_by_name(std::string_view method, std::string_view argument) {
  if (method != "HTML_Click1") throw Fault::no_such_member();
  HTML_Click1(argument);
}

void TheAnswer::print_page() { program_.platform.stage.print(text1.view); }

}  // namespace practice
