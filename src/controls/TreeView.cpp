#include "controls/TreeView.h"

#include "controls/TreeDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace netrove {

namespace {

/// The edge of the pictures in logical pixels.
constexpr int PictureSize = 16;

} // namespace

TreeView::TreeView(QWidget* parent) : QTreeView(parent), model_(new TreeModel(this)) {
    setModel(model_);
    setItemDelegate(new TreeDelegate(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIconSize(QSize(PictureSize, PictureSize));
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(0); // only the visible rows count
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { resizeColumnToContents(0); });

    expandTimer_.setSingleShot(true);
    connect(&expandTimer_, &QTimer::timeout, this, &TreeView::RaiseExpand);
    connect(model_, &TreeModel::FlushNeeded, this, [this] { delayed_.Schedule(); });
    connect(this, &QTreeView::expanded, this, &TreeView::TakeExpanded);
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { model_->TakeExpanded(index, false); });
}

void TreeView::Clear() {
    toScrollTo_.clear();
    toRaise_.clear();
    model_->Clear();
}

void TreeView::EnsureVisible(const QString& key) {
    for (QString above = Parent(key); !above.isEmpty(); above = Parent(above))
        SetExpanded(above, true);
    toScrollTo_ = key;
    delayed_.Schedule();
}

QString TreeView::Selected() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : model_->KeyOf(selected.first());
}

void TreeView::SetSelected(const QString& key) {
    EnsureVisible(key);
    Flush();
    setCurrentIndex(model_->IndexOf(key));
}

void TreeView::SetImageList(ImageList* pictures) {
    model_->SetPictures(pictures);
    viewport()->update();
}

void TreeView::Flush() {
    delayed_.Done();
    for (const QString& key : model_->Flush())
        ShowExpansion(key);
    const QString key = std::exchange(toScrollTo_, QString());
    if (Contains(key) && IsReachable(key))
        scrollTo(model_->IndexOf(key));
}

/// Scrolling to a node would expand the nodes above it, even ones that have been collapsed since.
bool TreeView::IsReachable(const QString& key) const {
    for (QString above = Parent(key); !above.isEmpty(); above = Parent(above)) {
        if (!Expanded(above))
            return false;
    }
    return true;
}

void TreeView::Refresh() {
    Flush();
    viewport()->repaint();
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    // Reading what is below a node can take long: one key press never expands more than one node.
    if (event->key() == Qt::Key_Asterisk)
        expand(currentIndex());
    else
        QTreeView::keyPressEvent(event);
    RaiseExpand();
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    const Qt::MouseButton button = event->button();
    const QPoint position = event->pos();
    if (button == Qt::LeftButton)
        QTreeView::mousePressEvent(event);
    Q_EMIT MouseDown(button, position);
    RaiseExpand();
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QTreeView::mouseReleaseEvent(event);
    RaiseExpand();
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const Qt::MouseButton button = event->button();
    const QPoint position = event->pos();
    if (button == Qt::LeftButton)
        QTreeView::mouseDoubleClickEvent(event);
    else
        Q_EMIT MouseDown(button, position);
    RaiseExpand();
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    // For the mouse, the signal was raised when its button went down.
    if (event->reason() == QContextMenuEvent::Keyboard)
        Q_EMIT MouseDown(Qt::RightButton, visualRect(currentIndex()).bottomLeft());
}

void TreeView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    resizeColumnToContents(0);
}

/// The whole width of the view, or more where a visible name is longer.
int TreeView::sizeHintForColumn(int column) const {
    return std::max(QTreeView::sizeHintForColumn(column), viewport()->width());
}

void TreeView::ShowExpansion(const QString& key) {
    const QScopedValueRollback showing(showing_, true);
    setExpanded(model_->IndexOf(key), model_->Expanded(key));
}

void TreeView::TakeExpanded(const QModelIndex& index) {
    if (showing_)
        return;
    model_->TakeExpanded(index, true);
    toRaise_.append(model_->KeyOf(index));
    // For expansions that a screen reader has asked for, not a key or a click.
    expandTimer_.start();
}

/// A handler may let the user expand further nodes, whose signals are then raised inside it.
void TreeView::RaiseExpand() {
    expandTimer_.stop();
    while (!toRaise_.isEmpty()) {
        const QString key = toRaise_.takeFirst();
        if (Contains(key))
            Q_EMIT Expand(key);
    }
}

} // namespace netrove
