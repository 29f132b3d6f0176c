#pragma once

#include "platform/Dialogs.h"
#include "redirector/Logons.h"
#include "redirector/SmbLimits.h"
#include "skins/SkinOwner.h"
#include "smb/SmbMessages.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace netrove {

/// What the dialog of the logons is given.
struct LogonServices {
    std::shared_ptr<Logons> logons;
    Dialogs& dialogs;
    /// What is asked of a computer for its shares; nothing where it isn't reached over SMB. Asks
    /// nobody.
    std::function<std::optional<SmbRequest>(const QString& computer)> shareList;
    QString helper; ///< the program that speaks SMB
    SmbLimits limits = {};
    const SkinOwner* skin = nullptr;     ///< who tells what the dialogs look like
    std::function<void()> openHelp = {}; ///< what the key F1 does
    /// Whose logon is asked for at once, if any: a computer without "\\\\".
    QString computer = {};
};

} // namespace netrove
