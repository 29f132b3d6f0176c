#pragma once

#include "skins/frame/FrameLook.h"

#include <QAbstractButton>

namespace netrove {

/// A button in a painted title bar.
class FrameButton : public QAbstractButton {
public:
    /// `glyph` is one of the four glyphs.
    FrameButton(QWidget& titleBar, FrameCell glyph);

    /// Changes the glyph, and the names that tell what the button does.
    void SetGlyph(FrameCell glyph);
    void SetLook(std::shared_ptr<const FrameLook> look);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] FrameCell Face() const;

    FrameCell glyph_;
    std::shared_ptr<const FrameLook> look_;
};

} // namespace netrove
