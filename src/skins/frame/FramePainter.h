#pragma once

#include "skins/frame/FrameLook.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>

namespace netrove {

/// Paints the parts of a frame: for real windows and for the sample alike.
class FramePainter {
public:
    FramePainter(const FrameLook& look, QPainter& painter, bool active)
        : look_(look), painter_(painter), active_(active) {}

    /// The title bar, without its buttons; `buttonsLeft` is where they begin.
    void PaintTitle(const QRect& bar, const QIcon& icon, const QString& caption, int buttonsLeft);

    void PaintButton(const QRect& button, FrameCell face, FrameCell glyph);

    /// The borders around the window's rectangle, below its title bar.
    void PaintBorder(const QRect& window);

    /// The place of the icon in a title bar.
    [[nodiscard]] static QRect IconRect(const FrameMetrics& metrics);

    /// The window's outline with its rounded corners.
    [[nodiscard]] static QPainterPath Outline(const FrameMetrics& metrics, const QRectF& window);

    /// The pixels inside that outline.
    [[nodiscard]] static QRegion Inside(const FrameMetrics& metrics, const QRect& window);

private:
    void PaintPieces(const QRect& bar, int captionEnd, int buttonsLeft);
    void PaintRepeated(const QRect& area, const QPixmap& piece);
    /// The piece at its own width, as high as the area and cut to it: its right side is cut off,
    /// or, with `keepRight`, its left side.
    void PaintCut(const QRect& area, const QPixmap& piece, bool keepRight);

    const FrameLook& look_;
    QPainter& painter_;
    bool active_;
};

} // namespace netrove
