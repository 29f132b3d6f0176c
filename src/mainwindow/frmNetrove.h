#pragma once

#include "about/ColumnHelp.h"
#include "mainwindow/ControlShares.h"
#include "mainwindow/DefaultButton.h"
#include "mainwindow/HelpMenu.h"
#include "mainwindow/InputEvents.h"
#include "mainwindow/MainControls.h"
#include "mainwindow/MainMenu.h"
#include "mainwindow/ProgramServices.h"
#include "mainwindow/SysTray.h"
#include "mainwindow/SystemValues.h"
#include "mainwindow/ToolsMenu.h"
#include "mainwindow/WebLink.h"
#include "mainwindow/WindowLayout.h"
#include "platform/InstanceMarker.h"
#include "search/ExclusionLists.h"
#include "search/TroubleshootingLog.h"
#include "searchrun/PredefinedPatterns.h"
#include "searchrun/ResultRows.h"
#include "searchrun/SearchRun.h"
#include "searchrun/SearchStart.h"
#include "searchrun/SearchState.h"
#include "services/ShellServices.h"
#include "settings/Settings.h"
#include "skins/frame/PaintedSkinFrame.h"
#include "storage/ResultsFile.h"
#include "storage/SettingsFile.h"

#include <QMainWindow>

#include <memory>

namespace netrove {

/// The main window: makes the controls, connects them with the classes that hold the rules, and
/// follows the order of its start and its end.
class frmNetrove : public QMainWindow {
    Q_OBJECT

public:
    explicit frmNetrove(const ProgramServices& services);
    ~frmNetrove() override = default;

    /// The start: to be called once, before anything else. Shows the window even where a step has
    /// failed.
    void Form_Load();

    /// Loads these results files when the event loop is next reached, as if they had been dropped
    /// on the list.
    void OpenResultsFiles(const QStringList& files);

    /// Whether a job runs that closing the window would break off.
    [[nodiscard]] bool IsBusy() const { return job_.IsRunning(); }

    /// Whether the window may close. If a job runs, asks it to stop and tells the user, who has to
    /// close the window again once it has stopped.
    [[nodiscard]] bool Form_QueryUnload();

    /// Closes the window for good, unless a job runs: nothing goes to the tray.
    void Unload();

    /// Like Unload(), but with nobody there to be told: aborts the running job, and waits for its
    /// end.
    void EndSession();

    /// Saves the settings; a failure is only logged.
    void SaveSettings();

    [[nodiscard]] Settings& ProgramSettings() { return settings_; }
    [[nodiscard]] SkinSelection& Skins() { return skins_; }

    void setVisible(bool visible) override;

Q_SIGNALS:
    /// The window is closed for good, and the program is to end. A window in the tray isn't.
    void Unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ConnectMenus();
    void ConnectControls();
    [[nodiscard]] SearchRun::Services RunServices();
    [[nodiscard]] SearchStart::Services StartServices();
    [[nodiscard]] ListOperations::Services ListServices();
    [[nodiscard]] ResultsFile::Services ResultsFileServices();
    [[nodiscard]] SettingsFile::Services SettingsFileServices();
    [[nodiscard]] SkinSelection::Services SkinServices();
    [[nodiscard]] ToolsMenu::Services ToolsServices();
    [[nodiscard]] OnlineServices HelpServices();
    [[nodiscard]] DialogLook Look();

    [[nodiscard]] std::optional<std::shared_ptr<NetResource>> BrowseNetwork();
    [[nodiscard]] QString LogFile() const;
    void OpenHelp();

    void LoadSteps();
    void ReadSystem();
    void Form_Unload();

    ProgramServices services_;
    Settings settings_;
    ExclusionLists exclusions_;
    TroubleshootingLog log_{settings_};
    SearchState state_;
    CurrentJob job_;
    SystemValues system_;
    QString HelpFile;
    std::unique_ptr<InstanceMarker> marker_;

    QWidget* inner_;
    MainControls controls_;
    MainMenu* menu_;
    ControlShares shares_;
    WindowControls shared_; ///< by all members below
    JobDisplay jobDisplay_;
    WindowLayout layout_;
    IconImages icons_;
    ShellServices shell_;
    ResultRows rows_;
    SearchRun run_;
    PredefinedPatterns patterns_;
    SearchStart start_;
    DownloadQueue queue_;
    ListOperations lists_;
    ResultsFile resultsFile_;
    SettingsFile settingsFile_;
    PaintedSkinFrame painter_;
    SkinSelection skins_;
    ColumnHelp columnHelp_;
    ToolsMenu toolsMenu_;
    HelpMenu helpMenu_;
    SysTray tray_;
    InputEvents inputEvents_;
    WebLink webLink_;
    DefaultButton defaultButton_;

    std::unique_ptr<CopyQ> CopyDLL;
};

} // namespace netrove
