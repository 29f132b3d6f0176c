#include "controls/ListView.h"

#include "controls/CellPainter.h"
#include "controls/ListColors.h"
#include "controls/ListHeader.h"
#include "controls/ListPainter.h"
#include "controls/Twips.h"
#include "runtime/RunTimeError.h"

#include <QDrag>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace netrove {

ListView::ListView(QWidget* parent)
    : QTableView(parent), model_(new ListModel(this)), header_(new ListHeader(this)) {
    setHorizontalHeader(header_);
    setModel(model_);
    // A table selects a column whose header is clicked; here that sorts.
    disconnect(header_, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(header_, &QHeaderView::sectionEntered, this, nullptr);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    UpdateRowHeight();
    setSelectionBehavior(SelectRows);
    SetMultiSelect(true);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);

    connect(model_, &ListModel::FlushNeeded, this, [this] { delayed_.Schedule(); });
    connect(header_, &ListHeader::Clicked, this,
            [this](int column) { Q_EMIT ColumnClick(column + 1); });
    connect(header_, &ListHeader::RightClicked, this, &ListView::HeaderRightClick);
}

int ListView::AddColumn(const QString& header, Qt::Alignment alignment, int width) {
    Flush();
    const int column = model_->AddColumn(header, alignment);
    SetColumnWidth(column, width);
    return column;
}

int ListView::ColumnWidth(int column) const {
    model_->CheckColumn(column);
    return ToTwips(header_->sectionSize(column - 1));
}

void ListView::SetColumnWidth(int column, int width) {
    model_->CheckColumn(column);
    if (!header_->isSectionHidden(column - 1)) {
        header_->resizeSection(column - 1,
                               std::clamp(ToPixels(width), 0, header_->maximumSectionSize()));
    }
}

void ListView::HideColumn(int column) {
    model_->CheckColumn(column);
    header_->setSectionHidden(column - 1, true);
}

int ListView::Add(const QString& text, const QString& smallIcon) {
    return model_->Add(text, smallIcon);
}

std::vector<int> ListView::SelectedRows() const {
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(SelectedCount()));
    for (int row = NextSelected(1); row != 0; row = NextSelected(row + 1))
        rows.push_back(row);
    return rows;
}

void ListView::SetSelected(int row, bool selected) {
    if (selected && selectionMode() == SingleSelection) {
        for (const int other : SelectedRows())
            model_->SetSelected(other, false);
    }
    model_->SetSelected(row, selected);
}

void ListView::SetMultiSelect(bool multiSelect) {
    setSelectionMode(multiSelect ? ExtendedSelection : SingleSelection);
}

void ListView::EnsureVisible(int row) {
    model_->CheckRow(row);
    Flush();
    scrollTo(model_->index(row - 1, 0));
}

void ListView::SetSmallIcons(ImageList* smallIcons) {
    model_->SetPictures(smallIcons);
    viewport()->update();
}

void ListView::SetBackColor(const QColor& color) {
    backColor_ = color;
    setPalette(WithListColors(palette(), color));
}

void ListView::SetGridLines(bool gridLines) {
    gridLines_ = gridLines;
    viewport()->update();
}

void ListView::SetDragContent(DragContent content) {
    dragContent_ = std::move(content);
    setDragEnabled(true);
}

void ListView::Flush() {
    sorting_.SortIfPending();
    delayed_.Done();
    const int rowsBefore = model_->rowCount();
    switch (model_->Flush()) {
    case ListModel::Flushed::Nothing:
        break;
    case ListModel::Flushed::RowsAppended:
        ShowAppendedRows(rowsBefore + 1);
        break;
    case ListModel::Flushed::Everything:
    case ListModel::Flushed::Selection: // perhaps with appended rows, too
        executeDelayedItemsLayout();
        selection_.Show();
        break;
    }
}

void ListView::Refresh() {
    Flush();
    viewport()->repaint();
}

void ListView::scrollTo(const QModelIndex& index, ScrollHint /*hint*/) {
    if (!index.isValid() || selection_.IsShowing())
        return;
    executeDelayedItemsLayout();
    QScrollBar& bar = *verticalScrollBar();
    const int page = std::max(viewport()->height() / places_.RowHeight(), 1);
    bar.setValue(std::clamp(bar.value(), index.row() - page + 1, index.row()));
}

void ListView::doItemsLayout() {
    if (appending_)
        updateGeometries();
    else
        QTableView::doItemsLayout();
}

