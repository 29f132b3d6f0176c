#include "mainwindow/windowservices/SortListView.h"

#include "runtime/RunTimeError.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"

namespace netrove {
namespace {

/// All headers in one step: a click that came in between would leave two marks, or none.
void MarkHeaders(ListView& list, int markColumn, const QString& mark) {
    for (int column = 1; column <= list.ColumnCount(); ++column) {
        QString text = list.HeaderText(column);
        text.remove(u'^').remove(u'v');
        text = Trim(text);
        list.SetHeaderText(column, column == markColumn ? text + mark : text);
    }
}

void Sort(ListView& list, int markColumn, int sortColumn) {
    list.SetSortKey(sortColumn - 1);
    list.SetSorted(true);
    const bool wasAscending = list.SortOrder() == Qt::AscendingOrder;
    MarkHeaders(list, markColumn, wasAscending ? QStringLiteral(" v") : QStringLiteral(" ^"));
    list.SetSortOrder(wasAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

} // namespace

bool SortListView(ListView& list, int markColumn, int sortColumn, bool showError,
                  Dialogs& dialogs) {
    Yield();
    try {
        if (list.Count() > 0)
            Sort(list, markColumn, sortColumn);
        // Rows that are added later go to the end.
        list.SetSorted(false);
        return true;
    } catch (...) {
        const RunTimeError error = CurrentFailure();
        if (showError)
            dialogs.Message(MessageIcon::Information,
                            QStringLiteral("Error") + QString::number(error.Number()) + u'\t' +
                                error.Description(),
                            QStringLiteral("Error in Function : SortListView"));
        return false;
    }
}

} // namespace netrove
