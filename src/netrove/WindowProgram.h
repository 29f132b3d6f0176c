#pragma once

#include "desktop/DesktopDialogs.h"
#include "desktop/DesktopFileTypes.h"
#include "desktop/DesktopShell.h"
#include "desktop/DesktopTray.h"
#include "desktop/SessionEnd.h"
#include "desktop/WindowYield.h"
#include "http/HttpReader.h"
#include "mainwindow/frmNetrove.h"
#include "online/webfiles/WebSite.h"
#include "platform/LinuxSystemInformation.h"
#include "redirector/NetworkReachTest.h"
#include "redirector/OpenNetwork.h"

#include <QStringList>

#include <memory>

namespace netrove {

/// The program with its window: the services of this desktop, and the window that uses them. The
/// application object must be made before it.
class WindowProgram {
public:
    WindowProgram();

    /// Shows the window and loads these results files into it. The application ends when the window
    /// has closed for good.
    void Start(const QStringList& resultsFiles);

private:
    [[nodiscard]] ProgramServices Services();
    [[nodiscard]] std::unique_ptr<CopyQ> NewCopyQ() const;
    void ShowLogons(QWidget& owner, const DialogLook& look, const QString& computer);

    WindowYield yield_;
    const QString folder_;
    const std::shared_ptr<Logons> logons_;
    const OpenedNetwork opened_;
    NetworkReachTest reachTest_;
    DesktopDialogs dialogs_;
    DesktopShell shell_;
    DesktopFileTypes fileTypes_;
    LinuxSystemInformation system_;
    DesktopTray tray_;
    HttpReader http_;
    const WebSite site_;
    frmNetrove window_;
    SessionEnd sessionEnd_;
};

} // namespace netrove
