// The form events of the question screen: load, activation, resize, unload.
#include "platform/values/text.h"
#include "run/page_writing.h"
#include "run/quest3.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr std::string_view source = "quest3";
constexpr std::string_view default_font = "Times New Roman";
constexpr int menu_sizes[] = {8, 10, 12, 14, 18, 20};

}  // namespace

void Quest::load() {
  Trap trap{program_, "quest form Load()", source};
  shows_ = 0;
  Command1.visible = false;
  program_.pages.page_scripts_state = 1;
  note_completion(program_, WebBrowser1.view);
  frame2_gap_ = bounds.height - Frame2.bounds.top;
  view_gap_ = bounds.height - WebBrowser1.bounds.height;
  frame1_width_ = Frame1.bounds.width;
  Options& options = program_.options;
  trap([&] { options.font_size = integer_in(get_option(program_, "savedfont", "12")); });
  trap([&] { options.font_name = get_option(program_, "savedfontname", default_font); });
  trap([&] { options.mail_kind = get_option(program_, "mailtype", "outlook"); });
  check_menus_at_load(trap);
  trap([&] {
    constexpr std::string_view labels[] = {"A", "B", "C", "D"};
    status_labels_.fill("");
    for (int i = 1; i <= 4; ++i) status_labels_[i] = labels[i - 1];
  });
  trap([&] {
    if (!program_.catalogue.has_cover_layout()) return;
    for (int i = 1; i <= 5; ++i) status_labels_[i] = program_.catalogue.quiz_button_names[i];
  });
  trap([&] { set_status_line(true); });
  if (has_partner_pictures(program_.branding)) {
    trap([&] { skq_side.file = picture_file(program_, program_.install_dir + "skyquizside.jpg"); });
    skq_side.visible = true;
  }
  trap([&] { center_form(program_, *this); });
}

void Quest::check_menus_at_load(Trap& trap) {
  Options& options = program_.options;
  bool font_found = false;
  for (MenuEntry& font : menufont) {
    font.checked = font.caption == options.font_name;
    font_found = font_found || font.checked;
  }
  if (!font_found) {
    options.font_name = default_font;
    menufont[0].checked = true;
  }
  if (!font_found) trap([&] { save_option(program_, "savedfontname", default_font); });
  for (std::size_t i = 0; i < menusize.size(); ++i) {
    menusize[i].checked = menu_sizes[i] == options.font_size;
  }
  menu_showright.checked = options.show_answer_when_right == 1;
  menu_showwrong.checked = options.show_answer_when_wrong == 1;
  menu_shownumanswer.checked = options.show_answer_count == 1;
  menu_backbutton.checked = options.back_button_on == 1;
  mnuEmbed.checked = options.embed_media != 0;
  mnu_outlookexpress.checked = options.mail_kind == "outlook";
  mnu_webmail.checked = options.mail_kind == "web";
  mnu_answer_at_top.checked = options.answer_position != "bottom";
  mnu_answer_at_bottom.checked = options.answer_position == "bottom";
}

// The name of quiz 3 is left out when the screen loads, and stands there from the first Next on.
void Quest::set_status_line(bool at_load) {
  const int quiz = run_.selected_quiz;
  std::string label = status_labels_[quiz];
  if (at_load && quiz == 3 && !program_.catalogue.has_cover_layout()) label.clear();
  whatdoin.caption = label + " -   " + program_.catalogue.exam_title;
  if (!program_.catalogue.has_cover_layout()) {
    whatdoin.caption += " v" + program_.catalogue.exam_version;
  }
}

void Quest::activate() {
  Trap trap{program_, "quest form Activate()", source};
  trap([&] { program_.forms.load(Form::pick_a_quiz); });
}

void Quest::resize() {
  if (window_state == WindowState::minimised) return;
  bounds.height = std::max(bounds.height, least_height);
  bounds.width = std::max(bounds.width, least_width);
  WebBrowser1.bounds = {10, 10, bounds.width - frame1_width_ - 140, bounds.height - view_gap_};
  Frame1.bounds = {WebBrowser1.bounds.left + WebBrowser1.bounds.width, 10, frame1_width_,
                   WebBrowser1.bounds.height};
  Frame2.bounds.top = bounds.height - frame2_gap_;
  Frame2.bounds.left = (bounds.width - Frame2.bounds.width) / 2;
  whatdoin.bounds = {120, bounds.height - 330, bounds.width - 240, 285};
}

void Quest::unload() {
  skip([&] { program_.forms.unload(Form::pick_a_quiz); });
}

void Quest::key_down(bool with_alt) {
  if (with_alt) set_focus("WebBrowser1");
}

void Quest::close_window() { ask_to_exit(); }

}  // namespace practice
