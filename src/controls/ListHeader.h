#pragma once

#include <QHeaderView>

namespace netrove {

/// The header of a ListView. Hidden columns stay hidden: at their place, to the right of the edge
/// where they would open, neither dragging nor double-clicking works. A right click there still
/// reports them. Columns are counted from 0.
class ListHeader : public QHeaderView {
    Q_OBJECT
public:
    explicit ListHeader(QWidget* parent);

    /// The column at this place of the header, hidden ones included; -1 beyond the last one.
    [[nodiscard]] int ColumnAt(int x) const;

Q_SIGNALS:
    void Clicked(int column);
    void RightClicked(int column, const QPoint& globalPosition);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    /// -1 if no hidden column is at this place.
    [[nodiscard]] int HiddenColumnAt(int x) const;

    int clicked_ = -1;
};

} // namespace netrove
