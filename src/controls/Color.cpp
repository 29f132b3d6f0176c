#include "controls/Color.h"

#include <QGuiApplication>
#include <QPalette>

#include <cmath>

namespace netrove {

namespace {

constexpr quint32 DesktopColorBit = 0x80000000;

/// Luminance, 0 to 1, as the eye weighs the channels.
double Luminance(const QColor& color) {
    const auto linear = [](double channel) { return std::pow(channel, 2.2); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

QColor ToColor(quint32 value) {
    if ((value & DesktopColorBit) == 0)
        return {int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF)};
    const QPalette palette = QGuiApplication::palette();
    if (value == ButtonFaceColor)
        return palette.color(QPalette::Button);
    if (value == WindowBackColor)
        return palette.color(QPalette::Base);
    return palette.color(QPalette::Text);
}

quint32 FromColor(const QColor& color) {
    return quint32(color.red()) | quint32(color.green()) << 8 | quint32(color.blue()) << 16;
}

QColor ReadableOn(const QColor& background) {
    // At this luminance black and white stand out equally.
    return Luminance(background) > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}

QColor Mixed(const QColor& first, const QColor& second, double share) {
    const auto channel = [share](int from, int to) { return from + qRound((to - from) * share); };
    return {channel(first.red(), second.red()), channel(first.green(), second.green()),
            channel(first.blue(), second.blue())};
}

} // namespace netrove
