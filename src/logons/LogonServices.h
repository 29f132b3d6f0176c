#pragma once

#include "platform/Dialogs.h"
#include "redirector/Logons.h"
#include "redirector/RemotePlace.h"
#include "skins/ProgramDialog.h"

#include <QString>

#include <functional>
#include <memory>

namespace netrove {

/// What the dialog of the logons is given.
struct LogonServices {
    std::shared_ptr<Logons> logons;
    Dialogs& dialogs;
    /// Where a logon is tried; null where the computer takes none. Asks nobody.
    std::function<std::shared_ptr<const RemotePlace>(const QString& computer)> placeOf;
    DialogLook look = {};
    /// Whose logon is asked for at once, if any: a computer without "\\\\".
    QString computer = {};
};

} // namespace netrove
