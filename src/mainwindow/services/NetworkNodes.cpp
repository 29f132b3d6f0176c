#include "mainwindow/services/NetworkNodes.h"

#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

namespace netrove {

std::shared_ptr<NetResource> FindNetNode(const QString& path, NetworkEnumeration& network) {
    QStringList names = path.split(QLatin1Char('|'));
    names.removeLast();
    try {
        auto node = std::make_shared<NetResource>(network);
        for (const QString& name : names) {
            node = node->Children()->Item(name);
            if (!node)
                return nullptr;
        }
        return node;
    } catch (const RunTimeError&) {
        return nullptr;
    }
}

QString ComputerUNCName(const SystemInformation& system) {
    try {
        return QLatin1String("\\\\") + UpperCase(Trim(system.ComputerName()));
    } catch (const RunTimeError&) {
        return QString();
    }
}

} // namespace netrove
