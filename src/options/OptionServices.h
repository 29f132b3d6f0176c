#pragma once

#include "controls/ListView.h"
#include "platform/Dialogs.h"
#include "platform/SystemInformation.h"
#include "settings/Settings.h"
#include "skins/SkinOwner.h"

#include <QString>

#include <functional>

namespace netrove {

/// What the options dialog is given. All of it outlives the dialog.
struct OptionServices {
    Settings& settings;
    Dialogs& dialogs;
    const SystemInformation& system;
    ListView& lvwResults; ///< the lists whose font, colours and grid lines are options
    ListView& lvwDownloads;
    QString downloadsFolder; ///< the default of SaveFolder, with its closing separator
    QString OSName;          ///< these three are shown
    QString OSVersion;
    QString CurrentUser;
    const SkinOwner* skin = nullptr;     ///< null for dialogs without a skin
    std::function<void()> openHelp = {}; ///< what the key F1 does
};

} // namespace netrove
