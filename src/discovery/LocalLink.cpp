#include "discovery/LocalLink.h"

#include "discovery/InquiryLimits.h"

#include <algorithm>
#include <memory>

#include <ifaddrs.h>
#include <net/if.h>

namespace netrove {
namespace {

bool LeadsToLan(const ifaddrs& entry) {
    return (entry.ifa_flags & IFF_UP) != 0 && (entry.ifa_flags & IFF_MULTICAST) != 0 &&
           (entry.ifa_flags & IFF_LOOPBACK) == 0;
}

std::optional<LocalLink::Address> AddressOf(const ifaddrs& entry) {
    const auto own = SocketAddress::From(entry.ifa_addr);
    const auto mask = SocketAddress::From(entry.ifa_netmask);
    if (!own || !mask)
        return std::nullopt;
    LocalLink::Address address = {
        .own = *own, .prefix = mask->LeadingOnes(), .broadcast = std::nullopt};
    if (own->IsIPv4() && (entry.ifa_flags & IFF_BROADCAST) != 0)
        address.broadcast = SocketAddress::From(entry.ifa_broadaddr);
    return address;
}

} // namespace

const LocalLink::Address* LocalLink::First(bool isIPv4) const {
    const auto found =
        std::find_if(addresses.begin(), addresses.end(),
                     [isIPv4](const Address& address) { return address.own.IsIPv4() == isIPv4; });
    return found == addresses.end() ? nullptr : &*found;
}

bool LocalLink::Reaches(const SocketAddress& address) const {
    if (address.IsLinkLocal())
        return address.Scope() == index;
    return std::any_of(addresses.begin(), addresses.end(), [&address](const Address& own) {
        return own.own.SharesPrefix(address, own.prefix);
    });
}

std::vector<LocalLink> LocalLinks() {
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0)
        return {};
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(first, &freeifaddrs);
    std::vector<LocalLink> links;
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
        const auto address = AddressOf(*entry);
        const unsigned index = if_nametoindex(entry->ifa_name);
        if (!LeadsToLan(*entry) || !address || index == 0)
            continue;
        auto link = std::find_if(links.begin(), links.end(),
                                 [index](const LocalLink& known) { return known.index == index; });
        if (link == links.end() && links.size() == InquiryLimits::Links)
            continue;
        if (link == links.end())
            link = links.insert(links.end(), {.index = index, .addresses = {}});
        link->addresses.push_back(*address);
    }
    return links;
}

} // namespace netrove
