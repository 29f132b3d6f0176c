#pragma once

#include "about/ColumnHelp.h"
#include "downloads/DownloadQueue.h"
#include "downloads/ListOperations.h"
#include "mainwindow/HelpMenu.h"
#include "mainwindow/MainMenu.h"
#include "mainwindow/ProgramServices.h"
#include "mainwindow/SysTray.h"
#include "mainwindow/ToolsMenu.h"
#include "searchrun/PredefinedPatterns.h"
#include "searchrun/SearchStart.h"
#include "skins/SkinSelection.h"
#include "storage/ResultsFile.h"

#include <functional>
#include <initializer_list>

namespace netrove {

/// Gives the items of the main window's menus their work, one menu at a time. The classes that do
/// the work outlive the menus' window.
class MenuConnections {
public:
    /// The work is done as long as `context` lives.
    MenuConnections(MainMenu& menu, const QObject& context) : menu_(menu), context_(context) {}

    /// The items whose work needs a service that the program hasn't been given.
    [[nodiscard]] static QStringList Withheld(const ProgramServices& services);

    void ConnectFileMenu(ResultsFile& resultsFile, const std::function<void()>& unload);
    void ConnectToolsMenu(ToolsMenu& tools);
    void ConnectSkinMenu(SkinSelection& skins, ToolsMenu& tools);
    void ConnectHelpMenu(HelpMenu& help);
    void ConnectDownloadsMenu(ListOperations& lists, DownloadQueue& queue);
    void ConnectResultsMenu(ListOperations& lists, DownloadQueue& queue);
    void ConnectHeaderMenu(ColumnHelp& columnHelp);
    void ConnectTrayMenu(SysTray& tray, HelpMenu& help);
    void ConnectPatternsMenu(PredefinedPatterns& patterns);
    void ConnectStartNodeMenu(SearchStart& start);

private:
    void Connect(const char* name, const std::function<void()>& work);
    /// The items "name(0)" and so on, which are told apart by that number.
    void Connect(const char* name, std::initializer_list<int> indices,
                 const std::function<void(int)>& work);

    MainMenu& menu_;
    const QObject& context_;
};

} // namespace netrove
