#include "controls/ListPlaces.h"

#include "controls/CellPainter.h"

#include <QHeaderView>

namespace netrove {

int ListPlaces::RowHeight() const {
    return list_.verticalHeader()->defaultSectionSize();
}

int ListPlaces::RowTop(int row) const {
    return (row - 1) * RowHeight() - list_.verticalHeader()->offset();
}

QRect ListPlaces::Row(int row) const {
    const QHeaderView& header = *list_.horizontalHeader();
    return {-header.offset(), RowTop(row), header.length(), RowHeight()};
}

QRect ListPlaces::Cell(int row, int column) const {
    return {list_.columnViewportPosition(column - 1), RowTop(row),
            list_.horizontalHeader()->sectionSize(column - 1), RowHeight()};
}

QRect ListPlaces::CheckBox(int row) const {
    return CellPainter::CheckBoxPlace(Cell(row, 1));
}

} // namespace netrove
