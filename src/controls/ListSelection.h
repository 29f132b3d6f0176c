#pragma once

#include "controls/ListModel.h"

#include <QAbstractItemView>
#include <QItemSelection>

namespace netrove {

/// Keeps a list's selection and current row in step with those of its view.
class ListSelection {
public:
    ListSelection(QAbstractItemView& view, ListModel& model) : view_(view), model_(model) {}

    /// Tells the view what the list has.
    void Show();
    [[nodiscard]] bool IsShowing() const { return isShowing_; }

    /// Takes over what the view has changed, unless Show() has just told it to.
    void Take(const QItemSelection& selected, const QItemSelection& deselected);
    void TakeCurrent(const QModelIndex& current);

private:
    [[nodiscard]] QItemSelection Selection() const;

    QAbstractItemView& view_;
    ListModel& model_;
    bool isShowing_ = false;
};

} // namespace netrove
