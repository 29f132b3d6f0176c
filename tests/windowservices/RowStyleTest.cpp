#include "mainwindow/windowservices/RowStyle.h"

#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(RowStyle, PaintsOneRowWithAllItsColumns) {
    ListView list;
    const QString text = QStringLiteral("x");
    list.Add(text);
    SetRowStyle(list, 1, 0x00FF00, true);
    EXPECT_EQ(list.ForeColor(1), QColor(0, 255, 0)) << "a list without columns has rows too";

    for (int column = 1; column <= 3; ++column)
        list.AddColumn(text, Qt::AlignLeft, 1000);
    list.Add(text);
    list.Add(text);
    SetRowStyle(list, 2, 255, true);
    for (int row = 1; row <= 3; ++row) {
        const QColor expected = row == 2 ? QColor(255, 0, 0) : QColor();
        EXPECT_EQ(list.SubItemForeColor(row, 1), expected) << row;
        EXPECT_EQ(list.SubItemForeColor(row, 2), expected) << row;
        EXPECT_EQ(list.SubItemBold(row, 2), row == 2) << row;
    }
    SetRowStyle(list, 2, 0x80000008, false);
    EXPECT_FALSE(list.ForeColor(2).isValid()) << "the list's own colour again";
    EXPECT_FALSE(list.Bold(2) || list.SubItemBold(2, 1));

    SetRowStyle(list, 4, 255, true);
    EXPECT_THROW(SetRowStyle(list, 0, 255, true), RunTimeError);
}

} // namespace
} // namespace netrove
