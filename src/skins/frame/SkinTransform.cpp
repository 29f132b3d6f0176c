#include "skins/frame/SkinTransform.h"

#include "skins/SkinConfiguration.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace netrove {
namespace {

constexpr int MaxChannel = 255;
constexpr QRgb AlphaMask = 0xFF000000;

float InRange(float value, float low, float high) {
    return std::isnan(value) ? 0 : std::clamp(value, low, high);
}

int BrightestAndDarkest(QRgb color) {
    const auto [darkest, brightest] = std::minmax({qRed(color), qGreen(color), qBlue(color)});
    return darkest + brightest;
}

int Channel(double share) {
    return std::clamp(static_cast<int>(std::lround(share * MaxChannel)), 0, MaxChannel);
}

int AdjustedChannel(int channel, float percent) {
    const double target = percent < 0 ? 0 : MaxChannel;
    return static_cast<int>(std::lround(channel + (target - channel) * std::abs(percent)));
}

} // namespace

SkinTransform::SkinTransform(const SkinConfiguration& configuration) {
    // What is switched off is left out, so that it doesn't count where two transforms are compared.
    if (configuration.Colorize) {
        colorize_ = true;
        hue_ = InRange(configuration.Hue, -1, 5);
        saturation_ = InRange(configuration.Saturation, 0, 1);
    }
    if (configuration.AdjustRGB) {
        adjust_ = true;
        red_ = InRange(configuration.PercentRed, -1, 1);
        green_ = InRange(configuration.PercentGreen, -1, 1);
        blue_ = InRange(configuration.PercentBlue, -1, 1);
    }
}

QColor SkinTransform::Apply(const QColor& color) const {
    QRgb rgb = color.rgb();
    if (colorize_)
        rgb = Colorized(BrightestAndDarkest(rgb));
    QColor result(Adjusted(rgb));
    result.setAlpha(color.alpha());
    return result;
}

QImage SkinTransform::Apply(const QImage& picture) const {
    QImage result = picture.convertToFormat(QImage::Format_ARGB32);
    if (colorize_)
        ApplyByLightness(result);
    else if (adjust_)
        ApplyByChannel(result);
    return result;
}

/// The colour with our hue and saturation whose brightest and darkest channels add up to this:
/// twice its lightness. The hue counts sectors of 60 degrees; -1 and 5 are the same.
QRgb SkinTransform::Colorized(int brightestAndDarkest) const {
    const double lightness = brightestAndDarkest / (2.0 * MaxChannel);
    const double chroma = (1 - std::abs(2 * lightness - 1)) * saturation_;
    const double darkest = lightness - chroma / 2;
    const double hue = hue_ < 0 ? hue_ + 6.0 : hue_;
    // Over the six sectors each channel runs as a trapezium, two sectors away from the next
    // channel's.
    const auto channel = [=](double peak) {
        const double distance = std::abs(std::remainder(hue - peak, 6.0));
        return Channel(darkest + chroma * std::clamp(2 - distance, 0.0, 1.0));
    };
    return qRgb(channel(0), channel(2), channel(4));
}

QRgb SkinTransform::Adjusted(QRgb color) const {
    return qRgb(AdjustedChannel(qRed(color), red_), AdjustedChannel(qGreen(color), green_),
                AdjustedChannel(qBlue(color), blue_));
}

/// Colourising looks only at the lightness, so that one table serves for both steps.
void SkinTransform::ApplyByLightness(QImage& picture) const {
    std::array<QRgb, 2 * MaxChannel + 1> table;
    for (int sum = 0; sum <= 2 * MaxChannel; ++sum)
        table[static_cast<std::size_t>(sum)] = Adjusted(Colorized(sum)) & ~AlphaMask;
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (QRgb& pixel : std::span(line, static_cast<std::size_t>(picture.width())))
            pixel =
                (pixel & AlphaMask) | table[static_cast<std::size_t>(BrightestAndDarkest(pixel))];
    }
}

void SkinTransform::ApplyByChannel(QImage& picture) const {
    std::array<QRgb, MaxChannel + 1> red;
    std::array<QRgb, MaxChannel + 1> green;
    std::array<QRgb, MaxChannel + 1> blue;
    for (int channel = 0; channel <= MaxChannel; ++channel) {
        const QRgb adjusted = Adjusted(qRgb(channel, channel, channel));
        const auto index = static_cast<std::size_t>(channel);
        red[index] = adjusted & 0xFF0000;
        green[index] = adjusted & 0x00FF00;
        blue[index] = adjusted & 0x0000FF;
    }
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (QRgb& pixel : std::span(line, static_cast<std::size_t>(picture.width())))
            pixel = (pixel & AlphaMask) | red[pixel >> 16 & 0xFF] | green[pixel >> 8 & 0xFF] |
                    blue[pixel & 0xFF];
    }
}

} // namespace netrove
