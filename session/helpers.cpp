#include "session/helpers.h"

#include <algorithm>
#include <array>

#include "platform/values/text.h"

namespace practice {
namespace {

/// A code of the shell's open action and what it means to the student. The names that the codes
/// once had carry no value in this system, so all rows compare as 0 and the first one answers.
struct ShellError {
  int code;
  std::string_view message;
};

constexpr std::array<ShellError, 15> shell_errors{{
    {0, "File not found"},
    {0, "Path not found"},
    {0, "Access denied"},
    {0, "Out of memory"},
    {0, "DLL not found"},
    {0, "A sharing violation occurred"},
    {0, "Incomplete or invalid file association"},
    {0, "DDE Time out"},
    {0, "DDE transaction failed"},
    {0, "DDE busy"},
    {0,
     "Please install the Adobe Acrobat Reader to view PDF files.  You can download this program "
     "from http://reader.marlo.example"},
    {0, "Invalid EXE file or error in EXE image"},
    {0, "The specified file was not found."},
    {0, "The specified path was not found."},
    {0, "The .exe file is invalid (non-Win32® .exe or error in .exe image)."},
}};

constexpr int twips_per_inch = 1440;

}  // namespace

void open_document(Program& program, std::string_view target, WindowShow show) {
  program.platform.shell.open(target, {}, show);
}

int open_document_in(Program& program, std::string_view file, std::string_view folder) {
  return program.platform.shell.open(file, folder, WindowShow::maximised);
}

std::string shell_error_text(Program& program, int code, bool show) {
  if (code >= 33) return {};
  const auto row = std::ranges::find(shell_errors, code, &ShellError::code);
  const std::string_view message = row == shell_errors.end() ? "Unknown error" : row->message;
  if (show) {
    program.platform.messages.show({.text = std::string(message),
                                    .title = "Error:",
                                    .buttons = Buttons::ok,
                                    .icon = Icon::stop});
  }
  return show ? "True" : "False";
}

void center_form(Program& program, Screen& screen, float shift_x, float shift_y) {
  const auto middle = [](double available, double needed) {
    return static_cast<float>((available - needed) / 2);
  };
  screen.bounds.left = middle(program.platform.stage.width(), screen.bounds.width) - shift_x;
  screen.bounds.top = middle(program.platform.stage.height(), screen.bounds.height) - shift_y;
}

int longest_entry(const ListBox& list) {
  int longest = -1;
  std::size_t length = 0;
  for (std::size_t i = 0; i < list.items.size(); ++i) {
    const std::size_t count = character_count(list.items[i]);
    if (longest == -1 || count > length) {
      longest = static_cast<int>(i);
      length = count;
    }
  }
  return longest;
}

void set_list_scroll_extent(Program& program, ListBox& list) {
  const int longest = longest_entry(list);
  if (longest == -1) return;
  const std::string& entry = list.items[static_cast<std::size_t>(longest)];
  const Stage& stage = program.platform.stage;
  list.scroll_extent =
      static_cast<int>(stage.text_width(entry + ' ')) / (twips_per_inch / stage.pixels_per_inch());
}

std::string stored_mail_address(const Program& program) {
  return program.platform.settings.get("marlotest", "order", "email", "");
}

void keep_mail_address(Program& program, std::string_view address) {
  program.platform.settings.save("marlotest", "order", "email", address);
}

std::string ask_for_mail_address(Program& program, std::string_view default_address) {
  return program.platform.messages.ask({.text = "Please Enter your Email Address.",
                                        .title = "Web Based Mail",
                                        .default_text = std::string(default_address)});
}

void play_sound(Program& program, std::string_view alias) {
  program.platform.shell.send_media_command("play " + std::string(alias) + "  ");
}

std::vector<std::string> split_lines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::size_t place = 0; place < text.size();) {
    std::size_t end = text.find('\n', place);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(place, end - place);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    place = end + 1;
  }
  return lines;
}

std::vector<std::string> read_lines(const Files& files, std::string_view path) {
  return split_lines(files.read(path));
}

std::string picture_file(const Program& program, std::string_view path) {
  if (!program.platform.files.exists(path)) throw Fault::file_not_found();
  return std::string(path);
}

}  // namespace practice
