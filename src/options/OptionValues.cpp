#include "options/OptionValues.h"

#include "controls/Color.h"
#include "controls/FontSize.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"

#include <QDir>

namespace netrove {
namespace {

constexpr quint32 White = 0xFFFFFF;
constexpr qint16 SizeInMegaBytes = 1;
constexpr qint16 SizeInKiloBytes = 2;
constexpr qint16 SizeInBytes = 3;

/// What lists take of a font: the rest is for the sample alone.
QFont ListFont(QFont font, const QFont& sample) {
    font.setFamily(sample.family());
    SetFontSize(font, FontSize(sample));
    font.setBold(sample.bold());
    font.setItalic(sample.italic());
    return font;
}

} // namespace

void OptionValues::Load() {
    controls_.SaveFolTxt->setText(settings_.SaveFolder);
    controls_.MaxFilesTxt->setText(QString::number(settings_.MaxReturnFiles));
    controls_.chkCol->setChecked(settings_.ColorsState == 1);
    controls_.chkGrids->setChecked(settings_.GridsState == 1);
    controls_.chkTrouble->setChecked(settings_.Troubleshooting == 1);
    controls_.ConDLTxt->setText(QString::number(settings_.MaxConcurrentDownloads));
    controls_.AA.Set(settings_.AutoAsterisks);
    controls_.VS.Set(settings_.IncludeVirtualShares);
    controls_.CurComp.Set(settings_.IncludeCurrentComputer);
    controls_.AdminSh.Set(settings_.IncludeAdminShares);
    controls_.MP3.Set(settings_.IncludeMP3Info);
    controls_.txtCurComp->setText(ComputerUNCName(services_.system));
    settings_.CurrentComputerName = controls_.txtCurComp->text();
    controls_.Min.Set(settings_.MinToTray);
    controls_.Sw.Set(settings_.SwitchToDloadTab);
    controls_.txtOS->setText(services_.OSName);
    controls_.txtUser->setText(services_.CurrentUser);
    controls_.txtOSver->setText(services_.OSVersion);
    LoadSize();
    controls_.txtDateFormat->setText(Trim(settings_.DateFormat));
    LoadFont();
    controls_.Icons.Set(settings_.ShowListIcons);
    (settings_.ListIconType == 1 ? controls_.optSysIcons : controls_.optPreIcons)->setChecked(true);
    controls_.FileTyp.Set(settings_.ShowFileTypes);
    controls_.ExcNetNode.Set(settings_.ExcludeNetNodes);
    exclusions_.Load();
}

void OptionValues::LoadSize() {
    if (settings_.SizeFormat == SizeInKiloBytes)
        controls_.optKB->setChecked(true);
    else if (settings_.SizeFormat == SizeInBytes)
        controls_.optB->setChecked(true);
    else
        controls_.optMB->setChecked(true);
    const bool inBytes = settings_.SizeFormat == SizeInBytes;
    controls_.cboNumDec->setCurrentIndex(inBytes ? 0 : settings_.SizeNumDec);
    controls_.cboNumDec->setEnabled(!inBytes);
}

void OptionValues::LoadFont() {
    const QFont& font = services_.lvwResults.font();
    ShowSampleFont({font, settings_.Font_CharSet});
    controls_.lvwExcNetNode->setFont(ListFont(controls_.lvwExcNetNode->font(), font));
}

void OptionValues::ShowSampleFont(const CharSetFont& font) {
    controls_.txtFont->setFont(font.font);
    controls_.txtFont->setCursorPosition(0);
    charSet_ = font.charSet;
}

void OptionValues::ShowDefaults() {
    controls_.Min.Set(false);
    ShowDefaultLook();
    controls_.VS.Set(false);
    controls_.AA.Set(true);
    controls_.CurComp.Set(false);
    controls_.AdminSh.Set(false);
    controls_.ExcNetNode.Set(true);
    controls_.lvwExcNetNode->Clear();
    exclusions_.mnuAddDef_Click();
    ShowDefaultResults();
    controls_.SaveFolTxt->setText(services_.downloadsFolder);
    controls_.ConDLTxt->setText(Text("5"));
    controls_.Sw.Set(true);
    controls_.chkTrouble->setChecked(false);
}

void OptionValues::ShowDefaultLook() {
    controls_.chkCol->setChecked(true);
    controls_.chkGrids->setChecked(false);
    QFont font(Text("Arial"));
    SetFontSize(font, 8.25);
    ShowSampleFont({font, 1});
}

void OptionValues::ShowDefaultResults() {
    controls_.MaxFilesTxt->setText(Text("5000"));
    controls_.MP3.Set(false);
    controls_.FileTyp.Set(false);
    controls_.Icons.Set(false);
    controls_.optPreIcons->setChecked(true);
    controls_.optMB->setChecked(true);
    controls_.cboNumDec->setCurrentIndex(4);
    controls_.txtDateFormat->setText(Text("MM/DD/YY"));
}

void OptionValues::Take() {
    TakeLimits();
    TakeLook();
    settings_.Troubleshooting = controls_.chkTrouble->isChecked() ? 1 : 0;
    TakeFont();
    settings_.AutoAsterisks = controls_.AA.IsYes();
    settings_.IncludeVirtualShares = controls_.VS.IsYes();
    settings_.IncludeCurrentComputer = controls_.CurComp.IsYes();
    settings_.IncludeMP3Info = controls_.MP3.IsYes();
    settings_.MinToTray = controls_.Min.IsYes();
    settings_.SwitchToDloadTab = controls_.Sw.IsYes();
    settings_.IncludeAdminShares = controls_.AdminSh.IsYes();
    TakeFormats();
    settings_.ExcludeNetNodes = controls_.ExcNetNode.IsYes();
    settings_.ExcNetNodes = exclusions_.Entries();
    settings_.ShowListIcons = controls_.Icons.IsYes();
    settings_.ListIconType = controls_.optSysIcons->isChecked() ? 1 : 0;
    settings_.ShowFileTypes = controls_.FileTyp.IsYes();
}

void OptionValues::TakeLimits() {
    settings_.SaveFolder =
        EnsureSuffix(LocalPath(Trim(controls_.SaveFolTxt->text())), QDir::separator());
    settings_.MaxReturnFiles = LeadingLong(controls_.MaxFilesTxt->text());
    const qint32 downloads = LeadingLong(controls_.ConDLTxt->text());
    settings_.MaxConcurrentDownloads = LeadingInteger(QString::number(downloads));
}

void OptionValues::TakeLook() {
    const bool colored = controls_.chkCol->isChecked();
    services_.lvwResults.SetBackColor(ToColor(colored ? settings_.ResultsBackColor : White));
    services_.lvwDownloads.SetBackColor(ToColor(colored ? settings_.DownloadsBackColor : White));
    settings_.ColorsState = colored ? 1 : 0;
    const bool grids = controls_.chkGrids->isChecked();
    services_.lvwResults.SetGridLines(grids);
    services_.lvwDownloads.SetGridLines(grids);
    settings_.GridsState = grids ? 1 : 0;
}

void OptionValues::TakeFont() {
    for (ListView* list : {controls_.lvwExcNetNode, &services_.lvwResults, &services_.lvwDownloads})
        list->setFont(ListFont(list->font(), controls_.txtFont->font()));
    settings_.Font_CharSet = charSet_;
}

void OptionValues::TakeFormats() {
    settings_.SizeFormat = controls_.optB->isChecked()    ? SizeInBytes
                           : controls_.optKB->isChecked() ? SizeInKiloBytes
                                                          : SizeInMegaBytes;
    settings_.SizeNumDec = qint16(controls_.cboNumDec->currentIndex());
    settings_.DateFormat = Trim(controls_.txtDateFormat->text());
}

} // namespace netrove
