#pragma once

#include "fakes/Text.h"
#include "settings/SettingsTable.h"

namespace netrove {

/// Settings other than the initial ones, each of them.
inline Settings UnusualSettings(const QString& saveFolder) {
    Settings settings;
    settings.SaveFolder = saveFolder;
    settings.MaxReturnFiles = 77;
    settings.MaxConcurrentDownloads = 9;
    settings.ColorsState = 0;
    settings.GridsState = 1;
    settings.AutoAsterisks = false;
    settings.IncludeVirtualShares = true;
    settings.IncludeCurrentComputer = true;
    settings.IncludeAdminShares = true;
    settings.IncludeMP3Info = true;
    settings.MinToTray = true;
    settings.SwitchToDloadTab = false;
    settings.Troubleshooting = 1;
    settings.SizeFormat = 2;
    settings.SizeNumDec = 7;
    settings.DateFormat = Text("YYYY-MM-DD");
    settings.ShowListIcons = true;
    settings.ListIconType = 1;
    settings.ShowFileTypes = true;
    settings.ExcludeNetNodes = false;
    settings.Font_CharSet = 238;
    return settings;
}

/// Every setting that isn't kept by a control, as one text.
inline std::string Described(const Settings& settings) {
    QStringList texts{settings.ExcNetNodes.join(u',')};
    for (const Setting& setting : SettingsTable())
        texts += TextOf(setting, settings);
    return texts.join(u'\n').toStdString();
}

} // namespace netrove
