#include "discovery/OwnAddress.h"

#include "discovery/SocketAddress.h"
#include "runtime/SourceText.h"

#include <memory>

#include <ifaddrs.h>

namespace netrove {
namespace {

/// Compares the addresses without their ports and interfaces.
bool IsSameHost(const SocketAddress& left, const SocketAddress& right) {
    return left.SharesPrefix(right, left.IsIPv4() ? 32 : 128);
}

bool IsLoopback(const SocketAddress& address) {
    constexpr int networkBits = 8; // RFC 1122, 3.2.1.3
    const auto first = SocketAddress::Parse(u"127.0.0.1"_s, 0);
    return first && address.SharesPrefix(*first, networkBits);
}

} // namespace

bool IsOwnAddress(const QString& address) {
    if (address.compare("localhost"_L1, Qt::CaseInsensitive) == 0)
        return true;
    const auto asked = SocketAddress::Parse(address.section(u'%', 0, 0), 0);
    if (!asked)
        return false;
    if (IsLoopback(*asked))
        return true;
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0)
        return false;
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(first, &freeifaddrs);
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
        const auto own = SocketAddress::From(entry->ifa_addr);
        if (own && IsSameHost(*own, *asked))
            return true;
    }
    return false;
}

} // namespace netrove
