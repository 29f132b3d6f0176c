#include "redirector/SmbProbe.h"

#include "runtime/Waiting.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

namespace netrove {
namespace {

/// More addresses than a computer has.
constexpr std::size_t MaxAddresses = 16;

/// The question for dialects ([MS-SMB2] 2.2.3) in its frame ([MS-SMB2] 2.1): 2.0.2 to 3.0.2. A
/// server that wants another dialect answers, too, with an error.
QByteArray NegotiateRequest() {
    constexpr std::array<quint16, 4> dialects{0x0202, 0x0210, 0x0300, 0x0302};
    QByteArray header = QByteArray::fromHex("fe534d42" // protocol
                                            "4000");   // size of this header
    header.resize(64, '\0');
    header[14] = 1;                                // credits asked for
    QByteArray body = QByteArray::fromHex("2400"); // size of the fixed part
    body.resize(36, '\0');
    body[2] = dialects.size();
    body[4] = 1; // signing enabled
    for (const quint16 dialect : dialects) {
        std::array<char, 2> bytes{};
        qToLittleEndian(dialect, bytes.data());
        body.append(bytes.data(), bytes.size());
    }
    std::array<char, 4> length{};
    qToBigEndian(static_cast<quint32>(header.size() + body.size()), length.data());
    return QByteArray(length.data(), length.size()) + header + body;
}

/// The first bytes of any answer: the frame's length, then the protocol.
constexpr qsizetype AnswerBytes = 8;

bool IsAnswer(const QByteArray& bytes) {
    return bytes.startsWith('\0') && bytes.mid(4, 4) == QByteArray::fromHex("fe534d42");
}

int SocketError(int socket) {
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

} // namespace

SmbProbe::~SmbProbe() {
    for (const pollfd& one : sockets_) {
        if (one.fd >= 0)
            close(one.fd);
    }
}

int SmbProbe::Run(const std::vector<QString>& addresses, quint16 port,
                  const std::stop_token& stop) {
    status_ = EHOSTUNREACH;
    for (std::size_t at = 0; at < std::min(addresses.size(), MaxAddresses); ++at)
        Open(addresses[at], port);
    const int socket = AwaitConnection(stop);
    return socket < 0 ? status_ : AwaitAnswer(socket, stop);
}

void SmbProbe::Open(const QString& address, quint16 port) {
    addrinfo wanted = {};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    if (getaddrinfo(address.toUtf8().constData(), QByteArray::number(port).constData(), &wanted,
                    &found) != 0)
        return;
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, &freeaddrinfo);
    const int handle = socket(found->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (handle < 0) {
        status_ = errno;
        return;
    }
    if (connect(handle, found->ai_addr, found->ai_addrlen) != 0 && errno != EINPROGRESS) {
        status_ = errno;
        close(handle);
        return;
    }
    sockets_.push_back({.fd = handle, .events = POLLOUT, .revents = 0});
}

/// The first of the sockets to be connected; -1 if none is in time.
int SmbProbe::AwaitConnection(const std::stop_token& stop) {
    Waiting waiting(limits_.connect, stop);
    auto open = static_cast<std::ptrdiff_t>(sockets_.size());
    while (open > 0) {
        if (const int status = waiting.ForDescriptors(sockets_); status != 0) {
            status_ = status;
            return -1;
        }
        for (pollfd& one : sockets_) {
            if (one.fd < 0 || one.revents == 0)
                continue;
            const int error = SocketError(one.fd);
            if (error == 0)
                return one.fd;
            status_ = error;
            close(one.fd);
            one.fd = -1; // poll ignores it
            --open;
        }
    }
    return -1;
}

int SmbProbe::AwaitAnswer(int socket, const std::stop_token& stop) const {
    const QByteArray request = NegotiateRequest();
    // A new connection takes these few bytes at once.
    if (send(socket, request.constData(), static_cast<std::size_t>(request.size()), MSG_NOSIGNAL) !=
        request.size())
        return ECONNRESET;
    Waiting waiting(limits_.negotiate, stop);
    QByteArray answer;
    while (answer.size() < AnswerBytes) {
        std::array<pollfd, 1> descriptors{{{.fd = socket, .events = POLLIN, .revents = 0}}};
        if (const int status = waiting.ForDescriptors(descriptors); status != 0)
            return status;
        std::array<char, AnswerBytes> bytes{};
        const ssize_t count =
            recv(socket, bytes.data(), static_cast<std::size_t>(AnswerBytes - answer.size()), 0);
        if (count <= 0)
            return ECONNRESET;
        answer.append(bytes.data(), count);
    }
    return IsAnswer(answer) ? 0 : EPROTO;
}

} // namespace netrove
