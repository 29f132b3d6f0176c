#pragma once

#include "platform/Dialogs.h"

#include <QFont>

namespace netrove {

/// A font and its character set, which QFont doesn't have.
struct CharSetFont {
    QFont font = {};
    qint16 charSet = 1;
};

/// Lets the user choose a font, starting with `font`. If the user confirms, `font` and `color` are
/// changed, with the font's size rounded to whole pixels. Returns whether the user confirmed.
[[nodiscard]] bool PickFont(CharSetFont& font, quint32& color, Dialogs& dialogs);

} // namespace netrove
