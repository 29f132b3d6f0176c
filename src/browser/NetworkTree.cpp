#include "browser/NetworkTree.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Yield.h"

namespace netrove {
namespace {

QString KeyOf(const QString& remoteName) {
    return "??"_L1 + remoteName;
}

QString RemoteNameOf(const QString& key) {
    return key.startsWith("??"_L1) ? key.mid(2) : key;
}

QString RootKey() {
    return u"??_ROOT"_s;
}

QString FakeKeyOf(const QString& parentKey) {
    return parentKey + "_FAKE"_L1;
}

/// Does the steps for one child; if one of them fails, the rest are skipped.
template <typename Steps>
void SkipFailures(Steps steps) {
    try {
        steps();
    } catch (const std::exception&) {
    }
}

} // namespace

bool NetworkTree::LoadFirstLevel() {
    RootResource = std::make_shared<NetResource>(services_.network);
    services_.log.PrintNode(u"LOAD - ROOT"_s, *RootResource);
    Yield();
    tree_.Add({}, RootKey(), u"Entire Network"_s, u"root"_s, u"root"_s);
    tree_.SetTag(RootKey(), u"Y"_s);
    const std::shared_ptr<NetResources> children = RootResource->Children();
    LoadProgress progress(controls_, children->Count());
    controls_.lblWait->hide();
    Yield();
    for (const auto& child : *children) {
        childInWork_ = child->RemoteName();
        progress.Advance();
        SkipFailures([&] { AddFirstLevelNode(*child); });
        if (AbortLoad)
            return false;
        progress.Show();
    }
    return true;
}

void NetworkTree::AddFirstLevelNode(const NetResource& child) {
    Yield();
    services_.log.PrintNode(u"LOAD - CHILDREN"_s, child);
    const QString key = KeyOf(child.RemoteName());
    const QString image = child.ResourceTypeName().toLower();
    tree_.Add(RootKey(), key, child.RemoteName(), image, image);
    exclusion_.MarkExcludedNode(key);
    Yield();
    tree_.SetTag(key, u"N"_s);
    AddFakeChild(key);
    controls_.lblAddNode->setText("Adding "_L1 + child.RemoteName());
    controls_.lblAddNode->repaint();
    tree_.EnsureVisible(key);
    Yield();
}

void NetworkTree::LoadChildren(const QString& key) {
    controls_.lblWait->show();
    controls_.picProg->show();
    LoadProgress::Reset(controls_);
    controls_.lblProg->repaint();
    controls_.lblProcPerc->repaint();
    Yield();
    tree_.Remove(FakeKeyOf(key));
    // Otherwise the tree would show this only after the wait for the network.
    tree_.Refresh();
    const std::shared_ptr<NetResource> resource = ResourceOf(key);
    const std::shared_ptr<NetResources> children = resource->Children();
    LoadProgress progress(controls_, children->Count());
    controls_.lblWait->hide();
    Yield();
    for (const auto& child : *children) {
        progress.Advance();
        SkipFailures([&] { AddDeeperNode(KeyOf(resource->RemoteName()), *child); });
        if (AbortLoad)
            return;
        progress.Show();
    }
    controls_.lblWait->hide();
    controls_.picProg->hide();
    tree_.Refresh();
    tree_.SetTag(key, u"Y"_s);
}

void NetworkTree::AddDeeperNode(const QString& parentKey, const NetResource& child) {
    services_.log.PrintNode(u"NODECLICK"_s, child);
    const QString key = KeyOf(child.RemoteName());
    const QString image = child.ResourceTypeName().toLower();
    tree_.Add(parentKey, key, child.ShortName(), image, image);
    exclusion_.MarkExcludedNode(key);
    tree_.SetTag(key, u"N"_s);
    if (child.ResourceType() != ResourceType::Printer)
        AddFakeChild(key);
}

bool NetworkTree::IsLoaded(const QString& key) const {
    return tree_.Tag(key) != "N"_L1;
}

void NetworkTree::AddFakeChild(const QString& key) {
    tree_.Add(key, FakeKeyOf(key), u"FAKE"_s, u"server"_s, u"server"_s);
}

std::shared_ptr<NetResource> NetworkTree::SelectedResource() const {
    std::shared_ptr<NetResource> resource = RootResource;
    SkipFailures([&] {
        for (const QString& name : RemoteNamesTo(tree_.Selected())) {
            SkipFailures([&] {
                if (const auto child = resource->Children()->Item(name))
                    resource = child;
            });
        }
    });
    return resource;
}

std::shared_ptr<NetResource> NetworkTree::ResourceOf(const QString& key) const {
    std::shared_ptr<NetResource> resource = RootResource;
    for (const QString& name : RemoteNamesTo(key)) {
        resource = resource->Children()->Item(name);
        if (!resource)
            throw RunTimeError(ErrorNumber::ObjectNotSet);
    }
    return resource;
}

/// The remote names on the way from the root, which has none, to the node with this key.
QStringList NetworkTree::RemoteNamesTo(QString key) const {
    QStringList names;
    for (; !key.isEmpty() && !tree_.Parent(key).isEmpty(); key = tree_.Parent(key))
        names.prepend(RemoteNameOf(key));
    return names;
}

} // namespace netrove
