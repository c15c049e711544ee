#include "shell/welcome.h"

#include "platform/values/text.h"
#include "session/addresses.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"
#include "shell/branding.h"
#include "shell/scale_form.h"

namespace practice {
namespace {

constexpr std::string_view source = "Welcome";
constexpr double design_width = 5925;
constexpr double design_height = 7800;
constexpr double cover_height = 8090;
constexpr int questions_per_quarter = 4;
constexpr int tests_before_feedback = 3;

std::string setting(const Program& program, std::string_view key, std::string_view default_value) {
  return program.platform.settings.get("marlo", program.catalogue.exam_code, key, default_value);
}

}  // namespace

void Welcome::load() {
  Trap trap{program_, "Welcome form load()", source};
  Forms& forms = program_.forms;
  keep_button_gaps();
  first_resize_ = true;
  trap([&] { scale_form_for_dpi(program_, *this); });
  trap([&] {
    forms.load(Form::loading);
    if (Screen* loading = forms.find(Form::loading)) center_form(program_, *loading);
    forms.show(Form::loading);
    program_.platform.stage.pump();
  });
  trap([&] {
    program_.install_dir = program_.platform.program_folder;
    if (!program_.install_dir.ends_with('\\')) program_.install_dir += '\\';
  });
  trap([&] { load_bank(program_); });
  trap([&] { Image1.file = picture_file(program_, "oemsplash.jpg"); });
  trap([&] { read_oem_file(program_); });
  forms.hide(Form::Welcome);
  pointer = Pointer::hourglass;
  if (Screen* loading = forms.find(Form::loading)) loading->pointer = Pointer::hourglass;
  trap([&] { number_the_rows(program_.question_table); });
  forms.unload(Form::loading);
  const Catalogue& catalogue = program_.catalogue;
  if (catalogue.is_book_edition()) {
    trap([&] { load_bank(program_); });
    trap([&] {
      Image3.file = picture_file(program_, program_.install_dir + catalogue.cover_picture);
    });
    trap([&] { apply_cover_layout(); });
  }
  trap([&] { scan_partner_file(program_); });
  apply_branding();
  trap([&] { Label6.caption = program_.branding.brand_prefix + " Practice Test for:"; });
  trap([&] { show_feedback_link(); });
  trap([&] {
    program_.test_run.question_total = int{catalogue.bank_total} / questions_per_quarter;
  });
  pointer = Pointer::normal;
  trap([&] { center_form(program_, *this); });
  trap([&] { test_file_permissions(); });
  if (is_saver_start(program_.command_line)) start_saver();
  if (program_.saver_mode != 1) forms.show(Form::Welcome);
}

void Welcome::keep_button_gaps() {
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    right_gap_[i] = Image4[i].bounds.left + Image4[i].bounds.width - design_width;
    bottom_gap_[i] = Image4[i].bounds.top + Image4[i].bounds.height - design_height;
  }
}

void Welcome::apply_cover_layout() {
  constexpr std::string_view names[] = {"start", "help", "exit"};
  for (std::size_t i = 0; i < Image4.size(); ++i) {
    const std::string path = program_.install_dir + std::string(names[i]);
    Image4[i].file = path + ".png";
    Image4[i].pressed_file = path + "_pressed.png";
  }
  bounds.width = Image3.bounds.width;
  bounds.height = cover_height;
  caption.clear();
  for (Picture* picture :
       {&Image1, &Start_Quiz, &cmd_start_real, &Command1, &help_command, &About}) {
    picture->visible = false;
  }
  for (Label* label : {&test_name, &author_name2, &lblLabels, &txtTestDescription, &lRelease,
                       &Label2, &Label3, &Label5}) {
    label->visible = false;
  }
}

void Welcome::apply_branding() {
  Trap trap{program_, "Welcome form load()", source};
  Branding& branding = program_.branding;
  lblOEMGreeting.visible = false;
  if (branding.partner_found && branding.partner_code == "kws") {
    lblOEMGreeting.caption = "Jointly Offered with Kestrel World";
    lblOEMGreeting.visible = true;
  } else if (branding.partner_found) {
    trap([&] { Image2.file = picture_file(program_, program_.install_dir + "skyquizlogo.jpg"); });
    Image2.visible = true;
  }
  if (branding.partner_edition == partner_publisher) trap([&] { apply_partner_publisher(); });
  branding.brand_prefix.clear();
  if (is_white_label(branding)) branding.brand_prefix = "TestCraft";
  if (branding.partner_edition == partner_publisher) branding.brand_prefix = "Halden Learning's";
  test_name.caption = program_.catalogue.exam_title;
  author_name2.caption = program_.catalogue.author_address;
  if (!program_.catalogue.has_cover_layout()) return;
  for (Picture* picture : {&hmi_exit, &HMI_Start, &hmi_help}) picture->visible = false;
  for (Picture& picture : oldImage4) picture.visible = false;
}

