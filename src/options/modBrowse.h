#pragma once

#include "platform/Dialogs.h"

#include <QString>

namespace netrove {

/// Lets the user choose a folder: one of this computer with `fromDrives`, else one of the network
/// too. The choice begins at the local folder `start`, if there is one. Returns the chosen folder's
/// path, or a text of blanks if the user cancels.
[[nodiscard]] QString BrowseForFolder(const QString& title, bool fromDrives, Dialogs& dialogs,
                                      const QString& start = {});

/// Lets the user choose a computer of the network. Returns "\\" and its name, or an empty text.
[[nodiscard]] QString BrowseForComputer(const QString& title, Dialogs& dialogs);

} // namespace netrove
