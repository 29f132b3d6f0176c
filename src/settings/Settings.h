#pragma once

#include <QString>
#include <QStringList>

namespace netrove {

/// What the user has set. Made once with the initial values of SettingsTable, filled from the
/// settings file, and handed to the classes that read it.
struct Settings {
    Settings();

    QString SaveFolder;    ///< local folder for downloads; its closing separator may be missing
    qint32 MaxReturnFiles; ///< most rows of the results list
    qint16 MaxConcurrentDownloads;         ///< copies at one time
    qint16 ColorsState;                    ///< 1: the lists use their background colours
    quint32 ResultsBackColor = 0xEAEAD5;   ///< red in the low byte; not stored
    quint32 DownloadsBackColor = 0xBFFFFF; ///< red in the low byte; not stored
    qint16 GridsState;                     ///< 1: the lists show grid lines
    bool AutoAsterisks;                    ///< enclose search texts in asterisks
    bool IncludeVirtualShares;
    bool IncludeCurrentComputer;
    bool IncludeAdminShares;
    bool IncludeMP3Info;
    QString CurrentComputerName; ///< "\\" and the computer's name in upper case; not stored
    bool MinToTray;
    bool SwitchToDloadTab;
    qint16 Troubleshooting; ///< 1: write the log
    bool ExcludeNetNodes;
    QStringList ExcNetNodes; ///< entries of the form name|enabled|type
    /// The default entries; they also replace entries that the settings file should have but
    /// doesn't.
    QStringList DefaultNetNodes;
    qint16 SizeFormat; ///< 1 megabytes, 2 kilobytes, 3 bytes
    qint16 SizeNumDec; ///< decimals of the size column, 0 to 10
    QString DateFormat;
    bool ShowListIcons;
    qint16 ListIconType; ///< 0 predefined, 1 the desktop's
    bool ShowFileTypes;
    qint32 SkinIndex; ///< 0, none, until one has been loaded
    /// The character set of the lists' font; the lists themselves keep its other properties. It has
    /// no effect: the desktop finds the characters anyway.
    qint16 Font_CharSet;
};

} // namespace netrove
