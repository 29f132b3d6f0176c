#pragma once

#include "skins/NCSizeModifier.h"
#include "skins/SkinColors.h"

#include <QWidget>

namespace netrove {

/// The name of the property of a control that holds one of the words for the walk:
/// NOCOLOR leaves the control as it is; FORE gives a frame the text colour too; LINK and LITE
/// give a label or check box the colour of links; BORDONLY keeps a shape's background.
inline constexpr const char* TagProperty = "Tag";

/// Gives the window and its controls (the widgets with an object name) the colours of the skin,
/// each by its type and its Tag. Lists, trees, combo boxes and menus are passed over.
void SkinControls(QWidget& window, const NCSizeModifier& modifier, int skinIndex,
                  const SkinColors& colors);

} // namespace netrove
