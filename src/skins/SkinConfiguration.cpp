#include "skins/SkinConfiguration.h"

#include "skins/SkinFrame.h"

namespace netrove {

void SkinConfiguration::DrawSample(const QWidget& window, QPainter& painter, int x, int y, int cx,
                                   int cy, bool active) const {
    frame_->PaintSample(*this, window, painter, QRect(x, y, cx, cy), active);
}

void SkinConfiguration::LoadXML(const QString& text, const QPixmap& firstPicture,
                                const QPixmap& secondPicture) {
    frame_->Parse(text, firstPicture, secondPicture, *this);
}

} // namespace netrove
