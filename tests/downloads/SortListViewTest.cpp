#include "windowservices/SortListView.h"

#include "fakes/DesktopFakes.h"
#include "fakes/Text.h"
#include "runtime/Yield.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

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
