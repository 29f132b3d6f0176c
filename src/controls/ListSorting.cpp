#include "controls/ListSorting.h"

#include <utility>

namespace netrove {

void ListSorting::SetOn(bool on) {
    if (!on)
        SortIfPending();
    else if (!isOn_)
        NotePending();
    isOn_ = on;
}

void ListSorting::SetKey(int key) {
    model_.CheckColumn(key + 1);
    key_ = key;
    if (isOn_)
        NotePending();
}

void ListSorting::SetOrder(Qt::SortOrder order) {
    order_ = order;
    if (isOn_)
        NotePending();
}

void ListSorting::SortIfPending() {
    if (std::exchange(isPending_, false) && model_.Count() > 0)
        model_.Sort(key_ + 1, order_);
}

void ListSorting::NotePending() {
    isPending_ = true;
    flush_.Schedule();
}

} // namespace netrove
