#pragma once

#include "settings/Settings.h"

#include <limits>
#include <span>
#include <variant>

namespace netrove {

/// The numbers that a setting may have. Any other one counts as `otherwise`.
struct SettingRange {
    qint32 lowest = std::numeric_limits<qint32>::min();
    qint32 highest = std::numeric_limits<qint32>::max();
    qint32 otherwise = 0;

    [[nodiscard]] qint32 Treated(qint32 number) const {
        return number < lowest || number > highest ? otherwise : number;
    }
};

/// A value of the settings file.
struct Setting {
    /// std::monostate if a control of the window keeps the value.
    using Member = std::variant<std::monostate, bool Settings::*, qint16 Settings::*,
                                qint32 Settings::*, QString Settings::*>;

    const char* section;
    const char* key;
    Member member;
    const char* initial; ///< as it would stand in the file
    SettingRange range = {};
};

/// All settings that have one key and one value, in the order of a new settings file. How each is
/// read, its value without a file, and its default in the options dialog follow from this table.
[[nodiscard]] std::span<const Setting> SettingsTable();

/// The setting with this member or this key.
[[nodiscard]] const Setting& SettingOf(const Setting::Member& member);
[[nodiscard]] const Setting& SettingOf(const char* section, const char* key);

/// Sets the setting's member to the value that a text of the file stands for: a number as
/// LeadingInteger or LeadingLong reads it, treated as its range says; a Boolean as ToBoolean reads
/// it; a text trimmed. Raises what these functions raise, and then changes nothing.
void TakeText(const Setting& setting, const QString& text, Settings& settings);

/// The text that stands for the setting's member in the file.
[[nodiscard]] QString TextOf(const Setting& setting, const Settings& settings);

} // namespace netrove
