#pragma once

#include <QString>

namespace netrove {

/// A computer that speaks SMB, and where it is reached.
struct SmbHost {
    QString name; ///< without "\\"
    QString workgroup = QStringLiteral("WORKGROUP");
    QString address = {}; ///< an IP address or a host name; empty: found by the name
    quint16 port = 445;
};

} // namespace netrove
