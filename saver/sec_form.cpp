#include "saver/sec_form.h"

#include <algorithm>
#include <cmath>

#include "platform/building.h"
#include "platform/values/text.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr double twips_per_pixel = 15;
constexpr unsigned black = 0x000000;
constexpr unsigned white = 0xFFFFFF;
constexpr double edge = 30;

Label on_black(std::string caption, double points, unsigned rgb, Bounds bounds = {}) {
  Label label = captioned<Label>(std::move(caption), bounds);
  label.letters.font = {.points = points, .bold = true};
  label.letters.fore_rgb = rgb;
  label.letters.back_rgb = black;
  return label;
}

bool is_number(std::string_view text) {
  constexpr std::string_view digits = "0123456789";
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  return text.find_first_of(digits) != text.npos &&
         decimals.find_first_not_of(digits) == text.npos &&
         text.substr(0, point).find_first_not_of(digits) == text.npos;
}

}  // namespace

Security::Security(Program& program) : Screen("Security"), program_(program) {
  list("Frame1", Frame1).on_mouse_move([this](double x, double y) { mouse_moved(x, y); });
  list("lblQuestnum", lblQuestnum);
  list("lblQuestion", lblQuestion);
  for (int i = 1; i <= answer_labels; ++i) list("lblAnswer", answer_label(i), i);
  list("Picture1", Picture1).on_key([this](int) { end_saver(); });
  list("Label1", Label1);
  list("lblTestinfo", lblTestinfo);
  list("Label3", Label3);
  list("Image1", Image1);
  list("img_cp", img_cp);
  list("img_HLB", img_HLB);
  list("Image2", Image2);
  list("FadeTimer", FadeTimer).on_click([this] { tick(); });
  list("scrolllogo", scrolllogo).on_click([this] { crawl(); });
  list("Label2", Label2);
  list("text1", text1).on_focus([this] { set_focus("cmd_main"); });
  list("cmd_main", cmd_main).on_click([this] { turn_card(); });
  list("cmd_next", cmd_next).on_click([this] { skip_card(); });
  list("Command3", Command3).on_click([this] { leave_flash_cards(); });
}

void Security::design() {
  static_cast<SecurityControls&>(*this) = SecurityControls{};
  constexpr double question_points = 18;
  constexpr double answer_points = 14;
  constexpr double small_points = 10;
  caption = "Practice Exam";
  bounds = {0, 0, 9600, 7200};
  least_width = bounds.width;
  least_height = bounds.height;
  covers_the_desk = false;
  window_state = WindowState::normal;

  lblQuestnum = on_black({}, question_points, black);
  lblQuestion = on_black({}, question_points, black);
  for (Label& label : lblAnswer) {
    label = on_black({}, answer_points, black);
    label.letters.font.bold = false;
  }
  Picture1 = placed<Picture>({0, 0, 3000, 900});
  Label1 = on_black("Showing Questions From:", small_points, 0xFF0000);
  lblTestinfo = on_black("Test Info Here", small_points, white);
  Label3 = on_black("Copyright Marlo Software", small_points, 0x808080);
  Image1 = hidden(Picture{});
  img_cp = hidden(Picture{});
  img_HLB = hidden(Picture{});
  FadeTimer.interval = 1000;
  FadeTimer.enabled = false;
  scrolllogo.interval = 20;
  scrolllogo.enabled = false;

  Label2 = on_black("Flash Cards", question_points, white, {300, 240, 6000, 600});
  text1.multi_line = true;
  cmd_main = captioned<Button>("Question");
  cmd_main.is_default = true;
  cmd_next = captioned<Button>("Next");
  Command3 = captioned<Button>("Exit");
}

void Security::load() {
  Trap trap{program_, "Security form load()", "sec_form"};
  tick_count_ = 0;
  last_x_ = 0;
  last_y_ = 0;
  trap([&] {
    constexpr int sum_of_640_by_480 = 1120;
    constexpr int sum_of_800_by_600 = 1400;
    constexpr int sum_of_1024_by_768 = 1792;
    const Stage& stage = program_.platform.stage;
    const auto sum =
        static_cast<int>(std::lround((stage.width() + stage.height()) / twips_per_pixel));
    resolution_class_ = 0;
    if (sum == sum_of_640_by_480) resolution_class_ = 1;
    if (sum == sum_of_800_by_600) resolution_class_ = 2;
    if (sum >= sum_of_1024_by_768) resolution_class_ = 3;
  });
  if (!is_saver()) {
    load_flash_cards();
    return;
  }
  covers_the_desk = true;
  order_index_ = 1;
  read_settings();
  FadeTimer.enabled = true;
  scrolllogo.enabled = true;
  trap([&] { cycle_length_ = int{answer_delay_} + 3 + int{correct_delay_} + 3; });
  saver_row_ = 1;
  if (random_questions_ != 0) {
    program_.platform.random.seed_from_clock();
    trap([&] { shuffle_rows(); });
    trap([&] { saver_row_ = row_order_[order_index_]; });
  }
  trap([&] { show_question(); });
  // The rectangle that the window was to be placed by is never there. The step leaves a line in
  // the log, by which a start of the saver is known; the resize below gives the window its size.
  trap([] { throw Fault::object_required(); });
  program_.platform.stage.show_pointer(false);
  trap([&] { resize(); });
  for (Picture* picture : {&Picture1, &Image2}) {
    skip([&] { picture->file = picture_file(program_, program_.install_dir + "saver_logo.png"); });
  }
  set_focus("Picture1");
}

