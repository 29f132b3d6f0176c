#include "skins/SkinPalette.h"

#include "controls/Color.h"

#include <QApplication>

namespace netrove {
namespace {

/// The contrast that a text needs to be read with ease, and the least that a faded one keeps.
constexpr double EasyContrast = 4.5;
constexpr double FadedContrast = 3;
/// The contrast that it needs where a style may paint the background lighter or darker.
constexpr double StrongContrast = 7;
/// The step from one mixture of two colours to the next.
constexpr double Step = 0.05;

constexpr QPalette::ColorRole SurfaceRoles[] = {
    QPalette::Window,      QPalette::WindowText, QPalette::Link,
    QPalette::LinkVisited, QPalette::Light,      QPalette::Midlight,
    QPalette::Mid,         QPalette::Dark,       QPalette::Shadow};

/// The colour of a disabled text: half way to the background, or less where that couldn't be read.
QColor Faded(const QColor& text, const QColor& back) {
    constexpr double Half = 0.5;
    for (double share = Half; share > 0; share -= Step) {
        const QColor faded = Mixed(text, back, share);
        if (Contrast(faded, back) >= FadedContrast)
            return faded;
    }
    return text;
}

void SetText(QPalette& palette, QPalette::ColorRole role, const QColor& text, const QColor& back) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, Faded(text, back));
}

} // namespace

void SetSurface(QPalette& palette, const QColor& back, const QColor& text) {
    palette.setColor(QPalette::Window, back);
    SetText(palette, QPalette::WindowText, text, back);
    for (const QPalette::ColorRole link : {QPalette::Link, QPalette::LinkVisited})
        palette.setColor(link, Legible(QApplication::palette().color(link), back));
    palette.setColor(QPalette::Light, Mixed(back, Qt::white, 0.35));
    palette.setColor(QPalette::Midlight, Mixed(back, Qt::white, 0.2));
    palette.setColor(QPalette::Mid, Mixed(back, Qt::black, 0.25));
    palette.setColor(QPalette::Dark, Mixed(back, Qt::black, 0.4));
    palette.setColor(QPalette::Shadow, Mixed(back, Qt::black, 0.7));
}

void SetField(QPalette& palette, const QColor& back, const QColor& text) {
    palette.setColor(QPalette::Base, back);
    SetText(palette, QPalette::Text, text, back);
    palette.setColor(QPalette::PlaceholderText, Faded(text, back));
}

void KeepPlaceholderReadable(QWidget& control) {
    QPalette palette = control.palette();
    const QColor back = palette.color(QPalette::Base);
    const QColor given = palette.color(QPalette::PlaceholderText);
    if (Contrast(Mixed(back, given, given.alphaF()), back) >= FadedContrast)
        return;
    palette.setColor(QPalette::PlaceholderText, Faded(palette.color(QPalette::Text), back));
    control.setPalette(palette);
}

void SetButton(QPalette& palette, const QColor& back) {
    palette.setColor(QPalette::Button, back);
    SetText(palette, QPalette::ButtonText,
            TextOn(back, QApplication::palette().color(QPalette::ButtonText)), back);
}

void SetTabs(QPalette& palette, const QColor& back, const QColor& text) {
    QColor strong = text;
    for (double share = 0; share < 1 && Contrast(strong, back) < StrongContrast; share += Step)
        strong = Mixed(text, ReadableOn(back), share);
    SetSurface(palette, back, strong);
    palette.setColor(QPalette::Button, back);
    palette.setColor(QPalette::ButtonText, strong);
}

void KeepDesktopSurface(QWidget& control) {
    const QPalette desktop = QApplication::palette(&control);
    QPalette palette = control.palette();
    for (const QPalette::ColorRole role : SurfaceRoles) {
        for (const QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            if (!palette.isBrushSet(group, role))
                palette.setBrush(group, role, desktop.brush(group, role));
        }
    }
    control.setPalette(palette);
}

QColor TextOn(const QColor& back, const QColor& desktopText) {
    return Contrast(desktopText, back) >= EasyContrast ? desktopText : ReadableOn(back);
}

} // namespace netrove
