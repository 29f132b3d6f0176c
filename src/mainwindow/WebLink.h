#pragma once

#include "platform/Dialogs.h"
#include "services/ShellServices.h"

#include <QLabel>

namespace netrove {

/// The link to the web site in the main window.
class WebLink : public QObject {
    Q_OBJECT

public:
    struct Services {
        ShellServices& shell;
        Dialogs& dialogs;
        QString webAddress;
    };

    WebLink(QWidget& window, QLabel& HyperLbl, Services services);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void HyperLbl_MouseDown();

    QWidget& window_;
    QLabel& HyperLbl_;
    Services services_;
};

} // namespace netrove
