#include "storage/SettingsFile.h"

#include "controls/FontSize.h"
#include "controls/Twips.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/FileDetails.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"
#include "windowservices/ListLook.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace netrove {
namespace {

/// Items of the search list that are kept.
constexpr int MaxSearchItems = 15;
constexpr int SizeColumn = 3;
/// The columns that both lists have in common, and the hidden sort keys of the results.
constexpr int SharedColumns = 6;
constexpr int Size2Column = 9;
constexpr int Date2Column = 10;

QString Numbered(const char* start, int number, const char* end = "") {
    return Text(start) + QString::number(number) + Text(end);
}

bool IsHiddenResultColumn(int column) {
    return column == Size2Column || column == Date2Column;
}

/// Where a window of that length begins if it is centred on a screen, in one direction.
QString Centred(qint32 screenStart, qint32 screenLength, qint32 length) {
    return SingleText(static_cast<float>(screenStart) +
                      static_cast<float>(screenLength - length) / 2);
}

} // namespace

QString IniFileName(const QString& applicationFolder, const QString& executable) {
    return EnsureSuffix(applicationFolder, QDir::separator()) + QFileInfo(executable).fileName() +
           u".ini"_s;
}

QString DownloadsFolder(const QString& applicationFolder) {
    return EnsureSuffix(applicationFolder, QDir::separator()) + u"Downloads"_s + QDir::separator();
}

SettingsFile::SettingsFile(const Controls& controls, const Services& services, const QString& path)
    : controls_(controls)
    , services_(services)
    , settings_(services.settings)
    , profile_(path)
    , placement_(controls.window) {}

QString SettingsFile::Read(const char* section, const QString& key,
                           const QString& defaultValue) const {
    return profile_.ReadIni(Text(section), key, defaultValue);
}

QString SettingsFile::Read(const char* section, const char* key, const char* defaultValue) const {
    return Read(section, Text(key), Text(defaultValue));
}

QString SettingsFile::Read(const Setting& setting) const {
    return Read(setting.section, setting.key, setting.initial);
}

qint32 SettingsFile::ReadNumber(const char* section, const char* key) const {
    const Setting& setting = SettingOf(section, key);
    return setting.range.Treated(LeadingInteger(Read(setting)));
}

bool SettingsFile::ReadBoolean(const char* section, const char* key) const {
    return ToBoolean(Read(SettingOf(section, key)));
}

void SettingsFile::Load(const Setting::Member& member) {
    const Setting& setting = SettingOf(member);
    TakeText(setting, Read(setting), settings_);
}

void SettingsFile::Write(const char* section, const QString& key, const QString& value) {
    profile_.WriteIni(Text(section), key, value);
}

void SettingsFile::Write(const char* section, const char* key, const QString& value) {
    Write(section, Text(key), value);
}

void SettingsFile::Write(const char* section, const char* key, qint32 value) {
    Write(section, key, QString::number(value));
}

void SettingsFile::WriteBoolean(const char* section, const char* key, bool value) {
    Write(section, key, BooleanWord(value));
}

void SettingsFile::LoadIni() {
    const ProfileFile::Batch batch(profile_);
    Load(&Settings::SkinIndex);
    LoadWindowPlace();
    LoadResultColumns();
    LoadDownloadColumns();
    LoadSearchItems();
    controls_.chkRecurse.setChecked(ReadNumber("Recurse", "State") != 0);
    LoadSaveFolder();
    LoadLimits();
    LoadColorsAndGrids();
    LoadFont();
    LoadOptions();
    LoadExclusions();
    controls_.lvwResults.Refresh();
    controls_.lvwDownloads.Refresh();
    isLoaded_ = true;
}

QString SettingsFile::KeepUnloaded() {
    if (isLoaded_)
        return {};
    QString copy;
    if (FailureOf([&] { copy = profile_.KeepCopy(); }))
        return tr("Not all settings were loaded. No copy of their file can be made, so it stays as "
                  "it is.");
    return copy.isEmpty() ? QString()
                          : tr("Not all settings were loaded. Their file is kept as %1.").arg(copy);
}

void SettingsFile::LoadWindowPlace() {
    const WindowPlace screen = WindowPlacement::MainScreen();
    const WindowPlace design = placement_.Place();
    const auto number = [this](const char* key, const QString& otherwise) {
        return LeadingLong(Read("Positions", Text(key), otherwise));
    };
    WindowPlace place;
    place.left = number("Left", Centred(screen.left, screen.width, design.width));
    place.top = number("Top", Centred(screen.top, screen.height, design.height));
    place.width = number("Width", QString::number(design.width));
    place.height = number("Height", QString::number(design.height));
    const bool isFirst =
        Read("Positions", "Width", "").isEmpty() && Read("Positions", "Height", "").isEmpty();
    placement_.MoveTo(place, isFirst ? WindowPlacement::Size::WithoutFrame
                                     : WindowPlacement::Size::WithFrame);
    if (ToBoolean(Read("Positions", "Maximized", "False")))
        controls_.window.setWindowState(controls_.window.windowState() | Qt::WindowMaximized);
    placement_.Show();
}

