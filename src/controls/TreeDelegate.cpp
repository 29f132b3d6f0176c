#include "controls/TreeDelegate.h"

#include "controls/Color.h"
#include "controls/TreeModel.h"

namespace netrove {

void TreeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Selected)
        option->icon = index.data(TreeModel::SelectedPictureRole).value<QIcon>();
    const QVariant own = index.data(Qt::ForegroundRole);
    if (own.isValid())
        option->palette.setColor(
            QPalette::Text, Legible(own.value<QColor>(), option->palette.color(QPalette::Base)));
}

} // namespace netrove
