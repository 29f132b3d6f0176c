#include "mainwindow/frmNetrove.h"

#include "browser/frmNWDialog.h"
#include "controls/Twips.h"
#include "mainwindow/services/WinVer.h"
#include "mainwindow/windowservices/WindowGeometry.h"
#include "options/frmOpts.h"
#include "platform/ApplicationFolder.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "silent/frmSilent.h"
#include "skins/frame/PaintedFrame.h"
#include "storage/ResultsDrop.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcut>

#include <chrono>

namespace netrove {
namespace {

/// How often the end of the session looks whether the running job has ended.
constexpr std::chrono::milliseconds EndInterval{50};

/// Lets no handler in while it lives: a window that was closed in the middle of its start would
/// save settings that it has only half read.
class NoYields {
public:
    NoYields() : pass_(SetYieldPass({})) {}
    NoYields(const NoYields&) = delete;
    NoYields& operator=(const NoYields&) = delete;
    ~NoYields() { SetYieldPass(std::move(pass_)); }

private:
    std::function<void()> pass_;
};

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

/// An item of a menu array: "mnuSkin(3)" and so on.
QString Element(const char* name, int index) {
    return Text(name) + u'(' + QString::number(index) + u')';
}

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
    , menu_(MakeMenu())
    , layout_(*this, controls_)
    , icons_(services.fileTypes, services.systemIcon)
    , shell_(services.shell, services.dialogs)
    , rows_({*controls_.lvwResults, *controls_.RetFileLbl, *controls_.stbStatus, controls_.Icons()},
            state_, settings_, services.files, icons_)
    , run_({*this, *controls_.LstSearchFor, *controls_.chkRecurse, *controls_.RetFileLbl,
            *controls_.stbStatus, *controls_.SSTab1, *controls_.cmdAbandon, *controls_.lvwResults,
            *controls_.lvwDownloads, controls_.Icons()},
           MakeJobControls(),
           {{services.files, settings_, exclusions_, log_, services.ahead},
            exclusions_,
            services.dialogs,
            services.report},
           state_, rows_)
    , patterns_({*controls_.LstSearchFor, *controls_.imgFiles[0], *menu_->Menu(Text("mnuPopUp5"))},
                settings_, services.dialogs)
    , start_({*this, *controls_.txtSearchStart, *menu_->Menu(Text("mnuPopUp6"))}, MakeJobControls(),
             {services.network, services.dialogs, settings_, exclusions_,
              [this] { return BrowseNetwork(); }},
             state_)
    , queue_({*this, *controls_.SSTab1, *controls_.lvwResults, *controls_.lvwDownloads,
              *controls_.DownloadLbl, *controls_.stbStatus},
             {settings_, services.dialogs})
    , lists_(MakeListOperations())
    , columnHelp_(*this, *menu_->Menu(Text("PopUp3Mnu")))
    , helpMenu_(*this, {.http = services.http,
                        .dialogs = services.dialogs,
                        .shell = shell_,
                        .webAddress = services.webAddress,
                        .contactAddress = services.contactAddress,
                        .openHelp = [this] { OpenHelp(); },
                        .skin = &skins_})
    , resultsFile_({*this, *controls_.RetFileLbl, *controls_.stbStatus, *controls_.SSTab1,
                    *controls_.cmdStartSearch, *controls_.cmdAbandon, *controls_.lvwResults,
                    *controls_.lvwDownloads, controls_.Icons()},
                   MakeJobControls(),
                   {services.files, services.ahead, settings_, services.dialogs, shell_,
                    services.applicationFolder},
                   state_, rows_)
    , settingsFile_({*this, *controls_.LstSearchFor, *controls_.chkRecurse, *controls_.lvwResults,
                     *controls_.lvwDownloads},
                    {.settings = settings_,
                     .system = services.system,
                     .applicationFolder = services.applicationFolder,
                     .SaveSkinXML = [this] { skins_.SaveSkinXML(); }},
                    IniFileName(services.applicationFolder))
    , skins_(SkinMenu(), SkinnedControls(), SkinServices())
    , tray_({*this, *controls_.RetFileLbl, *menu_->Menu(Text("PopUp4Mnu")),
             *menu_->Item(Text("mnuRestore"))},
            {services.tray, skins_, settings_.SkinIndex, services.dialogs, [this] { Unload(); }}) {
    settings_.SaveFolder = DownloadsFolder(services.applicationFolder);
    resize(ToPixels(WindowLayout::MinFormWidth), ToPixels(WindowLayout::MinFormHeight));
    setObjectName(Text("frmNetrove"));
    setWindowTitle(Text("Netrove"));
    ConnectControls();
    ConnectSearchParameters();
    ConnectLists();
    ConnectReturnKey();
}

void frmNetrove::ConnectControls() {
    connect(controls_.cmdStartSearch, &QPushButton::clicked, this,
            [this] { run_.cmdStartSearch_Click(); });
    connect(controls_.cmdAbandon, &QPushButton::clicked, this, [this] { run_.cmdAbandon_Click(); });
    connect(controls_.SSTab1, &QTabWidget::tabBarClicked, this, [this] {
        controls_.picListHolder->update();
        controls_.stbStatus->update();
    });
    new ResultsDrop(*controls_.lvwResults, [this](const QStringList& files) {
        resultsFile_.lvwResults_OLEDragDrop(files);
    });
    controls_.HyperLbl->installEventFilter(this);
    controls_.cmdAbandon->setEnabled(false);
    // The flag is an old one while no job runs.
    if (services_.letAbandon)
        services_.letAbandon(*controls_.cmdAbandon, [this] {
            return state_.AbandonFlag && controls_.cmdAbandon->isEnabled();
        });
}

void frmNetrove::ConnectLists() {
    const ListView* results = controls_.lvwResults;
    connect(results, &ListView::ColumnClick, this,
            [this](int column) { lists_.lvwResults_ColumnClick(column); });
    connect(results, &ListView::RowDoubleClick, this, [this] { queue_.lvwResults_DblClick(); });
    connect(results, &ListView::EnterPressed, this, [this] { queue_.lvwResults_DblClick(); });
    connect(results, &ListView::RightButtonDown, this,
            [this](const QPoint& position) { lists_.lvwResults_MouseDown(position); });
    const ListView* downloads = controls_.lvwDownloads;
    connect(downloads, &ListView::ColumnClick, this,
            [this](int column) { lists_.lvwDownloads_ColumnClick(column); });
    connect(downloads, &ListView::RowDoubleClick, this, [this] { queue_.ClearMnu_Click(); });
    connect(downloads, &ListView::DeletePressed, this, [this] { queue_.ClearMnu_Click(); });
    connect(downloads, &ListView::RightButtonDown, this,
            [this](const QPoint& position) { lists_.lvwDownloads_MouseDown(position); });
    connect(results, &ListView::HeaderRightClick, this, [this](int column, const QPoint& position) {
        columnHelp_.HeaderRightClick(ColumnHelp::lvwResults, column, position);
    });
    connect(downloads, &ListView::HeaderRightClick, this,
            [this](int column, const QPoint& position) {
                columnHelp_.HeaderRightClick(ColumnHelp::lvwDownloads, column, position);
            });
    for (const ListView* list : {results, downloads})
        connect(list, &ListView::CopyPressed, this, [this, list] { lists_.CopyFiles(*list); });
    connect(controls_.cmdClearLst, &QPushButton::clicked, this,
            [this] { lists_.cmdClearLst_Click(); });
}

/// What the controls of the search text and the start node do besides; eventFilter has the rest.
void frmNetrove::ConnectSearchParameters() {
    connect(controls_.cmdSetSearchStart, &QPushButton::clicked, this,
            [this] { start_.cmdSetSearchStart_Click(); });
    connect(controls_.cmdInpNetNode, &QPushButton::clicked, this,
            [this] { start_.cmdInpNetNode_Click(); });
    for (QObject* watched : {static_cast<QObject*>(controls_.imgFiles[0]),
                             static_cast<QObject*>(controls_.cmdInpNetNode),
                             static_cast<QObject*>(controls_.LstSearchFor)})
        watched->installEventFilter(this);
}

MainMenu* frmNetrove::MakeMenu() {
    auto* menu = new MainMenu(*menuBar(), *this);
    menu->Connect(Text("mnuSaveResFile"), this, [this] { resultsFile_.mnuSaveResFile_Click(); });
    menu->Connect(Text("mnuLoadResFile"), this, [this] { resultsFile_.mnuLoadResFile_Click(); });
    for (const int index : {0, 1})
        menu->Connect(Element("mnuListsFol", index), this,
                      [this, index] { resultsFile_.mnuListsFol_Click(index); });
    menu->Connect(Text("mnuExit1"), this, [this] { Unload(); });
    menu->Connect(Text("mnuCont"), this, [this] { OpenHelp(); });
    menu->Connect(Text("mnuTBS"), this, [this] { shell_.ShellRun(services_.webAddress); });
    for (int index = 0; index <= SkinSelection::LastSkin; ++index)
        menu->Connect(Element("mnuSkin", index), this, [this, index] { SelectSkin(index); });
    menu->Connect(Text("mnuSkinCust"), this, [this] { skins_.mnuSkinCust_Click(); });
    menu->Item(Text("mnuSkinCust"))->setEnabled(false);
    menu->Connect(Text("mnuViewTrLog"), this, [this] { shell_.ShellRun(LogFile()); });
    if (services_.report)
        menu->Connect(Text("mnuSilent"), this, [this] { ShowSilentComputers(); });
    if (services_.showLogons)
        menu->Connect(Text("mnuLogon"), this, [this] { services_.showLogons(*this, skins_); });
    menu->Connect(Text("mnuOpts"), this, [this] { mnuOpts_Click(); });
    for (int index = 0; index < PredefinedPatterns::Count; ++index)
        menu->Connect(Element("mnuFiles", index), this,
                      [this, index] { patterns_.mnuFiles_Click(index); });
    for (const int index : {0, 1, 3})
        menu->Connect(Element("mnuInpNetNode", index), this,
                      [this, index] { start_.mnuInpNetNode_Click(index); });
    ConnectListMenus(*menu);
    ConnectHelpMenu(*menu);
    ConnectTrayMenu(*menu);
    return menu;
}

/// Modal dialogs live under one skin; the one window that doesn't block the menu is made anew.
void frmNetrove::SelectSkin(int index) {
    skins_.mnuSkin_Click(qint16(index));
    if (const auto* open = findChild<frmSilent*>()) {
        const QPoint place = open->pos();
        delete open;
        ShowSilentComputers();
        findChild<frmSilent*>()->move(place);
    }
}

void frmNetrove::ShowSilentComputers() {
    auto* dialog = findChild<frmSilent*>();
    if (!dialog)
        dialog = new frmSilent(*services_.report, &skins_, this);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void frmNetrove::ConnectHelpMenu(MainMenu& menu) {
    if (services_.http) {
        menu.Connect(Text("UpdateMnu"), this, [this] { helpMenu_.UpdateMnu_Click(); });
        menu.Connect(Text("mnuDonate"), this, [this] { helpMenu_.mnuDonate_Click(); });
    }
    menu.Connect(Text("mnuAbout1"), this, [this] { helpMenu_.mnuAbout1_Click(); });
    menu.Connect(Text("mnuAbout"), this, [this] { helpMenu_.mnuAbout_Click(); });
    menu.Connect(Text("HelpColMnu"), this, [this] { columnHelp_.HelpColMnu_Click(); });
}

void frmNetrove::mnuOpts_Click() {
    frmOpts({.settings = settings_,
             .dialogs = services_.dialogs,
             .system = services_.system,
             .lvwResults = *controls_.lvwResults,
             .lvwDownloads = *controls_.lvwDownloads,
             .downloadsFolder = DownloadsFolder(services_.applicationFolder),
             .OSName = OSName,
             .OSVersion = OSVersion,
             .CurrentUser = CurrentUser,
             .openHelp = [this] { OpenHelp(); }},
            this)
        .exec();
}

void frmNetrove::ConnectListMenus(MainMenu& menu) {
    menu.Connect(Text("ClearMnu"), this, [this] { queue_.ClearMnu_Click(); });
    menu.Connect(Text("ClearAllMnu"), this, [this] { queue_.ClearAllMnu_Click(); });
    for (const int index : {0, 1})
        menu.Connect(Element("mnuViewFolder", index), this,
                     [this, index] { lists_.mnuViewFolder_Click(index); });
    menu.Connect(Text("mnuSampleFileLoc"), this, [this] { lists_.mnuSampleFileLoc_Click(); });
    menu.Connect(Text("ErrDescMnu"), this, [this] { lists_.ErrDescMnu_Click(); });
    menu.Connect(Text("mnuDownload"), this, [this] { queue_.lvwResults_DblClick(); });
    menu.Connect(Text("OpenFolMnu"), this, [this] { lists_.OpenFolMnu_Click(); });
    menu.Connect(Text("ExpFolMnu"), this, [this] { lists_.ExpFolMnu_Click(); });
    menu.Connect(Text("mnuSampleFile"), this, [this] { lists_.mnuSampleFile_Click(); });
    // A line of information, to be read like the others.
    menu.Item(Text("mnuTheWkGP"))->setEnabled(true);
}

void frmNetrove::ConnectTrayMenu(MainMenu& menu) {
    menu.Connect(Text("mnuRestore"), this, [this] { tray_.mnuRestore_Click(); });
    menu.Connect(Text("mnuMax"), this, [this] { tray_.mnuMax_Click(); });
    menu.Connect(Text("mnuMin"), this, [this] { tray_.mnuMin_Click(); });
    menu.Connect(Text("mnuExit"), this, [this] { tray_.mnuExit_Click(); });
}

ListOperations frmNetrove::MakeListOperations() {
    const auto item = [this](const char* name) -> QAction& { return *menu_->Item(Text(name)); };
    return {
        {*this, *controls_.picListHolder, *controls_.lvwResults, *controls_.lvwDownloads,
         *controls_.RetFileLbl, *controls_.LstSearchFor},
        {*menu_->Menu(Text("PopUp1Mnu")), item("ClearMnu"), item("mnuSep6"),
         item("mnuSampleFileLoc"), item("mnuSep8"), item("ErrDescMnu")},
        {*menu_->Menu(Text("PopUp2Mnu")), item("mnuTheWkGP"), item("mnuSampleFile")},
        MakeJobControls(),
        {services_.network, services_.files, services_.shell, shell_, services_.dialogs, settings_},
        queue_};
}

JobControls frmNetrove::MakeJobControls() {
    return {.fileItems = menu_->WithWork({Text("mnuSaveResFile"), Text("mnuLoadResFile"),
                                          Text("mnuLogon"), Text("mnuOpts")}),
            .helpItems = menu_->WithWork({Text("mnuHelp"), Text("mnuCont"), Text("UpdateMnu"),
                                          Text("mnuDonate"), Text("mnuAbout1")}),
            .filesPicture = controls_.imgFiles[0],
            .busyPicture = controls_.imgFiles[1],
            .inputs = {controls_.cmdSetSearchStart, controls_.cmdInpNetNode, controls_.LstSearchFor,
                       controls_.chkRecurse, controls_.cmdStartSearch, controls_.cmdClearLst},
            .cmdAbandon = controls_.cmdAbandon};
}

SkinSelection::Menu frmNetrove::SkinMenu() const {
    SkinSelection::Menu menu{.mnuSkin = {}, .mnuSkinCust = menu_->Item(Text("mnuSkinCust"))};
    for (int index = 0; index <= SkinSelection::LastSkin; ++index)
        menu.mnuSkin[size_t(index)] = menu_->Item(Element("mnuSkin", index));
    return menu;
}

SkinSelection::Controls frmNetrove::SkinnedControls() {
    const auto& lines = controls_.Lne;
    return {.window = this,
            .chkRecurse = controls_.chkRecurse,
            .Label1 = controls_.Label1,
            .Label2 = controls_.Label2,
            .HyperLbl = controls_.HyperLbl,
            .buttons = {controls_.cmdAbandon, controls_.cmdSetSearchStart, controls_.cmdInpNetNode,
                        controls_.cmdStartSearch, controls_.cmdClearLst},
            .RecShp = controls_.RecShp,
            .lines = {lines[0], lines[1], lines[2], lines[3], lines[4], lines[5], controls_.Line1},
            .SSTab1 = controls_.SSTab1,
            .picListHolder = controls_.picListHolder};
}

SkinSelection::Services frmNetrove::SkinServices() {
    return {.SkinIndex = settings_.SkinIndex,
            .profile = settingsFile_.Profile(),
            .dialogs = services_.dialogs,
            .painter = painter_,
            .newModifier = [] { return std::make_unique<PaintedFrame>(); },
            .resize = [this] { layout_.Form_Resize(); },
            .openHelp = [this] { OpenHelp(); }};
}

/// The search button is the default button, except while one of the lists has the focus.
void frmNetrove::ConnectReturnKey() {
    controls_.cmdStartSearch->setDefault(true);
    std::vector<QShortcut*> keys;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        connect(shortcut, &QShortcut::activated, this, [this] { PressDefaultButton(); });
        keys.push_back(shortcut);
    }
    for (ListView* list : {controls_.lvwResults, controls_.lvwDownloads}) {
        const auto setDefault = [this, keys](bool isDefault) {
            controls_.cmdStartSearch->setDefault(isDefault);
            for (QShortcut* key : keys)
                key->setEnabled(isDefault);
        };
        connect(list, &ListView::GotFocus, this, [setDefault] { setDefault(false); });
        connect(list, &ListView::LostFocus, this, [setDefault] { setDefault(true); });
    }
}

/// Enter presses the button that has the focus, else the search button.
void frmNetrove::PressDefaultButton() {
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (!button || !button->isEnabled())
        button = controls_.cmdStartSearch;
    button->click();
}

void frmNetrove::Form_Load() {
    state_.SearchStartNode = std::make_shared<NetResource>(services_.network);
    if (services_.newCopyQ)
        CopyDLL = services_.newCopyQ();
    queue_.SetCopier(CopyDLL.get());
    std::optional<RunTimeError> failure;
    try {
        LoadSteps();
    } catch (...) {
        failure = CurrentFailure();
    }
    // The settings have the number as it is stored.
    if (settings_.SkinIndex < 0 || settings_.SkinIndex > SkinSelection::LastSkin)
        settings_.SkinIndex = 0;
    show();
    if (failure)
        services_.dialogs.Failure(failure->Number(), failure->Description(),
                                  Text("frmNetrove.Form_Load Error"));
}

void frmNetrove::OpenResultsFiles(const QStringList& files) {
    QMetaObject::invokeMethod(
        this, [this, files] { resultsFile_.lvwResults_OLEDragDrop(files); }, Qt::QueuedConnection);
}

void frmNetrove::LoadSteps() {
    const NoYields load;
    hide();
    marker_ = std::make_unique<InstanceMarker>();
    HelpFile = HelpPage(services_.applicationFolder);
    ReadSystem();
    skins_.MakeModifier();
    skins_.mnuSkin_Click(qint16(skins_.StoredIndex()));
    ChooseStartNode();
    settings_.ResultsBackColor = 0xEAEAD5;
    settings_.DownloadsBackColor = 0xBFFFFF;
    state_.AbandonFlag = false;
    state_.FilesFound = 0;
    settings_.MaxConcurrentDownloads = 5;
    settingsFile_.LoadIni();
    log_.Open(LogFile());
    controls_.SSTab1->setCurrentIndex(0);
}

void frmNetrove::ReadSystem() {
    const OSInfo info = GetOSInfo(services_.system);
    IsWinXP = info.IsXP;
    IsWinNT = info.IsNT;
    OSVersion = info.Version;
    OSName = UpperCase(info.Name);
    start_.SetIsWinNT(IsWinNT);
    lists_.SetIsWinNT(IsWinNT);
    menu_->Item(Text("mnuInpNetNode(0)"))->setEnabled(IsWinNT);
    menu_->Item(Text("mnuSep9"))->setVisible(IsWinNT);
    menu_->Item(Text("mnuTheWkGP"))->setVisible(IsWinNT);
    CurrentUser = CutAtZero(GetUserNameText(services_.system));
}

void frmNetrove::ChooseStartNode() {
    if (!IsWinXP) {
        controls_.txtSearchStart->setText(Text("[Root]"));
        return;
    }
    const QString provider = NetEnum::LocalAreaNetwork;
    NetResource root(services_.network);
    state_.SearchStartNode = root.Children()->Item(provider);
    if (!state_.SearchStartNode)
        throw RunTimeError(ErrorNumber::ObjectNotSet);
    controls_.txtSearchStart->setText(provider);
}

/// Somebody else than the program closes the window.
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
    if (!IsBusy())
        return true;
    services_.dialogs.Message(MessageIcon::Exclamation,
                              Text("Wait until the program reaches a stopping point."),
                              Text("Search In Progress"));
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
    controls_.cmdAbandon->click();
    // A job waits while it shows a box.
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

bool frmNetrove::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (watched == controls_.HyperLbl && press->button() == Qt::LeftButton)
            HyperLbl_MouseDown();
        else if (watched == controls_.imgFiles[0])
            patterns_.imgFiles_MouseDown(press->button(), press->pos());
        else if (watched == controls_.cmdInpNetNode && press->button() == Qt::RightButton)
            start_.cmdInpNetNode_Click();
    } else if (event->type() == QEvent::FocusIn && watched == controls_.LstSearchFor) {
        LstSearchFor_FocusIn(static_cast<QFocusEvent*>(event)->reason());
    }
    return QMainWindow::eventFilter(watched, event);
}

