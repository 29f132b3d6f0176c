#pragma once

#include "discovery/HttpResponse.h"
#include "discovery/SocketAddress.h"
#include "discovery/UniqueDescriptor.h"
#include "discovery/WsMessages.h"

#include <QByteArray>

#include <poll.h>

namespace netrove {

/// One question to a device over HTTP: a direct connection to its address, no proxy, no redirects,
/// a short answer. No call waits.
class MetadataRequest {
public:
    /// Begins to ask at `address`, which includes the port.
    MetadataRequest(const SocketAddress& address, const QByteArray& path, QString endpoint);

    [[nodiscard]] const SocketAddress& Address() const { return address_; }
    [[nodiscard]] pollfd Await() const;

    /// Goes on as far as it can without waiting; true once the request has ended.
    [[nodiscard]] bool Turn();

    /// What the device says that it is; nothing before the end, or if the request failed.
    [[nodiscard]] const std::optional<WsMessages::Computer>& Computer() const { return computer_; }

private:
    [[nodiscard]] bool Write();
    [[nodiscard]] bool Read();

    SocketAddress address_;
    QString messageId_;
    UniqueDescriptor socket_;
    QByteArray unsent_;
    QByteArray received_;
    std::optional<WsMessages::Computer> computer_;
};

} // namespace netrove
