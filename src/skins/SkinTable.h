#pragma once

#include "skins/SkinColors.h"
#include "skins/SkinConfiguration.h"
#include "skins/SkinPictures.h"

namespace netrove {

/// The colours, by role, of a built-in skin: 0 no skin, 1 Trek, 2 Serenity, 3 J.I.L.L., 4
/// Metropolis, 5 Bullethead. Any other index gives those of no skin.
[[nodiscard]] const SkinColors& RoleColors(int skinIndex);

/// Sets the name, numbers, colours and pictures of one of the skins 1 to 5; the fonts, and what the
/// skin leaves open, stay as they are. Any other index changes nothing.
void ApplyBuiltIn(int skinIndex, const SkinPictures& pictures, SkinConfiguration& configuration);

} // namespace netrove
