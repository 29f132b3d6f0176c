#include "mainwindow/frmNetrove.h"

#include "browser/frmNWDialog.h"
#include "controls/Twips.h"
#include "mainwindow/ControlConnections.h"
#include "mainwindow/MenuConnections.h"
#include "mainwindow/NoYields.h"
#include "platform/ApplicationFolder.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "skins/frame/PaintedFrame.h"
#include "windowservices/WindowGeometry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>

#include <chrono>

namespace netrove {
namespace {

/// How often the end of the session checks whether the running job has ended.
constexpr std::chrono::milliseconds EndInterval{50};

QWidget* InnerWidget(QMainWindow& window) {
    auto* inner = new QWidget(&window);
    window.setCentralWidget(inner);
    return inner;
}

} // namespace

frmNetrove::frmNetrove(const ProgramServices& services)
    : services_(services)
    , inner_(InnerWidget(*this))
    , controls_(*inner_, services.webAddress)
    , menu_(new MainMenu(*menuBar(), *this, MenuConnections::Withheld(services)))
    , shares_(*this, controls_, *menu_)
    , shared_(shares_.Controls())
    , jobDisplay_(shares_.ForJobDisplay(), job_)
    , layout_(*this, controls_)
    , icons_(services.fileTypes, services.systemIcon)
    , shell_(services.shell, services.dialogs)
    , rows_(shared_, state_, settings_, services.files, icons_)
    , run_(shared_, job_, RunServices(), state_, rows_)
    , patterns_(shared_, shares_.Menu("mnuPopUp5"), settings_, services.dialogs)
    , start_(shared_, shares_.Menu("mnuPopUp6"), job_, StartServices(), state_)
    , queue_(shares_.ForDownloads(), settings_, services.dialogs, job_)
    , lists_(shared_, shares_.DownloadsMenu(), shares_.ResultsMenu(), job_, ListServices(), queue_)
    , resultsFile_(shared_, job_, ResultsFileServices(), state_, rows_)
    , settingsFile_(shares_.ForSettingsFile(), SettingsFileServices(),
                    IniFileName(services.applicationFolder))
    , skins_(shares_.SkinMenu(), shares_.ForSkins(), SkinServices())
    , columnHelp_(*this, *menu_->Menu(u"PopUp3Mnu"_s))
    , toolsMenu_(shared_, ToolsServices())
    , helpMenu_(*this, HelpServices(), services.contactAddress)
    , tray_(shared_, shares_.Menu("PopUp4Mnu"), shares_.Item("mnuRestore"),
            {services.tray, skins_, settings_.SkinIndex, services.dialogs, [this] { Unload(); }})
    , inputEvents_(shared_, patterns_, start_)
    , webLink_(*controls_.HyperLbl, shell_, services.dialogs, services.webAddress)
    , defaultButton_(*this, *controls_.cmdStartSearch,
                     {controls_.lvwResults, controls_.lvwDownloads}) {
    settings_.SaveFolder = DownloadsFolder(services.applicationFolder);
    resize(ToPixels(WindowLayout::MinFormWidth), ToPixels(WindowLayout::MinFormHeight));
    setObjectName(u"frmNetrove"_s);
    setWindowTitle(u"Netrove"_s);
    ConnectMenus();
    ConnectControls();
}

void frmNetrove::ConnectMenus() {
    MenuConnections menus(*menu_, *this);
    menus.ConnectFileMenu(resultsFile_, [this] { Unload(); });
    menus.ConnectToolsMenu(toolsMenu_);
    menus.ConnectSkinMenu(skins_, toolsMenu_);
    menus.ConnectHelpMenu(helpMenu_);
    menus.ConnectDownloadsMenu(lists_, queue_);
    menus.ConnectResultsMenu(lists_, queue_);
    menus.ConnectHeaderMenu(columnHelp_);
    menus.ConnectTrayMenu(tray_, helpMenu_);
    menus.ConnectPatternsMenu(patterns_);
    menus.ConnectStartNodeMenu(start_);
}

void frmNetrove::ConnectControls() {
    ControlConnections controls(controls_, *this);
    controls.ConnectTabs();
    controls.ConnectSearch(run_);
    controls.ConnectStartNode(start_);
    controls.ConnectResults(lists_, queue_, resultsFile_);
    controls.ConnectDownloads(lists_, queue_);
    controls.ConnectHeaders(columnHelp_);
    controls.ConnectStatusBar(toolsMenu_);
    controls_.cmdAbandon->setEnabled(false);
    if (services_.letAbandon)
        services_.letAbandon(*controls_.cmdAbandon, [this] { return job_.GivesUpWaits(); });
}

SearchRun::Services frmNetrove::RunServices() {
    return {.search = {services_.files, settings_, exclusions_, log_, services_.ahead,
                       &services_.network},
            .exclusions = exclusions_,
            .dialogs = services_.dialogs,
            .report = services_.report};
}

SearchStart::Services frmNetrove::StartServices() {
    return {.network = services_.network,
            .dialogs = services_.dialogs,
            .settings = settings_,
            .exclusions = exclusions_,
            .browse = [this] { return BrowseNetwork(); }};
}

ListOperations::Services frmNetrove::ListServices() {
    return {.network = services_.network,
            .files = services_.files,
            .shell = services_.shell,
            .shellServices = shell_,
            .dialogs = services_.dialogs,
            .settings = settings_};
}

ResultsFile::Services frmNetrove::ResultsFileServices() {
    return {.files = services_.files,
            .ahead = services_.ahead,
            .settings = settings_,
            .dialogs = services_.dialogs,
            .shell = shell_,
            .applicationFolder = services_.applicationFolder};
}

SettingsFile::Services frmNetrove::SettingsFileServices() {
    return {.settings = settings_,
            .system = services_.system,
            .applicationFolder = services_.applicationFolder,
            .SaveSkinXML = [this] { skins_.SaveSkinXML(); }};
}

SkinSelection::Services frmNetrove::SkinServices() {
    return {.SkinIndex = settings_.SkinIndex,
            .profile = settingsFile_.Profile(),
            .dialogs = services_.dialogs,
            .painter = painter_,
            .newModifier = [] { return std::make_unique<PaintedFrame>(); },
            .resize = [this] { layout_.Form_Resize(); },
            .openHelp = [this] { OpenHelp(); },
            .applicationFolder = services_.applicationFolder};
}

ToolsMenu::Services frmNetrove::ToolsServices() {
    return {.settings = settings_,
            .dialogs = services_.dialogs,
            .system = services_.system,
            .shell = shell_,
            .values = system_,
            .look = Look(),
            .logFile = LogFile(),
            .downloadsFolder = DownloadsFolder(services_.applicationFolder),
            .report = services_.report,
            .reachTest = services_.reachTest,
            .showLogons = services_.showLogons,
            .job = job_,
            .networkFile = services_.applicationFolder + QDir::separator() + u"network.ini"_s};
}

OnlineServices frmNetrove::HelpServices() {
    return {.http = services_.http,
            .dialogs = services_.dialogs,
            .shell = shell_,
            .webAddress = services_.webAddress,
            .look = Look()};
}

/// The look of the dialogs that the window opens.
DialogLook frmNetrove::Look() {
    return {.skin = &skins_, .openHelp = [this] { OpenHelp(); }};
}

/// The chosen node; nothing where the user has chosen none.
std::optional<std::shared_ptr<NetResource>> frmNetrove::BrowseNetwork() {
    frmNWDialog browser({.network = services_.network,
                         .settings = settings_,
                         .exclusions = exclusions_,
                         .log = log_,
                         .dialogs = services_.dialogs,
                         .look = Look()},
                        this);
    browser.exec();
    if (browser.Cancelled())
        return std::nullopt;
    return browser.Result();
}

QString frmNetrove::LogFile() const {
    return services_.applicationFolder + QDir::separator() + u"Netrove.log"_s;
}

void frmNetrove::OpenHelp() {
    shell_.ShellRun(HelpFile);
}

void frmNetrove::OpenResultsFiles(const QStringList& files) {
    QMetaObject::invokeMethod(
        this, [this, files] { resultsFile_.lvwResults_OLEDragDrop(files); }, Qt::QueuedConnection);
}

void frmNetrove::Form_Load() {
    state_.SearchStartNode = std::make_shared<NetResource>(services_.network);
    if (services_.newCopyQ)
        CopyDLL = services_.newCopyQ();
    queue_.SetCopier(CopyDLL.get());
    const auto failure = FailureOf([this] { LoadSteps(); });
    // The settings hold the number as it is stored, whether such a skin exists or not.
    if (settings_.SkinIndex < 0 || settings_.SkinIndex > SkinSelection::LastSkin)
        settings_.SkinIndex = 0;
    controls_.LstSearchFor->setFocus();
    patterns_.LstSearchFor_GotFocus();
    // Once shown, the window can be closed, which overwrites a settings file that wasn't loaded.
    const QString kept = settingsFile_.KeepUnloaded();
    show();
    services_.dialogs.Failure(failure, u"frmNetrove.Form_Load Error"_s, kept);
}

void frmNetrove::LoadSteps() {
    const NoYields load;
    hide();
    marker_ = std::make_unique<InstanceMarker>();
    HelpFile = HelpPage(services_.applicationFolder);
    ReadSystem();
    skins_.MakeModifier();
    skins_.mnuSkin_Click(static_cast<qint16>(skins_.StoredIndex()));
    start_.ChooseStartNode(system_.IsWinXP);
    settings_.ResultsBackColor = 0xEAEAD5;
    settings_.DownloadsBackColor = 0xBFFFFF;
    job_.AbandonFlag = false;
    state_.FilesFound = 0;
    settings_.MaxConcurrentDownloads = 5;
    layout_.TakeDesignSize();
    settingsFile_.LoadIni();
    log_.Open(LogFile());
    controls_.SSTab1->setCurrentIndex(0);
}

void frmNetrove::ReadSystem() {
    system_ = ReadSystemValues(services_.system);
    start_.SetIsWinNT(system_.IsWinNT);
    lists_.SetIsWinNT(system_.IsWinNT);
    menu_->Item(u"mnuInpNetNode(0)"_s)->setEnabled(system_.IsWinNT);
    menu_->Item(u"mnuSep9"_s)->setVisible(system_.IsWinNT);
    menu_->Item(u"mnuTheWkGP"_s)->setVisible(system_.IsWinNT);
}

/// The user or the desktop closes the window, not the program.
void frmNetrove::closeEvent(QCloseEvent* event) {
    if (settings_.MinToTray) {
        event->ignore();
        tray_.PutAway();
        return;
    }
    const bool mayClose = Form_QueryUnload();
    event->setAccepted(mayClose);
    if (mayClose)
        Form_Unload();
}

bool frmNetrove::Form_QueryUnload() {
    if (state_.SearchEvt)
        state_.SearchEvt->Abandon();
    job_.Stop();
    if (!IsBusy())
        return true;
    services_.dialogs.Message(MessageIcon::Exclamation,
                              u"Wait until the program reaches a stopping point."_s,
                              u"Search In Progress"_s);
    return false;
}

void frmNetrove::Unload() {
    if (Form_QueryUnload())
        Form_Unload();
}

void frmNetrove::EndSession() {
    if (!IsBusy()) {
        Unload();
        return;
    }
    run_.cmdAbandon_Click();
    // A job that shows a box waits for the answer.
    if (QWidget* box = QApplication::activeModalWidget())
        box->close();
    QTimer::singleShot(EndInterval, this, [this] { EndSession(); });
}

void frmNetrove::Form_Unload() {
    tray_.RemoveTrayIcon();
    hide();
    log_.Close();
    SaveSettings();
    if (state_.SearchEvt)
        state_.SearchEvt->Abandon();
    skins_.Detach();
    CopyDLL.reset();
    state_.SearchEvt.reset();
    state_.SearchStartNode.reset();
    skins_.ReleaseModifier();
    controls_.imgSysIconsSm.Clear();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this && window->isWindow() && window->isVisible())
            window->close();
    }
    Q_EMIT Unloaded();
}

void frmNetrove::SaveSettings() {
    try {
        settingsFile_.SaveIni();
    } catch (...) {
        qWarning("Not all settings could be saved.");
    }
}

void frmNetrove::setVisible(bool visible) {
    if (!visible)
        settingsFile_.NoteWindowPlace();
    QMainWindow::setVisible(visible);
}

void frmNetrove::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    layout_.Form_Resize();
}

void frmNetrove::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The size of the frame is known only now.
    layout_.Form_Resize();
}

void frmNetrove::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1)
        OpenHelp();
    else
        QMainWindow::keyPressEvent(event);
}

void frmNetrove::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        update();
}

} // namespace netrove
