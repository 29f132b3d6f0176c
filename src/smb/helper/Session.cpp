#include "smb/helper/Session.h"

#include "smb/helper/Resolve.h"

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// How long to wait for a request. The program would have dropped an idle helper much earlier.
constexpr std::chrono::milliseconds IdleLimit = 120s;

/// How long a file stays open without being read: an open file keeps others from renaming it.
constexpr std::chrono::milliseconds OpenFileLimit = 2s;

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
