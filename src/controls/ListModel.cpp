#include "controls/ListModel.h"

#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

#include <QFont>

#include <algorithm>

namespace netrove {

namespace {

/// The place in a vector of the number, from 1 to `count`. Raises for any other.
std::size_t Place(int number, std::size_t count) {
    if (number < 1 || static_cast<std::size_t>(number) > count)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(number) - 1;
}

} // namespace

int ListModel::AddColumn(const QString& header, Qt::Alignment alignment) {
    beginInsertColumns({}, ColumnCount(), ColumnCount());
    columns_.push_back({header, alignment});
    endInsertColumns();
    return ColumnCount();
}

QString ListModel::HeaderText(int column) const {
    return ColumnAt(column).header;
}

void ListModel::SetHeaderText(int column, const QString& text) {
    columns_[Place(column, columns_.size())].header = text;
    Q_EMIT headerDataChanged(Qt::Horizontal, column - 1, column - 1);
}

Qt::Alignment ListModel::Alignment(int column) const {
    return ColumnAt(column).alignment;
}

void ListModel::CheckColumn(int column) const {
    Place(column, columns_.size());
}
void ListModel::CheckRow(int row) const {
    Place(row, rows_.size());
}

int ListModel::Add(const QString& text, const QString& pictureKey) {
    auto row = std::make_unique<Row>();
    row->texts.reserve(columns_.size());
    row->texts.push_back(text);
    row->pictureKey = pictureKey;
    rows_.push_back(std::move(row));
    ++rowsVersion_;
    Q_EMIT FlushNeeded();
    return Count();
}

void ListModel::Remove(int row) {
    RemoveRows({row});
}

void ListModel::RemoveRows(const std::vector<int>& rows) {
    if (rows.empty())
        return;
    CheckRow(rows.front());
    CheckRow(rows.back());
    int removedBeforeCurrent = 0;
    for (const int row : rows) {
        std::unique_ptr<Row>& item = rows_[static_cast<std::size_t>(row) - 1];
        if (item->selected)
            --selectedCount_;
        if (row < currentRow_)
            ++removedBeforeCurrent;
        item.reset();
    }
    rows_.erase(std::remove(rows_.begin() + (rows.front() - 1), rows_.end(), nullptr), rows_.end());
    // The row after a removed current row becomes the current one.
    currentRow_ = std::min(currentRow_ - removedBeforeCurrent, Count());
    ++rowsVersion_;
    if (IsTold(rows.front()))
        NoteRestructured();
}

void ListModel::Clear() {
    ++rowsVersion_;
    rows_.clear();
    selectedCount_ = 0;
    currentRow_ = 0;
    NoteRestructured();
}

QString ListModel::Text(int row, int column) const {
    const std::vector<QString>& texts = RowAt(row).texts;
    const std::size_t place = Place(column, std::max(columns_.size(), static_cast<std::size_t>(1)));
    return place < texts.size() ? texts[place] : QString();
}

void ListModel::SetText(int row, int column, const QString& text) {
    std::vector<QString>& texts = RowAt(row).texts;
    const std::size_t place = Place(column, std::max(columns_.size(), static_cast<std::size_t>(1)));
    if (place >= texts.size())
        texts.resize(place + 1);
    texts[place] = text;
    NoteChanged(row);
}

QString ListModel::PictureKey(int row) const {
    return RowAt(row).pictureKey;
}

void ListModel::SetCheckBoxes(bool checkBoxes) {
    checkBoxes_ = checkBoxes;
    NoteRestructured();
}

bool ListModel::Checked(int row) const {
    return RowAt(row).checked;
}

void ListModel::SetChecked(int row, bool checked) {
    RowAt(row).checked = checked;
    NoteChanged(row);
}

bool ListModel::Bold(int row, int column) const {
    return LookOf(row, column).bold;
}

void ListModel::SetBold(int row, int column, bool bold) {
    LookToSet(row, column).bold = bold;
    NoteChanged(row);
}

QColor ListModel::ForeColor(int row, int column) const {
    return LookOf(row, column).foreColor;
}

void ListModel::SetForeColor(int row, int column, const QColor& color) {
    LookToSet(row, column).foreColor = color;
    NoteChanged(row);
}

std::optional<ListModel::Progress> ListModel::ProgressOf(int row, int column) const {
    const Row& item = RowAt(row);
    return column == item.progressColumn ? item.progress : std::nullopt;
}

void ListModel::SetProgress(int row, int column, const std::optional<Progress>& progress) {
    CheckColumn(column);
    Row& item = RowAt(row);
    if (item.progress == progress && item.progressColumn == column)
        return;
    item.progress = progress;
    item.progressColumn = column;
    NoteChanged(row);
}

bool ListModel::IsSelected(int row) const {
    return RowAt(row).selected;
}

void ListModel::SetSelected(int row, bool selected) {
    Row& item = RowAt(row);
    if (item.selected == selected)
        return;
    item.selected = selected;
    selectedCount_ += selected ? 1 : -1;
    selectionChanged_ = true;
    Q_EMIT FlushNeeded();
}

int ListModel::NextSelected(int fromRow) const {
    for (int row = std::max(fromRow, 1); row <= Count(); ++row) {
        if (RowAt(row).selected)
            return row;
    }
    return 0;
}

void ListModel::SetCurrentRow(int row) {
    if (row != 0)
        CheckRow(row);
    currentRow_ = row;
    selectionChanged_ = true;
    Q_EMIT FlushNeeded();
}

void ListModel::Sort(int column, Qt::SortOrder order) {
    CheckColumn(column);
    struct KeyedRow {
        TextSortKey key;
        std::unique_ptr<Row> row;
    };
    const Row* current = currentRow_ == 0 ? nullptr : &RowAt(currentRow_);
    std::vector<KeyedRow> keyed;
    keyed.reserve(rows_.size());
    for (int row = 1; row <= Count(); ++row)
        keyed.push_back({TextSortKey(Text(row, column)), nullptr});
    for (std::size_t place = 0; place < rows_.size(); ++place)
        keyed[place].row = std::move(rows_[place]);
    std::stable_sort(keyed.begin(), keyed.end(),
                     [order](const KeyedRow& left, const KeyedRow& right) {
                         const int compared = left.key.Compare(right.key);
                         return order == Qt::AscendingOrder ? compared < 0 : compared > 0;
                     });
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        rows_[place] = std::move(keyed[place].row);
        if (rows_[place].get() == current)
            currentRow_ = static_cast<int>(place) + 1;
    }
    NoteRestructured();
}

