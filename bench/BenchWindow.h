#pragma once

#include "gui/TestDesktop.h"
#include "mainwindow/frmNetrove.h"
#include "redirector/Network.h"

#include <QApplication>

namespace netrove {

/// The real window over a network, shown, on a desktop where nobody has to answer.
class BenchWindow {
public:
    /// `folder` has the window's settings.
    BenchWindow(Network& network, const QString& folder)
        : window_(Services(desktop_.ServicesIn(folder, network), network)) {
        window_.Form_Load();
        QApplication::processEvents();
    }

    [[nodiscard]] frmNetrove& Window() { return window_; }
    [[nodiscard]] RecordedDialogs& Dialogs() { return desktop_.dialogs; }

    template <typename Widget>
    [[nodiscard]] Widget& Find(const char* name) {
        return *window_.findChild<Widget*>(QString::fromLatin1(name));
    }
    [[nodiscard]] ListView& Results() { return Find<ListView>("lvwResults"); }

private:
    static ProgramServices Services(ProgramServices services, Network& network) {
        services.ahead = &network;
        return services;
    }

    TestDesktop desktop_;
    frmNetrove window_;
};

} // namespace netrove
