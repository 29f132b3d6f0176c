#pragma once

#include "platform/Dialogs.h"
#include "redirector/Logons.h"
#include "redirector/RemotePlace.h"
#include "skins/ProgramDialog.h"

#include <QString>

#include <functional>
#include <memory>

namespace netrove {

/// What the logons dialog is given.
struct LogonServices {
    std::shared_ptr<Logons> logons;
    Dialogs& dialogs;
    /// The place where a computer's logon is tried; null if the computer takes no logons. Doesn't
    /// ask the network.
    std::function<std::shared_ptr<const RemotePlace>(const QString& computer)> placeOf;
    DialogLook look = {};
    /// The computer, without "\\\\", whose logon is asked for at once, if any.
    QString computer = {};
};

} // namespace netrove
