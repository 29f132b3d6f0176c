#include "services/NetworkNodes.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"

namespace netrove {
namespace {

using Node = std::shared_ptr<NetResource>;

/// The node that the names lead to; null if one of them doesn't exist.
Node Descend(Node node, const QStringList& names) {
    for (const QString& name : names) {
        node = node->Children()->Item(name);
        if (!node)
            return nullptr;
    }
    return node;
}

/// The same, beginning at the first provider below which the names lead to a node.
Node DescendFromAny(NetResource& root, const QStringList& names) {
    const auto providers = root.Children();
    for (const Node& provider : *providers) {
        if (Node node = Descend(provider, names))
            return node;
    }
    return nullptr;
}

} // namespace

std::shared_ptr<NetResource> FindNetNode(const QString& path, NetworkEnumeration& network) {
    QStringList names = path.split(u'|');
    names.removeLast();
    try {
        const auto root = std::make_shared<NetResource>(network);
        auto node = Descend(root, names);
        if (!node && names.first().compare(NetEnum::LocalAreaNetwork, Qt::CaseInsensitive) == 0)
            node = DescendFromAny(*root, names.mid(1));
        return node;
    } catch (const RunTimeError&) {
        return nullptr;
    }
}

QString ComputerUNCName(const SystemInformation& system) {
    try {
        return "\\\\"_L1 + UpperCase(Trim(system.ComputerName()));
    } catch (const RunTimeError&) {
        return QString();
    }
}

} // namespace netrove
