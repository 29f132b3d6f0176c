#include "controls/ListView.h"

#include "controls/Color.h"
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

namespace {

/// How long changes gather before the screen follows: short enough to look immediate.
constexpr int FlushDelay = 40;
/// The selection on a background of the list's own.
constexpr QColor SelectionColor(0x2A, 0x6F, 0xB5);

/// The colours that depend on the list's background.
constexpr QPalette::ColorRole BackgroundRoles[] = {QPalette::Base, QPalette::Text,
                                                   QPalette::Highlight, QPalette::HighlightedText};

/// Sets colours that can be read on a background, whatever the desktop's are.
void SetColorsOn(const QColor& background, QPalette& palette) {
    const QColor text = ReadableOn(background);
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Disabled, QPalette::Text, Mixed(background, text, 0.5));
    palette.setColor(QPalette::Highlight, Mixed(background, text, 0.25));
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Active, QPalette::Highlight, SelectionColor);
    palette.setColor(QPalette::Active, QPalette::HighlightedText, ReadableOn(SelectionColor));
}

/// What of a control's palette was set on the control itself, but for some roles.
QPalette OwnColors(const QPalette& palette, std::span<const QPalette::ColorRole> without) {
    QPalette own;
    for (int number = 0; number < QPalette::NColorRoles; ++number) {
        const auto role = static_cast<QPalette::ColorRole>(number);
        if (std::find(without.begin(), without.end(), role) != without.end())
            continue;
        for (const QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            if (palette.isBrushSet(group, role))
                own.setBrush(group, role, palette.brush(group, role));
        }
    }
    return own;
}

} // namespace

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

    flushTimer_.setSingleShot(true);
    flushTimer_.setInterval(FlushDelay);
    connect(&flushTimer_, &QTimer::timeout, this, &ListView::Flush);
    connect(model_, &ListModel::FlushNeeded, this, &ListView::ScheduleFlush);
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

QString ListView::SubItem(int row, int number) const {
    return model_->Text(row, SubItemColumn(number));
}
void ListView::SetSubItem(int row, int number, const QString& text) {
    model_->SetText(row, SubItemColumn(number), text);
}

bool ListView::SubItemBold(int row, int number) const {
    return model_->Bold(row, SubItemColumn(number));
}
void ListView::SetSubItemBold(int row, int number, bool bold) {
    model_->SetBold(row, SubItemColumn(number), bold);
}

QColor ListView::SubItemForeColor(int row, int number) const {
    return model_->ForeColor(row, SubItemColumn(number));
}
void ListView::SetSubItemForeColor(int row, int number, const QColor& color) {
    model_->SetForeColor(row, SubItemColumn(number), color);
}

std::optional<ListModel::Progress> ListView::Progress(int row, int number) const {
    return model_->ProgressOf(row, SubItemColumn(number));
}
void ListView::SetProgress(int row, int number,
                           const std::optional<ListModel::Progress>& progress) {
    model_->SetProgress(row, SubItemColumn(number), progress);
}

std::vector<int> ListView::SelectedRows() const {
    std::vector<int> rows;
    rows.reserve(std::size_t(SelectedCount()));
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

void ListView::SetSorted(bool sorted) {
    if (!sorted)
        SortIfPending();
    else if (!sorted_)
        NotePendingSort();
    sorted_ = sorted;
}

void ListView::SetSortKey(int sortKey) {
    model_->CheckColumn(sortKey + 1);
    sortKey_ = sortKey;
    if (sorted_)
        NotePendingSort();
}

void ListView::SetSortOrder(Qt::SortOrder order) {
    sortOrder_ = order;
    if (sorted_)
        NotePendingSort();
}

void ListView::SetBackColor(const QColor& color) {
    backColor_ = color;
    QPalette colors = OwnColors(palette(), BackgroundRoles);
    if (color.isValid())
        SetColorsOn(color, colors);
    setPalette(colors);
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
    SortIfPending();
    flushTimer_.stop();
    const int rowsBefore = model_->rowCount();
    switch (model_->Flush()) {
    case ListModel::Flushed::Nothing:
        break;
    case ListModel::Flushed::RowsAppended:
        ShowAppendedRows(rowsBefore + 1);
        break;
    case ListModel::Flushed::Everything:
        executeDelayedItemsLayout();
        ShowSelection();
        break;
    case ListModel::Flushed::Selection:
        ShowSelection();
        break;
    }
}

void ListView::Refresh() {
    Flush();
    viewport()->repaint();
}

void ListView::scrollTo(const QModelIndex& index, ScrollHint /*hint*/) {
    if (!index.isValid() || showingSelection_)
        return;
    executeDelayedItemsLayout();
    QScrollBar& bar = *verticalScrollBar();
    const int page = std::max(viewport()->height() / RowHeight(), 1);
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

bool ListView::event(QEvent* event) {
    FlushBefore(*event);
    return QTableView::event(event);
}

bool ListView::viewportEvent(QEvent* event) {
    FlushBefore(*event);
    return QTableView::viewportEvent(event);
}

void ListView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QPalette colors = palette();
    const QPalette::ColorGroup group = !isEnabled()       ? QPalette::Disabled
                                       : isActiveWindow() ? QPalette::Active
                                                          : QPalette::Inactive;
    ListPainter cells(painter, *model_, font(), colors, group, SmallIcons());
    const QRect area = event->rect();
    const int first = std::max((area.top() - RowTop(1)) / RowHeight() + 1, 1);
    const int last = std::min((area.bottom() - RowTop(1)) / RowHeight() + 1, Count());
    for (int row = first; row <= last; ++row)
        PaintRow(painter, cells, row, area);
    if (gridLines_)
        PaintGrid(painter, cells.GridColor(), area);
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
    // Two quick clicks on a check box are two.
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
    // The mouse's were raised when its button went down.
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;
    const int below = CurrentRow() == 0 ? 0 : RowTop(CurrentRow() + 1);
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
    if (showingSelection_)
        return;
    for (const QItemSelectionRange& range : deselected)
        model_->TakeSelection(range.top(), range.bottom(), false);
    for (const QItemSelectionRange& range : selected)
        model_->TakeSelection(range.top(), range.bottom(), true);
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!showingSelection_)
        model_->TakeCurrentRow(current.row());
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

/// Nothing is: the check boxes are the list's own affair.
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
            std::max(width, ListPainter::CellWidth(*model_, row, column + 1, font(), SmallIcons()));
    }
    return width;
}

