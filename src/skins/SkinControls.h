#pragma once

#include "skins/NCSizeModifier.h"
#include "skins/SkinColors.h"

#include <QWidget>

namespace netrove {

/// The name of the property that tells SkinControls() how to treat a control, by one of these
/// words: NOCOLOR leaves the control as it is, with the desktop's colours where it fills its
/// background; FORE gives a frame the text colour too; LINK and LITE give a label or check box the
/// colour of links; BORDONLY keeps a shape's background.
inline constexpr const char* TagProperty = "Tag";

/// Gives the window and its controls the colours of the skin, each by its type and its Tag. Each
/// background comes with a text colour that fits it, so that every text can be read.
///
/// A plain QWidget counts as a picture box. So does a QFrame, unless its frame shape is a line,
/// which makes it a line, or a box, which makes it a shape. Both count only with an object name.
/// Labels, check boxes and shapes stay see-through unless they fill their background
/// (autoFillBackground). Lists, trees, combo boxes, menus and all others are passed over, and so
/// are other windows that belong to this one.
void SkinControls(QWidget& window, const NCSizeModifier& modifier, int skinIndex,
                  const SkinColors& colors);

} // namespace netrove
