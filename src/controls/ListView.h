#pragma once

#include "controls/DelayedFlush.h"
#include "controls/ListModel.h"
#include "controls/ListPlaces.h"
#include "controls/ListSelection.h"
#include "controls/ListSorting.h"

#include <QMimeData>
#include <QPointer>
#include <QTableView>

#include <functional>
#include <memory>
#include <vector>

namespace netrove {

class ImageList;
class ListHeader;

/// A list of rows with columns of text under a header. It shows the found files and the downloads.
/// Rows and columns are counted from 1; sub-item n stands in column n + 1. A row, column or
/// sub-item that doesn't exist raises ErrorNumber::SubscriptOutOfRange. Widths are in twips.
///
/// Every call sees a change of the list at once. The screen follows some hundredths of a second
/// later, so that many changes cost little, and always before the user's next key or click is
/// served.
///
/// The signals are raised last in the handling of an event: handlers may run the event loop and
/// change the list.
class ListView : public QTableView {
    Q_OBJECT
public:
    explicit ListView(QWidget* parent = nullptr);

    /// Adds a column after the last one and gives its number.
    int AddColumn(const QString& header, Qt::Alignment alignment, int width);
    [[nodiscard]] int ColumnCount() const { return model_->ColumnCount(); }
    [[nodiscard]] QString HeaderText(int column) const { return model_->HeaderText(column); }
    void SetHeaderText(int column, const QString& text) { model_->SetHeaderText(column, text); }
    [[nodiscard]] int ColumnWidth(int column) const;
    /// A hidden column stays as it is.
    void SetColumnWidth(int column, int width);
    /// Gives a column the width 0 for good: the user can't open it.
    void HideColumn(int column);

    /// Adds a row at the end, whatever the rows were sorted by, and gives its number. The picture
    /// is the one that SmallIcons has under this key, if any.
    int Add(const QString& text, const QString& smallIcon = QString());
    void Remove(int row) { model_->Remove(row); }
    /// Removes many rows at the price of one; their numbers ascend.
    void RemoveRows(const std::vector<int>& rows) { model_->RemoveRows(rows); }
    void Clear() { model_->Clear(); }
    [[nodiscard]] int Count() const { return model_->Count(); }
    /// A different number whenever rows have been added or removed.
    [[nodiscard]] quint64 RowsVersion() const { return model_->RowsVersion(); }

    [[nodiscard]] QString Text(int row) const { return model_->Text(row, 1); }
    void SetText(int row, const QString& text) { model_->SetText(row, 1, text); }
    [[nodiscard]] QString SubItem(int row, int number) const {
        return model_->Text(row, SubItemColumn(number));
    }
    void SetSubItem(int row, int number, const QString& text) {
        model_->SetText(row, SubItemColumn(number), text);
    }
    [[nodiscard]] QString SmallIcon(int row) const { return model_->PictureKey(row); }

    /// Whether each row has a check box; initially not. The space bar changes it, and so does a
    /// click on it, which then selects nothing.
    [[nodiscard]] bool CheckBoxes() const { return model_->CheckBoxes(); }
    void SetCheckBoxes(bool checkBoxes) { model_->SetCheckBoxes(checkBoxes); }
    [[nodiscard]] bool Checked(int row) const { return model_->Checked(row); }
    void SetChecked(int row, bool checked) { model_->SetChecked(row, checked); }

    /// The looks of a row's own text, and of a sub-item. An invalid colour means the list's own
    /// text colour.
    [[nodiscard]] bool Bold(int row) const { return model_->Bold(row, 1); }
    void SetBold(int row, bool bold) { model_->SetBold(row, 1, bold); }
    [[nodiscard]] QColor ForeColor(int row) const { return model_->ForeColor(row, 1); }
    void SetForeColor(int row, const QColor& color) { model_->SetForeColor(row, 1, color); }
    void SetSubItemBold(int row, int number, bool bold) {
        model_->SetBold(row, SubItemColumn(number), bold);
    }
    [[nodiscard]] QColor SubItemForeColor(int row, int number) const {
        return model_->ForeColor(row, SubItemColumn(number));
    }
    void SetSubItemForeColor(int row, int number, const QColor& color) {
        model_->SetForeColor(row, SubItemColumn(number), color);
    }

    /// The progress of the work that a sub-item tells of: a bar behind its text, and a note, beside
    /// the text where there is room, and as the tool tip. At most one sub-item of a row has a
    /// progress.
    [[nodiscard]] std::optional<ListModel::Progress> Progress(int row, int number) const {
        return model_->ProgressOf(row, SubItemColumn(number));
    }
    void SetProgress(int row, int number, const std::optional<ListModel::Progress>& progress) {
        model_->SetProgress(row, SubItemColumn(number), progress);
    }