/// The control has the focus all along while a menu is open or another window is in front.
void frmNetrove::LstSearchFor_FocusIn(Qt::FocusReason reason) {
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
        reason == Qt::MenuBarFocusReason)
        return;
    // The press that gives the focus also moves the cursor, right afterwards.
    if (reason == Qt::MouseFocusReason)
        QMetaObject::invokeMethod(
            this, [this] { patterns_.LstSearchFor_GotFocus(); }, Qt::QueuedConnection);
    else
        patterns_.LstSearchFor_GotFocus();
}

/// The chosen node; nothing where the user has chosen none.
std::optional<std::shared_ptr<NetResource>> frmNetrove::BrowseNetwork() {
    frmNWDialog browser({.network = services_.network,
                         .settings = settings_,
                         .exclusions = exclusions_,
                         .log = log_,
                         .dialogs = services_.dialogs,
                         .openHelp = [this] { OpenHelp(); },
                         .skin = &skins_},
                        this);
    browser.exec();
    if (browser.Cancelled())
        return std::nullopt;
    return browser.Result();
}

QString frmNetrove::LogFile() const {
    return services_.applicationFolder + QDir::separator() + Text("Netrove.log");
}

void frmNetrove::OpenHelp() {
    shell_.ShellRun(HelpFile);
}

void frmNetrove::HyperLbl_MouseDown() {
    try {
        QPalette palette = controls_.HyperLbl->palette();
        palette.setColor(QPalette::WindowText, Qt::red);
        controls_.HyperLbl->setPalette(palette);
        shell_.ShellRun(services_.webAddress);
        unsetCursor();
    } catch (...) {
        const RunTimeError error = CurrentFailure();
        services_.dialogs.Failure(error.Number(), error.Description(), Text("Error in Hyperlink"));
    }
}

} // namespace netrove
