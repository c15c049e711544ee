// Whether a newer version is to be had. The menu entry is hidden in this edition.
#include "platform/values/text.h"
#include "session/addresses.h"
#include "session/helpers.h"
#include "setup/pick_a_quiz.h"

namespace practice {
namespace {

std::string_view download_page(std::string_view exam_code) {
  const double number = number_in(exam_code);
  if (number >= 20000 && number < 21000) return addresses::sister_site;
  if (number >= 80000 && number < 81200) return addresses::featured_tests;
  return addresses::end_user_terms;
}

// The last line of a text, without its end.
std::string_view last_line(std::string_view text) {
  if (text.ends_with('\n')) text.remove_suffix(1);
  std::string_view line = text.substr(text.rfind('\n') + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

void PickAQuiz::check_for_upgrade() {
  Platform& platform = program_.platform;
  pointer = Pointer::hourglass;
  platform.stage.pump();
  std::string file = platform.program_folder;
  if (!file.ends_with('\\')) file += '\\';
  file += "Version.txt";
  platform.files.write(file, {});
  platform.files.write(file, platform.internet.get(addresses::version_file));
  const std::string newest = replace_all(last_line(platform.files.read(file)), "\"", "");
  pointer = Pointer::normal;
  // Versions are compared letter by letter, so "5.9" is newer than "5.20".
  if (program_.catalogue.exam_version >= newest) {
    const bool is_connected = newest > "4.0";
    platform.messages.show(
        {.text = is_connected
                     ? "You have the latest version.  Thank you for using Marlo Software."
                     : "You will need to have an active connection to the Internet to check for "
                       "updates.",
         .title = {}});
    return;
  }
  const Answer answer =
      platform.messages.show({.text = "There is a update available.  Click OK to download",
                              .title = "Update Available",
                              .buttons = Buttons::ok_cancel});
  if (answer != Answer::ok) return;
  open_document(program_, download_page(program_.catalogue.exam_code), WindowShow::normal);
}

}  // namespace practice
