#include "mainwindow/HelpMenu.h"

#include "about/frmAbout.h"
#include "online/frmDonate.h"
#include "online/frmUpdate.h"

namespace netrove {

AboutServices HelpMenu::About() {
    return {.shell = services_.shell,
            .webAddress = services_.webAddress,
            .contactAddress = contactAddress_,
            .UpdateMnu = [this] { UpdateMnu_Click(); },
            .look = services_.look};
}

void HelpMenu::mnuCont_Click() {
    services_.look.openHelp();
}

void HelpMenu::mnuTBS_Click() {
    services_.shell.ShellRun(services_.webAddress);
}

void HelpMenu::UpdateMnu_Click() {
    if (services_.http)
        frmUpdate(services_, &window_).exec();
}

void HelpMenu::mnuDonate_Click() {
    if (services_.http)
        frmDonate(services_, &window_).exec();
}

void HelpMenu::mnuAbout1_Click() {
    frmAbout(About(), window_).exec();
}

void HelpMenu::mnuAbout_Click() {
    if (!about_) {
        AboutServices services = About();
        services.look.skin = nullptr;
        about_ = new frmAbout(services, window_);
        about_->setAttribute(Qt::WA_DeleteOnClose);
    }
    about_->show();
    about_->raise();
    about_->activateWindow();
}

} // namespace netrove
