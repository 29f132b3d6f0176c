#include "discovery/DatagramSocket.h"

#include <netinet/in.h>
#include <sys/socket.h>

namespace netrove {
namespace {

constexpr qsizetype MaxDatagram = 65536;

} // namespace

DatagramSocket::DatagramSocket(int family)
    : descriptor_(socket(family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}

template <typename Value>
bool DatagramSocket::Set(int level, int option, const Value& value) const {
    return setsockopt(Descriptor(), level, option, &value, sizeof value) == 0;
}

bool DatagramSocket::Bind(const SocketAddress& own) const {
    sockaddr_storage storage = {};
    const socklen_t size = own.Store(storage);
    return bind(Descriptor(), reinterpret_cast<const sockaddr*>(&storage), size) == 0;
}

std::optional<DatagramSocket> DatagramSocket::ForBroadcast(const SocketAddress& own) {
    DatagramSocket socket(AF_INET);
    if (!socket.descriptor_.IsOpen() || !socket.Set(SOL_SOCKET, SO_BROADCAST, 1) ||
        !socket.Bind(own.WithPort(0)))
        return std::nullopt;
    return socket;
}

std::optional<DatagramSocket> DatagramSocket::ForMulticast(const LocalLink& link, bool isIPv4) {
    const LocalLink::Address* const own = link.First(isIPv4);
    if (own == nullptr)
        return std::nullopt;
    DatagramSocket socket(isIPv4 ? AF_INET : AF_INET6);
    const int index = static_cast<int>(link.index);
    bool works = socket.descriptor_.IsOpen();
    if (isIPv4) {
        ip_mreqn interface = {};
        interface.imr_ifindex = index;
        works = works && socket.Set(IPPROTO_IP, IP_MULTICAST_IF, interface) &&
                socket.Set(IPPROTO_IP, IP_MULTICAST_TTL, 1) && socket.Bind(own->own.WithPort(0));
    } else {
        // Not bound to an address: the system picks the one that suits the destination.
        works = works && socket.Set(IPPROTO_IPV6, IPV6_MULTICAST_IF, index) &&
                socket.Set(IPPROTO_IPV6, IPV6_MULTICAST_HOPS, 1) &&
                socket.Set(IPPROTO_IPV6, IPV6_V6ONLY, 1);
    }
    return works ? std::optional(std::move(socket)) : std::nullopt;
}

void DatagramSocket::Send(const QByteArray& bytes, const SocketAddress& to) const {
    sockaddr_storage storage = {};
    const socklen_t size = to.Store(storage);
    static_cast<void>(sendto(Descriptor(), bytes.constData(),
                             static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL,
                             reinterpret_cast<const sockaddr*>(&storage), size));
}

std::optional<Datagram> DatagramSocket::Receive() const {
    QByteArray bytes(MaxDatagram, Qt::Uninitialized);
    sockaddr_storage storage = {};
    socklen_t size = sizeof storage;
    const ssize_t length =
        recvfrom(Descriptor(), bytes.data(), static_cast<std::size_t>(bytes.size()), 0,
                 reinterpret_cast<sockaddr*>(&storage), &size);
    const auto from = SocketAddress::From(reinterpret_cast<const sockaddr*>(&storage));
    if (length < 0 || !from)
        return std::nullopt;
    return Datagram{.from = *from, .bytes = bytes.first(length)};
}

} // namespace netrove
