#pragma once

#include "settings/Settings.h"

#include <limits>
#include <span>
#include <variant>

namespace netrove {

/// The numbers that a setting may be. Any other counts as `otherwise`.
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
    /// None where a control of the window keeps the value.
    using Member = std::variant<std::monostate, bool Settings::*, qint16 Settings::*,
                                qint32 Settings::*, QString Settings::*>;

    const char* section;
    const char* key;
    Member member;
    const char* initial; ///< as the file would have it
    SettingRange range = {};
};

/// All of them that have one key and one value, in the order of a new settings file. How each is
/// read, what it is without a file, and what the options dialog has for its default follows from
/// here.
[[nodiscard]] std::span<const Setting> SettingsTable();

/// The one with this member, or of this key.
[[nodiscard]] const Setting& SettingOf(const Setting::Member& member);
[[nodiscard]] const Setting& SettingOf(const char* section, const char* key);

/// Gives the setting's member the value that a text of the file stands for: a number as
/// LeadingInteger or LeadingLong reads it, treated as its range says, a Boolean as ToBoolean does,
/// a text trimmed. Raises what these raise; nothing has changed then.
void TakeText(const Setting& setting, const QString& text, Settings& settings);

/// What the file gets for the setting's member.
[[nodiscard]] QString TextOf(const Setting& setting, const Settings& settings);

} // namespace netrove
