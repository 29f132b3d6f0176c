#pragma once

#include <QFont>

namespace netrove {

/// Gives a font the size in points that comes nearest and is a whole number of pixels, 96 to the
/// inch: 8 becomes 8.25. Lists use such sizes, because their letters are crisp.
void SetFontSize(QFont& font, double points);

/// The size in points, even of a font whose size is set in pixels.
[[nodiscard]] double FontSize(const QFont& font);

} // namespace netrove
