#pragma once

#include "downloads/copier/CopyQ.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Http.h"
#include "platform/NetworkEnumeration.h"
#include "platform/NetworkReport.h"
#include "platform/ReachTest.h"
#include "platform/ReadAhead.h"
#include "platform/Shell.h"
#include "platform/SystemInformation.h"
#include "platform/Tray.h"
#include "skins/ProgramDialog.h"
#include "windowservices/IconImages.h"

#include <QAbstractButton>
#include <QString>

#include <functional>
#include <memory>

namespace netrove {

/// Shows a dialog that belongs to `owner` and looks like the others. Given a computer (without
/// "\\\\"), it asks for that computer's logon at once.
using LogonDialog =
    std::function<void(QWidget& owner, const DialogLook& look, const QString& computer)>;

/// The services that the main window is given. The window tests pass stand-ins.
struct ProgramServices {
    NetworkEnumeration& network;
    FileAccess& files;
    Dialogs& dialogs;
    Shell& shell;
    FileTypes& fileTypes;
    IconImages::SystemIcon systemIcon; ///< the pictures for what fileTypes returns
    SystemInformation& system;
    Tray& tray;
    QString applicationFolder;   ///< without a closing separator
    QString webAddress;          ///< of the program's web site
    QString contactAddress = {}; ///< for letters about the program
    /// Reads files of the web site; null where the program can't ask for newer versions.
    Http* http = nullptr;
    /// Makes the object that copies the downloads; without it, each download fails at its start.
    std::function<std::unique_ptr<CopyQ>()> newCopyQ = {};
    /// Fetches in advance what a search will ask for; may be null.
    ReadAhead* ahead = nullptr;
    /// Collects what a search hasn't seen of the network; null where nothing is collected.
    NetworkReport* report = nullptr;
    /// Makes a button able to abandon waits for the network: it keeps working during them, and they
    /// end when the function says that it has been pressed.
    std::function<void(QAbstractButton&, std::function<bool()>)> letAbandon = {};
    /// Asks the computers that didn't answer once more; may be null.
    ReachTest* reachTest = nullptr;
    /// Shows the dialog of the logons; empty where there is no such dialog.
    LogonDialog showLogons = {};
};

} // namespace netrove
