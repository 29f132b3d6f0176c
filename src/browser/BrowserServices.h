#pragma once

#include "platform/Dialogs.h"
#include "platform/NetworkEnumeration.h"
#include "search/ExclusionLists.h"
#include "search/TroubleshootingLog.h"
#include "settings/Settings.h"
#include "skins/SkinOwner.h"

#include <functional>

namespace netrove {

/// What the network browser is given. All of it outlives the dialog.
struct BrowserServices {
    NetworkEnumeration& network;
    Settings& settings; ///< excluding a node adds to ExcNetNodes
    /// What excluded nodes are told by. Whoever opens the browser has parsed them anew before.
    const ExclusionLists& exclusions;
    TroubleshootingLog& log;
    Dialogs& dialogs;
    std::function<void()> openHelp;  ///< what the key F1 does
    const SkinOwner* skin = nullptr; ///< who tells what the dialog looks like
};

} // namespace netrove
