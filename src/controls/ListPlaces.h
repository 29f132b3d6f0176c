#pragma once

#include <QRect>
#include <QTableView>

namespace netrove {

/// The places of a list's rows and cells in its viewport. All rows have the same height. Rows and
/// columns are counted from 1; they needn't exist.
class ListPlaces {
public:
    explicit ListPlaces(const QTableView& list) : list_(list) {}

    [[nodiscard]] int RowHeight() const;
    [[nodiscard]] int RowTop(int row) const;
    /// The row at this height, which is not above the first one.
    [[nodiscard]] int RowAt(int y) const { return (y - RowTop(1)) / RowHeight() + 1; }
    [[nodiscard]] QRect Row(int row) const;
    [[nodiscard]] QRect Cell(int row, int column) const;
    [[nodiscard]] QRect CheckBox(int row) const;

private:
    const QTableView& list_;
};

} // namespace netrove
