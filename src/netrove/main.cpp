#include "downloads/copier/FileCopier.h"
#include "logons/frmLogons.h"
#include "mainwindow/frmNetrove.h"
#include "mainwindow/windowservices/PredefinedIcons.h"
#include "platform/ApplicationFolder.h"
#include "platform/LinuxSystemInformation.h"
#include "platform/desktop/DesktopApplication.h"
#include "platform/desktop/DesktopDialogs.h"
#include "platform/desktop/DesktopFileTypes.h"
#include "platform/desktop/DesktopShell.h"
#include "platform/desktop/DesktopTray.h"
#include "platform/desktop/SessionEnd.h"
#include "platform/desktop/WindowYield.h"
#include "platform/keyring/DesktopKeyring.h"
#include "platform/network/OpenNetwork.h"

namespace {

void ShowLogons(QWidget& owner, const netrove::SkinOwner& skin,
                const std::shared_ptr<netrove::Logons>& logons, netrove::Network& network,
                netrove::Dialogs& dialogs) {
    netrove::frmLogons(
        {.logons = logons,
         .dialogs = dialogs,
         .shareList = [&](const QString& computer) { return network.ShareListRequest(computer); },
         .helper = netrove::SmbPool::DefaultHelper(),
         .skin = &skin},
        &owner)
        .exec();
}

} // namespace

int main(int argc, char** argv) {
    const netrove::DesktopApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("netrove"));
    QApplication::setApplicationVersion(QStringLiteral(NETROVE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("netrove"));
    QApplication::setWindowIcon(netrove::ProgramIcon());
    // A window in the tray is none that the toolkit counts.
    QApplication::setQuitOnLastWindowClosed(false);

    netrove::WindowYield yield;
    const QString folder = netrove::ApplicationFolder();
    const auto logons =
        std::make_shared<netrove::Logons>(std::make_shared<netrove::DesktopKeyring>());
    const netrove::OpenedNetwork opened = netrove::OpenNetwork(folder, logons);
    netrove::DesktopDialogs dialogs;
    netrove::DesktopShell shell(*opened.network);
    netrove::DesktopFileTypes fileTypes;
    netrove::LinuxSystemInformation system;
    netrove::DesktopTray tray;

    netrove::frmNetrove window(
        {.network = *opened.network,
         .files = *opened.network,
         .dialogs = dialogs,
         .shell = shell,
         .fileTypes = fileTypes,
         .systemIcon = [&](int index) { return fileTypes.Icon(index); },
         .system = system,
         .tray = tray,
         .applicationFolder = folder,
         .webAddress = QStringLiteral(NETROVE_WEB_ADDRESS),
         .newCopyQ =
             [&] {
                 return std::make_unique<netrove::FileCopier>(
                     *opened.network,
                     netrove::CopyLimits{.helper = netrove::SmbPool::DefaultHelper(),
                                         .logons = logons});
             },
         .ahead = opened.network.get(),
         .report = &opened.network->Report(),
         .letAbandon =
             [&](QAbstractButton& button, std::function<bool()> isPressed) {
                 yield.SetAbandon(button, std::move(isPressed));
             },
         .showLogons =
             [&](QWidget& owner, const netrove::SkinOwner& skin) {
                 ShowLogons(owner, skin, logons, *opened.network, dialogs);
             }});
    dialogs.SetParent(&window);
    window.Form_Load();
    if (!opened.problems.isEmpty())
        dialogs.Message(netrove::MessageIcon::Exclamation,
                        opened.problems.join(QStringLiteral("\r\n")),
                        QStringLiteral("Network Configuration"));
    QObject::connect(
        &window, &netrove::frmNetrove::Unloaded, &application, [] { QApplication::exit(); },
        Qt::QueuedConnection);
    const netrove::SessionEnd sessionEnd({.isBusy = [&] { return window.IsBusy(); },
                                          .agrees = [&] { return window.Form_QueryUnload(); },
                                          .save = [&] { window.SaveSettings(); },
                                          .end = [&] { window.EndSession(); }});
    return QApplication::exec();
}
