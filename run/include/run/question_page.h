// The page generator: a question becomes one string of HTML. No file is written per question; the
// string goes into a blank document of the HTML view.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "bank/question.h"
#include "session/program.h"

namespace practice {

/// "A." to "F." and a tab, for entries 1 to 6.
std::string answer_label(int entry);

/// Line by line, q_bottom.ini with a CR LF in front of each line; empty when there is no such file.
std::string read_page_header(const Program& program);

/// The page of the question on show, by its kind, as the test run has decided it. Rewrites the
/// first picture path in the question's texts to the exam's folder.
std::string build_question_page(Program& program, Question& question);

/// Puts `content_dir` behind the opening quote of the first "<img src" of the text.
void add_picture_folder(std::string& text, std::string_view content_dir);

/// The diagrams of a question that are pictures to be shown on its page.
bool is_page_diagram(std::string_view diagram);

/// Address of an online tutor video, with ".wmv" added when its name in upper case holds none of
/// the endings.
std::string tutor_address(const Program& program, std::string_view tutor_file,
                          std::initializer_list<std::string_view> media_endings);

/// The player object for a media address.
std::string media_object_html(std::string_view url);

/// The player, or the link, for a tutor video, from its rule to its last line end.
std::string tutor_html(const Program& program, std::string_view url);

/// "<style>" to "</style>" for the student's font, without a line end at either side. Corrects a
/// font size of 0 or below to 12, for all pages from then on.
std::string style_block(Options& options);

/// The scripts in front of every page: no context menu, no selection of text, no script errors.
std::string page_guard_scripts();

/// The row of tab images at the top of a page; `active` is the index of the selected tab.
std::string build_tab_row(const Program& program, int active);

}  // namespace practice