/// By default the first two columns have room for names, and the others share the rest.
void SettingsFile::LoadResultColumns() {
    ListView& list = controls_.lvwResults;
    const QString share = SingleText(static_cast<float>(ToTwips(list.width()) - 3300) / 6);
    for (int column = 1; column <= list.ColumnCount(); ++column) {
        if (IsHiddenResultColumn(column)) {
            list.SetColumnWidth(column, 0);
            continue;
        }
        const QString width = Read("Positions", Numbered("ResultsCol", column, "Width"),
                                   column <= 2 ? u"1500"_s : share);
        // No column is this wide, but a number in the file may be greater still.
        constexpr float limit = 1e9F;
        list.SetColumnWidth(column, static_cast<int>(std::nearbyint(
                                        std::clamp(LeadingSingle(width), 0.0F, limit))));
    }
}

void SettingsFile::LoadDownloadColumns() {
    for (int column = 1; column <= SharedColumns; ++column)
        controls_.lvwDownloads.SetColumnWidth(column, controls_.lvwResults.ColumnWidth(column));
}

void SettingsFile::LoadSearchItems() {
    QComboBox& list = controls_.LstSearchFor;
    const QString current = Read("Search Items", "Current", "*.mp3");
    list.setEditText(current);
    const int last = std::max<int>(LeadingInteger(Read("Search Items", "Number", "1")), 1);
    for (int key = 0; key <= last && key < MaxSearchItems; ++key) {
        const QString item = Trim(Read("Search Items", QString::number(key), QString()));
        if (!item.isEmpty())
            list.addItem(item);
    }
    // Adding the first item has made it the text.
    list.setCurrentIndex(-1);
    list.setEditText(current);
}

void SettingsFile::LoadSaveFolder() {
    const QString own = DownloadsFolder(services_.applicationFolder);
    if (!QFileInfo::exists(own))
        QDir().mkdir(own);
    settings_.SaveFolder = LocalPath(Read("Save", u"Folder"_s, own));
    if (!QFileInfo::exists(settings_.SaveFolder))
        settings_.SaveFolder = QFileInfo::exists(own) ? own : services_.applicationFolder;
}

void SettingsFile::LoadLimits() {
    Load(&Settings::MaxReturnFiles);
    Load(&Settings::MaxConcurrentDownloads);
}

void SettingsFile::LoadColorsAndGrids() {
    Load(&Settings::ColorsState);
    ShowColorsAndGrids();
    Load(&Settings::GridsState);
    ShowColorsAndGrids();
}

void SettingsFile::ShowColorsAndGrids() {
    ApplyListLook(settings_, controls_.lvwResults, controls_.lvwDownloads);
}

void SettingsFile::LoadFont() {
    QFont font = controls_.lvwResults.font();
    font.setFamily(Read(SettingOf("List", "Font")));
    SetFont(font);
    SetFontSize(font, ReadNumber("List", "Font_Size"));
    SetFont(font);
    font.setItalic(ReadBoolean("List", "Font_Italic"));
    SetFont(font);
    font.setBold(ReadBoolean("List", "Font_Bold"));
    SetFont(font);
    Load(&Settings::Font_CharSet);
}

void SettingsFile::SetFont(const QFont& font) {
    controls_.lvwResults.setFont(font);
    controls_.lvwDownloads.setFont(font);
}

void SettingsFile::LoadOptions() {
    Load(&Settings::SizeFormat);
    controls_.lvwResults.SetHeaderText(SizeColumn, SizeHeading(settings_.SizeFormat));
    controls_.lvwDownloads.SetHeaderText(SizeColumn, controls_.lvwResults.HeaderText(SizeColumn));
    Load(&Settings::SizeNumDec);
    Load(&Settings::DateFormat);
    Load(&Settings::AutoAsterisks);
    Load(&Settings::IncludeVirtualShares);
    Load(&Settings::IncludeCurrentComputer);
    settings_.CurrentComputerName = ComputerUNCName(services_.system);
    Load(&Settings::IncludeAdminShares);
    Load(&Settings::IncludeMP3Info);
    Load(&Settings::MinToTray);
    Load(&Settings::SwitchToDloadTab);
    Load(&Settings::Troubleshooting);
    Load(&Settings::ExcludeNetNodes);
    nodeCount_ = LeadingInteger(Read("Exclude_Network_Nodes", "Number", "4"));
    Load(&Settings::ShowListIcons);
    Load(&Settings::ListIconType);
    Load(&Settings::ShowFileTypes);
}

