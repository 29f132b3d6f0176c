#include "downloads/copier/FileCopier.h"
#include "logons/frmLogons.h"
#include "mainwindow/frmNetrove.h"
#include "mainwindow/windowservices/PredefinedIcons.h"
#include "netrove/StartArguments.h"
#include "online/webfiles/WebSite.h"
#include "platform/ApplicationFolder.h"
#include "platform/LinuxSystemInformation.h"
#include "platform/Utf8Locale.h"
#include "platform/desktop/DesktopApplication.h"
#include "platform/desktop/DesktopDialogs.h"
#include "platform/desktop/DesktopFileTypes.h"
#include "platform/desktop/DesktopShell.h"
#include "platform/desktop/WindowYield.h"
#include "platform/http/HttpReader.h"
#include "platform/keyring/DesktopKeyring.h"
#include "platform/network/OpenNetwork.h"
#include "translations/Translation.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int WrongUse = 2;

void Print(const QString& text, std::FILE* stream) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

/// Known before there is an application with windows, which needs a display.
bool AsksForText(int argc, char** argv) {
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return !netrove::StartArguments(arguments).Text().isEmpty();
}

void PrintText(int argc, char** argv) {
    const QStringList languages = netrove::UserLanguages(); // the next line may set another locale
    netrove::UseUtf8Locale();
    const QCoreApplication application(argc, argv);
    const netrove::Translation translation(languages);
    Print(netrove::StartArguments(application.arguments().mid(1)).Text(), stdout);
}

void ShowLogons(QWidget& owner, const std::shared_ptr<netrove::Logons>& logons,
                netrove::Network& network, netrove::Dialogs& dialogs) {
    netrove::frmLogons(
        {.logons = logons,
         .dialogs = dialogs,
         .shareList = [&](const QString& computer) { return network.ShareListRequest(computer); },
         .helper = netrove::SmbPool::DefaultHelper()},
        &owner)
        .exec();
}

} // namespace

int main(int argc, char** argv) {
    if (AsksForText(argc, argv)) {
        PrintText(argc, argv);
        return EXIT_SUCCESS;
    }
    const netrove::DesktopApplication application(argc, argv);
    const netrove::Translation translation;
    const netrove::StartArguments start(QApplication::arguments().mid(1));
    if (!start.Problem().isEmpty()) {
        Print(start.Problem(), stderr);
        return WrongUse;
    }
    QApplication::setApplicationName(QStringLiteral("netrove"));
    QApplication::setApplicationVersion(QStringLiteral(NETROVE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("netrove"));
    QApplication::setWindowIcon(netrove::ProgramIcon());

    netrove::WindowYield yield;
    const QString folder = netrove::ApplicationFolder();
    const auto logons =
        std::make_shared<netrove::Logons>(std::make_shared<netrove::DesktopKeyring>());
    const netrove::OpenedNetwork opened = netrove::OpenNetwork(folder, logons);
    netrove::DesktopDialogs dialogs;
    netrove::DesktopShell shell(*opened.network);
    netrove::DesktopFileTypes fileTypes;
    netrove::LinuxSystemInformation system;
    netrove::HttpReader http;
    const auto site = netrove::WebSite::Read(
        netrove::ProfileFile(netrove::IniFileName(folder)),
        {QStringLiteral(NETROVE_WEB_ADDRESS), QStringLiteral(NETROVE_CONTACT_ADDRESS)});

    netrove::frmNetrove window(
        {.network = *opened.network,
         .files = *opened.network,
         .dialogs = dialogs,
         .shell = shell,
         .fileTypes = fileTypes,
         .systemIcon = [&](int index) { return fileTypes.Icon(index); },
         .system = system,
         .applicationFolder = folder,
         .webAddress = site.address,
         .contactAddress = site.contact,
         .http = &http,
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
             [&](QWidget& owner) { ShowLogons(owner, logons, *opened.network, dialogs); }});
    dialogs.SetParent(&window);
    window.Form_Load();
    if (!opened.problems.isEmpty())
        dialogs.Message(netrove::MessageIcon::Exclamation,
                        opened.problems.join(QStringLiteral("\r\n")),
                        QApplication::translate("main", "Network Configuration"));
    window.OpenResultsFiles(start.Files());
    return QApplication::exec();
}
