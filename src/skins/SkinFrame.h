#pragma once

#include "skins/SkinConfiguration.h"

#include <QRect>

namespace netrove {

/// Paints a frame from a configuration, and reads skin files.
class SkinFrame {
public:
    SkinFrame() = default;
    SkinFrame(const SkinFrame&) = delete;
    SkinFrame& operator=(const SkinFrame&) = delete;
    virtual ~SkinFrame() = default;

    virtual void PaintSample(const SkinConfiguration& configuration, const QWidget& window,
                             QPainter& painter, const QRect& area, bool active) = 0;

    virtual void Parse(const QString& text, const QPixmap& firstPicture,
                       const QPixmap& secondPicture, SkinConfiguration& configuration) = 0;
};

} // namespace netrove
