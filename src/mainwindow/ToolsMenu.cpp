#include "mainwindow/ToolsMenu.h"

#include "options/frmOpts.h"

namespace netrove {

void ToolsMenu::mnuViewTrLog_Click() {
    services_.shell.ShellRun(services_.logFile);
}

void ToolsMenu::mnuSilent_Click() {
    if (!services_.report)
        return;
    auto* dialog = controls_.window.findChild<frmSilent*>();
    if (!dialog)
        dialog = new frmSilent(SilentServices(), &controls_.window);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

frmSilent::Services ToolsMenu::SilentServices() {
    frmSilent::Services services{.report = *services_.report,
                                 .test = services_.reachTest,
                                 .isBusy = [this] { return services_.job.IsRunning(); },
                                 .networkFile = services_.networkFile,
                                 .look = services_.look};
    if (services_.showLogons)
        services.logOn = [this](QWidget& owner, const QString& computer) {
            services_.showLogons(owner, services_.look, computer);
        };
    return services;
}

void ToolsMenu::mnuLogon_Click() {
    services_.showLogons(controls_.window, services_.look, QString());
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
             .look = services_.look},
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
