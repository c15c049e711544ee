#include "shell/about.h"

#include "platform/building.h"
#include "session/addresses.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr double text_left = 300;
constexpr double text_width = 6600;

}  // namespace

About1::About1(Program& program) : Screen("About1"), program_(program) {
  list("Image1", Image1);
  list("Label1", Label1);
  list("Label2", Label2);
  list("Frame1", Frame1);
  list("Label3", Label3);
  list("Label4", Label4);
  list("Label5", Label5);
  list("Command3", Command3).on_click([this] { skip([&] { mail_support(); }); });
  list("hmi_about_exit", hmi_about_exit).on_click([this] { close_window(); });
  list("Command1", Command1).on_click([this] { close_window(); });
}

void About1::design() {
  static_cast<AboutControls&>(*this) = AboutControls{};
  caption = "About Practice Exam";
  bounds = {0, 0, 7200, 4500};
  least_width = bounds.width;
  least_height = bounds.height;
  Image1 = placed<Picture>({text_left, 180, 1500, 900});
  Label1 = captioned<Label>("Practice Exam. Copyright Marlo Software.",
                            {text_left, 240, text_width, 285});
  Label2 = captioned<Label>("Exam engine and its content: Copyright Marlo Software.",
                            {text_left, 570, text_width, 285});
  Frame1 = captioned<Frame>("The book", {text_left - 120, 900, text_width + 240, 700});
  Label3 = captioned<Label>("Questions of the book: Copyright Brightwater Press.",
                            {text_left, 1200, text_width, 300});
  Label4 = captioned<Label>(
      "Warning:  Use constitutes consent to the End User License Agreement (EULA).  No warranty is "
      "expressed or implied.  Use at your own risk.",
      {text_left, 1800, text_width, 720});
  Label5 =
      captioned<Label>("For support inquiries please visit " + std::string(addresses::publisher),
                       {text_left, 2700, text_width, 285});
  Command3 = captioned<Button>("&E-Mail Support", {text_left, 3600, 1995, 450});
  hmi_about_exit = captioned<Button>("E&xit", {3300, 3600, 1500, 450});
  Command1 = captioned<Button>("&Close", {5400, 3600, 1500, 450});
  Command1.is_default = true;
}

void About1::load() {
  skip([&] { Image1.file = picture_file(program_, "oemsplash.gif"); });
  const bool is_book_edition = program_.catalogue.is_book_edition();
  Frame1.visible = is_book_edition;
  Label3.visible = is_book_edition;
  skip([&] { center_form(program_, *this); });
}

void About1::close_window() {
  skip([&] { program_.forms.hide(Form::About1); });
  skip([&] { program_.forms.unload(Form::About1); });
}

void About1::mail_support() {
  const Catalogue& catalogue = program_.catalogue;
  constexpr std::string_view line_end = "%0d%0a";
  std::string address = "mailto:" + std::string(addresses::support_mail);
  address.append("?subject=Assistance Requested")
      .append("&BODY=Place question or comment here:")
      .append(line_end)
      .append("Test_Name=" + catalogue.exam_title)
      .append(line_end)
      .append("Version:   " + catalogue.exam_version + "   Check for new versions regularly.")
      .append(line_end)
      .append("Part_Number=" + catalogue.exam_code);
  open_document(program_, address, WindowShow::normal);
}

Loading::Loading() : Screen("loading") {
  list("Label1", Label1);
  list("Label2", Label2);
}

void Loading::design() {
  static_cast<LoadingControls&>(*this) = LoadingControls{};
  caption = "Practice Exam";
  bounds = {0, 0, 3600, 1200};
  Label1 = captioned<Label>("Please Wait,", {300, 240, 3000, 285});
  Label2 = captioned<Label>("Loading ......", {300, 600, 3000, 285});
}

}  // namespace practice
