#include "smb/helper/Resolve.h"

#include <array>
#include <cerrno>
#include <memory>

#include <netdb.h>
#include <sys/socket.h>

namespace netrove {
namespace {

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

int StatusOfLookup(int result) {
    switch (result) {
    case 0:
        return 0;
    case EAI_SYSTEM:
        return errno;
    case EAI_MEMORY:
        return ENOMEM;
    default:
        return EHOSTUNREACH;
    }
}

AddressList LookUp(const QString& host, int flags, int& result) {
    addrinfo wanted = {};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = flags;
    addrinfo* found = nullptr;
    result = getaddrinfo(host.toUtf8().constData(), nullptr, &wanted, &found);
    return {result == 0 ? found : nullptr, &freeaddrinfo};
}

} // namespace

bool IsNumericHost(const QString& host) {
    int result = 0;
    return LookUp(host, AI_NUMERICHOST, result) != nullptr;
}

int Resolve(const QString& host, SmbAddresses& addresses) {
    int result = 0;
    const AddressList all = LookUp(host, 0, result);
    for (const addrinfo* one = all.get(); one; one = one->ai_next) {
        std::array<char, NI_MAXHOST> text{};
        if (getnameinfo(one->ai_addr, one->ai_addrlen, text.data(), text.size(), nullptr, 0,
                        NI_NUMERICHOST) == 0)
            addresses.push_back({QString::fromLatin1(text.data())});
    }
    return StatusOfLookup(result);
}

} // namespace netrove
