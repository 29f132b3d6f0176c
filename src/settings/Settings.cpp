#include "settings/Settings.h"

#include "settings/SettingsTable.h"

namespace netrove {

Settings::Settings() { // NOLINT(cppcoreguidelines-pro-type-member-init): the table knows all
                       // members
    for (const Setting& setting : SettingsTable())
        TakeText(setting, QString::fromLatin1(setting.initial), *this);
    SkinIndex = 0;
}

} // namespace netrove
