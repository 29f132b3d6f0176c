#include "settings/SettingsTable.h"

#include "runtime/Text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace netrove {
namespace {

constexpr qint32 Largest = std::numeric_limits<qint32>::max();
/// Any number but 0 counts as 1.
constexpr SettingRange ZeroOrOne{0, 0, 1};

const std::array Table{
    Setting{"Skin", "Index", &Settings::SkinIndex, "1"},
    Setting{"Recurse", "State", {}, "1", ZeroOrOne},
    Setting{"Save", "Folder", &Settings::SaveFolder, ""},
    Setting{"Return Files", "Maximum", &Settings::MaxReturnFiles, "5000", {0, Largest, 5000}},
    Setting{"Downloads", "Concurrent", &Settings::MaxConcurrentDownloads, "5", {0, Largest, 5}},
    Setting{"Colors", "State", &Settings::ColorsState, "1", ZeroOrOne},
    Setting{"Grids", "State", &Settings::GridsState, "0", ZeroOrOne},
    Setting{"List", "Font", {}, "Arial"},
    Setting{"List", "Font_Size", {}, "8.25", {1, 72, 8}},
    Setting{"List", "Font_Italic", {}, "False"},
    Setting{"List", "Font_Bold", {}, "False"},
    Setting{"List", "Font_CharSet", &Settings::Font_CharSet, "1"},
    Setting{"Results_Options", "SizeFormat", &Settings::SizeFormat, "1"},
    Setting{"Results_Options", "SizeNumDec", &Settings::SizeNumDec, "4", {0, 10, 0}},
    Setting{"Results_Options", "DateFormat", &Settings::DateFormat, "MM/DD/YY"},
    Setting{"Search_Options", "Auto_Asterisks", &Settings::AutoAsterisks, "True"},
    Setting{"Search_Options", "Include_Virtual_Shares", &Settings::IncludeVirtualShares, "False"},
    Setting{"Search_Options", "Include_Current_Computer", &Settings::IncludeCurrentComputer,
            "False"},
    Setting{"Search_Options", "Include_MP3_Info", &Settings::IncludeMP3Info, "False"},
    Setting{"Search_Options", "Include_Admin_Shares", &Settings::IncludeAdminShares, "False"},
    Setting{"Main", "MinToTray", &Settings::MinToTray, "False"},
    Setting{"Switch_To_Dload_Tab", "State", &Settings::SwitchToDloadTab, "True"},
    Setting{"Main", "Troubleshooting", &Settings::Troubleshooting, "0"},
    Setting{"Exclude_Network_Nodes", "State", &Settings::ExcludeNetNodes, "True"},
    Setting{"Results_Options", "ShowListIcons", &Settings::ShowListIcons, "False"},
    Setting{"Results_Options", "ListIconType", &Settings::ListIconType, "0", {0, 1, 0}},
    Setting{"Results_Options", "ShowFileTypes", &Settings::ShowFileTypes, "False"},
};

/// For std::visit: calls the one of several functions that fits what a variant holds.
template <class... Functions>
struct Visitor : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
Visitor(Functions...) -> Visitor<Functions...>;

} // namespace

std::span<const Setting> SettingsTable() {
    return Table;
}

const Setting& SettingOf(const Setting::Member& member) {
    const auto* const found = std::find_if(Table.begin(), Table.end(), [&](const Setting& setting) {
        return setting.member == member;
    });
    Q_ASSERT(found != Table.end());
    return *found;
}

const Setting& SettingOf(const char* section, const char* key) {
    const auto* const found = std::find_if(Table.begin(), Table.end(), [&](const Setting& setting) {
        return std::strcmp(setting.section, section) == 0 && std::strcmp(setting.key, key) == 0;
    });
    Q_ASSERT(found != Table.end());
    return *found;
}

void TakeText(const Setting& setting, const QString& text, Settings& settings) {
    const auto treated = [&](auto number) {
        return static_cast<decltype(number)>(setting.range.Treated(number));
    };
    std::visit(
        Visitor{
            [](std::monostate) {},
            [&](bool Settings::*member) { settings.*member = ToBoolean(text); },
            [&](qint16 Settings::*member) { settings.*member = treated(LeadingInteger(text)); },
            [&](qint32 Settings::*member) { settings.*member = treated(LeadingLong(text)); },
            [&](QString Settings::*member) { settings.*member = Trim(text); },
        },
        setting.member);
}

QString TextOf(const Setting& setting, const Settings& settings) {
    return std::visit(
        Visitor{
            [](std::monostate) { return QString(); },
            [&](bool Settings::*member) { return BooleanWord(settings.*member); },
            [&](qint16 Settings::*member) { return QString::number(settings.*member); },
            [&](qint32 Settings::*member) { return QString::number(settings.*member); },
            [&](QString Settings::*member) { return Trim(settings.*member); },
        },
        setting.member);
}

} // namespace netrove