void Security::read_settings() {
  Trap trap{program_, "Security form load()", "sec_form"};
  // A delay that is no number, or that no clock could keep, leaves the usual one.
  const auto take = [&](std::string_view key, std::string_view usual, Integer lowest,
                        Integer& value) {
    value = integer_in(usual);
    trap([&] {
      const std::string text =
          program_.platform.settings.get("marlo_study_saver", "settings", key, usual);
      const std::string_view number = trim(text);
      if (!is_number(number)) throw Fault::type_mismatch();
      const Integer read = integer_in(number);
      if (read < lowest) throw Fault::invalid_call();
      value = read;
    });
  };
  take("aspeed", "3", 0, answer_delay_);
  take("cspeed", "6", 0, correct_delay_);
  take("RandQuestions", "0", Integer::lowest, random_questions_);
}

void Security::shuffle_rows() {
  const int count = program_.catalogue.bank_total;
  for (int i = 1; i <= MAX_QUESTIONS; ++i) row_order_[i] = i;
  for (int i = 1; i <= count; ++i) {
    const int r = static_cast<int>(static_cast<float>(count) * program_.platform.random.next()) + 1;
    std::swap(row_order_[i], row_order_[r]);
  }
}

void Security::activate() {
  if (!is_saver()) {
    window_state = WindowState::maximised;
    Frame1.visible = false;
    cmd_next.visible = false;
    set_focus("cmd_main");
    return;
  }
  const Catalogue& catalogue = program_.catalogue;
  lblTestinfo.caption = catalogue.exam_title;
  skip([&] { fit(lblTestinfo); });
  if (catalogue.is_book_edition() && catalogue.has_cover_layout()) {
    skip([&] {
      img_cp.file = picture_file(program_, program_.install_dir + catalogue.cover_picture);
    });
    img_cp.visible = true;
    if (catalogue.exam_code == "30301") img_HLB.visible = true;
    for (Label* label : {&Label1, &lblTestinfo, &Label3}) label->visible = false;
  }
  if (program_.branding.partner_found && program_.branding.oem_name == "skq") {
    skip([&] { Image1.file = picture_file(program_, program_.install_dir + "skyquizlogo.jpg"); });
    Image1.visible = true;
    Label1.visible = false;
  }
}

void Security::resize() {
  if (!is_saver()) return;
  const Stage& stage = program_.platform.stage;
  const double width = stage.width();
  skip([&] {
    bounds.left = 0;
    bounds.top = 0;
    bounds.width = width;
    bounds.height = stage.height();
  });
  Frame1.bounds = {0, 0, bounds.width, bounds.height};
  lblQuestnum.bounds.top = bounds.top + 175;
  lblQuestion.bounds.top = bounds.top + 175;
  lblQuestnum.bounds.left = 300;
  skip([&] { make_room_for_the_number(); });
  lblQuestion.bounds.left = lblQuestnum.bounds.left + lblQuestnum.bounds.width + edge;
  lblQuestion.bounds.width = width - 1700;
  keep_question_on_the_screen();
  skip([&] { fit(lblQuestion); });
  const double margin = std::nearbyint(width / 11);
  for (Label& label : lblAnswer) {
    label.bounds.left = margin;
    label.bounds.width = width - 2 * margin;
  }
  Picture1.bounds.top = bounds.height - Picture1.bounds.height - edge;
  Picture1.bounds.left = bounds.width - Picture1.bounds.width - edge;

  // What stands still: the name of the test above the logo's path, the pictures in the corners.
  constexpr double line_height = 300;
  constexpr double still_top = 3 * line_height + edge;
  const double text_top = Picture1.bounds.top - still_top;
  Label* lines[] = {&Label1, &lblTestinfo, &Label3};
  for (std::size_t i = 0; i < std::size(lines); ++i) {
    lines[i]->bounds = {300, text_top + static_cast<double>(i) * line_height, width / 2,
                        line_height};
  }
  constexpr double cover_height = 2400;
  constexpr double cover_width = 1800;
  img_cp.bounds = {300, Picture1.bounds.top - cover_height - edge, cover_width, cover_height};
  img_HLB.bounds = {300 + cover_width + edge, Picture1.bounds.top - 900 - edge, 1500, 900};
  Image1.bounds = img_HLB.bounds;
  Image2.bounds = {width - 1500 - 300, Picture1.bounds.top - 450 - edge, 1500, 450};
}

void Security::unload() { program_.platform.stage.show_pointer(true); }

void Security::close_window() {
  if (is_saver()) {
    end_saver();
  } else {
    leave_flash_cards();
  }
}

// A hand on the mouse moves it by several pixels at once; a table that shakes does not.
void Security::mouse_moved(double x, double y) {
  constexpr int least_jump = 5;
  const auto distance = [](int from, double to) { return std::abs(std::lround(to) - from); };
  const bool jumped = distance(last_x_, x) >= least_jump || distance(last_y_, y) >= least_jump;
  if (jumped && (last_x_ != 0 || last_y_ != 0)) {
    end_saver();
    return;
  }
  skip([&] { last_x_ = static_cast<int>(std::lround(x)); });
  skip([&] { last_y_ = static_cast<int>(std::lround(y)); });
}

void Security::end_saver() {
  skip([&] { program_.platform.shell.close_windows("marlo_study_saver"); });
  skip([&] { program_.platform.stage.show_pointer(true); });
  skip([&] { program_.forms.unload(Form::Security); });
  program_.handover->close_all_forms();
}

}  // namespace practice
