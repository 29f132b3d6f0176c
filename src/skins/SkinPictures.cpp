#include "skins/SkinPictures.h"

#include "runtime/SourceText.h"

#include <QImageReader>
#include <QtMath>

/// Names the resource file, so that the linker keeps it. Q_INIT_RESOURCE must stand outside any
/// namespace.
static void KeepPictures() {
    Q_INIT_RESOURCE(skins);
}

namespace netrove {

namespace {

struct PictureFile {
    const char* name;
    const char* suffix;
};

constexpr std::array<PictureFile, SkinPictures::Count> Files{{
    {"0-serenity-title", ".bmp"},
    {"1-serenity-frame", ".gif"},
    {"2-trek-title", ".bmp"},
    {"3-trek-frame", ".gif"},
    {"4-jill-title", ".bmp"},
    {"5-jill-frame", ".bmp"},
    {"6-metropolis-title", ".bmp"},
    {"7-metropolis-frame", ".bmp"},
    {"8-bullethead-title", ".bmp"},
    {"9-bullethead-frame", ".bmp"},
}};

/// The colour that stands for transparent in a bitmap.
constexpr QRgb TransparentColor = qRgb(255, 0, 255);

QString Path(const PictureFile& file, const char* suffix) {
    return u":/skins/"_s + QLatin1StringView(file.name) + QLatin1StringView(suffix);
}

QImage ReadBitmap(const PictureFile& file) {
    QImage image = QImage(Path(file, file.suffix)).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == TransparentColor)
                image.setPixel(x, y, Qt::transparent);
        }
    }
    return image;
}

/// Null where Qt's plugin for SVG drawings isn't installed.
QImage ReadDrawing(const PictureFile& file, int ratio) {
    QImageReader reader(Path(file, ".svg"), "svg");
    reader.setScaledSize(reader.size() * ratio);
    QImage image = reader.read();
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace

QPixmap SkinPictures::Picture(int entry, qreal devicePixelRatio) const {
    if (entry < 0 || entry >= Count)
        return {};
    KeepPictures();
    const int ratio = qBound(1, qCeil(devicePixelRatio), HighestRatio);
    QPixmap& cached = cache_[static_cast<size_t>(entry)][static_cast<size_t>(ratio - 1)];
    if (cached.isNull()) {
        const PictureFile& file = Files[static_cast<size_t>(entry)];
        const QImage drawing = ratio > 1 ? ReadDrawing(file, ratio) : QImage();
        cached = QPixmap::fromImage(drawing.isNull() ? ReadBitmap(file) : drawing);
    }
    return cached;
}

} // namespace netrove
