#pragma once

#include "controls/DelayedFlush.h"
#include "controls/ListModel.h"

namespace netrove {

/// Decides when a list sorts itself: once each time sorting is switched on, or its key or order is
/// set while it is on. That happens at the next flush, or when sorting is switched off.
class ListSorting {
public:
    ListSorting(ListModel& model, DelayedFlush& flush) : model_(model), flush_(flush) {}

    [[nodiscard]] bool IsOn() const { return isOn_; }
    void SetOn(bool on);
    /// The column that the rows are sorted by, less one.
    [[nodiscard]] int Key() const { return key_; }
    void SetKey(int key);
    [[nodiscard]] Qt::SortOrder Order() const { return order_; }
    void SetOrder(Qt::SortOrder order);

    void SortIfPending();

private:
    void NotePending();

    ListModel& model_;
    DelayedFlush& flush_;
    bool isOn_ = false;
    bool isPending_ = false;
    int key_ = 0;
    Qt::SortOrder order_ = Qt::AscendingOrder;
};

} // namespace netrove
