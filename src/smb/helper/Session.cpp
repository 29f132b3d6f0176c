#include "smb/helper/Session.h"

#include <array>
#include <cerrno>
#include <memory>

#include <netdb.h>
#include <sys/socket.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// After so long without a request the program won't come back: it drops a helper much earlier.
constexpr std::chrono::milliseconds IdleLimit = 120s;

/// A file that isn't read for so long is closed: an open file keeps others from renaming it.
constexpr std::chrono::milliseconds OpenFileLimit = 2s;

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

/// The addresses of a computer, in the order in which they should be tried.
int Resolve(const QString& host, SmbAddresses& addresses) {
    addrinfo wanted = {};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int result = getaddrinfo(host.toUtf8().constData(), nullptr, &wanted, &found);
    if (result != 0)
        return StatusOfLookup(result);
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> all(found, &freeaddrinfo);
    for (const addrinfo* one = found; one; one = one->ai_next) {
        std::array<char, NI_MAXHOST> text{};
        if (getnameinfo(one->ai_addr, one->ai_addrlen, text.data(), text.size(), nullptr, 0,
                        NI_NUMERICHOST) == 0)
            addresses.push_back({QString::fromLatin1(text.data())});
    }
    return 0;
}

} // namespace

void Session::Run() {
    if (!Greet())
        return;
    SmbQuestion question;
    for (;;) {
        Channel::Event event = channel_.Receive(question, OpenFileLimit);
        if (event == Channel::Event::Quiet) {
            client_.CloseFile();
            event = channel_.Receive(question, IdleLimit);
        }
        if (event != Channel::Event::Question)
            return;
        const auto* request = std::get_if<SmbRequest>(&question);
        if (!request || !Answer(*request))
            return;
    }
}

bool Session::Greet() {
    SmbQuestion question;
    if (!channel_.Send(SmbHello()) ||
        channel_.Receive(question, IdleLimit) != Channel::Event::Question)
        return false;
    const auto* hello = std::get_if<SmbHello>(&question);
    return hello && hello->version == SmbHello::Version;
}

bool Session::Answer(const SmbRequest& request) {
    const auto send = [this](const SmbAnswer& part) { return channel_.Send(part); };
    SmbEnd end;
    if (request.kind == SmbRequest::Kind::Resolve) {
        SmbAddresses addresses;
        end.status = Resolve(request.host, addresses);
        if (!send(addresses))
            return false;
    } else {
        end.status = client_.Do(request, send);
    }
    return send(end);
}

} // namespace netrove
