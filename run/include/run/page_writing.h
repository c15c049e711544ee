// Putting a finished page into an HTML view, by writing into a blank document.
#pragma once

#include <string_view>

#include "platform/html/view.h"
#include "session/program.h"

namespace practice {

/// Navigates to the exam's blank.htm and pumps events until it is there, two whole seconds at most.
void show_blank_page(Program& program, html::View& view);

/// Replaces the view's document by the guard scripts, the page, and the end of body and document.
void write_page(Program& program, html::View& view, std::string_view page);

/// Sets page_loaded at the view's completion events.
void note_completion(Program& program, html::View& view);

}  // namespace practice
