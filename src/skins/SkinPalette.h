#pragma once

#include <QPalette>
#include <QWidget>

namespace netrove {

// Pairs of colours in a palette: a background comes with the text that stands on it, and with what
// follows from the two. A skin that names only one of a pair leaves the other to the desktop, whose
// colour may not be readable there.

/// A window, or a part of it: background, text, disabled text, links, edges.
void SetSurface(QPalette& palette, const QColor& back, const QColor& text);

/// What is typed into: background, text, place holder, disabled text.
void SetField(QPalette& palette, const QColor& back, const QColor& text);

/// Gives a control whose place holder can't be read on its background, as some desktops have it,
/// one that can.
void KeepPlaceholderReadable(QWidget& control);

/// Buttons. Their text is the desktop's where that can be read on the background.
void SetButton(QPalette& palette, const QColor& back);

/// Tabs and their pane, which styles paint like a button, in shades of their own, with a window's
/// text: the text is made to stand out from all of these.
void SetTabs(QPalette& palette, const QColor& back, const QColor& text);

/// Gives a control the desktop's colours for all of a surface that it hasn't set itself, so that
/// it doesn't take them over from the window.
void KeepDesktopSurface(QWidget& control);

/// The desktop's text where that can be read on the background, else black or white.
[[nodiscard]] QColor TextOn(const QColor& back, const QColor& desktopText);

} // namespace netrove
