#include "smb/FaultyProxy.h"

#include <algorithm>
#include <array>

#include <poll.h>

namespace netrove {

int FaultyProxy::CloseAll() {
    const int open = open_;
    CloseAfter(0);
    while (open_ > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    Heal();
    return open;
}

void FaultyProxy::Run() {
    while (!ending_) {
        std::vector<pollfd> waiting{{.fd = listener_.Descriptor(), .events = POLLIN, .revents = 0}};
        for (const Pair& pair : pairs_) {
            waiting.push_back({.fd = pair.client.Number(), .events = POLLIN, .revents = 0});
            waiting.push_back({.fd = pair.server.Number(), .events = POLLIN, .revents = 0});
        }
        poll(waiting.data(), waiting.size(), 1);
        auto news = waiting.begin() + 1;
        std::erase_if(pairs_, [&](Pair& pair) {
            const short client = news++->revents;
            return !Serve(pair, client, news++->revents);
        });
        open_ = static_cast<int>(pairs_.size());
        if (waiting[0].revents != 0)
            Accept();
    }
}

/// False where the connection is to be closed.
bool FaultyProxy::Serve(Pair& pair, short client, short server) {
    if (fault_ == Fault::Close && LimitReached())
        return false;
    std::array<char, 65536> buffer; // NOLINT: recv fills it
    if (client != 0) {
        const ssize_t count = recv(pair.client.Number(), buffer.data(), buffer.size(), 0);
        if (count <= 0 || send(pair.server.Number(), buffer.data(), static_cast<std::size_t>(count),
                               MSG_NOSIGNAL) != count)
            return false;
    }
    if (server != 0) {
        const ssize_t count = recv(pair.server.Number(), buffer.data(), 4096, MSG_DONTWAIT);
        pair.held.push_back({QByteArray(buffer.data(), std::max<ssize_t>(count, 0)),
                             Clock::now() + std::chrono::milliseconds(delay_)});
    }
    return PassHeld(pair);
}

/// Passes on what is due; false at the end of the connection.
bool FaultyProxy::PassHeld(Pair& pair) {
    while (!pair.held.empty() && pair.held.front().due <= Clock::now()) {
        const QByteArray bytes = std::move(pair.held.front().bytes);
        pair.held.pop_front();
        if (bytes.isEmpty())
            return false;
        if (LimitReached())
            return fault_ == Fault::Silent;
        bytes_ += bytes.size();
        if (send(pair.client.Number(), bytes.constData(), static_cast<std::size_t>(bytes.size()),
                 MSG_NOSIGNAL) != bytes.size())
            return false;
    }
    return true;
}

void FaultyProxy::Accept() {
    UniqueDescriptor client(accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
    UniqueDescriptor server = ConnectTo(serverPort_);
    if (!client.IsOpen() || !server.IsOpen())
        return;
    ++connections_;
    pairs_.push_back({.client = std::move(client), .server = std::move(server)});
    ++open_;
}

} // namespace netrove
