#pragma once

#include "platform/Dialogs.h"

#include <QFont>

namespace netrove {

/// A font and what characters it is for, which QFont doesn't know.
struct CharSetFont {
    QFont font = {};
    qint16 charSet = 1;
};

/// Lets the user choose a font, beginning with this one; both arguments are changed where the
/// user confirms. The size becomes the nearest one of whole pixels. Gives whether the user did.
[[nodiscard]] bool PickFont(CharSetFont& font, quint32& color, Dialogs& dialogs);

} // namespace netrove
