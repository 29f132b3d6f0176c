#pragma once

#include <QWindow>

namespace netrove {

/// Tells the window system again who owns the windows that belong to `owner`: to be called when
/// that has been shown after its window was made anew. On X11 they would belong to the window that
/// is gone, and could fall behind their owner.
void OwnAnew(const QWindow& owner);

} // namespace netrove
