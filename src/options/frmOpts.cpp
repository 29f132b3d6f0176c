#include "options/frmOpts.h"

#include "controls/Color.h"
#include "options/frmAddNetNode.h"
#include "options/modBrowse.h"
#include "runtime/Formats.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/Paths.h"
#include "windowservices/WindowGeometry.h"

namespace netrove {
namespace {

/// The client size, in twips.
constexpr QSize ClientSize(6030, 4995);
/// The failure of a chooser that only means that the user has cancelled it.
constexpr int CancelledByUser = 32755;

} // namespace

frmOpts::frmOpts(const OptionServices& services, QWidget* owner)
    : ProgramDialog(u"frmOpts"_s, services.look, owner)
    , services_(services)
    , controls_(*this)
    , exclusions_(controls_, {.settings = services.settings,
                              .dialogs = services.dialogs,
                              .enableApply = [this] { EnableApply(); },
                              .askForNode = [this] { return AskForNode(); }})
    , checks_(controls_, services.dialogs)
    , values_(controls_, exclusions_, services) {
    setWindowTitle(u"Options"_s);
    ConnectControls();
    ConnectEdits();
    ConnectExclusions();
    Form_Load();
}

void frmOpts::Form_Load() {
    services_.dialogs.Trap(u"frmOpts.Form_Load Error"_s, [this] {
        SetClientSize(*this, ClientSize.width(), ClientSize.height());
        LoadSkin(ClientSize);
        FixSizeAroundContents(*this);
        Centre();
        controls_.SSTab1->setCurrentIndex(OptionControls::General);
        values_.Load();
        controls_.cmdApply->setEnabled(false);
    });
}

void frmOpts::ConnectControls() {
    connect(controls_.BrowseFolCmd, &QPushButton::clicked, this, [this] { BrowseFolCmd_Click(); });
    connect(controls_.cmdChangeFont, &QPushButton::clicked, this,
            [this] { cmdChangeFont_Click(); });
    connect(controls_.cmdDefaults, &QPushButton::clicked, this, [this] { cmdDefaults_Click(); });
    connect(controls_.cmdApply, &QPushButton::clicked, this, [this] { cmdApply_Click(); });
    connect(controls_.OKCmd, &QPushButton::clicked, this, [this] { OKCmd_Click(); });
    connect(controls_.CancelCmd, &QPushButton::clicked, this, [this] { reject(); });
}

/// Every edit enables cmdApply; some also change other controls.
void frmOpts::ConnectEdits() {
    for (const QAbstractButton* button : findChildren<QAbstractButton*>()) {
        if (button->isCheckable())
            connect(button, &QAbstractButton::toggled, this, [this] { EnableApply(); });
    }
    for (const QLineEdit* line :
         {controls_.SaveFolTxt, controls_.MaxFilesTxt, controls_.ConDLTxt, controls_.txtDateFormat})
        connect(line, &QLineEdit::textChanged, this, [this] { EnableApply(); });
    connect(controls_.cboNumDec, &QComboBox::currentIndexChanged, this, [this] { EnableApply(); });

    connect(controls_.optB, &QRadioButton::toggled, this, [this](bool inBytes) {
        if (inBytes)
            controls_.cboNumDec->setCurrentIndex(0);
        controls_.cboNumDec->setEnabled(!inBytes);
    });
    connect(controls_.Icons.No, &QRadioButton::toggled, this, [this](bool none) {
        controls_.optPreIcons->setEnabled(!none);
        controls_.optSysIcons->setEnabled(!none);
    });
    for (const QRadioButton* option : {controls_.ExcNetNode.Yes, controls_.ExcNetNode.No})
        connect(option, &QRadioButton::toggled, this,
                [this] { ShowExclusionState(controls_.ExcNetNode.IsYes()); });
    connect(controls_.txtDateFormat, &QLineEdit::textChanged, this, [this] { ShowDateExample(); });
}

void frmOpts::ConnectExclusions() {
    const ListView* list = controls_.lvwExcNetNode;
    connect(list, &ListView::ColumnClick, this,
            [this](int column) { exclusions_.ColumnClick(column); });
    connect(list, &ListView::ItemCheck, this, [this] { EnableApply(); });
    connect(list, &ListView::DeletePressed, this, [this] { exclusions_.DeletePressed(); });
    connect(list, &ListView::RightButtonDown, this,
            [this](const QPoint& position) { exclusions_.MouseDown(position); });
    connect(controls_.mnuAddNetNode, &QAction::triggered, this,
            [this] { exclusions_.mnuAddNetNode_Click(); });
    connect(controls_.mnuRemSel, &QAction::triggered, this,
            [this] { exclusions_.mnuRemSel_Click(); });
    connect(controls_.mnuAddDef, &QAction::triggered, this,
            [this] { exclusions_.mnuAddDef_Click(); });
}

QString frmOpts::AskForNode() {
    frmAddNetNode dialog(services_.dialogs, Look(), parentWidget(), this);
    dialog.exec();
    return dialog.NewNetNode();
}

void frmOpts::EnableApply() {
    controls_.cmdApply->setEnabled(true);
}

void frmOpts::ShowExclusionState(bool isOn) {
    controls_.lvwExcNetNode->SetBackColor(isOn ? QColor(Qt::white) : ToColor(ButtonFaceColor));
    controls_.lvwExcNetNode->Refresh();
    controls_.lvwExcNetNode->setEnabled(isOn);
}

void frmOpts::ShowDateExample() {
    const QDateTime example(QDate(1999, 9, 18), QTime(14, 32, 21));
    controls_.lblDateEx->setText(FormatDate(example, controls_.txtDateFormat->text()));
}

void frmOpts::BrowseFolCmd_Click() {
    const QString folder =
        BrowseForFolder(u"In what folder do you want to save your files?"_s, true,
                        services_.dialogs, LocalPath(Trim(controls_.SaveFolTxt->text())));
    if (!Trim(folder).isEmpty())
        controls_.SaveFolTxt->setText(folder);
}

void frmOpts::cmdChangeFont_Click() {
    const auto failure = FailureOf([this] {
        CharSetFont font = values_.SampleFont();
        quint32 color = FromColor(controls_.txtFont->palette().color(QPalette::Text));
        if (!PickFont(font, color, services_.dialogs))
            return;
        values_.ShowSampleFont(font);
        EnableApply();
    });
    if (failure && failure->Number() != CancelledByUser)
        services_.dialogs.Failure(failure, u"Options Error..."_s);
}

void frmOpts::cmdDefaults_Click() {
    values_.ShowDefaults();
    EnableApply();
}

void frmOpts::cmdApply_Click() {
    if (!checks_.Pass()) {
        ApplyFailed_ = true;
        return;
    }
    const auto failure = FailureOf([this] {
        values_.Take();
        ApplyFailed_ = false;
    });
    controls_.cmdApply->setEnabled(false);
    services_.dialogs.Failure(failure, u"Options Error..."_s);
}

void frmOpts::OKCmd_Click() {
    cmdApply_Click();
    if (!ApplyFailed_)
        accept();
}

void frmOpts::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        update();
}

} // namespace netrove
