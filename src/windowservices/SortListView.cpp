#include "windowservices/SortListView.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"

namespace netrove {
namespace {

/// False if another click has sorted the list during a yield: then that click's marks stay.
bool MarkHeaders(ListView& list, int markColumn, Qt::SortOrder order) {
    const QString mark = order == Qt::AscendingOrder ? u" v"_s : u" ^"_s;
    for (int column = 1; column <= list.ColumnCount(); ++column) {
        Yield();
        if (!list.Sorted())
            return false;
        QString text = list.HeaderText(column);
        text.remove(u'^').remove(u'v');
        text = Trim(text);
        list.SetHeaderText(column, column == markColumn ? text + mark : text);
    }
    return true;
}

void Sort(ListView& list, int markColumn, int sortColumn) {
    list.SetSortKey(sortColumn - 1);
    list.SetSorted(true);
    const Qt::SortOrder order = list.SortOrder();
    if (MarkHeaders(list, markColumn, order))
        list.SetSortOrder(order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder);
}

} // namespace

bool SortListView(ListView& list, int markColumn, int sortColumn, bool showError,
                  Dialogs& dialogs) {
    Yield();
    try {
        if (list.Count() > 0)
            Sort(list, markColumn, sortColumn);
        // Rows that are added from now on go to the end.
        list.SetSorted(false);
        return true;
    } catch (...) {
        const int number = CurrentFailure().Number();
        if (showError)
            dialogs.Message(MessageIcon::Information,
                            u"Error"_s + QString::number(number) + u'\t' + ErrorDescription(number),
                            u"Error in Function : SortListView"_s);
        return false;
    }
}

} // namespace netrove
