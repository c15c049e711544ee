// Routines that every screen calls: opening files and addresses through the desktop, placing a
// screen, measuring a list. They hold no state and let faults pass to their caller.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/program.h"

namespace practice {

/// Opens a file or an address with the desktop's program for it. Reports nothing.
void open_document(Program& program, std::string_view target, WindowShow show);

/// The same in a maximised window with a working folder. Above 32 means success.
int open_document_in(Program& program, std::string_view file, std::string_view folder);

/// "True" or "False" of `show` for a code below 33, which it also tells the student when `show` is
/// true; empty for success.
std::string shell_error_text(Program& program, int code, bool show);

/// Puts a screen at the middle of the desk, less the shifts in twips.
void center_form(Program& program, Screen& screen, float shift_x = 0, float shift_y = 0);

/// Index of the entry with the most characters, the first of several; -1 for an empty list.
int longest_entry(const ListBox& list);

/// Lets a list be scrolled to the end of its longest entry.
void set_list_scroll_extent(Program& program, ListBox& list);

/// The student's own mail address, kept for all exams; empty when none is known.
std::string stored_mail_address(const Program& program);
void keep_mail_address(Program& program, std::string_view address);
/// Empty when the student cancels.
std::string ask_for_mail_address(Program& program, std::string_view default_address = {});

/// Plays a media address; whether it can be heard is not told.
void play_sound(Program& program, std::string_view alias);

/// The lines of a text without their ends, CR LF or LF.
std::vector<std::string> split_lines(std::string_view text);

/// A file's lines without their ends. Raises what Files::read raises.
std::vector<std::string> read_lines(const Files& files, std::string_view path);

/// The picture file for a Picture control. Raises fault 53 when it is not there.
std::string picture_file(const Program& program, std::string_view path);

}  // namespace practice
