#pragma once

#include <QString>

#include <functional>

namespace netrove {

/// Gives the width of a text, in the unit of the width that it has to fit: pixels in a window,
/// columns on a terminal.
using TextWidth = std::function<int(const QString&)>;

/// A path shortened to a width. The last element stays, and of what stands before it as much as
/// fits, then "...": \\SERVER\SHARE\...\FILE. Where that is too wide even for "...\FILE", the
/// element itself is cut: "FI...". The result is never wider than `pixels`.
[[nodiscard]] QString CompactPath(const QString& path, int pixels, const TextWidth& textWidth);

} // namespace netrove
