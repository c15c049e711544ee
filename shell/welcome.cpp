#include "shell/welcome.h"

#include "platform/building.h"
#include "platform/values/text.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr std::string_view source = "Welcome";
constexpr double design_width = 5925;
constexpr double design_height = 7800;
constexpr double button_width = 2100;
constexpr double button_height = 540;
constexpr int questions_per_quarter = 4;

}  // namespace

Welcome::Welcome(Program& program) : Screen("Welcome"), program_(program) {
  list("Image1", Image1);
  list("Image3", Image3);
  list("Label6", Label6);
  list("Image4", Image4[0], 0).on_click([this] { start_quiz_click_sub(); });
  list("Image4", Image4[1], 1).on_click([this] {
    skip([&] { open_document(program_, "marlo.chm", WindowShow::normal); });
  });
  list("Image4", Image4[2], 2).on_click([this] { program_.handover->close_all_forms(); });
}

void Welcome::design() {
  static_cast<WelcomeControls&>(*this) = WelcomeControls{};
  bounds = {0, 0, design_width, design_height};
  least_width = design_width;
  least_height = design_height;
  Image1 = hidden(placed<Picture>({0, 0, design_width, design_height}));
  Image3 = placed<Picture>({0, 0, design_width, design_height});
  Label6 = captioned<Label>("Practice test for:", {240, 180, 3600, 300});
  constexpr std::string_view tips[] = {"Start", "Help", "Exit"};
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    Image4[i] =
        placed<Picture>({3675, 5940 + 615 * static_cast<double>(i), button_width, button_height});
    Image4[i].tool_tip = tips[i];
  }
}

void Welcome::load() {
  Trap trap{program_, "Welcome form load()", source};
  Catalogue& catalogue = program_.catalogue;
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    right_gap_[i] = Image4[i].bounds.left + Image4[i].bounds.width - design_width;
    bottom_gap_[i] = Image4[i].bounds.top + Image4[i].bounds.height - design_height;
  }
  first_resize_ = true;
  trap([&] {
    program_.install_dir = program_.platform.program_folder;
    if (!program_.install_dir.ends_with('\\')) program_.install_dir += '\\';
  });
  trap([&] { load_bank(program_); });
  trap([&] { Image1.file = picture_file(program_, "oemsplash.jpg"); });
  pointer = Pointer::hourglass;
  trap([&] { number_the_rows(program_.question_table); });
  trap([&] { load_bank(program_); });
  trap([&] { apply_cover_layout(); });
  trap([&] { Label6.caption = " Practice Test for:"; });
  trap([&] {
    program_.test_run.question_total = int{catalogue.bank_total} / questions_per_quarter;
  });
  pointer = Pointer::normal;
  trap([&] { center_form(program_, *this); });
  trap([&] { test_file_permissions(); });
  program_.forms.show(Form::Welcome);
}

void Welcome::apply_cover_layout() {
  constexpr std::string_view names[] = {"start", "help", "exit"};
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    const std::string path = program_.install_dir + std::string(names[i]);
    Image4[i].file = path + ".png";
    Image4[i].pressed_file = path + "_pressed.png";
  }
  Image3.file = picture_file(program_, program_.install_dir + program_.catalogue.cover_picture);
}

// A student whose folder can not be written to would lose every result.
void Welcome::test_file_permissions() {
  constexpr std::string_view probe = "file.wrt";
  Files& files = program_.platform.files;
  if (files.exists(probe)) return;
  skip([&] { files.write(probe, "TEST\r\n"); });
  if (files.exists(probe)) return;
  program_.platform.messages.show(
      {.text = "You do not appear to have file system permissions.  Please log off and log on as "
               "administrator.",
       .title = "File Permissions"});
}

void Welcome::resize() {
  if (!first_resize_) return;
  first_resize_ = false;
  bounds.width = design_width;
  bounds.height = design_height;
  Image3.visible = true;
  Image3.bounds = {0, 0, design_width, design_height};
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    Bounds& button = Image4[i].bounds;
    button.left = design_width + right_gap_[i] - button.width;
    button.top = design_height + bottom_gap_[i] - button.height;
  }
}

void Welcome::activate() {}

void Welcome::start_quiz_click_sub() {
  Trap trap{program_, "start_quiz_click_sub()", source};
  trap([&] { program_.forms.load(Form::pick_a_quiz); });
  trap([&] { center_form(program_, *program_.forms.find(Form::pick_a_quiz)); });
  trap([&] { program_.forms.show(Form::pick_a_quiz); });
  trap([&] { program_.forms.hide(Form::Welcome); });
  trap([&] { program_.platform.stage.pump(); });
}

void Welcome::unload() {
  for (const Form form : {Form::quest, Form::pick_a_quiz, Form::theanswer, Form::finalscore,
                          Form::Exhibit, Form::Diagram}) {
    skip([&] { program_.forms.unload(form); });
  }
  pointer = Pointer::normal;
}

void Welcome::close_window() { program_.handover->close_all_forms(); }

}  // namespace practice
