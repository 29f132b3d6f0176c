#include "smb/helper/Channel.h"

#include <array>
#include <cerrno>

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace netrove {

bool Channel::IsThere() {
    struct stat status = {};
    return fstat(SmbHelperDescriptor, &status) == 0 && S_ISSOCK(status.st_mode);
}

Channel::Event Channel::Receive(SmbQuestion& question, std::chrono::milliseconds limit) {
    for (;;) {
        if (const auto payload = frames_.Take()) {
            std::optional<SmbQuestion> message = DecodeQuestion(*payload);
            if (!message)
                return Event::End;
            question = std::move(*message);
            return Event::Question;
        }
        if (frames_.IsBroken())
            return Event::End;
        pollfd waiting = {.fd = SmbHelperDescriptor, .events = POLLIN, .revents = 0};
        const int ready = poll(&waiting, 1, static_cast<int>(limit.count()));
        if (ready == 0)
            return Event::Quiet;
        if ((ready < 0 && errno != EINTR) || (ready > 0 && !ReadSome()))
            return Event::End;
    }
}

bool Channel::ReadSome() {
    std::array<char, 4096> buffer; // NOLINT: recv fills it
    const ssize_t count = recv(SmbHelperDescriptor, buffer.data(), buffer.size(), 0);
    if (count < 0)
        return errno == EINTR;
    frames_.Append(QByteArrayView(buffer.data(), count));
    return count > 0;
}

bool Channel::Send(const SmbAnswer& answer) {
    const QByteArray frame = Frames::Framed(EncodeAnswer(answer));
    qsizetype sent = 0;
    while (sent < frame.size()) {
        const ssize_t count = send(SmbHelperDescriptor, frame.constData() + sent,
                                   static_cast<std::size_t>(frame.size() - sent), MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            sent += count;
    }
    return true;
}

} // namespace netrove
