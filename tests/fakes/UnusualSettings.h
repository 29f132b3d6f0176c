#pragma once

#include "fakes/Text.h"
#include "settings/SettingsTable.h"

namespace netrove {

/// Settings other than the initial ones, each of them that no control keeps.
inline Settings UnusualSettings(const QString& saveFolder) {
    const Settings initial;
    Settings settings;
    for (const Setting& setting : SettingsTable()) {
        for (const char* other : {"1", "2", "0"}) {
            if (setting.member.index() != 0 &&
                TextOf(setting, settings) == TextOf(setting, initial))
                TakeText(setting, Text(other), settings);
        }
    }
    settings.SaveFolder = saveFolder;
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
