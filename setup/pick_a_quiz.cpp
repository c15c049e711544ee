#include "setup/pick_a_quiz.h"

#include <algorithm>

#include "platform/values/text.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr std::string_view source = "pick_a_quiz";
constexpr int category_quiz = 5;
constexpr int categories_cleared = 50;

}  // namespace

void PickAQuiz::load() {
  Trap trap{program_, "pick_a_quiz form load()", source};
  const Catalogue& catalogue = program_.catalogue;
  answer_spin_ = correct_spin_ = {};
  trap([&] {
    const bool of_partner = has_partner_pictures(program_.branding);
    Picture& picture = of_partner ? SKQ_P_A_Q : Marlo_P_A_Q;
    Marlo_P_A_Q.visible = !of_partner;
    SKQ_P_A_Q.visible = of_partner;
    picture.file = picture_file(
        program_, of_partner ? program_.install_dir + "skyquizpick.jpg" : catalogue.photo_file);
  });
  program_.options.test_mode_on = false;
  trap([&] { show_quiz_names(); });
  trap([&] { tick_quiz(1); });
  for (std::size_t i = 0; i < 3; ++i) which_quiz[i].tool_tip = "Each Quiz contains 50 Questions";
  trap([&] { load_bank(program_); });
  run_.order_stride = 4;
  run_.bank_size = catalogue.bank_total;
  mnu_emailtestscorehistory.enabled = false;
  mnu_update123.visible = false;
  mnu_update123.enabled = false;
  menu_about.enabled = false;
  SSTab1.tab_on[2] = catalogue.has_categories;
  trap([&] { clear_run_marks(program_.question_table); });
  trap([&] { program_.platform.random.seed_from_clock(); });
  trap([&] { restore_options(); });
  howmanyq.text = trimmed_text_form(run_.question_total);
  howmany.caption = trimmed_text_form(run_.bank_size);
  run_.retake_wrong_mode = 0;
  if (run_.retake_quiz > 0) {
    run_.retake_wrong_mode = 1;
    trap([&] { tick_quiz(run_.selected_quiz); });
    askwrong.value = 1;
    trap([&] { start_the_quiz_from_command1(); });
  }
  run_.retake_quiz = 0;
}

void PickAQuiz::show_quiz_names() {
  const Catalogue& catalogue = program_.catalogue;
  Command1.caption = catalogue.quiz_button_names[1];
  for (int i = 1; i <= 3; ++i) {
    which_quiz[static_cast<std::size_t>(i - 1)].caption = catalogue.quiz_names[i];
    Label& note = lblORBIT_book[static_cast<std::size_t>(i - 1)];
    note.caption = catalogue.quiz_notes[i];
    note.visible = !note.caption.empty();
  }
  if (catalogue.quiz_names[3].empty()) {
    which_quiz[2].value = false;
    lblORBIT_book[2].caption.clear();
  }
}

void PickAQuiz::activate() {
  Trap trap{program_, "pick_a_quiz form Activate()", source};
  trap([&] { fill_category_lists(); });
  trap([&] { set_focus("Command1"); });
}

void PickAQuiz::resize() {
  if (window_state == WindowState::minimised) return;
  bounds.width = std::max(bounds.width, least_width);
  bounds.height = std::max(bounds.height, least_height);
}

void PickAQuiz::close_window() {
  program_.forms.unload(Form::pick_a_quiz);
  program_.forms.show(Form::Welcome);
}

void PickAQuiz::tick_quiz(int index) {
  for (int i = 1; i <= 6; ++i) which_quiz[static_cast<std::size_t>(i - 1)].value = i == index;
  click_quiz(index);
}

int PickAQuiz::ticked_quiz() const {
  for (std::size_t i = 0; i < which_quiz.size(); ++i) {
    if (which_quiz[i].value) return static_cast<int>(i) + 1;
  }
  return 0;
}

void PickAQuiz::click_quiz(int index) {
  if (index >= 1 && index <= 3) {
    const std::string name = program_.catalogue.quiz_button_names[index];
    skip([&] { Command1.caption = name; });
    skip([&] { Label4.caption = "Note:  Questions will be asked from the " + name + "."; });
    run_.clicked_quiz = index;
    skip([&] { load_bank(program_); });
    howmany.caption = trimmed_text_form(program_.catalogue.bank_total);
    SSTab1.tab_on[2] = program_.catalogue.has_categories;
    skip([&] { fill_category_lists(); });
  } else if (index == 4) {
    Command1.caption = "Start Quiz -D-";
    howmanyq.text = trimmed_text_form(run_.question_total);
  } else {
    Command1.caption = "Final Exam";
    howmanyq.text = howmany.caption;
  }
}

void PickAQuiz::fill_category_lists() {
  lst_cats_to_ask.items.clear();
  lst_cats_to_ask.selected.clear();
  lst_cats_to_ask.list_index = -1;
  lst_cats_not_to_ask.items.clear();
  lst_cats_not_to_ask.selected.clear();
  lst_cats_not_to_ask.list_index = -1;
  for (int i = 1; i <= 150; ++i) category_size_[i] = 0;
  const Catalogue& catalogue = program_.catalogue;
  skip([&] {
    for (int row = 1; row <= catalogue.bank_total; ++row) {
      ++category_size_[program_.question_table[row].category];
    }
  });
  for (int i = 1; i <= catalogue.category_count; ++i) {
    lst_cats_to_ask.items.push_back(catalogue.category_names[i]);
    lst_cats_to_ask.selected.push_back(false);
  }
  skip([&] { set_list_scroll_extent(program_, lst_cats_to_ask); });
}

void PickAQuiz::add_the_cats() { move_selected(lst_cats_not_to_ask, lst_cats_to_ask); }
void PickAQuiz::remove_the_cats() { move_selected(lst_cats_to_ask, lst_cats_not_to_ask); }

void PickAQuiz::move_selected(ListBox& from, ListBox& to) {
  from.selected.resize(from.items.size());
  for (std::size_t i = 0; i < from.items.size();) {
    if (!from.selected[i]) {
      ++i;
      continue;
    }
    to.items.push_back(from.items[i]);
    to.selected.push_back(false);
    from.items.erase(from.items.begin() + static_cast<std::ptrdiff_t>(i));
    from.selected.erase(from.selected.begin() + static_cast<std::ptrdiff_t>(i));
  }
  from.list_index = -1;
  skip([&] { set_list_scroll_extent(program_, from); });
  skip([&] { set_list_scroll_extent(program_, to); });
}

void PickAQuiz::move_all(ListBox& from, ListBox& to) {
  from.selected.assign(from.items.size(), true);
  move_selected(from, to);
}

void PickAQuiz::start_plain_quiz() {
  run_.category_filter_on = false;
  skip([&] { start_the_quiz_from_command1(); });
}

void PickAQuiz::start_category_quiz() {
  tick_quiz(category_quiz);
  askwrong.value = 0;
  run_.category_filter_on = true;
  for (int i = 1; i <= categories_cleared; ++i) run_.category_active[i] = false;
  if (lst_cats_to_ask.items.empty()) {
    program_.platform.messages.show({.text = "You must select at least one category", .title = {}});
    return;
  }
  const Catalogue& catalogue = program_.catalogue;
  for (const std::string& entry : lst_cats_to_ask.items) {
    const std::string wanted = lower(trim(entry));
    for (int i = 1; i <= catalogue.category_count; ++i) {
      if (lower(trim(catalogue.category_names[i])) == wanted) run_.category_active[i] = true;
    }
  }
  skip([&] { start_the_quiz_from_command1(); });
}

}  // namespace practice
