#pragma once

#include "controls/ImageList.h"

#include <QAbstractItemModel>
#include <QColor>
#include <QHash>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace netrove {

/// The nodes of a TreeView, each known by its key. Every call sees a change at once. The view is
/// told of removals and changed looks at once too; of added and expanded nodes Flush() tells it
/// later, of many together. The inherited interface (`rowCount`, `index` …) is for the view, and
/// has only the nodes that the view has been told of.
///
/// A key without a node raises ErrorNumber::KeyNotFound.
class TreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    /// The picture of a node that is selected.
    static constexpr int SelectedPictureRole = Qt::UserRole;

    explicit TreeModel(QObject* parent = nullptr);
    ~TreeModel() override;

    /// Adds a node as the last child of the node `relative`; an empty one stands for the top.
    /// Raises ErrorNumber::KeyNotUnique for a key that a node has already, and
    /// ErrorNumber::KeyNotFound for a picture that the bound set doesn't hold.
    void Add(const QString& relative, const QString& key, const QString& text, const QString& image,
             const QString& selectedImage);
    /// Removes a node with all that is below it.
    void Remove(const QString& key);
    void Clear();

    [[nodiscard]] int Count() const { return static_cast<int>(byKey_.size()); }
    [[nodiscard]] bool Contains(const QString& key) const { return byKey_.contains(key); }
    /// Empty for a node at the top.
    [[nodiscard]] QString Parent(const QString& key) const;
    /// The keys of the children in their order; those of the top for an empty key.
    [[nodiscard]] QStringList Children(const QString& key) const;

    [[nodiscard]] QString Text(const QString& key) const;
    [[nodiscard]] QString Image(const QString& key) const;
    [[nodiscard]] QString Tag(const QString& key) const;
    void SetTag(const QString& key, const QString& tag);
    /// The colour of the text; an invalid one means the tree's own.
    [[nodiscard]] QColor ForeColor(const QString& key) const;
    void SetForeColor(const QString& key, const QColor& color);
    [[nodiscard]] bool Bold(const QString& key) const;
    void SetBold(const QString& key, bool bold);
    /// A node can be expanded before it has children, and stays so.
    [[nodiscard]] bool Expanded(const QString& key) const;
    void SetExpanded(const QString& key, bool expanded);

    /// The set that the nodes' pictures come from.
    void SetPictures(ImageList* pictures) { pictures_ = pictures; }

    /// Tells the view of the nodes that have been added since the last call. Gives the keys of
    /// those that have been expanded or collapsed since then, for the view to do likewise.
    [[nodiscard]] QStringList Flush();

    /// Takes over the view's own change; the view isn't told of it again.
    void TakeExpanded(const QModelIndex& index, bool expanded);

    /// An invalid index for a node that the view hasn't been told of.
    [[nodiscard]] QModelIndex IndexOf(const QString& key) const;
    /// Empty for an invalid index.
    [[nodiscard]] QString KeyOf(const QModelIndex& index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& above) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& above = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& above = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// None: the header isn't shown.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

Q_SIGNALS:
    /// Raised when something has changed that the view hasn't been told of.
    void FlushNeeded();

private:
    struct Node {
        QString key;
        QString text;
        QString image;
        QString selectedImage;
        QString tag;
        QColor foreColor;
        bool bold = false;
        bool expanded = false;
        Node* parent = nullptr; ///< the top's is null
        int row = 0;            ///< its place among its parent's children
        int toldChildren = 0;   ///< how many of the children the view knows of
        std::vector<std::unique_ptr<Node>> children;
    };

    [[nodiscard]] Node& At(const QString& key) const;
    [[nodiscard]] Node& AtOrTop(const QString& key) const;
    [[nodiscard]] const Node& NodeOf(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex IndexOf(const Node& node) const;
    [[nodiscard]] bool IsTold(const Node& node) const;
    void CheckPicture(const QString& image) const;
    static void MarkTold(Node& node);
    void Forget(const Node& node);
    static void EraseChild(Node& parent, int row);
    void NoteChanged(const Node& node);

    std::unique_ptr<Node> top_;
    QHash<QString, Node*> byKey_;
    QPointer<ImageList> pictures_;

    QSet<Node*> grown_;     ///< told nodes with children that the view doesn't know of
    QSet<QString> toggled_; ///< expanded or collapsed since the last Flush()
};

} // namespace netrove
