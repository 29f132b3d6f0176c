#pragma once

#include "redirector/Logons.h"
#include "redirector/Network.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace netrove {

struct OpenedNetwork {
    std::unique_ptr<Network> network; ///< never null
    /// What is wrong with the file, as texts for the user; the rest of the file is used.
    QStringList problems;
};

/// The network with the providers that "network.ini" in that folder names, in the file's order;
/// without the file, the local area network alone. Each section stands for the provider of its
/// name:
///
///   [Microsoft Windows Network]
///   Type=smb
///   Computer1=NAME|WORKGROUP|ADDRESS:PORT    (all but the name may be left out)
///   Find=No                                  (only these; otherwise the LAN is asked for others)
///
///   [Sample Network]
///   Type=folder
///   Path=sample-network                      (relative to the file's folder)
///
/// Computers that speak SMB are asked with the logons stored in `logons`, or as a guest if it is
/// null.
[[nodiscard]] OpenedNetwork OpenNetwork(const QString& applicationFolder,
                                        const std::shared_ptr<Logons>& logons = nullptr);

} // namespace netrove
