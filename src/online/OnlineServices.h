#pragma once

#include "online/webfiles/Version.h"
#include "platform/Dialogs.h"
#include "platform/Http.h"
#include "services/ShellServices.h"
#include "skins/SkinOwner.h"

#include <QAbstractButton>
#include <QDialog>

#include <functional>

namespace netrove {

/// What the dialogs that read from the web site are given. All of it outlives them.
struct OnlineServices {
    Http& http;
    Dialogs& dialogs;
    ShellServices& shell;
    QString webAddress;                  ///< of the site, which has the files too
    const SkinOwner* skin = nullptr;     ///< null where there are no skins
    std::function<void()> openHelp = {}; ///< what the key F1 does
    Version version = Version::Own();    ///< what a newer one is newer than

    /// The text of a file of the site, without blanks at its ends. The dialog can be closed while
    /// it waits for it, with its button `cancel` too; what else its user does meanwhile is dropped.
    /// Raises a RunTimeError where the file can't be read or the dialog has been closed.
    [[nodiscard]] QString ReadFor(QDialog& dialog, QAbstractButton& cancel,
                                  QLatin1String path) const;
};

} // namespace netrove