void Welcome::apply_partner_publisher() {
  Label3.caption = "Powered By Marlo Software, Inc.";
  Label3.visible = true;
  bounds.width = Image1.bounds.width = 7390;
  bounds.height = Image1.bounds.height = 6630;
  Command1.bounds.width = 400;
  Image2.visible = true;
  Image2.file = picture_file(program_, program_.install_dir + "haldenlearnsplash.jpg");
}

// A student who has finished some tests has something to say.
void Welcome::show_feedback_link() {
  if (integer_in(setting(program_, "num_times", "0")) <= tests_before_feedback) return;
  lblFeedback.visible = true;
  if (setting(program_, "survey_done", "no") == "yes") lblFeedback.caption = "Update Feedback";
}

// A student whose folder can not be written to would lose every result.
void Welcome::test_file_permissions() {
  Trap trap{program_, "Welcome form load()", source};
  constexpr std::string_view probe = "file.wrt";
  Files& files = program_.platform.files;
  if (files.exists(probe)) return;
  trap([&] { files.write(probe, "TEST\r\n"); });
  if (files.exists(probe)) return;
  program_.platform.messages.show(
      {.text = "You do not appear to have file system permissions.  Please log off and log on as "
               "administrator.",
       .title = "File Permissions"});
}

void Welcome::start_saver() {
  Trap trap{program_, "Welcome form load()", source};
  program_.saver_mode = 1;
  program_.forms.hide(Form::Welcome);
  if (program_.catalogue.bank_total == 0) {
    // Nobody would see what is shown, nor know why.
    trap([] { throw Fault::invalid_call(); });
    program_.handover->close_all_forms();
    return;
  }
  trap([&] { program_.forms.load(Form::Security); });
  trap([&] { program_.forms.show(Form::Security); });
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

void Welcome::activate() {
  Trap trap{program_, "Welcome form Activate()", source};
  trap([&] {
    if (cmd_start_real.visible) set_focus("cmd_start_real");
  });
}

void Welcome::start_quiz_click_sub() {
  Trap trap{program_, "start_quiz_click_sub()", source};
  trap([&] { program_.forms.load(Form::pick_a_quiz); });
  trap([&] { center_form(program_, *program_.forms.find(Form::pick_a_quiz)); });
  trap([&] { program_.forms.show(Form::pick_a_quiz); });
  trap([&] { program_.forms.hide(Form::Welcome); });
  trap([&] { program_.platform.stage.pump(); });
}

void Welcome::open_help() {
  skip([&] { open_document(program_, "marlo.chm", WindowShow::normal); });
}

void Welcome::open_eula() {
  skip([&] {
    open_document(program_, "file:///" + program_.install_dir + "EULA.txt", WindowShow::normal);
  });
}

void Welcome::give_feedback() {
  Platform& platform = program_.platform;
  const Answer answer =
      platform.messages.show({.text = "You will need a internet connection to do this.\r\n"
                                      "We will now launch a web browser to connect to our site.",
                              .title = "Submit Feedback",
                              .buttons = Buttons::ok_cancel});
  if (answer != Answer::ok) return;
  std::string address;
  skip([&] { address = stored_mail_address(program_); });
  if (address.empty()) {
    skip([&] { address = ask_for_mail_address(program_); });
  }
  skip([&] { keep_mail_address(program_, address); });
  const Catalogue& catalogue = program_.catalogue;
  skip([&] {
    open_document(program_,
                  std::string(addresses::survey_page) + "?prodid=" + catalogue.exam_code +
                      "&email=" + address +
                      "&name=" + replace_all(catalogue.exam_title, "#", "%23"),
                  WindowShow::maximised);
  });
  skip([&] { platform.settings.save("marlo", catalogue.exam_code, "survey_done", "yes"); });
}

void Welcome::unload() {
  for (const Form form : {Form::quest, Form::pick_a_quiz, Form::theanswer, Form::finalscore,
                          Form::Exhibit, Form::Diagram, Form::About1}) {
    skip([&] { program_.forms.unload(form); });
  }
  pointer = Pointer::normal;
}

void Welcome::close_window() {
  skip([&] { program_.forms.unload(Form::Welcome); });
  program_.handover->close_all_forms();
}

}  // namespace practice
