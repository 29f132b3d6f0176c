#pragma once

#include "mainwindow/windowservices/IconImages.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/NetworkEnumeration.h"
#include "platform/Shell.h"
#include "platform/SystemInformation.h"

#include <QString>

namespace netrove {

/// What the main window is given of the system. The window tests give it stand-ins.
struct ProgramServices {
    NetworkEnumeration& network;
    FileAccess& files;
    Dialogs& dialogs;
    Shell& shell;
    FileTypes& fileTypes;
    IconImages::SystemIcon systemIcon; ///< the pictures of what fileTypes tells
    SystemInformation& system;
    QString applicationFolder; ///< without a closing separator
    QString webAddress;        ///< of the program's web site
};

} // namespace netrove
