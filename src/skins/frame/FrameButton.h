#pragma once

#include "skins/frame/FrameLook.h"

#include <QAbstractButton>
#include <QCoreApplication>

namespace netrove {

/// A button in a painted title bar.
class FrameButton : public QAbstractButton {
    Q_DECLARE_TR_FUNCTIONS(FrameButton)

public:
    /// `glyph` is one of the four glyphs.
    FrameButton(QWidget& titleBar, const QString& name, FrameCell glyph);

    /// Changes the glyph, and the names that tell what the button does.
    void SetGlyph(FrameCell glyph);
    void SetLook(std::shared_ptr<const FrameLook> look);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] static QString GlyphName(FrameCell glyph);
    [[nodiscard]] FrameCell Face() const;

    FrameCell glyph_;
    std::shared_ptr<const FrameLook> look_;
};

} // namespace netrove
