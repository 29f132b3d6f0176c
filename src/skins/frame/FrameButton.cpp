#include "skins/frame/FrameButton.h"

#include "skins/frame/FramePainter.h"

namespace netrove {

FrameButton::FrameButton(QWidget& titleBar, const QString& name, FrameCell glyph)
    : QAbstractButton(&titleBar), glyph_(glyph) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::ArrowCursor);
    SetGlyph(glyph);
}

QString FrameButton::GlyphName(FrameCell glyph) {
    switch (glyph) {
    case FrameCell::Minimize:
        return tr("Minimize");
    case FrameCell::Maximize:
        return tr("Maximize");
    case FrameCell::Restore:
        return tr("Restore");
    case FrameCell::Close:
        return tr("Close");
    case FrameCell::Face:
    case FrameCell::FaceUnderMouse:
    case FrameCell::FacePressed:
        break;
    }
    return {};
}

void FrameButton::SetGlyph(FrameCell glyph) {
    glyph_ = glyph;
    setAccessibleName(GlyphName(glyph));
    setToolTip(GlyphName(glyph));
    update();
}

void FrameButton::SetLook(std::shared_ptr<const FrameLook> look) {
    look_ = std::move(look);
    update();
}

FrameCell FrameButton::Face() const {
    if (isDown())
        return FrameCell::FacePressed;
    return underMouse() ? FrameCell::FaceUnderMouse : FrameCell::Face;
}

void FrameButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    FramePainter(*look_, painter, isActiveWindow()).PaintButton(rect(), Face(), glyph_);
}

} // namespace netrove
