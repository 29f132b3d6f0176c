#pragma once

#include "controls/ImageList.h"
#include "controls/ListView.h"
#include "controls/StatusBar.h"
#include "windowservices/IconImages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QWidget>

#include <array>

namespace netrove {

/// The controls of the main window, by their names (which are their objectNames too), at their
/// fixed places. WindowLayout moves those that follow the window's size. All of them are children
/// of the widget given to the constructor.
struct MainControls {
    /// `webAddress` is what the link shows.
    MainControls(QWidget& inner, const QString& webAddress);
    MainControls(const MainControls&) = delete;
    MainControls& operator=(const MainControls&) = delete;
    ~MainControls() = default;

    QWidget* picListHolder = nullptr;
    QTabWidget* SSTab1 = nullptr;
    QLabel* RetFileLbl = nullptr;
    ListView* lvwResults = nullptr;
    QLabel* DownloadLbl = nullptr;
    ListView* lvwDownloads = nullptr;

    QWidget* picIconLg = nullptr; ///< hidden drawing surfaces of file icons
    QWidget* picIconSm = nullptr;

    QPushButton* cmdInpNetNode = nullptr;
    QCheckBox* chkRecurse = nullptr;
    QPushButton* cmdClearLst = nullptr;
    QPushButton* cmdStartSearch = nullptr;
    QPushButton* cmdAbandon = nullptr;
    QPushButton* cmdSetSearchStart = nullptr;
    QLineEdit* txtSearchStart = nullptr;
    StatusBar* stbStatus = nullptr;
    QComboBox* LstSearchFor = nullptr;
    std::array<QLabel*, 2> imgFiles{}; ///< [0] is shown while no job runs, [1] while one does
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* HyperLbl = nullptr;
    QFrame* Line1 = nullptr;
    std::array<QFrame*, 6> Lne{};
    std::array<QFrame*, 4> RecShp{};

    ImageList imgPreIconsLg;
    ImageList imgPreIconsSm;
    ImageList imgSysIconsSm;
    ImageList imgSysIconsLg;

    [[nodiscard]] IconSets Icons();

private:
    void MakeTabs(QWidget& inner);
    void MakeHidden(QWidget& inner);
    void MakeButtons(QWidget& inner);
    void MakeInputs(QWidget& inner);
    void MakeFilePictures(QWidget& inner);
    void MakeLabels(QWidget& inner, const QString& webAddress);
    void MakeDecoration(QWidget& inner);
    void TagForSkins() const;
    void PlaceInputs();
    void PlaceSearchText(const QRect& row);
    void PlaceStartNode(const QRect& row);
    void PlaceTabs();
    void PlaceDecoration(const QRect& first, int middle, int right, int tabsTop);
    [[nodiscard]] int LabelsWidth() const;
    void SetTabOrder() const;
};

} // namespace netrove
