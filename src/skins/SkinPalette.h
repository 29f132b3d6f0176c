#pragma once

#include <QPalette>
#include <QWidget>

namespace netrove {

// Pairs of colours in a palette: a background comes with the colour of the text on it, and with the
// colours that follow from the two. A skin that names only one of a pair leaves the other to the
// desktop, whose colour may not be readable there.

/// A window, or a part of it: background, text, disabled text, links, edges.
void SetSurface(QPalette& palette, const QColor& back, const QColor& text);

/// A text box: background, text, placeholder, disabled text.
void SetField(QPalette& palette, const QColor& back, const QColor& text);

/// Gives a control a readable placeholder colour where the desktop's can't be read on its
/// background.
void KeepPlaceholderReadable(QWidget& control);

/// Buttons. Their text is the desktop's where that can be read on the background.
void SetButton(QPalette& palette, const QColor& back);

/// Tabs and their pane. Styles paint them like buttons, in shades of their own, with the window's
/// text colour, which is therefore made to stand out from all of these shades.
void SetTabs(QPalette& palette, const QColor& back, const QColor& text);

/// Gives a control the desktop's colours for all parts of a surface whose colour it hasn't set
/// itself, so that it doesn't inherit the window's.
void KeepDesktopSurface(QWidget& control);

/// The desktop's text where that can be read on the background, else black or white.
[[nodiscard]] QColor TextOn(const QColor& back, const QColor& desktopText);

} // namespace netrove
