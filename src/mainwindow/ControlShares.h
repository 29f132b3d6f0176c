#pragma once

#include "downloads/DownloadQueue.h"
#include "downloads/ListOperations.h"
#include "mainwindow/MainControls.h"
#include "mainwindow/MainMenu.h"
#include "searchrun/JobDisplay.h"
#include "skins/SkinSelection.h"
#include "storage/SettingsFile.h"
#include "windowservices/WindowControls.h"

namespace netrove {

/// Gives each of the classes that hold the rules its share of the main window's controls, menus and
/// items.
class ControlShares {
public:
    ControlShares(QWidget& window, MainControls& controls, const MainMenu& menu)
        : window_(window), controls_(controls), menu_(menu) {}

    [[nodiscard]] WindowControls Controls() const;
    [[nodiscard]] JobDisplay::Controls ForJobDisplay() const;
    [[nodiscard]] DownloadQueue::Controls ForDownloads() const;
    [[nodiscard]] ListOperations::DownloadsMenu DownloadsMenu() const;
    [[nodiscard]] ListOperations::ResultsMenu ResultsMenu() const;
    [[nodiscard]] SettingsFile::Controls ForSettingsFile() const;
    [[nodiscard]] SkinSelection::Controls ForSkins() const;
    [[nodiscard]] SkinSelection::Menu SkinMenu() const;

    [[nodiscard]] QMenu& Menu(const char* name) const;
    [[nodiscard]] QAction& Item(const char* name) const;

private:
    QWidget& window_;
    MainControls& controls_;
    const MainMenu& menu_;
};

} // namespace netrove
