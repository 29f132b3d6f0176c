#pragma once

#include <QHash>
#include <QImage>

namespace netrove {

/// The colours of the pixels in this part of a picture, and how many there are of each.
inline QHash<QRgb, int> ColorsOf(const QImage& picture, const QRect& part) {
    QHash<QRgb, int> counts;
    const QRect inside = part & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    return counts;
}

} // namespace netrove
