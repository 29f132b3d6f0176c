#pragma once

#include <QColor>
#include <QPalette>

namespace netrove {

/// A list's palette with colours that can be read on this background, whatever the desktop's are.
/// An invalid background gives the desktop's colours.
[[nodiscard]] QPalette WithListColors(const QPalette& palette, const QColor& background);

} // namespace netrove
