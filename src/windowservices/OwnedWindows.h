#pragma once

#include <QWindow>

namespace netrove {

/// Tells the window system again that the windows of `owner` belong to it. To be called when
/// `owner` has been shown after its X11 window was created anew: its windows would still belong to
/// the old one, and could end up behind their owner.
void OwnAnew(const QWindow& owner);

} // namespace netrove
