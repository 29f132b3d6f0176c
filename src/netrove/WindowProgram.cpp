#include "netrove/WindowProgram.h"

#include "browser/ComputerChooser.h"
#include "desktop/keyring/DesktopKeyring.h"
#include "downloads/copier/FileCopier.h"
#include "logons/frmLogons.h"
#include "platform/ApplicationFolder.h"
#include "runtime/SourceText.h"
#include "storage/SettingsFile.h"

namespace netrove {

WindowProgram::WindowProgram()
    : folder_(ApplicationFolder())
    , logons_(std::make_shared<Logons>(std::make_shared<DesktopKeyring>()))
    , opened_(OpenNetwork(folder_, logons_))
    , reachTest_(*opened_.network)
    , shell_(*opened_.network)
    , site_(WebSite::Read(ProfileFile(IniFileName(folder_)),
                          {Text(NETROVE_WEB_ADDRESS), Text(NETROVE_CONTACT_ADDRESS)}))
    , window_(Services())
    , sessionEnd_({.isBusy = [this] { return window_.IsBusy(); },
                   .refuse = [this] { static_cast<void>(window_.Form_QueryUnload()); },
                   .save = [this] { window_.SaveSettings(); },
                   .end = [this] { window_.EndSession(); }}) {
    dialogs_.SetComputerChooser([this](const QString& title, QWidget* parent) {
        return ComputerChooser::Choose(*opened_.network, title, parent);
    });
    dialogs_.SetParent(&window_);
    QObject::connect(
        &window_, &frmNetrove::Unloaded, qApp, [] { QApplication::exit(); }, Qt::QueuedConnection);
}

ProgramServices WindowProgram::Services() {
    return {
        .network = *opened_.network,
        .files = *opened_.network,
        .dialogs = dialogs_,
        .shell = shell_,
        .fileTypes = fileTypes_,
        .systemIcon = [this](int index) { return fileTypes_.Icon(index); },
        .system = system_,
        .tray = tray_,
        .applicationFolder = folder_,
        .webAddress = site_.address,
        .contactAddress = site_.contact,
        .http = &http_,
        .newCopyQ = [this] { return NewCopyQ(); },
        .ahead = opened_.network.get(),
        .report = &opened_.network->Report(),
        .letAbandon =
            [this](QAbstractButton& button, std::function<bool()> isPressed) {
                yield_.SetAbandon(button, std::move(isPressed));
            },
        .reachTest = &reachTest_,
        .showLogons = [this](QWidget& owner, const DialogLook& look,
                             const QString& computer) { ShowLogons(owner, look, computer); },
    };
}

std::unique_ptr<CopyQ> WindowProgram::NewCopyQ() const {
    return std::make_unique<FileCopier>(*opened_.network);
}

void WindowProgram::ShowLogons(QWidget& owner, const DialogLook& look, const QString& forComputer) {
    frmLogons({.logons = logons_,
               .dialogs = dialogs_,
               .placeOf = [this](const QString& computer) -> std::shared_ptr<const RemotePlace> {
                   const auto path = UncPath::Parse("\\\\"_L1 + computer);
                   return path ? opened_.network->RemotePlaceOf(*path) : nullptr;
               },
               .look = look,
               .computer = forComputer},
              &owner)
        .exec();
}

void WindowProgram::Start(const QStringList& resultsFiles) {
    window_.Form_Load();
    if (!opened_.problems.isEmpty())
        dialogs_.Message(MessageIcon::Exclamation, opened_.problems.join(u"\r\n"_s),
                         QCoreApplication::translate("main", "Network Configuration"));
    window_.OpenResultsFiles(resultsFiles);
}

} // namespace netrove
