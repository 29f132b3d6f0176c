#pragma once

#include "controls/ImageList.h"
#include "controls/TreeView.h"

#include <QAction>
#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QWidget>

#include <array>

namespace netrove {

/// The controls of the network browser, by their names (which are their objectNames too).
/// BrowserLayout gives them their places. All of them are children of the dialog.
struct BrowserControls {
    explicit BrowserControls(QWidget& dialog);
    BrowserControls(const BrowserControls&) = delete;
    BrowserControls& operator=(const BrowserControls&) = delete;
    ~BrowserControls() = default;

    TreeView* tvwNetwork = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

    QLabel* ImgNet1 = nullptr; ///< the picture shown during the first load
    QLabel* LblMain = nullptr;
    QLabel* lblWait = nullptr;
    QFrame* picProg = nullptr; ///< the frame of the progress display, in front of the tree
    QFrame* shpProg = nullptr; ///< the frame of the bar
    QLabel* lblProg = nullptr; ///< the bar
    QLabel* lblProcPerc = nullptr;
    QLabel* lblAddNode = nullptr;
    std::array<QFrame*, 2> Ln{}; ///< separator lines

    QMenu* mnupopUp1 = nullptr;
    QAction* mnuExcNode = nullptr;

    ImageList imgXPNWImages;

private:
    void MakeProgress(QWidget& dialog);
    void MakeMenu(QWidget& dialog);

    Q_DECLARE_TR_FUNCTIONS(BrowserControls)
};

} // namespace netrove
