#pragma once

#include "controls/CellPainter.h"
#include "controls/ListPlaces.h"

#include <QPainter>
#include <QPalette>
#include <QTableView>

namespace netrove {

/// Paints what can be seen of a ListView's rows: the cells, check boxes, the keyboard's mark and
/// the grid.
class ListPainter {
public:
    ListPainter(const QTableView& list, const ListModel& model, QPainter& painter);

    void PaintRows(const QRect& area);
    void PaintGrid(const QRect& area);

private:
    void PaintRow(int row, const QRect& area);
    void PaintCheckBox(int row);
    void PaintFocus(int row);

    const QTableView& list_;
    const ListModel& model_;
    const ListPlaces places_{list_};
    QPainter& painter_;
    const QPalette colors_;
    CellPainter cells_;
};

} // namespace netrove
