#include "ShownList.h"

namespace netrove {
namespace {

class Header : public ShownList {
protected:
    void SetUp() override {
        ShownList::SetUp();
        hiddenEdge = list.Header()->sectionViewportPosition(2);
        QObject::connect(&list, &ListView::ColumnClick, &list,
                         [this](int column) { clicked.push_back(column); });
        QObject::connect(
            &list, &ListView::HeaderRightClick, &list,
            [this](int column, const QPoint& /*position*/) { asked.push_back(column); });
    }

    [[nodiscard]] QPoint At(int x) const { return {x, list.Header()->height() / 2}; }

    void Drag(int from, int to) { DragMouse(*list.Header()->viewport(), At(from), At(to)); }

    [[nodiscard]] std::vector<int> Widths() const {
        std::vector<int> widths;
        for (int column = 1; column <= list.ColumnCount(); ++column)
            widths.push_back(list.ColumnWidth(column));
        return widths;
    }

    int hiddenEdge = 0;
    std::vector<int> clicked;
    std::vector<int> asked;
};

TEST_F(Header, HiddenColumnsStayHidden) {
    const std::vector<int> before = {1500, 1500, 0, 1500};
    ASSERT_EQ(Widths(), before);
    for (int x = hiddenEdge; x < hiddenEdge + 10; ++x) {
        Drag(x, x + 60);
        QTest::mouseDClick(list.Header()->viewport(), Qt::LeftButton, {}, At(x));
    }
    EXPECT_EQ(Widths(), before);
    list.SetColumnWidth(3, 900);
    EXPECT_EQ(Widths(), before);

    // Up to the edge, it is the edge of the column on its left.
    Drag(hiddenEdge - 2, hiddenEdge + 38);
    EXPECT_EQ(Widths(), (std::vector<int>{1500, 2100, 0, 1500}));
    QTest::mouseDClick(list.Header()->viewport(), Qt::LeftButton, {}, At(hiddenEdge + 38));
    EXPECT_EQ(list.ColumnWidth(3), 0);
    Drag(list.Header()->length() - 1, list.Header()->length() + 19);
    EXPECT_EQ(list.ColumnWidth(4), 1800);
    Drag(99, 1);
    EXPECT_GT(list.ColumnWidth(1), 0) << "a column that can be seen can't get lost";

    // Nor do they open when the rows change.
    const std::vector<int> dragged = Widths();
    AddRows({"b", "a"});
    Sort(1, Qt::AscendingOrder);
    list.Flush();
    list.Clear();
    list.Flush();
    EXPECT_EQ(Widths(), dragged);
    EXPECT_EQ(list.ColumnWidth(3), 0);
}

TEST_F(Header, TellsWhichColumnWasClicked) {
    AddRows({"a", "b"});
    QWidget* viewport = list.Header()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, At(50));
    QTest::mouseClick(viewport, Qt::LeftButton, {}, At(hiddenEdge + 50));
    QTest::mouseClick(viewport, Qt::LeftButton, {}, At(hiddenEdge + 1));
    EXPECT_EQ(clicked, (std::vector<int>{1, 4}));
    EXPECT_EQ(list.SelectedCount(), 0);

    for (const int x : {50, hiddenEdge - 1, hiddenEdge, hiddenEdge + 5, hiddenEdge + 6, 390})
        QTest::mouseClick(viewport, Qt::RightButton, {}, At(x));
    EXPECT_EQ(asked, (std::vector<int>{0, 1, 2, 2, 3, -1}));
    EXPECT_EQ(clicked.size(), 2U);

    // Several hidden columns at one place share it.
    list.HideColumn(4);
    EXPECT_EQ(list.Header()->ColumnAt(hiddenEdge), 2);
    EXPECT_EQ(list.Header()->ColumnAt(hiddenEdge + 5), 3);
}

TEST_F(Header, KnowsColumnsWhenScrolled) {
    list.SetColumnWidth(1, 6000);
    QScrollBar& bar = *list.horizontalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&bar] { return bar.maximum() > 0; }));
    bar.setValue(bar.maximum());
    const int edge = list.Header()->sectionViewportPosition(2);
    EXPECT_EQ(edge, list.viewport()->width() - 100);
    EXPECT_EQ(list.Header()->ColumnAt(edge), 2);
    EXPECT_EQ(list.Header()->ColumnAt(edge + 50), 3);
}

} // namespace
} // namespace netrove
