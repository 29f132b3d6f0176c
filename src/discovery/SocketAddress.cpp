#include "discovery/SocketAddress.h"

#include <algorithm>
#include <cstring>

#include <arpa/inet.h>
#include <net/if.h>
#include <netinet/in.h>

namespace netrove {

std::optional<SocketAddress> SocketAddress::From(const sockaddr* address) {
    SocketAddress result;
    if (address != nullptr && address->sa_family == AF_INET) {
        sockaddr_in from = {};
        std::memcpy(&from, address, sizeof from);
        std::memcpy(result.bytes_.data(), &from.sin_addr, sizeof from.sin_addr);
        result.port_ = ntohs(from.sin_port);
        return result;
    }
    if (address != nullptr && address->sa_family == AF_INET6) {
        sockaddr_in6 from = {};
        std::memcpy(&from, address, sizeof from);
        std::memcpy(result.bytes_.data(), &from.sin6_addr, sizeof from.sin6_addr);
        result.isIPv4_ = false;
        result.scope_ = from.sin6_scope_id;
        result.port_ = ntohs(from.sin6_port);
        return result;
    }
    return std::nullopt;
}

std::optional<SocketAddress> SocketAddress::Parse(const QString& host, quint16 port,
                                                  unsigned scope) {
    SocketAddress result;
    result.port_ = port;
    const QByteArray text = host.toUtf8();
    if (inet_pton(AF_INET, text.constData(), result.bytes_.data()) == 1)
        return result;
    result.isIPv4_ = false;
    if (inet_pton(AF_INET6, text.constData(), result.bytes_.data()) != 1)
        return std::nullopt;
    if (result.IsLinkLocal())
        result.scope_ = scope;
    return result;
}

bool SocketAddress::IsLinkLocal() const {
    return !isIPv4_ && bytes_[0] == 0xFE && (bytes_[1] & 0xC0) == 0x80;
}

SocketAddress SocketAddress::WithPort(quint16 port) const {
    SocketAddress result = *this;
    result.port_ = port;
    return result;
}

QString SocketAddress::Host() const {
    std::array<char, INET6_ADDRSTRLEN> text = {};
    inet_ntop(isIPv4_ ? AF_INET : AF_INET6, bytes_.data(), text.data(), text.size());
    std::array<char, IF_NAMESIZE> interface = {};
    if (!IsLinkLocal() || if_indextoname(scope_, interface.data()) == nullptr)
        return QString::fromLatin1(text.data());
    return QString::fromLatin1(text.data()) + u'%' + QString::fromUtf8(interface.data());
}

bool SocketAddress::Bit(int index) const {
    return (bytes_.at(static_cast<std::size_t>(index / 8)) >> (7 - index % 8) & 1) != 0;
}

bool SocketAddress::SharesPrefix(const SocketAddress& other, int bits) const {
    if (isIPv4_ != other.isIPv4_)
        return false;
    for (int index = 0; index < std::min(bits, Bits()); ++index) {
        if (Bit(index) != other.Bit(index))
            return false;
    }
    return true;
}

int SocketAddress::LeadingOnes() const {
    int count = 0;
    while (count < Bits() && Bit(count))
        ++count;
    return count;
}

socklen_t SocketAddress::Store(sockaddr_storage& storage) const {
    storage = {};
    if (isIPv4_) {
        sockaddr_in to = {};
        to.sin_family = AF_INET;
        to.sin_port = htons(port_);
        std::memcpy(&to.sin_addr, bytes_.data(), sizeof to.sin_addr);
        std::memcpy(&storage, &to, sizeof to);
        return sizeof to;
    }
    sockaddr_in6 to = {};
    to.sin6_family = AF_INET6;
    to.sin6_port = htons(port_);
    to.sin6_scope_id = scope_;
    std::memcpy(&to.sin6_addr, bytes_.data(), sizeof to.sin6_addr);
    std::memcpy(&storage, &to, sizeof to);
    return sizeof to;
}

} // namespace netrove
