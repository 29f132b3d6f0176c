#pragma once

#include <QString>

#include <functional>

namespace netrove {

/// Returns the width of a text, in the unit of the width that it has to fit: pixels in a window,
/// columns on a terminal.
using TextWidth = std::function<int(const QString&)>;

/// A path shortened to a width. The last element stays; before it stands as much of the path's
/// beginning as fits, then "...": \\SERVER\SHARE\...\FILE. If even "...\FILE" is too wide, the
/// element itself is cut: "FI...". The result is never wider than `pixels`, in the unit of
/// `textWidth`.
[[nodiscard]] QString CompactPath(const QString& path, int pixels, const TextWidth& textWidth);

} // namespace netrove