int ListView::SubItemColumn(int number) {
    if (number < 1)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return number + 1;
}

void ListView::ScheduleFlush() {
    if (!flushTimer_.isActive())
        flushTimer_.start();
}

/// What the user does is about what the list is now.
void ListView::FlushBefore(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::ContextMenu:
    case QEvent::FocusIn:
        Flush();
        break;
    default:
        break;
    }
}

void ListView::SortIfPending() {
    if (std::exchange(sortPending_, false) && Count() > 0)
        model_->Sort(sortKey_ + 1, sortOrder_);
}

void ListView::NotePendingSort() {
    sortPending_ = true;
    ScheduleFlush();
}

void ListView::ShowAppendedRows(int firstRow) {
    // Without this the table would paint all of its rows again.
    const QScopedValueRollback appending(appending_, true);
    executeDelayedItemsLayout();
    const int top = RowTop(firstRow);
    if (top < viewport()->height())
        viewport()->update(0, top, viewport()->width(), viewport()->height() - top);
}

void ListView::ShowSelection() {
    const QScopedValueRollback showing(showingSelection_, true);
    QItemSelection selection;
    for (int first = NextSelected(1), last = 0; first != 0; first = NextSelected(last + 1)) {
        last = first;
        while (last < Count() && Selected(last + 1))
            ++last;
        selection.append(QItemSelectionRange(model_->index(first - 1, 0),
                                             model_->index(last - 1, ColumnCount() - 1)));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(model_->index(CurrentRow() - 1, 0),
                                      QItemSelectionModel::NoUpdate);
    viewport()->update();
}

int ListView::RowHeight() const {
    return verticalHeader()->defaultSectionSize();
}

int ListView::RowTop(int row) const {
    return (row - 1) * RowHeight() - verticalHeader()->offset();
}

void ListView::UpdateRowHeight() {
    verticalHeader()->setDefaultSectionSize(ListPainter::RowHeight(fontMetrics()));
}

QRect ListView::FirstCell(int row) const {
    return {columnViewportPosition(0), RowTop(row), header_->sectionSize(0), RowHeight()};
}

/// The row whose check box is at this place, 0 if there's none.
int ListView::CheckBoxAt(const QPoint& position) const {
    const int row = indexAt(position).row() + 1;
    return CheckBoxes() && row > 0 && ListPainter::CheckBoxPlace(FirstCell(row)).contains(position)
               ? row
               : 0;
}

void ListView::ToggleCheckBox(int row) {
    SetChecked(row, !Checked(row));
    Q_EMIT ItemCheck(row);
}

void ListView::PaintCheckBox(QPainter& painter, int row) {
    QStyleOptionViewItem box;
    box.initFrom(this);
    box.rect = ListPainter::CheckBoxPlace(FirstCell(row));
    box.state |= Checked(row) ? QStyle::State_On : QStyle::State_Off;
    box.state &= ~QStyle::State_HasFocus;
    style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, this);
}

void ListView::PaintRow(QPainter& painter, ListPainter& cells, int row, const QRect& area) {
    const QRect rowRect(-header_->offset(), RowTop(row), header_->length(), RowHeight());
    cells.PaintRowBackground(rowRect, row);
    for (int column = 1; column <= ColumnCount(); ++column) {
        const QRect cell(columnViewportPosition(column - 1), rowRect.top(),
                         header_->sectionSize(column - 1), rowRect.height());
        if (cell.intersects(area))
            cells.PaintCell(cell, row, column);
    }
    if (CheckBoxes())
        PaintCheckBox(painter, row);
    if (row == CurrentRow() && hasFocus()) {
        QStyleOptionFocusRect frame;
        frame.initFrom(this);
        frame.rect = rowRect;
        frame.state |= QStyle::State_KeyboardFocusChange; // some styles show none without it
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
    }
}

void ListView::PaintGrid(QPainter& painter, const QColor& color, const QRect& area) {
    painter.setPen(color);
    for (int row = (area.top() - RowTop(1)) / RowHeight() + 1; RowTop(row) <= area.bottom() + 1;
         ++row)
        painter.drawLine(area.left(), RowTop(row) - 1, area.right(), RowTop(row) - 1);
    for (int column = 0; column < ColumnCount(); ++column) {
        const int x = columnViewportPosition(column) + header_->sectionSize(column) - 1;
        if (!header_->isSectionHidden(column))
            painter.drawLine(x, area.top(), x, area.bottom());
    }
}

} // namespace netrove
