// What only an X11 desktop tells: the windows of other programs. On any other desktop there are
// none, and nothing happens.
#pragma once

#include <QRect>
#include <QString>
#include <cstdint>

namespace practice::desktop {

/// Asks each window on the desktop whose title contains the text to close, as its frame would.
void close_windows_titled(const QString& text);

/// Place and size of a window of any program, pixels; empty when there is no such window.
QRect geometry_of(std::uint32_t window);

}  // namespace practice::desktop
