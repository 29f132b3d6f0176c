#pragma once

#include "controls/ImageList.h"
#include "controls/ListView.h"
#include "options/OptionPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QMenu>
#include <QPushButton>

namespace netrove {

/// The controls of the options dialog, by their names (which are their objectNames too), and their
/// places. A pair of options is named after what follows "optYes" and "optNo".
struct OptionControls {
    /// The pages of SSTab1.
    enum Tab { General, Search, Results, Save, Misc };

    explicit OptionControls(QDialog& dialog);
    OptionControls(const OptionControls&) = delete;
    OptionControls& operator=(const OptionControls&) = delete;
    ~OptionControls() = default;

    QTabWidget* SSTab1 = nullptr;

    YesNoOptions Min;
    QCheckBox* chkCol = nullptr;
    QCheckBox* chkGrids = nullptr;
    QLineEdit* txtFont = nullptr;
    QPushButton* cmdChangeFont = nullptr;

    YesNoOptions AA;
    YesNoOptions VS;
    YesNoOptions CurComp;
    QLineEdit* txtCurComp = nullptr;
    YesNoOptions AdminSh;
    YesNoOptions ExcNetNode;
    ListView* lvwExcNetNode = nullptr;
    ImageList imgXPNWImages;

    QLineEdit* MaxFilesTxt = nullptr;
    YesNoOptions MP3;
    YesNoOptions FileTyp;
    YesNoOptions Icons;
    QRadioButton* optSysIcons = nullptr;
    QRadioButton* optPreIcons = nullptr;
    QRadioButton* optB = nullptr;
    QRadioButton* optKB = nullptr;
    QRadioButton* optMB = nullptr;
    QComboBox* cboNumDec = nullptr;
    QLineEdit* txtDateFormat = nullptr;
    QLabel* lblDateEx = nullptr;

    QLineEdit* SaveFolTxt = nullptr;
    QPushButton* BrowseFolCmd = nullptr;
    QLineEdit* ConDLTxt = nullptr;
    YesNoOptions Sw;

    QCheckBox* chkTrouble = nullptr;
    QLineEdit* txtOS = nullptr;
    QLineEdit* txtUser = nullptr;
    QLineEdit* txtOSver = nullptr;

    QPushButton* cmdDefaults = nullptr;
    QPushButton* cmdApply = nullptr;
    QPushButton* OKCmd = nullptr;
    QPushButton* CancelCmd = nullptr;

    QMenu* mnuOptPopUp = nullptr;
    QAction* mnuAddNetNode = nullptr;
    QAction* mnuRemSel = nullptr;
    QAction* mnuAddDef = nullptr;

private:
    void MakeGeneral();
    void MakeSearch();
    void MakeList(QWidget& page);
    void MakeResults();
    void MakeFormats(OptionPage& page);
    void MakeSave();
    void MakeMisc();
    void MakeSystem(OptionPage& page);
    void MakeMenu(QDialog& dialog);
    void MakeButtons(QDialog& dialog);
    void LeaveColors() const;

    Q_DECLARE_TR_FUNCTIONS(OptionControls)
};

} // namespace netrove
