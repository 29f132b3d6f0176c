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

/// Fills the browser's tree from the network: the first level in one go, a deeper one when its
/// node is expanded. A node of the tree finds its resource by its key and those of its ancestors,
/// each "??" and a remote name. Its tag is "Y" when its children are in the tree, "N" when only a
/// fake child is, which gives it its expand sign.
///
/// Loads yield, so that handlers can come in between, other loads too:
/// - Each load keeps its numbers and the list that it walks; nodes are known by keys.
/// - What a handler removes or adds meanwhile makes a key fail, which skips one child or ends the
///   load as a failed one.
/// - Abort() makes every load that is running leave after the child in work.
class NetworkTree {
public:
    NetworkTree(BrowserControls& controls, const BrowserServices& services,
                NodeExclusion& exclusion)
        : controls_(controls)
        , tree_(*controls.tvwNetwork)
        , services_(services)
        , exclusion_(exclusion) {}

    /// Makes the root anew and loads the level below it. Gives false when it was aborted. Raises
    /// what the enumeration of the network raises; the failure of one child costs that child
    /// alone.
    [[nodiscard]] bool LoadFirstLevel();

    /// Loads the children of a node in the tree. Raises ErrorNumber::ObjectNotSet where the
    /// node's resource isn't found, and what the enumeration raises.
    void LoadChildren(const QString& key);

    [[nodiscard]] bool IsLoaded(const QString& key) const;

    void Abort() { AbortLoad = true; }
    [[nodiscard]] bool Aborted() const { return AbortLoad; }

    /// The remote name of the child that the first load has reached; "NONODE" before any.
    [[nodiscard]] const QString& ChildInWork() const { return childInWork_; }

    /// The resource of the selected node; the nearest ancestor that can be found, where it can't.
    /// The root where nothing is selected. Raises nothing.
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
