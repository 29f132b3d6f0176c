#pragma once

#include "controls/ListView.h"
#include "mainwindow/ProgramServices.h"
#include "mainwindow/SystemValues.h"
#include "platform/Dialogs.h"
#include "platform/NetworkReport.h"
#include "platform/SystemInformation.h"
#include "searchrun/job/CurrentJob.h"
#include "services/ShellServices.h"
#include "settings/Settings.h"
#include "silent/frmSilent.h"
#include "skins/ProgramDialog.h"
#include "windowservices/WindowControls.h"

namespace netrove {

/// Opens the windows of the tools menu, each over the main window.
class ToolsMenu {
public:
    struct Services {
        Settings& settings;
        Dialogs& dialogs;
        const SystemInformation& system;
        ShellServices& shell;
        const SystemValues& values;
        DialogLook look;
        QString logFile;
        QString downloadsFolder;     ///< the default of the setting
        const NetworkReport* report; ///< without one, mnuSilent_Click() does nothing
        ReachTest* reachTest;        ///< may be null
        LogonDialog showLogons;      ///< without it, mnuLogon_Click() is never called
        const CurrentJob& job;
        QString networkFile; ///< "network.ini" with its path
    };

    ToolsMenu(const WindowControls& controls, Services services)
        : controls_(controls), services_(std::move(services)) {}

    void mnuViewTrLog_Click();
    /// Opens the one window that doesn't block the menu.
    void mnuSilent_Click();
    void mnuLogon_Click();
    void mnuOpts_Click();

    /// To be called when another skin was chosen: a dialog can't change its skin, so an open window
    /// is made anew.
    void FollowSkin();

private:
    [[nodiscard]] frmSilent::Services SilentServices();

    WindowControls controls_;
    Services services_;
};

} // namespace netrove
