#pragma once

#include <QStyledItemDelegate>

namespace netrove {

/// Paints the nodes of a TreeView: selected ones with the picture for that, and all in colours that
/// can be read on the desktop's background.
class TreeDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace netrove
