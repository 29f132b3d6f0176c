#pragma once

#include "controls/ListView.h"
#include "platform/Dialogs.h"
#include "platform/SystemInformation.h"
#include "settings/Settings.h"
#include "skins/ProgramDialog.h"

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
    QString OSName;          ///< these three are only shown
    QString OSVersion;
    QString CurrentUser;
    DialogLook look = {};
};

} // namespace netrove
