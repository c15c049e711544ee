// The student's list of screen savers, as XScreenSaver keeps it in the file ".xscreensaver".
#pragma once

#include <string>
#include <string_view>

namespace practice::desktop {

/// The list with our saver in it and selected: as the only one that runs. All else stays as it was.
/// An empty list becomes one of our saver alone; XScreenSaver adds its own to it.
std::string with_our_saver(std::string_view list, std::string_view program);

}  // namespace practice::desktop
