#include "mainwindow/ControlConnections.h"

#include "storage/ResultsDrop.h"

namespace netrove {

void ControlConnections::ConnectTabs() {
    QObject::connect(controls_.SSTab1, &QTabWidget::tabBarClicked, &context_,
                     [holder = controls_.picListHolder, status = controls_.stbStatus] {
                         holder->update();
                         status->update();
                     });
}

void ControlConnections::ConnectSearch(SearchRun& run) {
    QObject::connect(controls_.cmdStartSearch, &QPushButton::clicked, &context_,
                     [&run] { run.cmdStartSearch_Click(); });
    QObject::connect(controls_.cmdAbandon, &QPushButton::clicked, &context_,
                     [&run] { run.cmdAbandon_Click(); });
}

void ControlConnections::ConnectStartNode(SearchStart& start) {
    QObject::connect(controls_.cmdSetSearchStart, &QPushButton::clicked, &context_,
                     [&start] { start.cmdSetSearchStart_Click(); });
    QObject::connect(controls_.cmdInpNetNode, &QPushButton::clicked, &context_,
                     [&start] { start.cmdInpNetNode_Click(); });
}

void ControlConnections::ConnectResults(ListOperations& lists, DownloadQueue& queue,
                                        ResultsFile& resultsFile) {
    ListView& results = *controls_.lvwResults;
    QObject::connect(&results, &ListView::ColumnClick, &context_,
                     [&lists](int column) { lists.lvwResults_ColumnClick(column); });
    QObject::connect(&results, &ListView::RowDoubleClick, &context_,
                     [&queue] { queue.lvwResults_DblClick(); });
    QObject::connect(&results, &ListView::EnterPressed, &context_,
                     [&queue] { queue.lvwResults_DblClick(); });
    QObject::connect(&results, &ListView::RightButtonDown, &context_,
                     [&lists](const QPoint& position) { lists.lvwResults_MouseDown(position); });
    QObject::connect(&results, &ListView::CopyPressed, &context_,
                     [&lists, &results] { lists.CopyFiles(results); });
    QObject::connect(controls_.cmdClearLst, &QPushButton::clicked, &context_,
                     [&lists] { lists.cmdClearLst_Click(); });
    new ResultsDrop(results, [&resultsFile](const QStringList& files) {
        resultsFile.lvwResults_OLEDragDrop(files);
    });
}

void ControlConnections::ConnectDownloads(ListOperations& lists, DownloadQueue& queue) {
    const ListView& downloads = *controls_.lvwDownloads;
    QObject::connect(&downloads, &ListView::ColumnClick, &context_,
                     [&lists](int column) { lists.lvwDownloads_ColumnClick(column); });
    QObject::connect(&downloads, &ListView::RowDoubleClick, &context_,
                     [&queue] { queue.ClearMnu_Click(); });
    QObject::connect(&downloads, &ListView::DeletePressed, &context_,
                     [&queue] { queue.ClearMnu_Click(); });
    QObject::connect(&downloads, &ListView::RightButtonDown, &context_,
                     [&lists](const QPoint& position) { lists.lvwDownloads_MouseDown(position); });
    QObject::connect(&downloads, &ListView::CopyPressed, &context_,
                     [&lists, &downloads] { lists.CopyFiles(downloads); });
}

void ControlConnections::ConnectHeaders(ColumnHelp& columnHelp) {
    const auto connectHeader = [&](const ListView& list, int number) {
        QObject::connect(&list, &ListView::HeaderRightClick, &context_,
                         [&columnHelp, number](int column, const QPoint& position) {
                             columnHelp.HeaderRightClick(number, column, position);
                         });
    };
    connectHeader(*controls_.lvwResults, ColumnHelp::lvwResults);
    connectHeader(*controls_.lvwDownloads, ColumnHelp::lvwDownloads);
}

/// A click on the clickable panel opens the list of what a search hasn't seen.
void ControlConnections::ConnectStatusBar(ToolsMenu& tools) {
    QObject::connect(controls_.stbStatus, &StatusBar::PanelClick, &context_,
                     [&tools] { tools.mnuSilent_Click(); });
}

} // namespace netrove
