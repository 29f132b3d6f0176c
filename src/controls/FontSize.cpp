#include "controls/FontSize.h"

#include <algorithm>
#include <cmath>

namespace netrove {
namespace {

constexpr double PointsToPixel = 72.0 / 96.0;

} // namespace

void SetFontSize(QFont& font, double points) {
    font.setPointSizeF(std::max(std::round(points / PointsToPixel), 1.0) * PointsToPixel);
}

double FontSize(const QFont& font) {
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * PointsToPixel;
}

} // namespace netrove
