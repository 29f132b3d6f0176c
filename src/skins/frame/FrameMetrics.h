#pragma once

#include <QRect>
#include <QSize>

#include <array>
#include <vector>

namespace netrove {

class SkinConfiguration;

/// The numbers of a skin as its frame uses them, in logical pixels: what the skin doesn't set has
/// its default, and all are limited to what its pictures hold.
struct FrameMetrics {
    explicit FrameMetrics(const SkinConfiguration& configuration);

    /// The places of the buttons in a title bar of this width: the close button first, then those
    /// to its left.
    [[nodiscard]] std::vector<QRect> ButtonRects(int barWidth, int count) const;

    int titleHeight; ///< of the title bar
    int border;      ///< at the left, right and bottom
    QSize button;
    int glyph;       ///< side of the square that a button's glyph fills
    int buttonsEnd;  ///< from the right end of the close button to the window's right edge
    int iconLeft;    ///< from the window's left edge to the program's icon
    int captionGap;  ///< between the end of the caption and the buttons
    int upperRadius; ///< of the window's rounded corners, 0 for square ones
    int lowerRadius;
    int leftCap; ///< widths of the five pieces that the title picture is cut into
    int tile;
    int divider;
    int filler;
    int rightCap;

    friend bool operator==(const FrameMetrics&, const FrameMetrics&) = default;
};

} // namespace netrove
