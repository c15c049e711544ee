// Where the study saver shows itself: in the window that a screen saver host gives us, or over the
// whole desk.
#pragma once

namespace practice::desktop {

class Desk;

/// Tells the desk its place; once, before the program starts in the saver role. Screens beside the
/// one that is covered go black.
void give_the_saver_its_place(Desk& desk);

}  // namespace practice::desktop
