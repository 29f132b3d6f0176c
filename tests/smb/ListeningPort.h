#pragma once

#include "discovery/UniqueDescriptor.h"

#include <QtGlobal>

#include <arpa/inet.h>
#include <sys/socket.h>

namespace netrove {

inline sockaddr_in AddressOf(in_addr_t host, quint16 port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(host);
    return address;
}

/// A free port of this machine that listens; nobody accepts the connections but who uses it.
class ListeningPort {
public:
    explicit ListeningPort(in_addr_t host = INADDR_LOOPBACK, int backlog = 128) {
        sockaddr_in address = AddressOf(host, 0);
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (bind(Descriptor(), generic, size) == 0 && listen(Descriptor(), backlog) == 0 &&
            getsockname(Descriptor(), generic, &size) == 0)
            port_ = ntohs(address.sin_port);
    }

    [[nodiscard]] int Descriptor() const { return socket_.Number(); }
    [[nodiscard]] quint16 Port() const { return port_; }

private:
    UniqueDescriptor socket_{socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    quint16 port_ = 0;
};

/// A connection to a port of this machine, maybe not there yet with SOCK_NONBLOCK; none on failure.
inline UniqueDescriptor ConnectTo(quint16 port, int flags = 0) {
    UniqueDescriptor client(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
    const sockaddr_in address = AddressOf(INADDR_LOOPBACK, port);
    const int status =
        connect(client.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    return status == 0 || flags != 0 ? std::move(client) : UniqueDescriptor();
}

} // namespace netrove
