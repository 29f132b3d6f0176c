#include "controls/TreeDelegate.h"

#include "controls/Color.h"
#include "controls/TreeModel.h"

namespace netrove {

namespace {

/// The picture in its own colours: styles tint the pictures of selected rows, after which small
/// ones can hardly be told apart.
QIcon Untinted(const QIcon& icon, const QStyleOptionViewItem& option) {
    const qreal density = option.widget ? option.widget->devicePixelRatioF() : 1;
    const QPixmap picture = icon.pixmap(option.decorationSize, density);
    QIcon untinted(picture);
    untinted.addPixmap(picture, QIcon::Selected);
    return untinted;
}

} // namespace

void TreeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Selected)
        option->icon = Untinted(index.data(TreeModel::SelectedPictureRole).value<QIcon>(), *option);
    const QVariant own = index.data(Qt::ForegroundRole);
    if (own.isValid())
        option->palette.setColor(
            QPalette::Text, Legible(own.value<QColor>(), option->palette.color(QPalette::Base)));
}

} // namespace netrove
