#pragma once

#include "online/OnlineDialog.h"

#include <QDialog>
#include <QPointer>

namespace netrove {

struct AboutServices;

/// Opens the windows of the help menu, each over the main window.
class HelpMenu {
public:
    HelpMenu(QWidget& window, OnlineServices services, QString contactAddress)
        : window_(window)
        , services_(std::move(services))
        , contactAddress_(std::move(contactAddress)) {}

    void mnuCont_Click();
    void mnuTBS_Click();
    void UpdateMnu_Click();
    void mnuDonate_Click();
    void mnuAbout1_Click();

    /// The about box of the tray menu: not modal, and with the desktop's look.
    void mnuAbout_Click();

private:
    [[nodiscard]] AboutServices About();

    QWidget& window_;
    OnlineServices services_;
    QString contactAddress_;  ///< for letters
    QPointer<QDialog> about_; ///< the tray menu's, while it is open
};

} // namespace netrove
