#pragma once

#include "discovery/LocalLink.h"
#include "discovery/UniqueDescriptor.h"

#include <QByteArray>

#include <optional>

namespace netrove {

struct Datagram {
    SocketAddress from;
    QByteArray bytes;
};

/// A UDP socket that asks many hosts on one link and takes their answers; never waits.
class DatagramSocket {
public:
    /// A socket for broadcasts from `own`, one of the link's IPv4 addresses.
    [[nodiscard]] static std::optional<DatagramSocket> ForBroadcast(const SocketAddress& own);
    /// A socket for multicasts over the link; no router passes them on.
    [[nodiscard]] static std::optional<DatagramSocket> ForMulticast(const LocalLink& link,
                                                                    bool isIPv4);

    [[nodiscard]] int Descriptor() const { return descriptor_.Number(); }

    /// Bytes that can't be sent are lost without notice, as they might be on the way.
    void Send(const QByteArray& bytes, const SocketAddress& to) const;
    /// The next datagram that has come; nothing if there is none.
    [[nodiscard]] std::optional<Datagram> Receive() const;

private:
    explicit DatagramSocket(int family);
    [[nodiscard]] bool Bind(const SocketAddress& own) const;
    template <typename Value>
    bool Set(int level, int option, const Value& value) const;

    UniqueDescriptor descriptor_;
};

} // namespace netrove
