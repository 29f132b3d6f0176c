#pragma once

#include "about/ColumnHelp.h"
#include "downloads/DownloadQueue.h"
#include "downloads/ListOperations.h"
#include "mainwindow/MainControls.h"
#include "mainwindow/ToolsMenu.h"
#include "searchrun/SearchRun.h"
#include "searchrun/SearchStart.h"
#include "storage/ResultsFile.h"

namespace netrove {

/// Connects the signals of the main window's controls to the classes that hold the rules. Those
/// classes outlive the window's controls.
class ControlConnections {
public:
    /// The connections end with `context`.
    ControlConnections(const MainControls& controls, const QObject& context)
        : controls_(controls), context_(context) {}

    void ConnectTabs();
    void ConnectSearch(SearchRun& run);
    void ConnectStartNode(SearchStart& start);
    void ConnectResults(ListOperations& lists, DownloadQueue& queue, ResultsFile& resultsFile);
    void ConnectDownloads(ListOperations& lists, DownloadQueue& queue);
    void ConnectHeaders(ColumnHelp& columnHelp);
    void ConnectStatusBar(ToolsMenu& tools);

private:
    const MainControls& controls_;
    const QObject& context_;
};

} // namespace netrove
