#include "browser/NodeExclusion.h"

#include "controls/Color.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"

namespace netrove {
namespace {

constexpr quint32 MarkColor = 255; // red in the low byte

} // namespace

void NodeExclusion::MarkExcludedNode(const QString& key) {
    if (settings_.ExcludeNetNodes && IsListed(ClassOf(key), tree_.Text(key)))
        Mark(key);
}

bool NodeExclusion::IsMarked(const QString& key) const {
    return tree_.ForeColor(key) == ToColor(MarkColor) && tree_.Bold(key);
}

void NodeExclusion::mnuExcNode_Click() {
    const QString key = tree_.Selected();
    if (tree_.Count() == 0)
        return;
    if (const auto failure = FailureOf([&] { ExcludeNode(key); })) {
        const QString text = tree_.Contains(key) ? tree_.Text(key) : QString();
        dialogs_.Failure(failure, u"Error in excluding node "_s + text);
    }
}

void NodeExclusion::ExcludeNode(const QString& key) {
    if (!settings_.ExcludeNetNodes) {
        dialogs_.Message(MessageIcon::Exclamation,
                         u"The node exclusion option is currently off.\r\n"
                         "To activate it go to Tools>Options>Search"_s,
                         u"Exclude Network Node"_s);
        return;
    }
    if (key.isEmpty())
        return;
    const NodeClass nodeClass = ClassOf(key);
    if (!MayExclude(key, nodeClass))
        return;
    settings_.ExcNetNodes.append(tree_.Text(key) + "|True|"_L1 + TypeWord(nodeClass));
    Mark(key);
}

bool NodeExclusion::MayExclude(const QString& key, NodeClass nodeClass) {
    const QString title = u"Exclude Network Node <"_s + tree_.Image(key) + u'>';
    if (nodeClass == NodeClass::Root) {
        dialogs_.Message(MessageIcon::Critical, u"Can not exclude the root node."_s, title);
        return false;
    }
    if (nodeClass == NodeClass::Other) {
        dialogs_.Message(MessageIcon::Exclamation,
                         u"Can not exclude this network node. This probably\r\n"
                         "means that the network node type is already excluded\r\n"
                         "from the search."_s,
                         title);
        return false;
    }
    return true;
}

NodeExclusion::NodeClass NodeExclusion::ClassOf(const QString& key) const {
    struct PictureClass {
        const char* image;
        NodeClass nodeClass;
    };
    static constexpr PictureClass Classes[] = {
        {"WORKSTATION", NodeClass::Workstation}, {"SERVER", NodeClass::Workstation},
        {"WORKGROUP", NodeClass::Workgroup},     {"GROUP", NodeClass::Workgroup},
        {"DOMAIN", NodeClass::Workgroup},        {"NETWORK", NodeClass::Network},
        {"FOLDER", NodeClass::Folder},           {"SHARE", NodeClass::Folder},
        {"ADMINSHARE", NodeClass::Folder},       {"DIRECTORY", NodeClass::Folder},
        {"SHAREADMIN", NodeClass::Folder},       {"ROOT", NodeClass::Root},
    };
    const QString image = UpperCase(tree_.Image(key));
    for (const PictureClass& entry : Classes) {
        if (image == QLatin1String(entry.image))
            return entry.nodeClass;
    }
    return NodeClass::Other;
}

bool NodeExclusion::IsListed(NodeClass nodeClass, const QString& text) const {
    const QString name = UpperCase(text);
    switch (nodeClass) {
    case NodeClass::Workstation:
        return exclusions_.UseExcWorkstations &&
               exclusions_.ExcWorkstations.contains("\\\\"_L1 + name);
    case NodeClass::Workgroup:
        return exclusions_.UseExcWorkgroups && exclusions_.ExcWorkgroups.contains(name);
    case NodeClass::Network:
        return exclusions_.UseExcNetworks && exclusions_.ExcNetworks.contains(name);
    case NodeClass::Folder:
        return exclusions_.UseExcShares && exclusions_.ExcShares.contains(name);
    case NodeClass::Root:
    case NodeClass::Other:
        return false;
    }
    return false;
}

QString NodeExclusion::TypeWord(NodeClass nodeClass) {
    switch (nodeClass) {
    case NodeClass::Workstation:
        return u"Workstation"_s;
    case NodeClass::Workgroup:
        return u"Workgroup"_s;
    case NodeClass::Network:
        return u"Network"_s;
    case NodeClass::Folder:
        return u"Folder"_s;
    case NodeClass::Root:
    case NodeClass::Other:
        break;
    }
    throw RunTimeError(ErrorNumber::InternalError);
}

void NodeExclusion::Mark(const QString& key) {
    tree_.SetForeColor(key, ToColor(MarkColor));
    tree_.SetBold(key, true);
}

} // namespace netrove
