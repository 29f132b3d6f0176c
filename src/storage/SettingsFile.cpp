#include "storage/SettingsFile.h"

#include "controls/Color.h"
#include "controls/FontSize.h"
#include "controls/Twips.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/FileDetails.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace netrove {
namespace {

/// Items of the search list that are kept.
constexpr int MaxSearchItems = 15;
/// Background of lists without a colour of their own; red in the low byte.
constexpr quint32 White = 0xFFFFFF;
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

/// Half of what a screen leaves beside a window.
QString Centred(qint32 screenStart, qint32 screenLength, qint32 length) {
    return SingleText(float(screenStart) + float(screenLength - length) / 2);
}

} // namespace

QString IniFileName(const QString& applicationFolder, const QString& executable) {
    return EnsureSuffix(applicationFolder, QDir::separator()) + QFileInfo(executable).fileName() +
           Text(".ini");
}

QString DownloadsFolder(const QString& applicationFolder) {
    return EnsureSuffix(applicationFolder, QDir::separator()) + Text("Downloads") +
           QDir::separator();
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

qint16 SettingsFile::ReadInteger(const char* section, const char* key,
                                 const char* defaultValue) const {
    return LeadingInteger(Read(section, key, defaultValue));
}

qint32 SettingsFile::ReadLong(const char* section, const char* key,
                              const QString& defaultValue) const {
    return LeadingLong(Read(section, Text(key), defaultValue));
}

bool SettingsFile::ReadBoolean(const char* section, const char* key,
                               const char* defaultValue) const {
    return ToBoolean(Read(section, key, defaultValue));
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
    settings_.SkinIndex = ReadLong("Skin", "Index", Text("1"));
    LoadWindowPlace();
    LoadResultColumns();
    LoadDownloadColumns();
    LoadSearchItems();
    controls_.chkRecurse.setChecked(ReadInteger("Recurse", "State", "1") != 0);
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
    WindowPlace place;
    place.left = ReadLong("Positions", "Left", Centred(screen.left, screen.width, design.width));
    place.top = ReadLong("Positions", "Top", Centred(screen.top, screen.height, design.height));
    place.width = ReadLong("Positions", "Width", QString::number(design.width));
    place.height = ReadLong("Positions", "Height", QString::number(design.height));
    const bool isFirst =
        Read("Positions", "Width", "").isEmpty() && Read("Positions", "Height", "").isEmpty();
    placement_.MoveTo(place, isFirst ? WindowPlacement::Size::WithoutFrame
                                     : WindowPlacement::Size::WithFrame);
    if (ReadBoolean("Positions", "Maximized", "False"))
        controls_.window.setWindowState(controls_.window.windowState() | Qt::WindowMaximized);
    placement_.Show();
}

/// The first two have room for names; the others share what the list has left.
void SettingsFile::LoadResultColumns() {
    ListView& list = controls_.lvwResults;
    const QString share = SingleText(float(ToTwips(list.width()) - 3300) / 6);
    for (int column = 1; column <= list.ColumnCount(); ++column) {
        if (IsHiddenResultColumn(column)) {
            list.SetColumnWidth(column, 0);
            continue;
        }
        const QString width = Read("Positions", Numbered("ResultsCol", column, "Width"),
                                   column <= 2 ? Text("1500") : share);
        // No column is wider than this; what no column can be, a Single can.
        constexpr float limit = 1e9F;
        list.SetColumnWidth(column,
                            int(std::nearbyint(std::clamp(LeadingSingle(width), 0.0F, limit))));
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
    const int last = std::max<int>(ReadInteger("Search Items", "Number", "1"), 1);
    for (int key = 0; key <= last && key < MaxSearchItems; ++key) {
        const QString item = Trim(Read("Search Items", QString::number(key), QString()));
        if (!item.isEmpty())
            list.addItem(item);
    }
    // The first item of an empty list has become the text.
    list.setCurrentIndex(-1);
    list.setEditText(current);
}

void SettingsFile::LoadSaveFolder() {
    const QString own = DownloadsFolder(services_.applicationFolder);
    if (!QFileInfo::exists(own))
        QDir().mkdir(own);
    settings_.SaveFolder = LocalPath(Read("Save", Text("Folder"), own));
    if (!QFileInfo::exists(settings_.SaveFolder))
        settings_.SaveFolder = QFileInfo::exists(own) ? own : services_.applicationFolder;
}

void SettingsFile::LoadLimits() {
    settings_.MaxReturnFiles = ReadLong("Return Files", "Maximum", Text("5000"));
    if (settings_.MaxReturnFiles < 0)
        settings_.MaxReturnFiles = 5000;
    settings_.MaxConcurrentDownloads = ReadInteger("Downloads", "Concurrent", "5");
    if (settings_.MaxConcurrentDownloads < 0)
        settings_.MaxConcurrentDownloads = 5;
}

void SettingsFile::LoadColorsAndGrids() {
    settings_.ColorsState = ReadInteger("Colors", "State", "1") != 0 ? 1 : 0;
    const bool colored = settings_.ColorsState == 1;
    controls_.lvwResults.SetBackColor(ToColor(colored ? settings_.ResultsBackColor : White));
    controls_.lvwDownloads.SetBackColor(ToColor(colored ? settings_.DownloadsBackColor : White));
    settings_.GridsState = ReadInteger("Grids", "State", "0") != 0 ? 1 : 0;
    controls_.lvwResults.SetGridLines(settings_.GridsState == 1);
    controls_.lvwDownloads.SetGridLines(settings_.GridsState == 1);
}

void SettingsFile::LoadFont() {
    QFont font = controls_.lvwResults.font();
    font.setFamily(Read("List", "Font", "Arial"));
    SetFont(font);
    const qint16 size = ReadInteger("List", "Font_Size", "8.25");
    SetFontSize(font, size < 1 || size > 72 ? 8 : size);
    SetFont(font);
    font.setItalic(ReadBoolean("List", "Font_Italic", "False"));
    SetFont(font);
    font.setBold(ReadBoolean("List", "Font_Bold", "False"));
    SetFont(font);
    settings_.Font_CharSet = ReadInteger("List", "Font_CharSet", "1");
}

void SettingsFile::SetFont(const QFont& font) {
    controls_.lvwResults.setFont(font);
    controls_.lvwDownloads.setFont(font);
}

void SettingsFile::LoadOptions() {
    settings_.SizeFormat = ReadInteger("Results_Options", "SizeFormat", "1");
    controls_.lvwResults.SetHeaderText(SizeColumn, SizeHeading(settings_.SizeFormat));
    controls_.lvwDownloads.SetHeaderText(SizeColumn, controls_.lvwResults.HeaderText(SizeColumn));
    settings_.SizeNumDec = ReadInteger("Results_Options", "SizeNumDec", "4");
    if (settings_.SizeNumDec < 0 || settings_.SizeNumDec > 10)
        settings_.SizeNumDec = 0;
    settings_.DateFormat = Trim(Read("Results_Options", "DateFormat", "MM/DD/YY"));
    settings_.AutoAsterisks = ReadBoolean("Search_Options", "Auto_Asterisks", "True");
    settings_.IncludeVirtualShares =
        ReadBoolean("Search_Options", "Include_Virtual_Shares", "False");
    settings_.IncludeCurrentComputer =
        ReadBoolean("Search_Options", "Include_Current_Computer", "False");
    settings_.CurrentComputerName = ComputerUNCName(services_.system);
    settings_.IncludeAdminShares = ReadBoolean("Search_Options", "Include_Admin_Shares", "False");
    settings_.IncludeMP3Info = ReadBoolean("Search_Options", "Include_MP3_Info", "False");
    settings_.MinToTray = ReadBoolean("Main", "MinToTray", "False");
    settings_.SwitchToDloadTab = ReadBoolean("Switch_To_Dload_Tab", "State", "True");
    settings_.Troubleshooting = ReadInteger("Main", "Troubleshooting", "0");
    settings_.ExcludeNetNodes = ReadBoolean("Exclude_Network_Nodes", "State", "True");
    nodeCount_ = ReadInteger("Exclude_Network_Nodes", "Number", "4");
    settings_.ShowListIcons = ReadBoolean("Results_Options", "ShowListIcons", "False");
    settings_.ListIconType = ReadInteger("Results_Options", "ListIconType", "0");
    if (settings_.ListIconType < 0 || settings_.ListIconType > 1)
        settings_.ListIconType = 0;
    settings_.ShowFileTypes = ReadBoolean("Results_Options", "ShowFileTypes", "False");
}

/// Entries that the file doesn't have are taken from the default ones, in turn.
void SettingsFile::LoadExclusions() {
    settings_.DefaultNetNodes = {Text("Windows|True|Folder"), Text("WinNT|True|Folder"),
                                 Text("Temp|True|Folder"),
                                 Text("Temporary Internet Files|True|Folder")};
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
    Write("Skin", "Index", settings_.SkinIndex);
    if (services_.SaveSkinXML)
        services_.SaveSkinXML();
    SaveWindowPlace();
    SaveColumns();
    SaveSearchItems();
    SaveBasics();
    SaveFont();
    SaveOptions();
    SaveExclusions();
}

/// A window that isn't in its normal state leaves the place that it had when it last was.
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

void SettingsFile::SaveBasics() {
    Write("Recurse", "State", controls_.chkRecurse.isChecked() ? 1 : 0);
    Write("Save", "Folder", Trim(settings_.SaveFolder));
    Write("Return Files", "Maximum", settings_.MaxReturnFiles);
    Write("Downloads", "Concurrent", settings_.MaxConcurrentDownloads);
    Write("Colors", "State", settings_.ColorsState);
    Write("Grids", "State", settings_.GridsState);
}

void SettingsFile::SaveFont() {
    const QFont font = controls_.lvwResults.font();
    Write("List", "Font", font.family());
    Write("List", "Font_Size", SingleText(float(FontSize(font))));
    WriteBoolean("List", "Font_Italic", font.italic());
    WriteBoolean("List", "Font_Bold", font.bold());
    Write("List", "Font_CharSet", settings_.Font_CharSet);
}

void SettingsFile::SaveOptions() {
    Write("Results_Options", "SizeFormat", settings_.SizeFormat);
    Write("Results_Options", "SizeNumDec", settings_.SizeNumDec);
    Write("Results_Options", "DateFormat", Trim(settings_.DateFormat));
    WriteBoolean("Search_Options", "Auto_Asterisks", settings_.AutoAsterisks);
    WriteBoolean("Search_Options", "Include_Virtual_Shares", settings_.IncludeVirtualShares);
    WriteBoolean("Search_Options", "Include_Current_Computer", settings_.IncludeCurrentComputer);
    WriteBoolean("Search_Options", "Include_MP3_Info", settings_.IncludeMP3Info);
    WriteBoolean("Search_Options", "Include_Admin_Shares", settings_.IncludeAdminShares);
    WriteBoolean("Main", "MinToTray", settings_.MinToTray);
    WriteBoolean("Switch_To_Dload_Tab", "State", settings_.SwitchToDloadTab);
    Write("Main", "Troubleshooting", settings_.Troubleshooting);
    WriteBoolean("Exclude_Network_Nodes", "State", settings_.ExcludeNetNodes);
    WriteBoolean("Results_Options", "ShowListIcons", settings_.ShowListIcons);
    Write("Results_Options", "ListIconType", settings_.ListIconType);
    WriteBoolean("Results_Options", "ShowFileTypes", settings_.ShowFileTypes);
}

void SettingsFile::SaveExclusions() {
    const QStringList& entries = settings_.ExcNetNodes;
    Write("Exclude_Network_Nodes", "Number", qint32(entries.size()));
    for (qsizetype node = 1; node <= entries.size(); ++node)
        Write("Exclude_Network_Nodes", Numbered("Node", int(node)), entries[node - 1]);
}

} // namespace netrove
