#include "controls/CellPainter.h"
#include "fakes/ListHands.h"
#include "fakes/Pixels.h"
#include "fakes/Text.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace netrove {
namespace {

using Numbers = std::vector<int>;

/// A visible list with four columns: A, B and D of 100 pixels, and between B and D the hidden C.
class List : public testing::Test {
protected:
    void SetUp() override {
        for (const char* header : {"A", "B", "C", "D"})
            list.AddColumn(Text(header), Qt::AlignLeft, 1500);
        list.HideColumn(3);
        list.resize(400, 300);
        list.show();
        list.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
        list.setFocus();
    }

    void AddRows(std::initializer_list<const char*> names) {
        for (const char* name : names)
            list.Add(Text(name));
    }
    void AddNumbered(int count) {
        for (int number = 1; number <= count; ++number)
            list.Add(QString::number(number));
    }

    [[nodiscard]] std::string Names() const { return Column(list); }
    void Click(int row, Qt::KeyboardModifiers keys = {}) { ClickRow(list, row, keys); }
    int Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&list, key, modifiers);
        return list.CurrentRow();
    }

    void Sort(int column, Qt::SortOrder order) {
        list.SetSorted(true);
        list.SetSortKey(column - 1);
        list.SetSortOrder(order);
        list.SetSorted(false);
    }

    /// How many rows the screen knows of.
    [[nodiscard]] int ShownRows() const { return list.model()->rowCount(); }
    /// A place in the header, and the mouse there.
    [[nodiscard]] QPoint At(int x) const { return {x, list.Header()->height() / 2}; }
    void Drag(int from, int to) { DragMouse(*list.Header()->viewport(), At(from), At(to)); }
    [[nodiscard]] Numbers Widths() const {
        Numbers widths;
        for (int column = 1; column <= list.ColumnCount(); ++column)
            widths.push_back(list.ColumnWidth(column));
        return widths;
    }

    ListView list;
};

TEST_F(List, ShowsChangesLaterButTellsThemAtOnce) {
    AddRows({"a", "b"});
    list.SetSubItem(2, 1, Text("x"));
    EXPECT_EQ(list.SubItem(2, 1) + list.SubItem(2, 3), Text("x"));
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
    EXPECT_EQ(Press(Qt::Key_Down), 0);
    EXPECT_EQ(ShownRows(), 0);
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
    list.SetSubItem(7, 2, Text("0000.5000000000"));
    Sort(3, Qt::DescendingOrder);
    EXPECT_EQ(Names(), "m z b B Ä a A");
    QLocale::setDefault(before);
}

TEST_F(List, KeepsSelectionAndCurrentRowOnTheirRows) {
    AddRows({"d", "b", "c", "a"});
    Click(1);
    Click(3, Qt::ControlModifier);
    EXPECT_EQ(list.SelectedRows(), (Numbers{1, 3}));
    Sort(1, Qt::AscendingOrder);
    AddRows({"e"});
    EXPECT_EQ(list.SelectedRows(), (Numbers{3, 4}));
    EXPECT_EQ(list.CurrentRow(), 3);

    // What the keyboard does next starts from there.
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(list.SelectedRows(), (Numbers{2, 3}));
    Press(Qt::Key_Down);
    EXPECT_EQ(list.SelectedRows(), Numbers{3});

    list.SetSelected(3, false);
    list.Remove(2);
    list.SetSelected(3, true);
    list.Flush();
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(2, 0)));
    AddNumbered(100);
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list.SelectedCount(), list.Count());
    list.Clear();
    list.Refresh();
    EXPECT_FALSE(list.SelectedCount() > 0 || list.selectionModel()->hasSelection());
}

TEST_F(List, PaintsProgressBehindTheText) {
    AddNumbered(1);
    list.Refresh();
    const auto painted = [this] { return list.viewport()->grab().toImage(); };
    const QImage plain = painted();
    list.SetProgress(1, 1, ListModel::Progress{.share = 0.5, .note = Text("50 %")});
    EXPECT_NE(painted(), plain);
    list.SetProgress(1, 1, std::nullopt);
    EXPECT_EQ(painted(), plain);
}

TEST_F(List, MovesByKeyboard) {
    AddNumbered(100);
    for (int row = 1; row <= 100; ++row)
        list.SetSubItem(row, 1, Text("second"));
    list.Flush();
    EXPECT_EQ(Press(Qt::Key_End), 100);
    EXPECT_EQ(Press(Qt::Key_Home), 1);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(list.SelectedRows(), (Numbers{1, 2}));
    EXPECT_EQ(Press(Qt::Key_Right), 3) << "sideways scrolls";
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(3, 1)).center());
    QTest::keyClicks(&list, Text("42")); // first letters of the first column
    EXPECT_EQ(list.SelectedRows(), Numbers{42});

    // Rows that come in leave what is read where it is.
    list.EnsureVisible(50);
    const int top = list.verticalScrollBar()->value();
    AddNumbered(100);
    list.Flush();
    EXPECT_EQ(list.verticalScrollBar()->value(), top);
    Sort(1, Qt::DescendingOrder);
    list.Flush();
    EXPECT_EQ(list.verticalScrollBar()->value(), top);
}

TEST_F(List, RaisesTheUsersActions) {
    const QSignalSpy enter(&list, &ListView::EnterPressed);
    const QSignalSpy doubleClicks(&list, &ListView::RowDoubleClick);
    const QSignalSpy got(&list, &ListView::GotFocus);
    const QSignalSpy lost(&list, &ListView::LostFocus);
    Numbers dragged;
    list.SetDragContent([&dragged](const Numbers& rows) -> std::unique_ptr<QMimeData> {
        dragged = rows;
        return nullptr;
    });
    AddRows({"a", "b", "c"});
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    for (const QPoint& place : {PlaceOf(list, 1), QPoint(20, 200)}) // and below the rows
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    list.clearFocus();
    EXPECT_EQ(got.size(), 0);
    list.setFocus();
    for (const QSignalSpy* raised : {&enter, &doubleClicks, &got, &lost})
        EXPECT_EQ(raised->size(), 1) << raised->signal().constData();
    Click(1);
    Click(2, Qt::ControlModifier);
    DragMouse(*list.viewport(), PlaceOf(list, 2), PlaceOf(list, 2) + QPoint(60, 0));
    EXPECT_EQ(dragged, (Numbers{1, 2}));
}

TEST_F(List, HiddenColumnsStayHidden) {
    const Numbers before = {1500, 1500, 0, 1500};
    const int hiddenEdge = list.Header()->sectionViewportPosition(2);
    ASSERT_EQ(Widths(), before);
    for (int x = hiddenEdge; x < hiddenEdge + 10; ++x) {
        Drag(x, x + 60);
        QTest::mouseDClick(list.Header()->viewport(), Qt::LeftButton, {}, At(x));
    }
    list.SetColumnWidth(3, 900);
    EXPECT_EQ(Widths(), before);

    // Up to the edge, it is the edge of the column on its left.
    Drag(hiddenEdge - 2, hiddenEdge + 38);
    EXPECT_EQ(Widths(), (Numbers{1500, 2100, 0, 1500}));
    Drag(list.Header()->length() - 1, list.Header()->length() + 19);
    EXPECT_EQ(list.ColumnWidth(4), 1800);
    Drag(99, 1);
    EXPECT_GT(list.ColumnWidth(1), 0) << "a column that can be seen can't get lost";
}

} // namespace
} // namespace netrove
