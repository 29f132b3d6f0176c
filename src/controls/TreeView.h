#pragma once

#include "controls/DelayedFlush.h"
#include "controls/TreeModel.h"

#include <QTimer>
#include <QTreeView>

namespace netrove {

/// A tree of nodes with pictures and texts. It shows the network. A node is known by its key; a key
/// without a node raises ErrorNumber::KeyNotFound. One node or none is selected.
///
/// Every call sees a change of the tree at once. The screen follows some hundredths of a second
/// later, so that many changes cost little, and always before the user's next key or click is
/// served.
///
/// The signals are raised last in the handling of an event: handlers may run the event loop and
/// change the tree.
class TreeView : public QTreeView {
    Q_OBJECT
public:
    explicit TreeView(QWidget* parent = nullptr);

    /// Adds a node as the last child of the node `relative`; an empty one stands for the top.
    /// Raises ErrorNumber::KeyNotUnique for a key that a node has already, and
    /// ErrorNumber::KeyNotFound for a picture that the bound list doesn't hold.
    void Add(const QString& relative, const QString& key, const QString& text, const QString& image,
             const QString& selectedImage) {
        model_->Add(relative, key, text, image, selectedImage);
    }
    /// Removes a node with all that is below it.
    void Remove(const QString& key) { model_->Remove(key); }
    void Clear();

    [[nodiscard]] int Count() const { return model_->Count(); }
    [[nodiscard]] bool Contains(const QString& key) const { return model_->Contains(key); }
    /// Empty for a node at the top.
    [[nodiscard]] QString Parent(const QString& key) const { return model_->Parent(key); }
    /// The keys of the children in their order; those of the top for an empty key.
    [[nodiscard]] QStringList Children(const QString& key) const { return model_->Children(key); }

    [[nodiscard]] QString Text(const QString& key) const { return model_->Text(key); }
    [[nodiscard]] QString Image(const QString& key) const { return model_->Image(key); }
    /// A text that belongs to the node and isn't shown.
    [[nodiscard]] QString Tag(const QString& key) const { return model_->Tag(key); }
    void SetTag(const QString& key, const QString& tag) { model_->SetTag(key, tag); }
    /// The colour of the text; an invalid one means the tree's own. The colour is shown lighter or
    /// darker where it couldn't be read otherwise.
    [[nodiscard]] QColor ForeColor(const QString& key) const { return model_->ForeColor(key); }
    void SetForeColor(const QString& key, const QColor& color) { model_->SetForeColor(key, color); }
    [[nodiscard]] bool Bold(const QString& key) const { return model_->Bold(key); }
    void SetBold(const QString& key, bool bold) { model_->SetBold(key, bold); }

    /// A node can be expanded before it has children, and stays so. SetExpanded raises no event.
    [[nodiscard]] bool Expanded(const QString& key) const { return model_->Expanded(key); }
    void SetExpanded(const QString& key, bool expanded) { model_->SetExpanded(key, expanded); }

    /// Expands all nodes above this one, without an event, and scrolls to it.
    void EnsureVisible(const QString& key);

    /// The key of the selected node; empty if there's none. Only the left button and the keyboard
    /// select.
    [[nodiscard]] QString Selected() const;
    /// Selects the node and makes it visible.
    void SetSelected(const QString& key);

    /// Binds the tree to the list that its pictures come from.
    void SetImageList(ImageList* pictures);

    /// Brings the screen's state up to date; it is painted at the next pass of the event loop.
    void Flush();
    /// Brings the screen's state up to date and paints it now.
    void Refresh();

Q_SIGNALS:
    /// The user has expanded a node.
    void Expand(const QString& key);
    /// A mouse button has gone down at this place of the viewport. The keyboard's menu key counts
    /// as the right button on the current node.
    void MouseDown(Qt::MouseButton button, const QPoint& position);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    [[nodiscard]] int sizeHintForColumn(int column) const override;

private:
    [[nodiscard]] bool IsReachable(const QString& key) const;
    void ShowExpansion(const QString& key);
    void TakeExpanded(const QModelIndex& index);
    void RaiseExpand();

    TreeModel* model_;
    DelayedFlush delayed_{*this, [this] { Flush(); }};
    QTimer expandTimer_;
    QString toScrollTo_;
    QStringList toRaise_; ///< expanded by the user, not raised yet
    bool showing_ = false;
};

} // namespace netrove
