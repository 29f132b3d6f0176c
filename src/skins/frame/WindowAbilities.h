#pragma once

#include <QWidget>

namespace netrove {

/// What a frame lets the user do with a window, judging by the window's flags, sizes and state.

[[nodiscard]] bool CanMinimize(const QWidget& window);
[[nodiscard]] bool CanMaximize(const QWidget& window);
/// Whether the window can be restored: it can while it is maximised.
[[nodiscard]] bool CanRestore(const QWidget& window);
/// Whether the program can move the window now.
[[nodiscard]] bool CanMove(const QWidget& window);

/// Whether a program may say where its windows stand. On Wayland only their user may.
[[nodiscard]] bool CanPlaceWindows();

/// Those of the edges by which the window can be resized now.
[[nodiscard]] Qt::Edges ResizableEdges(const QWidget& window, Qt::Edges edges);

/// Maximises the window, or restores it; does nothing where it can't be maximised.
void ToggleMaximized(QWidget& window);

/// Whether the window fills the screen, so that it has no edges to move or resize it by.
[[nodiscard]] bool FillsScreen(const QWidget& window);

/// Whether the window's width and height are both fixed.
[[nodiscard]] bool HasFixedSize(const QWidget& window);

} // namespace netrove
