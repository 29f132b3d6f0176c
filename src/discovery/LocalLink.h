#pragma once

#include "discovery/SocketAddress.h"

#include <optional>
#include <vector>

namespace netrove {

/// An interface of this computer that leads to a LAN: it is up, is no loopback, and can multicast.
struct LocalLink {
    struct Address {
        SocketAddress own;
        int prefix = 0; ///< bits of `own` that all computers of the link share
        std::optional<SocketAddress> broadcast;
    };

    unsigned index = 0; ///< the system's number for the interface
    std::vector<Address> addresses;

    /// The first of its IPv4 or IPv6 addresses; null if there is none.
    [[nodiscard]] const Address* First(bool isIPv4) const;
    /// Whether an address is reached over this link without a router.
    [[nodiscard]] bool Reaches(const SocketAddress& address) const;
};

/// The links that there are now, InquiryLimits::Links at most.
[[nodiscard]] std::vector<LocalLink> LocalLinks();

} // namespace netrove