    [[nodiscard]] bool Selected(int row) const { return model_->IsSelected(row); }
    void SetSelected(int row, bool selected);
    [[nodiscard]] int SelectedCount() const { return model_->SelectedCount(); }
    /// In the order of the list.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    /// The first selected row from this one on, 0 if there's none.
    [[nodiscard]] int NextSelected(int fromRow) const { return model_->NextSelected(fromRow); }
    /// The row with the keyboard's mark, 0 if there's none.
    [[nodiscard]] int CurrentRow() const { return model_->CurrentRow(); }
    void SetCurrentRow(int row) { model_->SetCurrentRow(row); }
    /// Whether several rows can be selected; initially they can. Where they can't, selecting a row
    /// deselects all others.
    void SetMultiSelect(bool multiSelect);
    /// Scrolls a row into view.
    void EnsureVisible(int row);

    /// Where the rows' pictures come from; null for no pictures. Icons, the large pictures, are
    /// only kept: a list of rows doesn't show them.
    [[nodiscard]] ImageList* Icons() const { return icons_; }
    void SetIcons(ImageList* icons) { icons_ = icons; }
    [[nodiscard]] ImageList* SmallIcons() const { return model_->Pictures(); }
    void SetSmallIcons(ImageList* smallIcons);

    /// The list is sorted once each time Sorted is switched on: by the text of the column with the
    /// number SortKey + 1, without regard to case, in the order of the locale. The rows are in
    /// their new order when Sorted is switched off again, or earlier.
    [[nodiscard]] bool Sorted() const { return sorting_.IsOn(); }
    void SetSorted(bool sorted) { sorting_.SetOn(sorted); }
    [[nodiscard]] int SortKey() const { return sorting_.Key(); }
    void SetSortKey(int sortKey) { sorting_.SetKey(sortKey); }
    [[nodiscard]] Qt::SortOrder SortOrder() const { return sorting_.Order(); }
    void SetSortOrder(Qt::SortOrder order) { sorting_.SetOrder(order); }

    /// The colour behind the rows; text and selection get colours that are readable on it. An
    /// invalid colour gives the desktop's colours.
    [[nodiscard]] QColor BackColor() const { return backColor_; }
    void SetBackColor(const QColor& color);
    [[nodiscard]] bool GridLines() const { return gridLines_; }
    void SetGridLines(bool gridLines);

    /// Lets the user drag the selected rows out of the list. `content` makes what is dragged from
    /// their numbers; where it gives null, nothing is dragged.
    using DragContent = std::function<std::unique_ptr<QMimeData>(const std::vector<int>& rows)>;
    void SetDragContent(DragContent content);

    /// Brings the screen's state up to date with the list now.
    void Flush();
    /// Does what Flush() does, and paints at once.
    void Refresh();

    [[nodiscard]] ListHeader* Header() const { return header_; }

Q_SIGNALS:
    /// The left button clicked a header; columns from 1.
    void ColumnClick(int column);
    /// The right button clicked the header; columns from 0, hidden ones included, -1 beyond the
    /// last one.
    void HeaderRightClick(int column, const QPoint& globalPosition);
    void RowDoubleClick(int row);
    /// The user has changed a row's check box.
    void ItemCheck(int row);
    void EnterPressed();
    void DeletePressed();
    /// The keys that copy to the clipboard.
    void CopyPressed();
    /// The right button went down on the rows or below them, or the menu key was pressed.
    void RightButtonDown(const QPoint& globalPosition);
    void GotFocus();
    void LostFocus();

public:
    // The view's side of Qt. Rows are scrolled to, columns never jump sideways.
    void scrollTo(const QModelIndex& index,
                  ScrollHint hint = QAbstractItemView::EnsureVisible) override;
    void doItemsLayout() override;
    void selectAll() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void startDrag(Qt::DropActions supportedActions) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] int sizeHintForColumn(int column) const override;

private:
    [[nodiscard]] static int SubItemColumn(int number);
    void ShowAppendedRows(int firstRow);
    void UpdateRowHeight();
    [[nodiscard]] int CheckBoxAt(const QPoint& position) const;
    void ToggleCheckBox(int row);

    ListModel* model_;
    ListHeader* header_;
    DelayedFlush delayed_{*this, [this] { Flush(); }};
    ListSorting sorting_{*model_, delayed_};
    ListSelection selection_{*this, *model_};
    const ListPlaces places_{*this};
    DragContent dragContent_;
    QPointer<ImageList> icons_;
    QColor backColor_;
    bool gridLines_ = false;
    int pressedCheckBox_ = 0; ///< the row whose box the left button went down on
    bool appending_ = false;  ///< the layout in progress only adds rows at the end
};

} // namespace netrove
