#include "options/OptionControls.h"

#include "controls/ListHeader.h"
#include "options/NodeTypes.h"
#include "runtime/SourceText.h"
#include "skins/SkinControls.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace netrove {
namespace {

/// The edge of the list's pictures, in pixels.
constexpr int NodePicture = 16;
/// Column widths of the list, in twips.
constexpr int NameColumnWidth = 4500;
constexpr int TypeColumnWidth = 1350;
/// The least number of rows that the list has room for.
constexpr int ListRows = 5;
/// The sample text has room for a font of this many times the height of the dialog's font.
constexpr double SampleHeight = 2.5;
/// Average characters of the widest field that holds a path.
constexpr int PathCharacters = 24;

QCheckBox* MakeCheck(QWidget& parent, const char* name, const char* caption,
                     const char* toolTip = "") {
    return Named(new QCheckBox(Text(caption), &parent), Text(name), toolTip);
}

QLabel* MakeLabel(QWidget& parent, const char* name, const char* caption) {
    return Named(new QLabel(Text(caption), &parent), Text(name));
}

/// A text that can be read and copied, but not changed.
QLineEdit* MakeShownText(QWidget& parent, const char* name, const char* toolTip) {
    QLineEdit* line = MakeLine(parent, name, toolTip);
    line->setReadOnly(true);
    return line;
}

} // namespace

OptionControls::OptionControls(QDialog& dialog)
    : SSTab1(Named(new QTabWidget(&dialog), u"SSTab1"_s)), imgXPNWImages(NodePicture) {
    MakeGeneral();
    MakeSearch();
    MakeResults();
    MakeSave();
    MakeMisc();
    MakeMenu(dialog);
    MakeButtons(dialog);
    LeaveColors();
}

void OptionControls::MakeGeneral() {
    OptionPage page(*SSTab1, "General");
    Min = page.AddYesNo("Minimize To System Tray on Closing:", "Min");

    OptionPage lists(page, "Frame5", "List Options");
    lists.KeepColors();
    chkCol = MakeCheck(lists.Widget(), "chkCol", "Color&ed Backgrounds",
                       "Select to add color to list windows");
    lists.AddAtLeft(*chkCol);
    chkGrids = MakeCheck(lists.Widget(), "chkGrids", "Gridlines",
                         "Select to add gridlines to list windows");
    lists.AddAtLeft(*chkGrids);

    OptionPage sample(page, "Frame10", "Font Sample");
    sample.KeepColors();
    txtFont = MakeShownText(sample.Widget(), "txtFont", "");
    txtFont->setAccessibleName(u"Font Sample"_s);
    txtFont->setText(tr("The quick brown fox jumps over the lazy dog. 0123456789"));
    txtFont->setCursorPosition(0);
    txtFont->setFixedHeight(static_cast<int>(txtFont->sizeHint().height() * SampleHeight));
    sample.AddRow(*txtFont);
    cmdChangeFont = NamedButton(sample.Widget(), u"cmdChangeFont"_s, u"Change Font"_s,
                                "Select a specific font for the list windows");
    sample.AddAtRight(*cmdChangeFont);
    page.AddStretch();
}

void OptionControls::MakeSearch() {
    OptionPage page(*SSTab1, "Search");
    AA = page.AddYesNo("Auto-Enclose Search Parameters with Asterisks:", "AA");
    VS = page.AddYesNo("Include Virtual Shared Folders in Search:", "VS");
    CurComp = page.AddYesNo("Include Current Computer in Search:", "CurComp");
    txtCurComp = MakeShownText(page.Widget(), "txtCurComp", "The name of the current computer");
    page.AddWideField("Current Computer Name:", *txtCurComp);
    AdminSh = page.AddYesNo("Include Admin Shares in Search:", "AdminSh");
    ExcNetNode = page.AddYesNo("Exclude Selected Network Nodes in Search:", "ExcNetNode");
    MakeList(page.Widget());
    page.AddRow(*lvwExcNetNode, true);
}

void OptionControls::MakeList(QWidget& page) {
    AddNodeTypeIcons(imgXPNWImages);
    lvwExcNetNode = Named(new ListView(&page), u"lvwExcNetNode"_s);
    lvwExcNetNode->setAccessibleName(tr("Excluded network nodes"));
    lvwExcNetNode->AddColumn(u"Node Name"_s, Qt::AlignLeft, NameColumnWidth);
    lvwExcNetNode->AddColumn(u"Node Type"_s, Qt::AlignLeft, TypeColumnWidth);
    lvwExcNetNode->Header()->setStretchLastSection(true);
    lvwExcNetNode->SetCheckBoxes(true);
    lvwExcNetNode->SetIcons(&imgXPNWImages);
    lvwExcNetNode->SetSmallIcons(&imgXPNWImages);
    lvwExcNetNode->setMinimumHeight((ListRows + 1) * (lvwExcNetNode->fontMetrics().height() + 4));
}

void OptionControls::MakeResults() {
    OptionPage page(*SSTab1, "Results");
    MaxFilesTxt =
        MakeLine(page.Widget(), "MaxFilesTxt", "The maximum number of files to return on a search");
    page.AddField("Max Files Returned:", *MaxFilesTxt);
    MP3 = page.AddYesNo("Include MP3 Information in Results:", "MP3");
    FileTyp = page.AddYesNo("Include File Type Information in Results:", "FileTyp");
    Icons = page.AddYesNo("Display Associated File Icon in Results:", "Icons");
    optSysIcons = MakeOption(page.Widget(), "optSysIcons", "System",
                             "Use icons as defined by the operating system");
    optPreIcons = MakeOption(page.Widget(), "optPreIcons", "Predefined",
                             "Use icons in the internal image list");
    page.AddOptions("", {optSysIcons, optPreIcons});
    MakeFormats(page);
    page.AddStretch();
}

