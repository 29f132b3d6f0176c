#pragma once

#include "controls/ListView.h"
#include "controls/StatusBar.h"
#include "windowservices/IconImages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace netrove {

/// The controls of the main window that the classes with its rules work on. The controls outlive
/// those classes.
struct WindowControls {
    QWidget& window;
    QTabWidget& SSTab1;
    QWidget& picListHolder;
    ListView& lvwResults;
    ListView& lvwDownloads;
    QLabel& RetFileLbl;
    QLabel& DownloadLbl;
    QComboBox& LstSearchFor;
    QCheckBox& chkRecurse;
    QWidget& imgFiles; ///< the picture that is shown while no job runs
    QLineEdit& txtSearchStart;
    QPushButton& cmdInpNetNode;
    StatusBar& stbStatus;
    IconSets icons;
};

} // namespace netrove
