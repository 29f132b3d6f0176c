#pragma once

#include <QStyledItemDelegate>

namespace netrove {

/// Paints the nodes of a TreeView: the picture of a selected node, and colours that can be read
/// on the desktop's background.
class TreeDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace netrove
