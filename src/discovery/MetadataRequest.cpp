#include "discovery/MetadataRequest.h"

#include <array>
#include <cerrno>

#include <sys/socket.h>

namespace netrove {
namespace {

bool MustWait() {
    return errno == EAGAIN || errno == EINTR;
}

/// The host as it stands in a request: IPv6 in brackets, without the interface.
QByteArray HostField(const SocketAddress& address) {
    const QByteArray host = address.Host().section(u'%', 0, 0).toLatin1();
    return (address.IsIPv4() ? host : '[' + host + ']') + ':' + QByteArray::number(address.Port());
}

} // namespace

MetadataRequest::MetadataRequest(const SocketAddress& address, const QByteArray& path,
                                 QString endpoint)
    : address_(address)
    , messageId_(WsMessages::NewId())
    , socket_(socket(address.IsIPv4() ? AF_INET : AF_INET6,
                     SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    const QByteArray body = WsMessages::Get(messageId_, endpoint);
    unsent_ = "POST " + path + " HTTP/1.1\r\nHost: " + HostField(address) +
              "\r\nContent-Type: application/soap+xml\r\nContent-Length: " +
              QByteArray::number(body.size()) +
              "\r\nUser-Agent: Netrove\r\nConnection: close\r\n\r\n" + body;
    sockaddr_storage storage = {};
    const socklen_t size = address.Store(storage);
    if (connect(socket_.Number(), reinterpret_cast<const sockaddr*>(&storage), size) != 0 &&
        errno != EINPROGRESS)
        socket_ = UniqueDescriptor();
}

pollfd MetadataRequest::Await() const {
    const short events = unsent_.isEmpty() ? POLLIN : POLLOUT;
    return {.fd = socket_.Number(), .events = events, .revents = 0};
}

bool MetadataRequest::Turn() {
    return !socket_.IsOpen() || (!unsent_.isEmpty() && Write()) || (unsent_.isEmpty() && Read());
}

bool MetadataRequest::Write() {
    const ssize_t sent = send(socket_.Number(), unsent_.constData(),
                              static_cast<std::size_t>(unsent_.size()), MSG_NOSIGNAL);
    if (sent < 0)
        return !MustWait();
    unsent_.remove(0, sent);
    return false;
}

bool MetadataRequest::Read() {
    std::array<char, 16384> buffer;
    const ssize_t count = recv(socket_.Number(), buffer.data(), buffer.size(), 0);
    if (count < 0)
        return !MustWait();
    received_.append(buffer.data(), count);
    const HttpResponse response = HttpResponse::Parse(received_, count == 0);
    if (response.state != HttpResponse::State::Complete)
        return response.state == HttpResponse::State::Refused;
    const auto message = WsMessages::Parse(response.body);
    if (message && message->relatesTo == messageId_)
        computer_ = message->computer;
    return true;
}

} // namespace netrove
