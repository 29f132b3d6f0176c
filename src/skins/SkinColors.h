#pragma once

#include "controls/Color.h"

#include <QtGlobal>

namespace netrove {

/// The colours of a skin that the program gives to its controls by their role: 32 bits, red in the
/// low byte; a value with the top bit set names a colour of the desktop. At
/// first they are those of no skin.
struct SkinColors {
    quint32 SkinBackColor = ButtonFaceColor;   ///< background of the main window and its tabs
    quint32 SkinButtonColor = ButtonFaceColor; ///< background of buttons
    quint32 SkinLineColor = 0;                 ///< lines
    quint32 SkinForeColor = 0;        ///< text of the main window's labels, borders of shapes
    quint32 SkinLinkColor = 0xFF0000; ///< text of links
};

} // namespace netrove
