#include "windowservices/RowStyle.h"

#include "controls/Color.h"

namespace netrove {

namespace {

/// A colour for a list's texts. For the desktop's text colour the list's own is used, which fits
/// the list's background.
QColor ToForeColor(quint32 color) {
    return color == WindowTextColor ? QColor() : ToColor(color);
}

} // namespace

void SetRowStyle(ListView& list, int row, quint32 color, bool bold) {
    if (row > list.Count())
        return;
    const QColor foreColor = ToForeColor(color);
    list.SetBold(row, bold);
    list.SetForeColor(row, foreColor);
    if (list.ColumnCount() == 0)
        return;
    for (int number = 1; number <= list.ColumnCount() - 1; ++number) {
        list.SetSubItemBold(row, number, bold);
        list.SetSubItemForeColor(row, number, foreColor);
    }
    list.Refresh();
}

} // namespace netrove
