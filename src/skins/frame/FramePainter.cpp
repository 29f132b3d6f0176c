#include "skins/frame/FramePainter.h"

#include "controls/Color.h"

#include <QApplication>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace netrove {
namespace {

constexpr int IconSize = 16;
constexpr int AfterIcon = 6;
/// Space kept free after the caption, on the piece behind it.
constexpr int AfterCaption = 10;
/// Opacity of the buttons of an inactive window.
constexpr qreal DimmedOpacity = 0.55;

/// The picture that replaces a glyph for which the skin has none.
QStyle::StandardPixmap StandardGlyph(FrameCell glyph) {
    switch (glyph) {
    case FrameCell::Minimize:
        return QStyle::SP_TitleBarMinButton;
    case FrameCell::Maximize:
        return QStyle::SP_TitleBarMaxButton;
    case FrameCell::Restore:
        return QStyle::SP_TitleBarNormalButton;
    case FrameCell::Face:
    case FrameCell::FaceUnderMouse:
    case FrameCell::FacePressed:
    case FrameCell::Close:
        break;
    }
    return QStyle::SP_TitleBarCloseButton;
}

QRectF SourceRect(const QPixmap& piece) {
    return QRectF(piece.rect());
}

} // namespace

QRect FramePainter::IconRect(const FrameMetrics& metrics) {
    return {metrics.iconLeft, (metrics.titleHeight - IconSize) / 2, IconSize, IconSize};
}

QPainterPath FramePainter::Outline(const FrameMetrics& metrics, const QRectF& window) {
    QPainterPath path;
    // Clockwise; `right` and `down` say which corner of the window it is.
    const auto corner = [&path](const QPointF& at, qreal radius, int right, int down, int angle) {
        const QPointF across = at - QPointF(2 * radius * right, 2 * radius * down);
        if (radius > 0)
            path.arcTo(QRectF(at, across).normalized(), angle, -90);
        else
            path.lineTo(at);
    };
    path.moveTo(window.left(), window.top() + metrics.upperRadius);
    corner(window.topLeft(), metrics.upperRadius, -1, -1, 180);
    corner(window.topRight(), metrics.upperRadius, 1, -1, 90);
    corner(window.bottomRight(), metrics.lowerRadius, 1, 1, 0);
    corner(window.bottomLeft(), metrics.lowerRadius, -1, 1, 270);
    path.closeSubpath();
    return path;
}

QRegion FramePainter::Inside(const FrameMetrics& metrics, const QRect& window) {
    QRegion inside(window);
    const auto cutRow = [&](int y, int radius, int row) {
        const double up = radius - row - 0.5;
        const int inset = qRound(radius - std::sqrt(radius * radius - up * up));
        inside -= QRect(window.left(), y, inset, 1);
        inside -= QRect(window.right() + 1 - inset, y, inset, 1);
    };
    for (int row = 0; row < metrics.upperRadius; ++row)
        cutRow(window.top() + row, metrics.upperRadius, row);
    for (int row = 0; row < metrics.lowerRadius; ++row)
        cutRow(window.bottom() - row, metrics.lowerRadius, row);
    return inside;
}

void FramePainter::PaintTitle(const QRect& bar, const QIcon& icon, const QString& caption,
                              int buttonsLeft) {
    const QRect iconRect = IconRect(look_.metrics).translated(bar.topLeft());
    const int left = icon.isNull() ? iconRect.left() : iconRect.right() + 1 + AfterIcon;
    const QFontMetrics metrics(look_.titleFont);
    const int room = std::max(buttonsLeft - look_.metrics.captionGap - left, 0);
    const QString shown = metrics.elidedText(caption, Qt::ElideRight, room);
    const int end = left + std::min(metrics.horizontalAdvance(shown), room);

    PaintPieces(bar, std::min(end + AfterCaption, buttonsLeft), buttonsLeft);
    icon.paint(&painter_, iconRect);
    painter_.setFont(look_.titleFont);
    painter_.setPen(active_ ? look_.colors.activeCaption : look_.colors.inactiveCaption);
    painter_.drawText(QRect(left, bar.top(), room, bar.height()), Qt::AlignVCenter | Qt::AlignLeft,
                      shown);
}

