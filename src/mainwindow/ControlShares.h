#pragma once

#include "downloads/DownloadQueue.h"
#include "downloads/ListOperations.h"
#include "mainwindow/InputEvents.h"
#include "mainwindow/MainControls.h"
#include "mainwindow/MainMenu.h"
#include "mainwindow/SysTray.h"
#include "mainwindow/ToolsMenu.h"
#include "searchrun/JobDisplay.h"
#include "searchrun/PredefinedPatterns.h"
#include "searchrun/ResultRows.h"
#include "searchrun/SearchRun.h"
#include "searchrun/SearchStart.h"
#include "skins/SkinSelection.h"
#include "storage/ResultsFile.h"
#include "storage/SettingsFile.h"

namespace netrove {

/// Which controls, menus and items of the main window each of the classes that hold the rules is
/// given.
class ControlShares {
public:
    ControlShares(QWidget& window, MainControls& controls, const MainMenu& menu)
        : window_(window), controls_(controls), menu_(menu) {}

    [[nodiscard]] JobDisplay::Controls ForJobDisplay() const;

    [[nodiscard]] ResultRows::Controls ForRows() const;
    [[nodiscard]] SearchRun::Controls ForSearchRun() const;
    [[nodiscard]] PredefinedPatterns::Controls ForPatterns() const;
    [[nodiscard]] SearchStart::Controls ForSearchStart() const;
    [[nodiscard]] InputEvents::Controls ForInputEvents() const;
    [[nodiscard]] DownloadQueue::Controls ForDownloads() const;
    [[nodiscard]] ListOperations::Controls ForLists() const;
    [[nodiscard]] ListOperations::DownloadsMenu DownloadsMenu() const;
    [[nodiscard]] ListOperations::ResultsMenu ResultsMenu() const;
    [[nodiscard]] ResultsFile::Controls ForResultsFile() const;
    [[nodiscard]] SettingsFile::Controls ForSettingsFile() const;
    [[nodiscard]] SkinSelection::Controls ForSkins() const;
    [[nodiscard]] SkinSelection::Menu SkinMenu() const;
    [[nodiscard]] ToolsMenu::Controls ForTools() const;
    [[nodiscard]] SysTray::Controls ForTray() const;

private:
    [[nodiscard]] QMenu& Menu(const char* name) const;
    [[nodiscard]] QAction& Item(const char* name) const;

    QWidget& window_;
    MainControls& controls_;
    const MainMenu& menu_;
};

} // namespace netrove
