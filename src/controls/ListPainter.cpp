#include "controls/ListPainter.h"

#include "controls/ListModel.h"

#include <QHeaderView>

#include <algorithm>

namespace netrove {
namespace {

QPalette::ColorGroup GroupOf(const QWidget& list) {
    if (!list.isEnabled())
        return QPalette::Disabled;
    return list.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

} // namespace

ListPainter::ListPainter(const QTableView& list, const ListModel& model, QPainter& painter)
    : list_(list)
    , model_(model)
    , painter_(painter)
    , colors_(list.palette())
    , cells_(painter, model, list.font(), colors_, GroupOf(list), model.Pictures()) {}

void ListPainter::PaintRows(const QRect& area) {
    const int first = std::max(places_.RowAt(area.top()), 1);
    const int last = std::min(places_.RowAt(area.bottom()), model_.Count());
    for (int row = first; row <= last; ++row)
        PaintRow(row, area);
}

void ListPainter::PaintRow(int row, const QRect& area) {
    cells_.PaintRowBackground(places_.Row(row), row);
    for (int column = 1; column <= model_.ColumnCount(); ++column) {
        const QRect cell = places_.Cell(row, column);
        if (cell.intersects(area))
            cells_.PaintCell(cell, row, column);
    }
    if (model_.CheckBoxes())
        PaintCheckBox(row);
    if (row == model_.CurrentRow() && list_.hasFocus())
        PaintFocus(row);
}

void ListPainter::PaintCheckBox(int row) {
    QStyleOptionViewItem box;
    box.initFrom(&list_);
    box.rect = places_.CheckBox(row);
    box.state |= model_.Checked(row) ? QStyle::State_On : QStyle::State_Off;
    box.state &= ~QStyle::State_HasFocus;
    list_.style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter_, &list_);
}

void ListPainter::PaintFocus(int row) {
    QStyleOptionFocusRect frame;
    frame.initFrom(&list_);
    frame.rect = places_.Row(row);
    frame.state |= QStyle::State_KeyboardFocusChange; // some styles show no mark without it
    list_.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter_, &list_);
}

void ListPainter::PaintGrid(const QRect& area) {
    painter_.setPen(cells_.GridColor());
    for (int row = places_.RowAt(area.top()); places_.RowTop(row) <= area.bottom() + 1; ++row) {
        const int y = places_.RowTop(row) - 1;
        painter_.drawLine(area.left(), y, area.right(), y);
    }
    for (int column = 1; column <= model_.ColumnCount(); ++column) {
        const int x = places_.Cell(1, column).right();
        if (!list_.horizontalHeader()->isSectionHidden(column - 1))
            painter_.drawLine(x, area.top(), x, area.bottom());
    }
}

} // namespace netrove
