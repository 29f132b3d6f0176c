#include "search/ExclusionLists.h"

#include "fakes/Text.h"
#include "runtime/ExpectRaised.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(ExclusionLists, EntriesGoToTheListsOfTheirType) {
    Settings settings;
    settings.ExcNetNodes = {Text(" Temp |True|Folder"),      Text("Media|1|WORKSTATION"),
                            Text("Accounts|true|workgroup"), Text("My Net|True|Network"),
                            Text("Off|False|Folder"),        Text("FOO|nonsense|Printer")};
    ExclusionLists lists;
    lists.ParseNetNodes(settings);
    EXPECT_EQ(lists.ExcFolders, QStringList{Text("\\TEMP\\")});
    EXPECT_EQ(lists.ExcShares, QStringList{Text("TEMP")});
    EXPECT_EQ(lists.ExcWorkstations, QStringList{Text("\\\\MEDIA")});
    EXPECT_EQ(lists.ExcWorkgroups, QStringList{Text("ACCOUNTS")});
    EXPECT_EQ(lists.ExcNetworks, QStringList{Text("MY NET")});
    EXPECT_TRUE(lists.UseExcFolders && lists.UseExcShares && lists.UseExcWorkstations &&
                lists.UseExcWorkgroups && lists.UseExcNetworks);

    settings.ExcludeNetNodes = false;
    lists.ParseNetNodes(settings);
    EXPECT_FALSE(lists.UseExcFolders || lists.UseExcShares || lists.UseExcWorkstations ||
                 lists.UseExcWorkgroups || lists.UseExcNetworks);
}

TEST(ExclusionLists, BrokenEntriesFail) {
    using enum ErrorNumber;
    for (const auto& [entry, number] : {std::pair("Temp|True", SubscriptOutOfRange),
                                        {"", SubscriptOutOfRange},
                                        {"Temp|maybe|Folder", TypeMismatch},
                                        {"Temp||Folder", TypeMismatch}}) {
        Settings settings;
        settings.ExcNetNodes = {Text(entry)};
        ExpectRaised(
            number, [&] { ExclusionLists().ParseNetNodes(settings); }, Text(entry));
    }
}

} // namespace
} // namespace netrove
