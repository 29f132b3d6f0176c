#pragma once

#include "fakes/ListHands.h"
#include "fakes/Text.h"

#include <QScrollBar>
#include <gtest/gtest.h>

namespace netrove {

/// A visible list with four columns: A, B and D of 100 pixels, and between B and D the hidden C.
class ShownList : public testing::Test {
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
    [[nodiscard]] QPoint On(int row) { return PlaceOf(list, row); }
    void Click(int row, Qt::KeyboardModifiers keys = {}) { ClickRow(list, row, keys); }

    void Sort(int column, Qt::SortOrder order) {
        list.SetSorted(true);
        list.SetSortKey(column - 1);
        list.SetSortOrder(order);
        list.SetSorted(false);
    }

    /// How many rows the screen knows of.
    [[nodiscard]] int ShownRows() const { return list.model()->rowCount(); }

    ListView list;
};

} // namespace netrove
