#pragma once

#include "controls/Twips.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace netrove {

/// Moves `child` so that its frame is in the middle of the frame of `parent`, even if that is
/// partly off the screen.
void CentreWindow(const QWidget& parent, QWidget& child);

/// Sizes the window so that its inner area has this width and height (twips), whatever frame and
/// margins stand around it.
void SetClientSize(QWidget& window, int width, int height);

/// The same for a window that the user can't resize. It becomes larger if its layout needs more
/// room, as with a large font.
void SetFixedClientSize(QWidget& window, int width, int height);
/// Fixes the window at its present size, or a larger one if its contents need that.
void FixSizeAroundContents(QWidget& window);

/// The frame that the desktop has put around the window, in pixels. Null while there is none, and
/// while its size isn't known: on X11 it's negative while the frame is being put on.
[[nodiscard]] QMargins DesktopFrame(const QWidget& window);

/// Where the mouse is on the screen, in logical pixels.
[[nodiscard]] int CursorX();
[[nodiscard]] int CursorY();

[[nodiscard]] constexpr int PixelsToTwipsX(int pixels) {
    return ToTwips(pixels);
}
[[nodiscard]] constexpr int PixelsToTwipsY(int pixels) {
    return ToTwips(pixels);
}

/// Measures texts in the font that the widget has now: their width in pixels, rounded up.
[[nodiscard]] std::function<int(const QString&)> TextWidthIn(const QWidget& widget);

} // namespace netrove
