#include "skins/frame/FramePictures.h"

#include "skins/SkinConfiguration.h"

#include <algorithm>

namespace netrove {
namespace {

constexpr QRgb TransparentColor = qRgb(255, 0, 255);

/// The picture as an image with alpha: in a picture without, the transparent colour becomes
/// transparent.
QImage WithAlpha(const QPixmap& picture) {
    const bool hasAlpha = picture.hasAlphaChannel();
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    if (hasAlpha)
        return image;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::replace(line, line + image.width(), TransparentColor, qRgba(0, 0, 0, 0));
    }
    return image;
}

/// A rectangle of the picture, in its logical pixels.
QPixmap Cut(const QImage& picture, const QRectF& part) {
    const qreal ratio = picture.devicePixelRatio();
    const QRect pixels = QRectF(part.topLeft() * ratio, part.size() * ratio).toRect();
    return pixels.isEmpty() ? QPixmap() : QPixmap::fromImage(picture.copy(pixels));
}

} // namespace

FramePictures::Source::Source(const SkinConfiguration& configuration,
                              const FrameMetrics& frameMetrics)
    : titlePicture(configuration.TitlePicture.cacheKey())
    , framePicture(configuration.FramePicture.cacheKey())
    , cellRows(configuration.FrameFlag1 != 0 ? 2 : 1)
    , metrics(frameMetrics)
    , transform(configuration) {}

FramePictures::FramePictures(const SkinConfiguration& configuration, const FrameMetrics& metrics)
    : source_(configuration, metrics) {
    const SkinTransform& transform = source_.transform;
    const QImage title = transform.Apply(configuration.TitlePicture.toImage());
    activeTitle_ = CutTitle(title, 0, metrics);
    inactiveTitle_ = CutTitle(title, 1, metrics);
    const QImage cells = transform.Apply(WithAlpha(configuration.FramePicture));
    activeCells_ = CutCells(cells, 0, source_.cellRows);
    inactiveCells_ = CutCells(cells, source_.cellRows - 1, source_.cellRows);
}

bool FramePictures::AreOf(const SkinConfiguration& configuration,
                          const FrameMetrics& metrics) const {
    return source_ == Source(configuration, metrics);
}

const QPixmap& FramePictures::Cell(FrameCell cell, bool active) const {
    return (active ? activeCells_ : inactiveCells_)[static_cast<std::size_t>(cell)];
}

TitlePieces FramePictures::CutTitle(const QImage& picture, int row, const FrameMetrics& metrics) {
    const qreal height = picture.deviceIndependentSize().height() / 2;
    qreal left = 0;
    const auto next = [&](int width) {
        const QRectF part(left, row * height, width, height);
        left += width;
        return Cut(picture, part);
    };
    TitlePieces pieces;
    pieces.leftCap = next(metrics.leftCap);
    pieces.tile = next(metrics.tile);
    pieces.divider = next(metrics.divider);
    pieces.filler = next(metrics.filler);
    pieces.rightCap = next(metrics.rightCap);
    return pieces;
}

FramePictures::Cells FramePictures::CutCells(const QImage& picture, int row, int rows) {
    const QSizeF size = picture.deviceIndependentSize();
    const qreal width = size.width() / CellCount;
    const qreal height = size.height() / rows;
    Cells cells;
    for (std::size_t cell = 0; cell < CellCount; ++cell)
        cells[cell] =
            Cut(picture, QRectF(static_cast<qreal>(cell) * width, row * height, width, height));
    return cells;
}

} // namespace netrove
