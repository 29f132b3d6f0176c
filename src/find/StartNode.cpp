#include "find/StartNode.h"

#include "find/WrongUse.h"
#include "runtime/SourceText.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"

namespace netrove {
namespace {

bool CanBeListed(const NetRecord& record, NetworkEnumeration& network) {
    NetEnum::Handle handle = 0;
    if (network.OpenEnum(NetEnum::ScopeGlobalNet, NetEnum::TypeDisk, NetEnum::UsageAll, record,
                         handle) != NetEnum::NoError)
        return false;
    network.CloseEnum(handle);
    return true;
}

/// Whether the text is a path: names of the network's levels don't begin like one.
bool IsPath(const QString& text) {
    return text.startsWith(u'\\') || text.startsWith("//"_L1);
}

std::optional<UncPath> PathOf(QString text) {
    if (text.startsWith("//"_L1))
        text.replace(u'/', u'\\');
    return UncPath::Parse(text);
}

WrongUse CannotReach(const QString& text) {
    return WrongUse(WrongUse::tr("cannot reach '%1'").arg(text));
}

std::shared_ptr<NetResource> NodeOfPath(const QString& text, const FindServices& services) {
    const auto path = PathOf(text);
    if (!path)
        throw WrongUse(WrongUse::tr("'%1' is no path of a server, share or folder (quote it for "
                                    "the shell: '\\\\SERVER\\SHARE')")
                           .arg(text));
    const auto record = services.record(*path);
    if (!record)
        throw WrongUse(WrongUse::tr("no network answers for '%1'").arg(text));
    auto node = std::make_shared<NetResource>(services.network);
    node->InitFrom(*record);
    if (path->Share().isEmpty() && node->Children()->Count() == 0 &&
        !CanBeListed(*record, services.network))
        throw CannotReach(text);
    return node;
}

QString NetworkNames(NetworkEnumeration& network) {
    QStringList names;
    NetResource root(network);
    const auto children = root.Children();
    for (const auto& child : *children)
        names.append(u'\'' + child->RemoteName() + u'\'');
    return names.join(", "_L1);
}

} // namespace

std::shared_ptr<NetResource> StartNode(const QString& text, const FindServices& services) {
    if (text.isEmpty())
        return std::make_shared<NetResource>(services.network);
    if (IsPath(text))
        return NodeOfPath(text, services);
    auto node = FindNetNode(EnsureSuffix(text, u"|"_s), services.network);
    if (!node)
        throw WrongUse(WrongUse::tr("there is no '%1' on the network; its first level is %2")
                           .arg(text, NetworkNames(services.network)));
    return node;
}

void CheckStart(const QString& text, const FindServices& services) {
    const auto path = IsPath(text) ? PathOf(text) : std::nullopt;
    if (path && !path->Share().isEmpty() && !services.files.CanEnter(path->Text()))
        throw CannotReach(text);
}

} // namespace netrove
