#pragma once

#include <QString>
#include <QStringList>

namespace netrove {

/// What the user has set. Made once with these initial values, filled from the settings file, and
/// handed to those who read it.
struct Settings {
    QString SaveFolder; ///< local folder for downloads; its closing separator may be missing
    qint32 MaxReturnFiles = 5000; ///< rows at most in the results list
    qint16 MaxConcurrentDownloads = 5;
    qint16 ColorsState = 1;                ///< 1: the lists use their background colours
    quint32 ResultsBackColor = 0xEAEAD5;   ///< red in the low byte
    quint32 DownloadsBackColor = 0xBFFFFF; ///< red in the low byte
    qint16 GridsState = 0;                 ///< 1: the lists show grid lines
    bool AutoAsterisks = true;
    bool IncludeVirtualShares = false;
    bool IncludeCurrentComputer = false;
    bool IncludeAdminShares = false;
    bool IncludeMP3Info = false;
    QString CurrentComputerName; ///< "\\" and the computer's name in upper case
    bool MinToTray = false;
    bool SwitchToDloadTab = true;
    qint16 Troubleshooting = 0; ///< 1: write the log
    bool ExcludeNetNodes = true;
    QStringList ExcNetNodes; ///< entries of the form name|enabled|type
    /// Stand in for entries that the settings file doesn't have.
    QStringList DefaultNetNodes;
    qint16 SizeFormat = 1; ///< 1 megabytes, 2 kilobytes, 3 bytes
    qint16 SizeNumDec = 4; ///< decimals of the size column, 0 to 10
    QString DateFormat = QStringLiteral("MM/DD/YY");
    bool ShowListIcons = false;
    qint16 ListIconType = 0; ///< 0 predefined, 1 the desktop's
    bool ShowFileTypes = false;
    qint32 SkinIndex = 0;
    /// Of the lists' font, whose other properties the lists have themselves. The desktop finds
    /// the characters whatever it is.
    qint16 Font_CharSet = 1;
};

} // namespace netrove
