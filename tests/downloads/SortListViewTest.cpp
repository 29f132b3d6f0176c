#include "mainwindow/windowservices/SortListView.h"

#include "fakes/DesktopFakes.h"
#include "fakes/Text.h"
#include "runtime/Yield.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(SortListView, TurnsRoundAndMarksOneHeader) {
    ListView list;
    for (const char* header : {"Name", "Date", "Key"})
        list.AddColumn(Text(header), Qt::AlignLeft, 1000);
    RecordedDialogs dialogs;
    const auto headers = [&list]() -> QString {
        return list.HeaderText(1) + u'|' + list.HeaderText(2) + u'|' + list.HeaderText(3);
    };
    const auto rows = [&list] {
        QString names;
        for (int row = 1; row <= list.Count(); ++row)
            names += list.Text(row);
        return names;
    };
    EXPECT_TRUE(SortListView(list, 1, 1, true, dialogs));
    EXPECT_EQ(headers(), Text("Name|Date|Key")) << "an empty list stays as it is";
    for (const char* name : {"b", "C", "a"}) {
        const int row = list.Add(Text(name));
        list.SetSubItem(row, 2, Text(name));
    }
    EXPECT_TRUE(SortListView(list, 1, 1, true, dialogs));
    EXPECT_EQ(headers(), Text("Name v|Date|Key"));
    EXPECT_EQ(rows(), Text("Cba"));
    EXPECT_TRUE(SortListView(list, 2, 3, true, dialogs));
    EXPECT_EQ(headers(), Text("Name|Date ^|Key"));
    EXPECT_EQ(rows(), Text("abC"));
    list.Add(Text("0"));
    list.Flush();
    EXPECT_EQ(rows(), Text("abC0")) << "rows that are added later stay at the end";

    EXPECT_FALSE(SortListView(list, 1, 9, false, dialogs));
    EXPECT_TRUE(dialogs.Shown.isEmpty());
    EXPECT_FALSE(SortListView(list, 1, 9, true, dialogs));
    EXPECT_EQ(
        dialogs.Shown,
        QStringList(Text("Error in Function : SortListView: Error9\tSubscript out of range")));
    EXPECT_FALSE(list.Sorted());
}

TEST(SortListView, AClickDuringAClickCounts) {
    ListView list;
    for (const char* header : {"Name", "Date"})
        list.AddColumn(Text(header), Qt::AlignLeft, 1000);
    list.Add(Text("a"));
    list.Add(Text("b"));
    RecordedDialogs dialogs;
    int yields = 0;
    const auto before = SetYieldPass([&] {
        if (++yields == 3) {
            EXPECT_TRUE(SortListView(list, 2, 1, true, dialogs));
            EXPECT_TRUE(SortListView(list, 2, 1, true, dialogs));
        }
    });
    SetYieldAlways(true);
    EXPECT_TRUE(SortListView(list, 1, 1, true, dialogs));
    SetYieldAlways(false);
    SetYieldPass(before);
    EXPECT_EQ(list.HeaderText(1) + list.HeaderText(2), Text("NameDate ^")) << "one mark";
    EXPECT_EQ(list.Text(1), Text("a"));
}

} // namespace
} // namespace netrove
