// What the book setter does with its arguments.
#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace practice::books {

/// Call first, before there is a QGuiApplication: the books of this process come out the same on
/// every machine, without a screen.
void prepare_process();

/// Returns the exit code: 0 when all is well, 1 for faults in the book, 2 for a wrong call. Wants a
/// QGuiApplication.
int run(std::span<const std::string_view> arguments, std::ostream& out, std::ostream& err);

}  // namespace practice::books