/// Entries that are missing from the file are taken from the default ones, in turn.
void SettingsFile::LoadExclusions() {
    settings_.DefaultNetNodes = {u"Windows|True|Folder"_s, u"WinNT|True|Folder"_s,
                                 u"Temp|True|Folder"_s, u"Temporary Internet Files|True|Folder"_s};
    settings_.ExcNetNodes.clear();
    if (nodeCount_ < 1) {
        settings_.ExcludeNetNodes = false;
        return;
    }
    for (int node = 1; node <= nodeCount_; ++node) {
        const qsizetype standIn = (node - 1) % settings_.DefaultNetNodes.size();
        const QString entry = Trim(Read("Exclude_Network_Nodes", Numbered("Node", node),
                                        settings_.DefaultNetNodes[standIn]));
        if (!entry.isEmpty())
            settings_.ExcNetNodes.append(entry);
    }
}

void SettingsFile::SaveIni() {
    if (!isLoaded_)
        profile_.KeepCopy();
    const ProfileFile::Batch batch(profile_);
    Write("Search Items", "", QString());
    Write("Exclude_Network_Nodes", "", QString());
    Write("Skin", "Index", settings_.SkinIndex); // before the keys that SaveSkinXML writes
    if (services_.SaveSkinXML)
        services_.SaveSkinXML();
    SaveWindowPlace();
    SaveColumns();
    SaveSearchItems();
    SaveSettings();
    SaveExclusions();
}

/// If the window isn't in its normal state, the file keeps the place that was saved before.
void SettingsFile::SaveWindowPlace() {
    const QWidget& window = controls_.window;
    if (!window.isMinimized() && !window.isMaximized() && !window.isFullScreen()) {
        const WindowPlace place = placement_.Place();
        if (WindowPlacement::CanMove()) {
            Write("Positions", "Left", place.left);
            Write("Positions", "Top", place.top);
        }
        Write("Positions", "Width", place.width);
        Write("Positions", "Height", place.height);
    }
    WriteBoolean("Positions", "Maximized", window.isMaximized() && !window.isMinimized());
}

void SettingsFile::SaveColumns() {
    for (int column = 1; column <= controls_.lvwResults.ColumnCount(); ++column) {
        if (!IsHiddenResultColumn(column)) {
            Write("Positions", Numbered("ResultsCol", column, "Width"),
                  QString::number(controls_.lvwResults.ColumnWidth(column)));
        }
    }
    for (int column = 1; column <= SharedColumns; ++column) {
        Write("Positions", Numbered("DownLoadsCol", column, "Width"),
              QString::number(controls_.lvwDownloads.ColumnWidth(column)));
    }
}

void SettingsFile::SaveSearchItems() {
    const QComboBox& list = controls_.LstSearchFor;
    Write("Search Items", "Number", list.count());
    Write("Search Items", "Current", Trim(list.currentText()));
    for (int item = 0; item < std::min(list.count(), MaxSearchItems); ++item)
        Write("Search Items", QString::number(item), Trim(list.itemText(item)));
}

void SettingsFile::SaveSettings() {
    for (const Setting& setting : SettingsTable()) {
        const bool isKeptByControl = std::holds_alternative<std::monostate>(setting.member);
        Write(setting.section, setting.key,
              isKeptByControl ? KeptByControl(setting) : TextOf(setting, settings_));
    }
}

QString SettingsFile::KeptByControl(const Setting& setting) const {
    const QFont font = controls_.lvwResults.font();
    const std::pair<const Setting&, QString> values[] = {
        {SettingOf("Recurse", "State"), Text(controls_.chkRecurse.isChecked() ? "1" : "0")},
        {SettingOf("List", "Font"), font.family()},
        {SettingOf("List", "Font_Size"), SingleText(static_cast<float>(FontSize(font)))},
        {SettingOf("List", "Font_Italic"), BooleanWord(font.italic())},
        {SettingOf("List", "Font_Bold"), BooleanWord(font.bold())},
    };
    for (const auto& [kept, text] : values)
        if (&kept == &setting)
            return text;
    return {};
}

void SettingsFile::SaveExclusions() {
    const QStringList& entries = settings_.ExcNetNodes;
    Write("Exclude_Network_Nodes", "Number", static_cast<qint32>(entries.size()));
    for (qsizetype node = 1; node <= entries.size(); ++node)
        Write("Exclude_Network_Nodes", Numbered("Node", static_cast<int>(node)), entries[node - 1]);
}

} // namespace netrove
