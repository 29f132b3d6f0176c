#include "controls/ListSelection.h"

#include <QScopedValueRollback>

namespace netrove {

void ListSelection::Show() {
    const QScopedValueRollback showing(isShowing_, true);
    QItemSelectionModel& shown = *view_.selectionModel();
    shown.select(Selection(), QItemSelectionModel::ClearAndSelect);
    shown.setCurrentIndex(model_.index(model_.CurrentRow() - 1, 0), QItemSelectionModel::NoUpdate);
    view_.viewport()->update();
}

/// The selected rows; consecutive ones form one range.
QItemSelection ListSelection::Selection() const {
    QItemSelection selection;
    for (int first = model_.NextSelected(1), last = 0; first != 0;
         first = model_.NextSelected(last + 1)) {
        last = first;
        while (last < model_.Count() && model_.IsSelected(last + 1))
            ++last;
        selection.append(QItemSelectionRange(model_.index(first - 1, 0),
                                             model_.index(last - 1, model_.ColumnCount() - 1)));
    }
    return selection;
}

void ListSelection::Take(const QItemSelection& selected, const QItemSelection& deselected) {
    if (isShowing_)
        return;
    for (const QItemSelectionRange& range : deselected)
        model_.TakeSelection(range.top(), range.bottom(), false);
    for (const QItemSelectionRange& range : selected)
        model_.TakeSelection(range.top(), range.bottom(), true);
}

void ListSelection::TakeCurrent(const QModelIndex& current) {
    if (!isShowing_)
        model_.TakeCurrentRow(current.row());
}

} // namespace netrove
