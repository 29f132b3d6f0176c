#pragma once

#include <QWidget>

namespace netrove {

/// What a frame lets its user do with a window, by the window's flags, sizes and state.

[[nodiscard]] bool CanMinimize(const QWidget& window);
[[nodiscard]] bool CanMaximize(const QWidget& window);
/// Whether there is a state to go back to: a maximised window has one.
[[nodiscard]] bool CanRestore(const QWidget& window);
/// Whether the window can be moved now, and whether the program may do it: some desktops let only
/// their user move windows.
[[nodiscard]] bool CanMove(const QWidget& window);

/// Those of the edges that the window can be resized by now.
[[nodiscard]] Qt::Edges ResizableEdges(const QWidget& window, Qt::Edges edges);

/// Maximises the window, or restores it; does nothing where it can't be maximised.
void ToggleMaximized(QWidget& window);

/// Whether the window fills the screen, so that there is nothing to move or resize it by.
[[nodiscard]] bool FillsScreen(const QWidget& window);

/// Whether the window's width and height are both fixed.
[[nodiscard]] bool HasFixedSize(const QWidget& window);

} // namespace netrove
