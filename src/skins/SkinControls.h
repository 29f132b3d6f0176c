#pragma once

#include "skins/NCSizeModifier.h"
#include "skins/SkinColors.h"

#include <QWidget>

namespace netrove {

/// The name of the property of a control that holds one of the words for the walk:
/// NOCOLOR leaves the control as it is, with the desktop's colours where it fills its background;
/// FORE gives a frame the text colour too; LINK and LITE give a label or check box the colour of
/// links; BORDONLY keeps a shape's background.
inline constexpr const char* TagProperty = "Tag";

/// Gives the window and its controls the colours of the skin, each by its type and its Tag. The
/// other colour of each pair follows, so that every text can be read.
///
/// A plain QWidget is a picture box, a QFrame that is a line is a line, a box is a shape, any
/// other a picture box too; these count only with an object name. Labels, check boxes and shapes
/// stay see-through unless they fill their background (autoFillBackground). Lists, trees, combo
/// boxes, menus and whatever else are passed over, and so are other windows that belong to this
/// one.
void SkinControls(QWidget& window, const NCSizeModifier& modifier, int skinIndex,
                  const SkinColors& colors);

} // namespace netrove
