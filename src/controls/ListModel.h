#pragma once

#include "controls/ImageList.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QPointer>
#include <QString>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace netrove {

/// The rows of a ListView: texts, looks, selection and current row. Rows and columns are counted
/// from 1; sub-item n is column n + 1. Every call sees a change at once; Flush() tells the view
/// later, of many changes together. The inherited interface (`rowCount`, `index` …, counted from 0)
/// is for the view, and has only the rows that the view has been told of.
///
/// A row or column that isn't there raises ErrorNumber::SubscriptOutOfRange.
class ListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// The progress of the work that a cell tells of.
    struct Progress {
        double share = 0; ///< 0 to 1
        QString note;     ///< in words
        bool operator==(const Progress&) const = default;
    };

    /// What the view has to do after Flush().
    enum class Flushed { Nothing, RowsAppended, Selection, Everything };

    using QAbstractTableModel::QAbstractTableModel;

    int AddColumn(const QString& header, Qt::Alignment alignment);
    [[nodiscard]] int ColumnCount() const { return static_cast<int>(columns_.size()); }
    [[nodiscard]] QString HeaderText(int column) const;
    void SetHeaderText(int column, const QString& text);
    [[nodiscard]] Qt::Alignment Alignment(int column) const;

    /// Raise for a column or row that isn't there.
    void CheckColumn(int column) const;
    void CheckRow(int row) const;

    /// Adds a row at the end and gives its number. A picture key that the bound set doesn't hold
    /// shows no picture.
    int Add(const QString& text, const QString& pictureKey);
    void Remove(int row);
    /// Removes many rows at the price of one; their numbers ascend.
    void RemoveRows(const std::vector<int>& rows);
    void Clear();
    [[nodiscard]] int Count() const { return static_cast<int>(rows_.size()); }
    /// A different number whenever rows have been added or removed.
    [[nodiscard]] quint64 RowsVersion() const { return rowsVersion_; }

    [[nodiscard]] QString Text(int row, int column) const;
    void SetText(int row, int column, const QString& text);
    [[nodiscard]] QString PictureKey(int row) const;

    /// Whether each row has a check box; initially not.
    [[nodiscard]] bool CheckBoxes() const { return checkBoxes_; }
    void SetCheckBoxes(bool checkBoxes);
    [[nodiscard]] bool Checked(int row) const;
    void SetChecked(int row, bool checked);

    [[nodiscard]] bool Bold(int row, int column) const;
    void SetBold(int row, int column, bool bold);
    /// The colour of a text; not valid means the list's own.
    [[nodiscard]] QColor ForeColor(int row, int column) const;
    void SetForeColor(int row, int column, const QColor& color);

    /// At most one cell of a row has a progress; setting it to nothing removes it.
    [[nodiscard]] std::optional<Progress> ProgressOf(int row, int column) const;
    void SetProgress(int row, int column, const std::optional<Progress>& progress);

    [[nodiscard]] bool IsSelected(int row) const;
    void SetSelected(int row, bool selected);
    [[nodiscard]] int SelectedCount() const { return selectedCount_; }
    /// The first selected row from this one on; 0 if there's none.
    [[nodiscard]] int NextSelected(int fromRow) const;

    /// 0 if there's none.
    [[nodiscard]] int CurrentRow() const { return currentRow_; }
    void SetCurrentRow(int row);

    /// Puts the rows in the order of one column's texts, see CompareText; rows with equal texts
    /// keep their order. Selection and current row stay with their rows.
    void Sort(int column, Qt::SortOrder order);

    /// The set that the rows' pictures come from; null for no pictures.
    [[nodiscard]] ImageList* Pictures() const { return pictures_; }
    void SetPictures(ImageList* pictures) { pictures_ = pictures; }

    /// Takes over the view's own changes of selection and current row, counted from 0; the view
    /// isn't told of them again.
    void TakeSelection(int firstRow, int lastRow, bool selected);
    void TakeCurrentRow(int row) { currentRow_ = row + 1; }

    /// Tells the view of all that has changed since the last call.
    Flushed Flush();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Typing looks for rows by their first column, whichever column was clicked.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value,
                                        int hits, Qt::MatchFlags flags) const override;

Q_SIGNALS:
    /// Raised when something has changed that the view hasn't been told of.
    void FlushNeeded();

private:
    struct Column {
        QString header;
        Qt::Alignment alignment;
    };
    struct Look {
        bool bold = false;
        QColor foreColor;
    };
    struct Row {
        std::vector<QString> texts; ///< ends with the last text that was set
        std::vector<Look> looks;    ///< likewise, mostly empty
        QString pictureKey;
        std::optional<Progress> progress;
        int progressColumn = 0;
        bool selected = false;
        bool checked = false;
    };

    [[nodiscard]] const Column& ColumnAt(int column) const;
    [[nodiscard]] Row& RowAt(int row);
    [[nodiscard]] const Row& RowAt(int row) const;
    [[nodiscard]] Look LookOf(int row, int column) const;
    [[nodiscard]] Look& LookToSet(int row, int column);
    [[nodiscard]] bool IsTold(int row) const { return row <= toldRows_; }
    void NoteChanged(int row);
    void NoteRestructured();

    std::vector<Column> columns_;
    std::vector<std::unique_ptr<Row>> rows_;
    quint64 rowsVersion_ = 0;
    int selectedCount_ = 0;
    int currentRow_ = 0;
    QPointer<ImageList> pictures_;
    bool checkBoxes_ = false;

    int toldRows_ = 0; ///< how many rows the view knows of
    bool restructured_ = false;
    bool selectionChanged_ = false;
    std::optional<std::pair<int, int>> changedRows_; ///< first and last of the told rows
};

} // namespace netrove
