#include "find/StartNode.h"

#include "find/WrongUse.h"
#include "mainwindow/services/NetworkNodes.h"
#include "mainwindow/services/Paths.h"

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

std::shared_ptr<NetResource> NodeOfPath(const QString& text, const FindServices& services) {
    const auto path = UncPath::Parse(text);
    if (!path)
        throw WrongUse(QLatin1String("'") + text +
                       QLatin1String("' is no path of a server, share or folder (quote it for the "
                                     "shell: '\\\\SERVER\\SHARE')"));
    const auto record = services.record(*path);
    if (!record)
        throw WrongUse(QLatin1String("no network answers for '") + text + QLatin1Char('\''));
    auto node = std::make_shared<NetResource>(services.network);
    node->InitFrom(*record);
    const bool isThere = path->Share().isEmpty() ? node->Children()->Count() > 0 ||
                                                       CanBeListed(*record, services.network)
                                                 : services.files.CanEnter(path->Text());
    if (!isThere)
        throw WrongUse(QLatin1String("cannot reach '") + text + QLatin1Char('\''));
    return node;
}

QString NetworkNames(NetworkEnumeration& network) {
    QStringList names;
    NetResource root(network);
    const auto children = root.Children();
    for (const auto& child : *children)
        names.append(QLatin1Char('\'') + child->RemoteName() + QLatin1Char('\''));
    return names.join(QLatin1String(", "));
}

} // namespace

std::shared_ptr<NetResource> StartNode(const QString& text, const FindServices& services) {
    if (text.isEmpty())
        return std::make_shared<NetResource>(services.network);
    QString path = text;
    if (path.startsWith(QLatin1String("//")))
        path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    if (path.startsWith(QLatin1Char('\\')))
        return NodeOfPath(path, services);
    auto node = FindNetNode(EnsureSuffix(text, QStringLiteral("|")), services.network);
    if (!node)
        throw WrongUse(QLatin1String("there is no '") + text +
                       QLatin1String("' on the network; its first level is ") +
                       NetworkNames(services.network));
    return node;
}

} // namespace netrove
