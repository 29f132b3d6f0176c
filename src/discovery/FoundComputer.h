#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

namespace netrove {

/// A way of finding a computer of the LAN; those that give more reliable names come first.
enum class FoundBy : quint8 {
    WsDiscovery = 1,
    NetBios = 2,
    DnsSd = 4,
};
Q_DECLARE_FLAGS(FoundByWays, FoundBy)
Q_DECLARE_OPERATORS_FOR_FLAGS(FoundByWays)

/// A computer that answered, with all that was learned about it.
struct FoundComputer {
    QString name;                     ///< as the best of the ways gives it
    std::optional<QString> workgroup; ///< nothing where it isn't known
    /// Numeric: IPv4, then IPv6, then IPv6 of one link alone, with its interface ("fe80::1%eth0").
    QStringList addresses;
    quint16 port = 445; ///< of SMB; only DNS-SD may tell another
    FoundByWays foundBy;
    bool isMasterBrowser = false; ///< says that it keeps its workgroup's browse list (NetBIOS)
    QString model;                ///< what the device is, by DNS-SD ("MacSamba"); may be empty

    bool operator==(const FoundComputer&) const = default;
};

} // namespace netrove
