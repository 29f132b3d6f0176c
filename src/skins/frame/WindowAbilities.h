#pragma once

#include <QWidget>

namespace netrove {

/// What a frame lets its user do with a window, by the window's flags, sizes and state.

[[nodiscard]] bool CanMinimize(const QWidget& window);
[[nodiscard]] bool CanMaximize(const QWidget& window);
/// Whether there is a state to go back to: a maximised window has one.
[[nodiscard]] bool CanRestore(const QWidget& window);
/// Whether the program can move the window now.
[[nodiscard]] bool CanMove(const QWidget& window);

/// Whether a program may say where its windows stand. On Wayland only their user may.
[[nodiscard]] bool CanPlaceWindows();

/// Those of the edges that the window can be resized by now.
[[nodiscard]] Qt::Edges ResizableEdges(const QWidget& window, Qt::Edges edges);

/// Maximises the window, or restores it; does nothing where it can't be maximised.
void ToggleMaximized(QWidget& window);

/// Whether the window fills the screen, so that there is nothing to move or resize it by.
[[nodiscard]] bool FillsScreen(const QWidget& window);

/// Whether the window's width and height are both fixed.
[[nodiscard]] bool HasFixedSize(const QWidget& window);

} // namespace netrove
