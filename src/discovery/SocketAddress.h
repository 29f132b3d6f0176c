#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

#include <sys/socket.h>

namespace netrove {

/// An IPv4 or IPv6 address with a port, as sockets take it.
class SocketAddress {
public:
    /// Nothing for any other family.
    [[nodiscard]] static std::optional<SocketAddress> From(const sockaddr* address);
    /// Reads a numeric address. `scope` is the number of the interface where it holds; a link-local
    /// IPv6 address needs one.
    [[nodiscard]] static std::optional<SocketAddress> Parse(const QString& host, quint16 port,
                                                            unsigned scope = 0);

    [[nodiscard]] bool IsIPv4() const { return isIPv4_; }
    /// Whether it is an IPv6 address that holds on one link alone.
    [[nodiscard]] bool IsLinkLocal() const;
    [[nodiscard]] unsigned Scope() const { return scope_; }
    [[nodiscard]] quint16 Port() const { return port_; }
    [[nodiscard]] SocketAddress WithPort(quint16 port) const;

    /// The numeric address without the port; a link-local one with "%" and its interface's name.
    [[nodiscard]] QString Host() const;

    /// Whether the first `bits` of the two are the same; false for different families.
    [[nodiscard]] bool SharesPrefix(const SocketAddress& other, int bits) const;
    /// How many bits are set at the start: for a netmask, the length of its prefix.
    [[nodiscard]] int LeadingOnes() const;

    /// Writes the system's form of the address into `storage`; returns its size.
    socklen_t Store(sockaddr_storage& storage) const;

    bool operator==(const SocketAddress&) const = default;

private:
    [[nodiscard]] int Bits() const { return isIPv4_ ? 32 : 128; }
    [[nodiscard]] bool Bit(int index) const;

    bool isIPv4_ = true;
    std::array<std::uint8_t, 16> bytes_ = {}; ///< IPv4 uses the first four
    unsigned scope_ = 0;
    quint16 port_ = 0;
};

} // namespace netrove
