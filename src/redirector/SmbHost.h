#pragma once

#include <QString>

#include <optional>

namespace netrove {

/// A computer that speaks SMB, and where it is reached.
struct SmbHost {
    static constexpr quint16 UsualPort = 445;

    QString name;                          ///< without "\\"
    std::optional<QString> workgroup = {}; ///< nothing where it isn't known
    QString address = {}; ///< an IP address or a host name; empty: found by the name
    quint16 port = UsualPort;
};

} // namespace netrove
