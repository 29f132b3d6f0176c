#include "ShownList.h"
#include "runtime/RunTimeError.h"

#include <QAccessible>

namespace netrove {
namespace {

using List = ShownList;

template <typename Call>
int Raised(Call call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST_F(List, ShowsChangesLaterButTellsThemAtOnce) {
    AddRows({"a", "b"});
    list.SetSubItem(2, 1, Text("x"));
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.SubItem(2, 1), Text("x"));
    EXPECT_EQ(list.SubItem(2, 3), QString());
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return ShownRows() == 2; }, 1000));

    list.Remove(1);
    AddRows({"c"});
    EXPECT_EQ(Names(), "b c");
    EXPECT_EQ(ShownRows(), 2);
    list.viewport()->repaint(); // rows that have gone but are still known to the screen
    Click(2);
    EXPECT_TRUE(list.Selected(2)) << "a click is about what the list holds";
    list.Clear();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_EQ(list.CurrentRow(), 0);
}

TEST_F(List, RaisesForWhatIsNotThere) {
    AddRows({"a"});
    const int expected = int(ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(Raised([this] { (void)list.Text(0); }), expected);
    EXPECT_EQ(Raised([this] { (void)list.Text(2); }), expected);
    EXPECT_EQ(Raised([this] { list.SetSubItem(1, 0, {}); }), expected);
    EXPECT_EQ(Raised([this] { list.SetSubItem(1, 4, {}); }), expected);
    EXPECT_EQ(Raised([this] { list.Remove(2); }), expected);
    EXPECT_EQ(Raised([this] { list.SetCurrentRow(2); }), expected);
    EXPECT_EQ(Raised([this] { (void)list.ColumnWidth(5); }), expected);
    EXPECT_EQ(Raised([this] { list.SetSortKey(4); }), expected);
}

TEST_F(List, SortsOnceByOneColumn) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    AddRows({"b", "Ä", "a", "B", "z", "A"});
    Sort(1, Qt::AscendingOrder);
    EXPECT_EQ(Names(), "a A Ä b B z") << "without regard to case, equal ones as they stood";
    Sort(1, Qt::DescendingOrder);
    EXPECT_EQ(Names(), "z b B Ä a A");
    AddRows({"m"});
    EXPECT_EQ(Names(), "z b B Ä a A m") << "later rows go to the end";

    for (int row = 1; row <= list.Count(); ++row)
        list.SetSubItem(row, 2, row == 7 ? Text("0000.5000000000") : Text("0012.5000000000"));
    Sort(3, Qt::AscendingOrder);
    EXPECT_EQ(Names(), "m z b B Ä a A");
    QLocale::setDefault(before);
}

TEST_F(List, KeepsSelectionAndCurrentRowOnTheirRows) {
    AddRows({"d", "b", "c", "a"});
    Click(1);
    Click(3, Qt::ControlModifier);
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{1, 3}));
    Sort(1, Qt::AscendingOrder);
    AddRows({"e"});
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{3, 4}));
    EXPECT_EQ(list.CurrentRow(), 3);

    // What the keyboard does next starts from there.
    QTest::keyClick(&list, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{2, 3}));
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{3}));

    list.Remove(1);
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{2}));
    EXPECT_EQ(list.CurrentRow(), 2);
    list.Remove(2);
    EXPECT_EQ(list.SelectedCount(), 0);
    EXPECT_EQ(list.Text(list.CurrentRow()), Text("d")) << "the next one takes its place";
    list.SetSelected(3, true);
    list.Flush();
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(2, 0)));
}

} // namespace
} // namespace netrove
