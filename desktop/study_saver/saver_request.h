// What a screen saver host asks of the saver program, in the forms of the hosts that there are:
// "--root", "--window-id 0x1c00007", "/s", "/c", "/p 1234".
#pragma once

#include <QStringList>

namespace practice::desktop {

struct SaverRequest {
  enum class Kind { run, preview, configure };
  Kind kind = Kind::run;
  /// The host's window that a preview is drawn in; 0 when none was told.
  unsigned window = 0;
};

/// The arguments without the program's name. What nobody knows is passed over; without any, the
/// student has opened the program by hand and gets its configuration.
SaverRequest saver_request(const QStringList& arguments);

}  // namespace practice::desktop
