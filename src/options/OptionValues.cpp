#include "options/OptionValues.h"

#include "controls/FontSize.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"
#include "settings/SettingsTable.h"
#include "windowservices/ListLook.h"

#include <QDir>

namespace netrove {
namespace {

constexpr qint16 SizeInMegaBytes = 1;
constexpr qint16 SizeInKiloBytes = 2;
constexpr qint16 SizeInBytes = 3;

/// The list's font with what it takes over from the sample; the other attributes only show in the
/// sample.
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
    Show(settings_);
    controls_.txtCurComp->setText(ComputerUNCName(services_.system));
    settings_.CurrentComputerName = controls_.txtCurComp->text();
    controls_.txtOS->setText(services_.OSName);
    controls_.txtUser->setText(services_.CurrentUser);
    controls_.txtOSver->setText(services_.OSVersion);
    LoadFont();
    exclusions_.Load();
}

void OptionValues::Show(const Settings& settings) {
    controls_.MaxFilesTxt->setText(QString::number(settings.MaxReturnFiles));
    controls_.chkCol->setChecked(settings.ColorsState == 1);
    controls_.chkGrids->setChecked(settings.GridsState == 1);
    controls_.chkTrouble->setChecked(settings.Troubleshooting == 1);
    controls_.ConDLTxt->setText(QString::number(settings.MaxConcurrentDownloads));
    controls_.AA.Set(settings.AutoAsterisks);
    controls_.VS.Set(settings.IncludeVirtualShares);
    controls_.CurComp.Set(settings.IncludeCurrentComputer);
    controls_.AdminSh.Set(settings.IncludeAdminShares);
    controls_.MP3.Set(settings.IncludeMP3Info);
    controls_.Min.Set(settings.MinToTray);
    controls_.Sw.Set(settings.SwitchToDloadTab);
    ShowSize(settings);
    controls_.txtDateFormat->setText(Trim(settings.DateFormat));
    controls_.Icons.Set(settings.ShowListIcons);
    (settings.ListIconType == 1 ? controls_.optSysIcons : controls_.optPreIcons)->setChecked(true);
    controls_.FileTyp.Set(settings.ShowFileTypes);
    controls_.ExcNetNode.Set(settings.ExcludeNetNodes);
}

void OptionValues::ShowSize(const Settings& settings) {
    if (settings.SizeFormat == SizeInKiloBytes)
        controls_.optKB->setChecked(true);
    else if (settings.SizeFormat == SizeInBytes)
        controls_.optB->setChecked(true);
    else
        controls_.optMB->setChecked(true);
    const bool inBytes = settings.SizeFormat == SizeInBytes;
    controls_.cboNumDec->setCurrentIndex(inBytes ? 0 : settings.SizeNumDec);
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
    const Settings defaults;
    Show(defaults);
    QFont font(Text(SettingOf("List", "Font").initial));
    SetFontSize(font, LeadingNumber(Text(SettingOf("List", "Font_Size").initial)));
    ShowSampleFont({font, defaults.Font_CharSet});
    controls_.lvwExcNetNode->Clear();
    exclusions_.mnuAddDef_Click();
    controls_.SaveFolTxt->setText(services_.downloadsFolder);
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
    settings_.ColorsState = controls_.chkCol->isChecked() ? 1 : 0;
    settings_.GridsState = controls_.chkGrids->isChecked() ? 1 : 0;
    ApplyListLook(settings_, services_.lvwResults, services_.lvwDownloads);
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
    settings_.SizeNumDec = static_cast<qint16>(controls_.cboNumDec->currentIndex());
    settings_.DateFormat = Trim(controls_.txtDateFormat->text());
}

} // namespace netrove
