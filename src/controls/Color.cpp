#include "controls/Color.h"

#include <QGuiApplication>
#include <QPalette>

#include <cmath>

namespace netrove {

namespace {

constexpr quint32 DesktopColorBit = 0x80000000;

/// The relative luminance of an sRGB colour, 0 to 1 (WCAG 2.1).
double Luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

QColor ToColor(quint32 value) {
    if ((value & DesktopColorBit) == 0)
        return {static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                static_cast<int>(value >> 16 & 0xFF)};
    const QPalette palette = QGuiApplication::palette();
    if (value == ButtonFaceColor)
        return palette.color(QPalette::Button);
    if (value == WindowBackColor)
        return palette.color(QPalette::Base);
    return palette.color(QPalette::Text);
}

quint32 FromColor(const QColor& color) {
    return static_cast<quint32>(color.red()) | static_cast<quint32>(color.green()) << 8 |
           static_cast<quint32>(color.blue()) << 16;
}

double Contrast(const QColor& first, const QColor& second) {
    const double one = Luminance(first) + 0.05;
    const double other = Luminance(second) + 0.05;
    return one > other ? one / other : other / one;
}

QColor ReadableOn(const QColor& background) {
    // On a background of this luminance, black and white stand out equally.
    return Luminance(background) > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}

QColor Legible(const QColor& color, const QColor& background, double contrast) {
    constexpr double Step = 0.05;
    QColor legible = color;
    for (double share = 0; share < 1 && Contrast(legible, background) < contrast; share += Step)
        legible = Mixed(color, ReadableOn(background), share);
    return legible;
}

QColor Mixed(const QColor& first, const QColor& second, double share) {
    const auto channel = [share](int from, int to) { return from + qRound((to - from) * share); };
    return {channel(first.red(), second.red()), channel(first.green(), second.green()),
            channel(first.blue(), second.blue())};
}

} // namespace netrove
