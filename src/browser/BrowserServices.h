#pragma once

#include "platform/Dialogs.h"
#include "platform/NetworkEnumeration.h"
#include "search/ExclusionLists.h"
#include "search/TroubleshootingLog.h"
#include "settings/Settings.h"
#include "skins/ProgramDialog.h"

namespace netrove {

/// What the network browser is given. All of it outlives the dialog.
struct BrowserServices {
    NetworkEnumeration& network;
    Settings& settings; ///< excluding a node adds to ExcNetNodes
    /// Says which nodes are excluded. To be parsed anew before the browser is opened.
    const ExclusionLists& exclusions;
    TroubleshootingLog& log;
    Dialogs& dialogs;
    DialogLook look = {};
};

} // namespace netrove
