#pragma once

#include "skins/SkinFrame.h"

namespace netrove {

/// For configurations of which nothing is painted.
class NoFrame : public SkinFrame {
public:
    void PaintSample(const SkinConfiguration& /*configuration*/, const QWidget& /*window*/,
                     QPainter& /*painter*/, const QRect& /*area*/, bool /*active*/) override {}
    void Parse(const QString& /*text*/, const QPixmap& /*firstPicture*/,
               const QPixmap& /*secondPicture*/, SkinConfiguration& /*configuration*/) override {}
};

} // namespace netrove
