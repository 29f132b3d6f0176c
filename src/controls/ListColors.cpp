#include "controls/ListColors.h"

#include "controls/Color.h"

#include <algorithm>
#include <span>

namespace netrove {
namespace {

/// The selection in a list with a background colour of its own.
constexpr QColor SelectionColor(0x2A, 0x6F, 0xB5);

/// The colours that depend on the list's background.
constexpr QPalette::ColorRole BackgroundRoles[] = {QPalette::Base, QPalette::Text,
                                                   QPalette::Highlight, QPalette::HighlightedText};

/// Sets colours that can be read on a background, whatever the desktop's are.
void SetColorsOn(const QColor& background, QPalette& palette) {
    const QColor text = ReadableOn(background);
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Disabled, QPalette::Text, Mixed(background, text, 0.5));
    palette.setColor(QPalette::Highlight, Mixed(background, text, 0.25));
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Active, QPalette::Highlight, SelectionColor);
    palette.setColor(QPalette::Active, QPalette::HighlightedText, ReadableOn(SelectionColor));
}

/// The colours of the palette that were set on the control itself, except for some roles.
QPalette OwnColors(const QPalette& palette, std::span<const QPalette::ColorRole> without) {
    QPalette own;
    for (int number = 0; number < QPalette::NColorRoles; ++number) {
        const auto role = static_cast<QPalette::ColorRole>(number);
        if (std::find(without.begin(), without.end(), role) != without.end())
            continue;
        for (const QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            if (palette.isBrushSet(group, role))
                own.setBrush(group, role, palette.brush(group, role));
        }
    }
    return own;
}

} // namespace

QPalette WithListColors(const QPalette& palette, const QColor& background) {
    QPalette colors = OwnColors(palette, BackgroundRoles);
    if (background.isValid())
        SetColorsOn(background, colors);
    return colors;
}

} // namespace netrove
