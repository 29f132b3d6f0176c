#pragma once

#include "platform/Dialogs.h"
#include "services/ShellServices.h"

#include <QLabel>

namespace netrove {

/// The link to the web site in the main window.
class WebLink : public QObject {
    Q_OBJECT

public:
    WebLink(QLabel& HyperLbl, ShellServices& shell, Dialogs& dialogs, QString webAddress);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void HyperLbl_MouseDown();

    QLabel& HyperLbl_;
    ShellServices& shell_;
    Dialogs& dialogs_;
    QString webAddress_;
};

} // namespace netrove
