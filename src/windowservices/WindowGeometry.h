#pragma once

#include "controls/Twips.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace netrove {

/// Moves `child` so that its frame stands in the middle of the frame of `parent`, also where that
/// is partly off the screen.
void CentreWindow(const QWidget& parent, QWidget& child);

/// Sizes the window so that its inner area has this width and height (twips), whatever frame and
/// margins stand around it.
void SetClientSize(QWidget& window, int width, int height);

/// The same for a window that the user shan't resize. It becomes larger where its layout needs more
/// room, as with a large font.
void SetFixedClientSize(QWidget& window, int width, int height);
/// Keeps the window at its size, or, where what its layout holds needs more room, at that.
void FixSizeAroundContents(QWidget& window);

/// The frame that the desktop has put around the window, in pixels. Null while there is none, and
/// while its size isn't known: X11 has it negative as long as the frame is being put on.
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