void ListView::selectAll() {
    Flush();
    QTableView::selectAll();
}

void ListView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    ListPainter rows(*this, *model_, painter);
    rows.PaintRows(event->rect());
    if (gridLines_)
        rows.PaintGrid(event->rect());
}

void ListView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        UpdateRowHeight();
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        Q_EMIT CopyPressed();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT EnterPressed();
        break;
    case Qt::Key_Delete:
        Q_EMIT DeletePressed();
        break;
    case Qt::Key_Left:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
        break;
    case Qt::Key_Right:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        break;
    case Qt::Key_Space:
        if (CheckBoxes() && CurrentRow() != 0 && event->modifiers() == Qt::NoModifier) {
            ToggleCheckBox(CurrentRow());
            break;
        }
        [[fallthrough]];
    default:
        QTableView::keyPressEvent(event);
    }
}

void ListView::mousePressEvent(QMouseEvent* event) {
    pressedCheckBox_ = event->button() == Qt::LeftButton ? CheckBoxAt(event->pos()) : 0;
    if (pressedCheckBox_ != 0)
        return;
    QTableView::mousePressEvent(event);
    if (event->button() == Qt::RightButton)
        Q_EMIT RightButtonDown(event->globalPosition().toPoint());
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    if (pressedCheckBox_ == 0)
        QTableView::mouseMoveEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = std::exchange(pressedCheckBox_, 0);
    if (pressed == 0)
        QTableView::mouseReleaseEvent(event);
    else if (CheckBoxAt(event->pos()) == pressed)
        ToggleCheckBox(pressed);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    // Two quick clicks on a check box count as two clicks.
    pressedCheckBox_ = event->button() == Qt::LeftButton ? CheckBoxAt(event->pos()) : 0;
    if (pressedCheckBox_ != 0)
        return;
    const int row = indexAt(event->pos()).row() + 1;
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && row > 0)
        Q_EMIT RowDoubleClick(row);
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    // For the mouse, the signal was raised when its button went down.
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;
    const int below = CurrentRow() == 0 ? 0 : places_.RowTop(CurrentRow() + 1);
    Q_EMIT RightButtonDown(
        viewport()->mapToGlobal(QPoint(0, std::clamp(below, 0, viewport()->height()))));
}

void ListView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT GotFocus();
}

void ListView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT LostFocus();
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    selection_.Take(selected, deselected);
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    selection_.TakeCurrent(current);
    viewport()->update();
}

void ListView::startDrag(Qt::DropActions /*supportedActions*/) {
    std::unique_ptr<QMimeData> content = dragContent_(SelectedRows());
    if (!content)
        return;
    auto* drag = new QDrag(this); // deletes itself
    drag->setMimeData(content.release());
    drag->exec(Qt::CopyAction);
}

/// Nothing can be edited: the list handles its check boxes itself.
bool ListView::edit(const QModelIndex& /*index*/, EditTrigger /*trigger*/, QEvent* /*event*/) {
    return false;
}

QModelIndex ListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveHome)
        return model_->index(0, 0);
    if (action == MoveEnd)
        return model_->index(model_->rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

int ListView::sizeHintForColumn(int column) const {
    int width = 0;
    for (int row = 1; row <= Count(); ++row) {
        width =
            std::max(width, CellPainter::CellWidth(*model_, row, column + 1, font(), SmallIcons()));
    }
    return width;
}

int ListView::SubItemColumn(int number) {
    if (number < 1)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return number + 1;
}

void ListView::ShowAppendedRows(int firstRow) {
    // Without this the table would paint all of its rows again.
    const QScopedValueRollback appending(appending_, true);
    executeDelayedItemsLayout();
    const int top = places_.RowTop(firstRow);
    if (top < viewport()->height())
        viewport()->update(0, top, viewport()->width(), viewport()->height() - top);
}

void ListView::UpdateRowHeight() {
    verticalHeader()->setDefaultSectionSize(CellPainter::RowHeight(fontMetrics()));
}

/// The row whose check box is at this place, 0 if there's none.
int ListView::CheckBoxAt(const QPoint& position) const {
    const int row = indexAt(position).row() + 1;
    return CheckBoxes() && row > 0 && places_.CheckBox(row).contains(position) ? row : 0;
}

void ListView::ToggleCheckBox(int row) {
    SetChecked(row, !Checked(row));
    Q_EMIT ItemCheck(row);
}

} // namespace netrove
