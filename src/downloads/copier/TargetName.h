#pragma once

#include <QString>

namespace netrove {

/// Raises ErrorNumber::PathFileAccessError if the text can't be the name of a copied file. Names
/// come from other computers: one that holds a separator or a control character, stands for a
/// folder, is longer than file systems take (255 bytes) or looks like a partial copy is refused, so
/// that a copy is always a file in the folder that the user has chosen.
void CheckTargetName(const QString& name);

} // namespace netrove
