#pragma once

#include "platform/Dialogs.h"
#include "platform/Http.h"
#include "services/ShellServices.h"
#include "skins/ProgramDialog.h"

#include <QDialog>
#include <QPointer>

namespace netrove {

struct AboutServices;
struct OnlineServices;

/// Opens the windows of the help menu, each over the main window.
class HelpMenu {
public:
    struct Services {
        Http* http; ///< without one, the update check and the donation links are never asked for
        Dialogs& dialogs;
        ShellServices& shell;
        QString webAddress;
        QString contactAddress;
        DialogLook look;
    };

    HelpMenu(QWidget& window, Services services)
        : window_(window), services_(std::move(services)) {}

    void mnuCont_Click();
    void mnuTBS_Click();
    void UpdateMnu_Click();
    void mnuDonate_Click();
    void mnuAbout1_Click();

    /// The about box of the tray menu: not modal, and the desktop's look.
    void mnuAbout_Click();

private:
    [[nodiscard]] OnlineServices Online() const;
    [[nodiscard]] AboutServices About();

    QWidget& window_;
    Services services_;
    QPointer<QDialog> about_; ///< the one of the tray menu, while it is open
};

} // namespace netrove
