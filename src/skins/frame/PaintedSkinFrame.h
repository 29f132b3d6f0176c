#pragma once

#include "skins/SkinFrame.h"
#include "skins/frame/FrameLook.h"

#include <optional>

namespace netrove {

/// What a skin configuration needs from the painted frames: it paints the sample, and reads skin
/// files.
class PaintedSkinFrame : public SkinFrame {
public:
    /// Paints the title bar, the borders, the menu bar and some text, at their real size.
    void PaintSample(const SkinConfiguration& configuration, const QWidget& window,
                     QPainter& painter, const QRect& area, bool active) override;

    /// Sets the members that the text names, and takes the pictures as TitlePicture and
    /// FramePicture. Raises a RunTimeError for a bad text, and then leaves the configuration as it
    /// was.
    void Parse(const QString& text, const QPixmap& firstPicture, const QPixmap& secondPicture,
               SkinConfiguration& configuration) override;

private:
    std::optional<FrameLook> look_; ///< of the last sample: the next one often has the same
};

} // namespace netrove
