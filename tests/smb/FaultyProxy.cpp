#include "smb/FaultyProxy.h"

#include <array>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace netrove {
namespace {

sockaddr_in Loopback(quint16 port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

} // namespace

FaultyProxy::FaultyProxy(quint16 server) : serverPort_(server) {
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, generic, size) == 0 && listen(listener_, 16) == 0 &&
        getsockname(listener_, generic, &size) == 0)
        port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Run(); });
}

FaultyProxy::~FaultyProxy() {
    ending_ = true;
    thread_.join();
    for (const Pair& pair : pairs_) {
        close(pair.client);
        close(pair.server);
    }
    close(listener_);
}

void FaultyProxy::SetLimit(qint64 bytes, Fault fault) {
    limit_ = bytes_ + bytes;
    fault_ = fault;
}

int FaultyProxy::CloseAll() {
    const int open = open_;
    CloseAfter(0);
    while (open_ > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    Heal();
    return open;
}

bool FaultyProxy::LimitReached() const {
    return fault_ != Fault::None && bytes_ >= limit_;
}

void FaultyProxy::Run() {
    while (!ending_) {
        std::vector<pollfd> waiting{{.fd = listener_, .events = POLLIN, .revents = 0}};
        for (const Pair& pair : pairs_) {
            waiting.push_back({.fd = pair.client, .events = POLLIN, .revents = 0});
            waiting.push_back({.fd = pair.server, .events = POLLIN, .revents = 0});
        }
        if (poll(waiting.data(), waiting.size(), 10) < 0)
            return;
        std::vector<Pair> kept;
        for (std::size_t at = 0; at < pairs_.size(); ++at) {
            const Pair& pair = pairs_[at];
            bool open = !(fault_ == Fault::Close && LimitReached());
            if (open && waiting[1 + 2 * at].revents != 0)
                open = Pass(pair.client, pair.server, false);
            if (open && waiting[2 + 2 * at].revents != 0)
                open = Pass(pair.server, pair.client, true);
            if (open) {
                kept.push_back(pair);
                continue;
            }
            close(pair.client);
            close(pair.server);
            --open_;
        }
        pairs_ = std::move(kept);
        if (waiting[0].revents != 0)
            Accept();
    }
}

void FaultyProxy::Accept() {
    const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    const int server = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = Loopback(serverPort_);
    if (client < 0 ||
        connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(client);
        close(server);
        return;
    }
    ++connections_;
    pairs_.push_back({.client = client, .server = server});
    ++open_;
}

/// Passes on what there is; false where the connection is to be closed.
bool FaultyProxy::Pass(int from, int to, bool fromServer) {
    std::array<char, 4096> buffer; // NOLINT: recv fills it
    const ssize_t count = recv(from, buffer.data(), buffer.size(), 0);
    if (count <= 0)
        return false;
    if (fromServer) {
        if (delay_ > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(delay_));
        if (LimitReached())
            return fault_ == Fault::Silent;
        bytes_ += count;
    }
    return send(to, buffer.data(), static_cast<std::size_t>(count), MSG_NOSIGNAL) == count;
}

} // namespace netrove
