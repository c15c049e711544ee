// The files that belong to one student and one exam. They lie in the working folder, whatever the
// student typed as a name.
#pragma once

#include <string>
#include <string_view>

#include "session/program.h"

namespace practice {

/// A name in capitals, with a blank for every character that is no blank, digit or letter A to Z.
/// It has as many characters as before.
std::string cleaned_name(std::string_view name);

/// What was right and wrong last time. Blanks around the name stand in it.
std::string results_file(const Program& program);

/// The report of all graded tests, a page for a web browser. The name stands in it trimmed.
std::string history_file(const Program& program);

}  // namespace practice
