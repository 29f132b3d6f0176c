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

/// Shows a dialog that belongs to `owner` and looks like the others. With
/// a computer (without "\\\\") its logon is asked for at once.
using LogonDialog =
    std::function<void(QWidget& owner, const DialogLook& look, const QString& computer)>;

/// What the main window is given of the system. The window tests give it stand-ins.
struct ProgramServices {
    NetworkEnumeration& network;
    FileAccess& files;
    Dialogs& dialogs;
    Shell& shell;
    FileTypes& fileTypes;
    IconImages::SystemIcon systemIcon; ///< the pictures of what fileTypes tells
    SystemInformation& system;
    Tray& tray;
    QString applicationFolder;   ///< without a closing separator
    QString webAddress;          ///< of the program's web site
    QString contactAddress = {}; ///< for letters about the program
    /// Reads files of the web site; without one, nobody asks for newer versions.
    Http* http = nullptr;
    /// Makes what copies the downloads; without one, each download fails at its start.
    std::function<std::unique_ptr<CopyQ>()> newCopyQ = {};
    /// Who fetches what a search will ask for; null where nobody does.
    ReadAhead* ahead = nullptr;
    /// What has become of the network's computers; null where nobody keeps it.
    NetworkReport* report = nullptr;
    /// Lets a button give up waits for the network: it stays alive during these, and they end when
    /// the function says that it has been pressed.
    std::function<void(QAbstractButton&, std::function<bool()>)> letAbandon = {};
    /// Asks those again that didn't answer; null where nobody does.
    ReachTest* reachTest = nullptr;
    /// Shows the dialog of the logons; without it there is none.
    LogonDialog showLogons = {};
};

} // namespace netrove
