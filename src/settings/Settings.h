#pragma once

#include <QString>
#include <QStringList>

namespace netrove {

/// What the user has set. Made once with the initial values of SettingsTable, filled from the
/// settings file, and handed to those who read it.
struct Settings {
    Settings();

    QString SaveFolder;    ///< local folder for downloads; its closing separator may be missing
    qint32 MaxReturnFiles; ///< rows at most in the results list
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
    /// Stand in for entries that the settings file doesn't have.
    QStringList DefaultNetNodes;
    qint16 SizeFormat; ///< 1 megabytes, 2 kilobytes, 3 bytes
    qint16 SizeNumDec; ///< decimals of the size column, 0 to 10
    QString DateFormat;
    bool ShowListIcons;
    qint16 ListIconType; ///< 0 predefined, 1 the desktop's
    bool ShowFileTypes;
    qint32 SkinIndex; ///< 0, none, until one has been loaded
    /// Of the lists' font, whose other properties the lists have themselves. The desktop finds
    /// the characters whatever it is.
    qint16 Font_CharSet;
};

} // namespace netrove
