#pragma once

#include "skins/frame/FramePictures.h"

#include <QColor>
#include <QFont>

#include <memory>

namespace netrove {

/// The colours of a skin's frame, as the user has adjusted them.
struct FrameColors {
    explicit FrameColors(const SkinConfiguration& configuration);

    QColor activeCaption;
    QColor inactiveCaption;
    QColor back; ///< of the menu bar and the client area
    QColor text; ///< of the menu bar and the client area
    QColor highlightBack;
    QColor highlightText;
    QColor outerLine;
    QColor innerLine;
};

/// All that a frame is painted from, worked out once from a configuration.
struct FrameLook {
    /// Takes over from `before` what still fits.
    explicit FrameLook(const SkinConfiguration& configuration, const FrameLook* before = nullptr);

    FrameMetrics metrics;
    FrameColors colors;
    std::shared_ptr<const FramePictures> pictures;
    QFont titleFont;
    QFont barFont;
};

} // namespace netrove