/// Where there isn't room for all pieces, first the right cap loses its left side, up to the
/// buttons; then the divider is left out; then the left cap loses its right side.
void FramePainter::PaintPieces(const QRect& bar, int captionEnd, int buttonsLeft) {
    const TitlePieces& pieces = look_.pictures->Title(active_);
    const FrameMetrics& metrics = look_.metrics;
    const int end = bar.right() + 1;
    const int leftEnd = std::min(bar.left() + metrics.leftCap, end);
    const int tileEnd = std::clamp(captionEnd, leftEnd, end);
    const int dividerEnd =
        tileEnd + metrics.divider <= buttonsLeft ? tileEnd + metrics.divider : tileEnd;
    const int rightStart = std::max(end - metrics.rightCap, dividerEnd);
    const auto part = [&bar](int from, int to) {
        return QRect(from, bar.top(), to - from, bar.height());
    };
    painter_.fillRect(bar, look_.colors.back);
    PaintCut(part(bar.left(), leftEnd), pieces.leftCap, false);
    PaintRepeated(part(leftEnd, tileEnd), pieces.tile);
    PaintCut(part(tileEnd, dividerEnd), pieces.divider, false);
    PaintRepeated(part(dividerEnd, rightStart), pieces.filler);
    PaintCut(part(rightStart, end), pieces.rightCap, true);
}

void FramePainter::PaintRepeated(const QRect& area, const QPixmap& piece) {
    if (piece.isNull())
        return;
    const int width = qRound(piece.deviceIndependentSize().width());
    for (int left = area.left(); left <= area.right(); left += std::max(width, 1))
        PaintCut(QRect(left, area.top(), std::min(width, area.right() + 1 - left), area.height()),
                 piece, false);
}

void FramePainter::PaintCut(const QRect& area, const QPixmap& piece, bool keepRight) {
    if (area.isEmpty() || piece.isNull())
        return;
    QRectF source = SourceRect(piece);
    const qreal width = std::min(area.width() * piece.devicePixelRatio(), source.width());
    if (keepRight)
        source.setLeft(source.right() - width);
    else
        source.setWidth(width);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    painter_.drawPixmap(QRectF(area), piece, source);
}

void FramePainter::PaintButton(const QRect& button, FrameCell face, FrameCell glyph) {
    const FramePictures& pictures = *look_.pictures;
    const QPixmap& facePicture = pictures.Cell(face, active_);
    const QPixmap& glyphPicture = pictures.Cell(glyph, active_);
    const bool dimmed = !active_ && !pictures.HasInactiveCells();
    painter_.save();
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    painter_.setOpacity(dimmed ? DimmedOpacity : 1);
    painter_.drawPixmap(QRectF(button), facePicture, SourceRect(facePicture));
    QRectF glyphRect(0, 0, look_.metrics.glyph, look_.metrics.glyph);
    glyphRect.moveTo(button.topLeft() + QPoint((button.width() - look_.metrics.glyph) / 2,
                                               (button.height() - look_.metrics.glyph) / 2));
    if (glyphPicture.isNull())
        QApplication::style()->standardIcon(StandardGlyph(glyph)).paint(&painter_, button);
    else
        painter_.drawPixmap(glyphRect, glyphPicture, SourceRect(glyphPicture));
    painter_.restore();
}

void FramePainter::PaintBorder(const QRect& window) {
    const FrameMetrics& metrics = look_.metrics;
    const QRect body = window.adjusted(0, metrics.titleHeight, 0, 0);
    const QRect client = body.adjusted(metrics.border, 0, -metrics.border, -metrics.border);
    painter_.save();
    painter_.setClipRegion(QRegion(body).subtracted(client), Qt::IntersectClip);
    painter_.fillRect(body, look_.colors.back);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setBrush(Qt::NoBrush);
    // Lines are a pixel thick, and lie in the middle of pixels.
    if (metrics.border > 1) {
        painter_.setPen(look_.colors.innerLine);
        painter_.drawPath(Outline(metrics, QRectF(window).adjusted(1.5, 1.5, -1.5, -1.5)));
    }
    painter_.setPen(look_.colors.outerLine);
    painter_.drawPath(Outline(metrics, QRectF(window).adjusted(0.5, 0.5, -0.5, -0.5)));
    painter_.restore();
}

} // namespace netrove
