#pragma once

#include "controls/TreeView.h"
#include "platform/Dialogs.h"
#include "search/ExclusionLists.h"
#include "settings/Settings.h"

#include <QString>

namespace netrove {

/// Shows which nodes of the browser's tree are excluded from searches, and excludes more. An
/// excluded node is marked twice: it is red, and it is bold.
class NodeExclusion {
public:
    NodeExclusion(TreeView& tree, Settings& settings, const ExclusionLists& exclusions,
                  Dialogs& dialogs)
        : tree_(tree), settings_(settings), exclusions_(exclusions), dialogs_(dialogs) {}

    /// Marks a node that the parsed lists exclude.
    void MarkExcludedNode(const QString& key);

    [[nodiscard]] bool IsMarked(const QString& key) const;

    /// Adds an entry for the selected node to the settings and marks it; if that can't be done,
    /// says why in a message box. The parsed lists stay as they are.
    void mnuExcNode_Click();

private:
    /// The kinds of nodes, as far as exclusion is concerned; told by their pictures.
    enum class NodeClass { Workstation, Workgroup, Network, Folder, Root, Other };

    [[nodiscard]] NodeClass ClassOf(const QString& key) const;
    [[nodiscard]] bool IsListed(NodeClass nodeClass, const QString& text) const;
    [[nodiscard]] bool MayExclude(const QString& key, NodeClass nodeClass);
    [[nodiscard]] static QString TypeWord(NodeClass nodeClass);
    void ExcludeNode(const QString& key);
    void Mark(const QString& key);

    TreeView& tree_;
    Settings& settings_;
    const ExclusionLists& exclusions_;
    Dialogs& dialogs_;
};

} // namespace netrove
