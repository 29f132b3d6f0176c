#include "controls/TreeModel.h"

#include "runtime/RunTimeError.h"

#include <QFont>

#include <utility>

namespace netrove {

TreeModel::TreeModel(QObject* parent)
    : QAbstractItemModel(parent), top_(std::make_unique<Node>()) {}

TreeModel::~TreeModel() = default;

void TreeModel::Add(const QString& relative, const QString& key, const QString& text,
                    const QString& image, const QString& selectedImage) {
    Node& parent = AtOrTop(relative);
    if (Contains(key))
        throw RunTimeError(ErrorNumber::KeyNotUnique);
    CheckPicture(image);
    CheckPicture(selectedImage);
    auto node = std::make_unique<Node>();
    node->key = key;
    node->text = text;
    node->image = image;
    node->selectedImage = selectedImage;
    node->parent = &parent;
    node->row = static_cast<int>(parent.children.size());
    byKey_.insert(key, node.get());
    parent.children.push_back(std::move(node));
    if (IsTold(parent))
        grown_.insert(&parent);
    Q_EMIT FlushNeeded();
}

void TreeModel::Remove(const QString& key) {
    Node& node = At(key);
    Node& parent = *node.parent;
    const int row = node.row;
    Forget(node);
    if (!IsTold(node)) {
        EraseChild(parent, row);
        return;
    }
    beginRemoveRows(IndexOf(parent), row, row);
    --parent.toldChildren;
    EraseChild(parent, row);
    endRemoveRows();
}

void TreeModel::Clear() {
    beginResetModel();
    byKey_.clear();
    grown_.clear();
    toggled_.clear();
    top_ = std::make_unique<Node>();
    endResetModel();
}

QString TreeModel::Parent(const QString& key) const {
    return At(key).parent->key;
}

QStringList TreeModel::Children(const QString& key) const {
    QStringList keys;
    for (const auto& child : AtOrTop(key).children)
        keys.append(child->key);
    return keys;
}

QString TreeModel::Text(const QString& key) const {
    return At(key).text;
}

QString TreeModel::Image(const QString& key) const {
    return At(key).image;
}

QString TreeModel::Tag(const QString& key) const {
    return At(key).tag;
}
void TreeModel::SetTag(const QString& key, const QString& tag) {
    At(key).tag = tag;
}

QColor TreeModel::ForeColor(const QString& key) const {
    return At(key).foreColor;
}
void TreeModel::SetForeColor(const QString& key, const QColor& color) {
    Node& node = At(key);
    node.foreColor = color;
    NoteChanged(node);
}

bool TreeModel::Bold(const QString& key) const {
    return At(key).bold;
}
void TreeModel::SetBold(const QString& key, bool bold) {
    Node& node = At(key);
    node.bold = bold;
    NoteChanged(node);
}

bool TreeModel::Expanded(const QString& key) const {
    return At(key).expanded;
}
void TreeModel::SetExpanded(const QString& key, bool expanded) {
    Node& node = At(key);
    if (std::exchange(node.expanded, expanded) == expanded)
        return;
    toggled_.insert(key);
    Q_EMIT FlushNeeded();
}

QStringList TreeModel::Flush() {
    for (Node* parent : std::exchange(grown_, {})) {
        const int count = static_cast<int>(parent->children.size());
        if (parent->toldChildren == count)
            continue;
        beginInsertRows(IndexOf(*parent), parent->toldChildren, count - 1);
        // A new node is told of together with all nodes below it.
        for (int row = parent->toldChildren; row < count; ++row)
            MarkTold(*parent->children[static_cast<std::size_t>(row)]);
        parent->toldChildren = count;
        endInsertRows();
    }
    return std::exchange(toggled_, {}).values();
}

void TreeModel::TakeExpanded(const QModelIndex& index, bool expanded) {
    if (index.isValid())
        static_cast<Node*>(index.internalPointer())->expanded = expanded;
}

QModelIndex TreeModel::IndexOf(const QString& key) const {
    const Node& node = At(key);
    return IsTold(node) ? IndexOf(node) : QModelIndex();
}

QString TreeModel::KeyOf(const QModelIndex& index) const {
    return NodeOf(index).key;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& above) const {
    const Node& parent = NodeOf(above);
    if (row < 0 || row >= parent.toldChildren || column != 0)
        return {};
    return IndexOf(*parent.children[static_cast<std::size_t>(row)]);
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    return index.isValid() ? IndexOf(*NodeOf(index).parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& above) const {
    return NodeOf(above).toldChildren;
}

int TreeModel::columnCount(const QModelIndex& /*above*/) const {
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Node& node = NodeOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return node.text;
    case Qt::DecorationRole:
        return pictures_ ? pictures_->Picture(node.image) : QVariant();
    case SelectedPictureRole:
        return pictures_ ? pictures_->Picture(node.selectedImage) : QVariant();
    case Qt::ForegroundRole:
        return node.foreColor.isValid() ? node.foreColor : QVariant();
    case Qt::FontRole: {
        if (!node.bold)
            return {};
        QFont font;
        font.setBold(true);
        return font;
    }
    default:
        return {};
    }
}

QVariant TreeModel::headerData(int /*section*/, Qt::Orientation /*orientation*/,
                               int /*role*/) const {
    return {};
}

TreeModel::Node& TreeModel::At(const QString& key) const {
    Node* node = byKey_.value(key);
    if (node == nullptr)
        throw RunTimeError(ErrorNumber::KeyNotFound);
    return *node;
}

TreeModel::Node& TreeModel::AtOrTop(const QString& key) const {
    return key.isEmpty() ? *top_ : At(key);
}

const TreeModel::Node& TreeModel::NodeOf(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<const Node*>(index.internalPointer()) : *top_;
}

QModelIndex TreeModel::IndexOf(const Node& node) const {
    return &node == top_.get() ? QModelIndex() : createIndex(node.row, 0, &node);
}

/// Looks one level up only: a node that the view doesn't know of has no told children.
bool TreeModel::IsTold(const Node& node) const {
    return node.parent == nullptr || node.row < node.parent->toldChildren;
}

void TreeModel::CheckPicture(const QString& image) const {
    if (!pictures_ || !pictures_->Contains(image))
        throw RunTimeError(ErrorNumber::KeyNotFound);
}

void TreeModel::MarkTold(Node& node) {
    node.toldChildren = static_cast<int>(node.children.size());
    for (const auto& child : node.children)
        MarkTold(*child);
}

/// Drops what is kept outside the tree about a node and those below it.
void TreeModel::Forget(const Node& node) {
    for (const auto& child : node.children)
        Forget(*child);
    grown_.remove(byKey_.take(node.key));
    toggled_.remove(node.key);
}

void TreeModel::EraseChild(Node& parent, int row) {
    parent.children.erase(parent.children.begin() + row);
    for (std::size_t later = static_cast<std::size_t>(row); later < parent.children.size(); ++later)
        parent.children[later]->row = static_cast<int>(later);
}

void TreeModel::NoteChanged(const Node& node) {
    if (IsTold(node))
        Q_EMIT dataChanged(IndexOf(node), IndexOf(node));
}

} // namespace netrove
