#include "results/finalscore.h"

#include "platform/building.h"
#include "platform/values/text.h"
#include "results/mail.h"
#include "session/helpers.h"
#include "session/student_files.h"

namespace practice {
namespace {

constexpr double form_width = 9255;
constexpr double form_height = 6855;
/// More categories than this are in no list.
constexpr int listed_categories = 40;
constexpr int timer_off = 99;
constexpr unsigned navy = 0x24506E;
constexpr unsigned pale = 0xD8DEE2;

constexpr int show_missed = 0;
constexpr int show_all = 1;
constexpr int show_correct = 2;

}  // namespace

FinalScore::FinalScore(Program& program)
    : Screen("finalscore"), program_(program), run_(program.test_run) {
  list("Image1", Image1);
  list("total_score", total_score);
  list("right_score", right_score);
  list("Label1", Label1);
  list("rig", rig);
  list("Label2", Label2);
  list("tot", tot);
  list("Label3", Label3);
  list("per", per);
  list("list_cat", list_cat);
  list("Label4", Label4);
  list("cmdEmailResults", cmdEmailResults).on_click([this] {
    skip([&] { mail_history_report(program_); });
  });
  list("Command2", Command2).on_click([this] { skip([&] { view_history(); }); });
  list("cmd_retake", cmd_retake).on_click([this] { skip([&] { retake(); }); });
  list("Command1", Command1).on_click([this] { skip([&] { quit_to_menu(); }); });
  for (int i = 0; i < 3; ++i) {
    list("whichq", whichq[static_cast<std::size_t>(i)], i).on_click([this, i] {
      choose_filter(i);
    });
  }
  list("List1", List1).on_double_click([this] { open_question(); });
  list("Label5", Label5);
}

void FinalScore::design() {
  static_cast<FinalScoreControls&>(*this) = FinalScoreControls{};
  bounds = {0, 0, form_width, form_height};
  least_width = form_width;
  least_height = form_height;
  Image1 = placed<Picture>({0, 0, form_width, form_height});
  total_score = placed<Shape>({120, 0, 9015, 495});
  total_score.rgb = pale;
  right_score = placed<Shape>({0, 0, 0, 495});
  right_score.rgb = navy;
  Label1 = captioned<Label>("Total Right:", {120, 600, 1665, 300});
  rig = placed<Label>({1800, 600, 975, 375});
  Label2 = captioned<Label>("Total Questions:", {2880, 600, 2025, 300});
  tot = placed<Label>({4920, 600, 975, 375});
  Label3 = captioned<Label>("Your Score:", {600, 960, 2505, 300});
  per = placed<Label>({3360, 960, 975, 375});
  list_cat = placed<ListBox>({240, 1440, 5415, 1950});
  Label4 = placed<Label>({480, 3600, 5415, 495});
  whichq = {captioned<OptionButton>("Show &Missed Questions", {240, 4200, 2415, 255}),
            captioned<OptionButton>("Show &All Questions", {3480, 4200, 2415, 255}),
            captioned<OptionButton>("Show &Correct Questions", {6600, 4200, 2415, 255})};
  whichq[show_all].value = true;
  List1 = placed<ListBox>({120, 4440, 9015, 1425});
  Label5 = captioned<Label>("Double-click a line above to view question details.",
                            {2760, 5940, 4215, 375});
  cmdEmailResults = hidden(captioned<Button>("Email Your Score History", {6000, 855, 3015, 495}));
  Command2 = captioned<Button>("View or Print Test Details", {6000, 1500, 3015, 495});
  cmd_retake = captioned<Button>("Retake Quiz Using Incorrect Answers", {6000, 2040, 3015, 495});
  Command1 = captioned<Button>("&Quit to Menu", {6000, 2640, 3015, 495});
}

void FinalScore::load() {
  Trap trap{program_, "finalscore form Load()", "finalscore "};
  run_.timed_run = timer_off;
  // No exam of this edition is a partner publisher's, the one that mails results from here.
  cmdEmailResults.visible = program_.branding.partner_edition == partner_publisher;
  bool log_is_new = false;
  trap([&] {
    begin_testing_log(program_);
    log_is_new = true;
  });
  cmd_retake.visible = true;
  caption = "Practice Test Results for: " + program_.catalogue.exam_title;
  trap([&] { program_.forms.unload(Form::quest); });
  trap([&] { center_form(program_, *this); });
  trap([&] {
    Image1.file = picture_file(program_, program_.install_dir + "finalscore_background.jpg");
  });
  trap([&] { rig.caption = trimmed_text_form(run_.right_count); });
  trap([&] { tot.caption = trimmed_text_form(run_.question_total); });
  int percent = 0;
  trap([&] { percent = percent_of(run_.right_count, run_.question_total); });
  trap([&] { per.caption = trimmed_text_form(percent) + "%"; });
  trap([&] {
    right_score.bounds = total_score.bounds;
    right_score.bounds.width = percent / 100.0 * total_score.bounds.width;
  });
  trap([&] {
    Label4.caption = percent == 100 ? "Congratulations, you scored perfect!"
                                    : "Take this test until you get 100%";
  });
  trap([&] { calc_list(); });
  if (missed_count_ == 0) cmd_retake.visible = false;
  fill_category_table(trap);
  fill_wrong_list(trap);
  // What can not be made anew would grow behind an old report.
  if (!log_is_new) return;
  trap([&] { log_wrong_questions(program_); });
  trap([&] { log_correct_questions(program_); });
}

void FinalScore::calc_list() {
  int filter = 0;
  if (whichq[show_missed].value) filter = result::wrong;
  if (whichq[show_correct].value) filter = result::right;
  if (whichq[show_all].value) filter = 0;
  List1.items.clear();
  List1.list_index = -1;
  missed_count_ = 0;
  for (int k = 1; k <= run_.question_total; ++k) {
    skip([&] {
      const int row = row_of_position(run_, k);
      if (row <= 0) return;
      const Question& question = program_.question_table[row];
      if (filter == 0 || filter == question.result_state) {
        List1.items.push_back(trimmed_text_form(k) + ".) [" +
                              trimmed_text_form(question.question_id) + "]  " +
                              question.question_text);
      }
      if (question.result_state == result::wrong) {
        ++missed_count_;
        missed_rows_[missed_count_] = row;
      }
    });
  }
  skip([&] { set_list_scroll_extent(program_, List1); });
}

void FinalScore::choose_filter(int index) {
  for (int i = 0; i < 3; ++i) whichq[static_cast<std::size_t>(i)].value = i == index;
  calc_list();
}

void FinalScore::fill_category_table(Trap& trap) {
  percent_texts_.clear();
  module_names_.clear();
  list_cat.items.clear();
  list_cat.visible = program_.catalogue.has_categories;
  if (!list_cat.visible) return;
  for (int i = 1; i <= listed_categories; ++i) {
    const std::string& name = program_.catalogue.category_names[i];
    if (name.empty()) continue;
    const int right = run_.category_right[i];
    const int asked = run_.category_asked[i];
    int percent = 0;
    trap([&] { percent = percent_of(right, asked); });
    std::string text;
    if (percent < 10) text += ' ';
    if (percent < 100) text += ' ';
    text += trimmed_text_form(percent) + "% (" + trimmed_text_form(right) + "/" +
            trimmed_text_form(asked) + ")";
    list_cat.items.push_back(text + " " + name);
    percent_texts_.push_back(text);
    module_names_.push_back(name);
  }
  skip([&] { set_list_scroll_extent(program_, list_cat); });
}

void FinalScore::fill_wrong_list(Trap& trap) {
  WrongList& wrong = run_.wrong_list;
  wrong.count = 0;
  for (int k = 1; k <= run_.question_total; ++k) {
    trap([&] {
      const Question& question = program_.question_table[row_of_position(run_, k)];
      if (question.result_state != result::wrong) return;
      ++wrong.count;
      wrong.rows[wrong.count] = question.question_id;
    });
  }
}

void FinalScore::open_question() {
  if (List1.list_index < 0) {
    program_.platform.messages.show({.text = "You must select a question", .title = {}});
    return;
  }
  const std::string& line = List1.items.at(static_cast<std::size_t>(List1.list_index));
  const int k = integer_in(line.substr(0, line.find('.')));
  run_.current_row = row_of_position(run_, k);
  program_.current_question = row_on_show(program_);
  program_.handover->show_answer();
}

void FinalScore::retake() {
  run_.retake_quiz = run_.selected_quiz;
  skip([&] { program_.forms.load(Form::pick_a_quiz); });
  skip([&] { program_.forms.hide(Form::finalscore); });
  skip([&] { program_.forms.unload(Form::finalscore); });
}

void FinalScore::quit_to_menu() {
  skip([&] { program_.forms.show(Form::Welcome); });
  skip([&] { program_.handover->return_to_options(); });
  skip([&] { program_.forms.hide(Form::finalscore); });
}

void FinalScore::view_history() {
  open_document(program_, history_file(program_), WindowShow::maximised);
}

void FinalScore::resize() {
  bounds.width = form_width;
  bounds.height = form_height;
  Image1.bounds = {0, 0, form_width, form_height};
}

void FinalScore::close_window() { program_.handover->close_all_forms(); }

}  // namespace practice
