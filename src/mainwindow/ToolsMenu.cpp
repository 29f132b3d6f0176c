#include "mainwindow/ToolsMenu.h"

#include "options/frmOpts.h"
#include "silent/frmSilent.h"

namespace netrove {

void ToolsMenu::mnuViewTrLog_Click() {
    services_.shell.ShellRun(services_.logFile);
}

void ToolsMenu::mnuSilent_Click() {
    auto* dialog = controls_.window.findChild<frmSilent*>();
    if (!dialog)
        dialog = new frmSilent(
            {.report = *services_.report, .skin = &services_.skin, .openHelp = services_.openHelp},
            &controls_.window);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void ToolsMenu::mnuLogon_Click() {
    services_.showLogons(controls_.window, services_.skin, services_.openHelp);
}

void ToolsMenu::mnuOpts_Click() {
    frmOpts({.settings = services_.settings,
             .dialogs = services_.dialogs,
             .system = services_.system,
             .lvwResults = controls_.lvwResults,
             .lvwDownloads = controls_.lvwDownloads,
             .downloadsFolder = services_.downloadsFolder,
             .OSName = services_.values.OSName,
             .OSVersion = services_.values.OSVersion,
             .CurrentUser = services_.values.CurrentUser,
             .skin = &services_.skin,
             .openHelp = services_.openHelp},
            &controls_.window)
        .exec();
}

void ToolsMenu::FollowSkin() {
    const auto* open = controls_.window.findChild<frmSilent*>();
    if (!open)
        return;
    const QPoint place = open->pos();
    delete open;
    mnuSilent_Click();
    controls_.window.findChild<frmSilent*>()->move(place);
}

} // namespace netrove