void OptionControls::MakeFormats(OptionPage& page) {
    QWidget& parent = page.Widget();
    optB = MakeOption(parent, "optB", "Bytes", "Size in Bytes");
    optKB = MakeOption(parent, "optKB", "KiloBytes", "Size in KiloBytes");
    optMB = MakeOption(parent, "optMB", "MegaBytes", "Size in MegaBytes");
    page.AddOptions("Size Format for Results:", {optB, optKB, optMB});
    cboNumDec = Named(new QComboBox(&parent), u"cboNumDec"_s);
    for (int decimals = 0; decimals <= 10; ++decimals)
        cboNumDec->addItem(QString::number(decimals));
    page.AddField("Number of decimal places", *cboNumDec);
    txtDateFormat =
        MakeLine(parent, "txtDateFormat", "See the \"Help Content\" for format guidelines");
    page.AddField("Date Format for Results:", *txtDateFormat);
    lblDateEx = MakeLabel(parent, "lblDateEx", "");
    lblDateEx->setTextFormat(Qt::PlainText);
    // The user decides how long the text is.
    lblDateEx->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    page.AddPair(*MakeLabel(parent, "lblConstDate", "September 18, 1999 2:32:21 PM shows as:"),
                 *lblDateEx);
}

void OptionControls::MakeSave() {
    OptionPage page(*SSTab1, "Save");
    SaveFolTxt = MakeLine(page.Widget(), "SaveFolTxt", "Folder where downloads will be saved");
    SaveFolTxt->setMinimumWidth(SaveFolTxt->fontMetrics().averageCharWidth() * PathCharacters);
    BrowseFolCmd = MakeBrowseButton(page.Widget(), "BrowseFolCmd", "Browse for a folder");
    page.AddWideField("Save Folder:", *SaveFolTxt, BrowseFolCmd);
    ConDLTxt = MakeLine(page.Widget(), "ConDLTxt", "Maximum number of concurrent downloads");
    page.AddField("Max Simultaneous Downloads:", *ConDLTxt);
    Sw = page.AddYesNo("Switch to Downloads Tab When Starting Transfers:", "Sw");
    page.AddStretch();
}

void OptionControls::MakeMisc() {
    OptionPage page(*SSTab1, "Misc");
    OptionPage trouble(page, "Frame12", "Troubleshooting");
    trouble.KeepColors();
    chkTrouble = MakeCheck(trouble.Widget(), "chkTrouble", "Dump Process Log to File");
    trouble.AddAtLeft(*chkTrouble);
    OptionPage system(page, "Frame13", "System Information");
    system.KeepColors();
    system.WidenFields();
    MakeSystem(system);
    page.AddStretch();
}

void OptionControls::MakeSystem(OptionPage& page) {
    txtOS = MakeShownText(page.Widget(), "txtOS", "The OS name");
    page.AddField("OS Name:", *txtOS);
    txtUser = MakeShownText(page.Widget(), "txtUser", "The OS login name");
    page.AddField("Logged In As:", *txtUser);
    txtOSver = MakeShownText(page.Widget(), "txtOSver", "The OS version");
    page.AddField("OS Version:", *txtOSver);
    QLabel* note =
        MakeLabel(page.Widget(), "Label1",
                  "*This is for informational purposes && cannot be modified via this program.");
    note->setWordWrap(true);
    note->setBuddy(txtOSver); // a buddy also makes "&&" show as one "&"
    page.AddRow(*note);
}

void OptionControls::MakeMenu(QDialog& dialog) {
    mnuOptPopUp = Named(new QMenu(&dialog), u"mnuOptPopUp"_s);
    mnuAddNetNode = Named(mnuOptPopUp->addAction(u"Add a Network Node..."_s), u"mnuAddNetNode"_s);
    mnuRemSel = Named(mnuOptPopUp->addAction(u"Remove the Selected Node(s)"_s), u"mnuRemSel"_s);
    mnuOptPopUp->addSeparator()->setObjectName(u"mnuSep1"_s);
    mnuAddDef = Named(mnuOptPopUp->addAction(u"Add Default Nodes"_s), u"mnuAddDef"_s);
}

void OptionControls::MakeButtons(QDialog& dialog) {
    cmdDefaults = NamedButton(dialog, u"cmdDefaults"_s, u"&Defaults"_s);
    cmdApply = NamedButton(dialog, u"cmdApply"_s, u"&Apply"_s);
    OKCmd = NamedButton(dialog, u"OKCmd"_s, u"&OK"_s);
    CancelCmd = NamedButton(dialog, u"CancelCmd"_s, u"&Cancel"_s);
    OKCmd->setDefault(true);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdDefaults, cmdApply, OKCmd, CancelCmd}) {
        if (button == cmdApply)
            buttons->addStretch();
        buttons->addWidget(button);
    }
    auto* all = new QVBoxLayout(&dialog);
    all->addWidget(SSTab1, 1);
    all->addLayout(buttons);
}

/// Sets the controls' words for SkinControls(); frames get theirs where they are made.
void OptionControls::LeaveColors() const {
    const QWidget* page = SSTab1;
    for (const char* name : {"txtDateFormat", "txtOSver", "txtUser", "txtOS", "Label1",
                             "MaxFilesTxt", "SaveFolTxt", "ConDLTxt", "txtFont", "txtCurComp"})
        page->findChild<QWidget*>(Text(name))->setProperty(TagProperty, u"NOCOLOR"_s);
    lblDateEx->setProperty(TagProperty, u"LITE"_s);
}

} // namespace netrove
