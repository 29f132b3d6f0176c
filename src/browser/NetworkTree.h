#pragma once

#include "browser/BrowserControls.h"
#include "browser/BrowserServices.h"
#include "browser/LoadProgress.h"
#include "browser/NodeExclusion.h"
#include "network/NetResource.h"
#include "runtime/SourceText.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace netrove {

/// Fills the browser's tree from the network: the first level in one go, a deeper one when its node
/// is expanded. A node's resource is found by the keys of the node and its ancestors, each of which
/// is "??" and a remote name. A node's tag is "Y" when its children are in the tree, and "N" when
/// it has only a fake child, there for the sake of the expand sign.
///
/// Loads yield, so that handlers can run in between, even other loads:
/// - Each load has its own numbers and its own list to walk; it knows nodes by their keys.
/// - A key may fail because of what a handler has removed or added meanwhile; that skips one child,
///   or makes the load fail.
/// - Abort() makes every running load end after the current child.
class NetworkTree {
public:
    NetworkTree(BrowserControls& controls, const BrowserServices& services,
                NodeExclusion& exclusion)
        : controls_(controls)
        , tree_(*controls.tvwNetwork)
        , services_(services)
        , exclusion_(exclusion) {}

    /// Makes the root anew and loads the level below it. Returns false if it was aborted. Raises
    /// what the enumeration of the network raises; if a single child fails, only that child is
    /// missing.
    [[nodiscard]] bool LoadFirstLevel();

    /// Loads the children of a node in the tree. Raises ErrorNumber::ObjectNotSet where the
    /// node's resource isn't found, and what the enumeration raises.
    void LoadChildren(const QString& key);

    [[nodiscard]] bool IsLoaded(const QString& key) const;

    void Abort() { AbortLoad = true; }
    [[nodiscard]] bool Aborted() const { return AbortLoad; }

    /// The remote name of the child that the first load has reached; "NONODE" before any.
    [[nodiscard]] const QString& ChildInWork() const { return childInWork_; }

    /// The resource of the selected node; if it can't be found, that of its nearest ancestor with
    /// one. The root if nothing is selected. Raises nothing.
    [[nodiscard]] std::shared_ptr<NetResource> SelectedResource() const;

private:
    void AddFirstLevelNode(const NetResource& child);
    void AddDeeperNode(const QString& parentKey, const NetResource& child);
    void AddFakeChild(const QString& key);
    [[nodiscard]] std::shared_ptr<NetResource> ResourceOf(const QString& key) const;
    [[nodiscard]] QStringList RemoteNamesTo(QString key) const;

    BrowserControls& controls_;
    TreeView& tree_;
    const BrowserServices& services_;
    NodeExclusion& exclusion_;

    std::shared_ptr<NetResource> RootResource;
    bool AbortLoad = false;
    QString childInWork_ = u"NONODE"_s;
};

} // namespace netrove
