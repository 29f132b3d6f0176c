#pragma once

#include "controls/ListModel.h"

#include <QAbstractItemView>
#include <QItemSelection>

namespace netrove {

/// Keeps the selection and the current row of a list and those of its view the same.
class ListSelection {
public:
    ListSelection(QAbstractItemView& view, ListModel& model) : view_(view), model_(model) {}

    /// Tells the view what the list has.
    void Show();
    [[nodiscard]] bool IsShowing() const { return isShowing_; }

    /// Takes over what the view has changed, unless it has just been told so.
    void Take(const QItemSelection& selected, const QItemSelection& deselected);
    void TakeCurrent(const QModelIndex& current);

private:
    [[nodiscard]] QItemSelection Selection() const;

    QAbstractItemView& view_;
    ListModel& model_;
    bool isShowing_ = false;
};

} // namespace netrove