void ListModel::TakeSelection(int firstRow, int lastRow, bool selected) {
    for (int row = firstRow + 1; row <= std::min(lastRow + 1, Count()); ++row) {
        Row& item = RowAt(row);
        if (item.selected != selected)
            selectedCount_ += selected ? 1 : -1;
        item.selected = selected;
    }
}

ListModel::Flushed ListModel::Flush() {
    if (std::exchange(restructured_, false)) {
        beginResetModel();
        toldRows_ = Count();
        changedRows_.reset();
        selectionChanged_ = false;
        endResetModel();
        return Flushed::Everything;
    }
    Flushed result = Flushed::Nothing;
    if (const auto changed = std::exchange(changedRows_, std::nullopt)) {
        Q_EMIT dataChanged(index(changed->first - 1, 0),
                           index(changed->second - 1, std::max(ColumnCount() - 1, 0)));
    }
    if (toldRows_ < Count()) {
        beginInsertRows({}, toldRows_, Count() - 1);
        toldRows_ = Count();
        endInsertRows();
        result = Flushed::RowsAppended;
    }
    return std::exchange(selectionChanged_, false) ? Flushed::Selection : result;
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : toldRows_;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount();
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const int row = index.row() + 1;
    const int column = index.column() + 1;
    // Removed rows that the view hasn't been told of have no data.
    if (!index.isValid() || row > Count() || column > ColumnCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return Text(row, column);
    case Qt::DecorationRole:
        return pictures_ && column == 1 ? pictures_->Picture(PictureKey(row)) : QVariant();
    case Qt::CheckStateRole:
        return checkBoxes_ && column == 1 ? (Checked(row) ? Qt::Checked : Qt::Unchecked)
                                          : QVariant();
    case Qt::TextAlignmentRole:
        return static_cast<int>(Alignment(column) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return ForeColor(row, column).isValid() ? ForeColor(row, column) : QVariant();
    case Qt::FontRole: {
        if (!Bold(row, column))
            return {};
        QFont font;
        font.setBold(true);
        return font;
    }
    case Qt::ToolTipRole: {
        const std::optional<Progress> progress = ProgressOf(row, column);
        return progress ? progress->note : QVariant();
    }
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount())
        return {};
    if (role == Qt::DisplayRole)
        return HeaderText(section + 1);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Alignment(section + 1) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    return checkBoxes_ && index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

QModelIndexList ListModel::match(const QModelIndex& start, int role, const QVariant& value,
                                 int hits, Qt::MatchFlags flags) const {
    return QAbstractTableModel::match(start.siblingAtColumn(0), role, value, hits, flags);
}

const ListModel::Column& ListModel::ColumnAt(int column) const {
    return columns_[Place(column, columns_.size())];
}

ListModel::Row& ListModel::RowAt(int row) {
    return *rows_[Place(row, rows_.size())];
}
const ListModel::Row& ListModel::RowAt(int row) const {
    return *rows_[Place(row, rows_.size())];
}

ListModel::Look ListModel::LookOf(int row, int column) const {
    const std::vector<Look>& looks = RowAt(row).looks;
    const std::size_t place = Place(column, std::max(columns_.size(), static_cast<std::size_t>(1)));
    return place < looks.size() ? looks[place] : Look();
}

ListModel::Look& ListModel::LookToSet(int row, int column) {
    std::vector<Look>& looks = RowAt(row).looks;
    const std::size_t place = Place(column, std::max(columns_.size(), static_cast<std::size_t>(1)));
    if (place >= looks.size())
        looks.resize(place + 1);
    return looks[place];
}

void ListModel::NoteChanged(int row) {
    if (!IsTold(row))
        return;
    const auto [first, last] = changedRows_.value_or(std::pair(row, row));
    changedRows_ = {std::min(first, row), std::max(last, row)};
    Q_EMIT FlushNeeded();
}

void ListModel::NoteRestructured() {
    restructured_ = true;
    Q_EMIT FlushNeeded();
}

} // namespace netrove
