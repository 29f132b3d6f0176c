#include "redirector/SmbWorker.h"

#include "redirector/SmbLauncher.h"
#include "runtime/Secret.h"
#include "runtime/Waiting.h"
#include "smb/Descriptors.h"
#include "smb/HelperLaunch.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace netrove {
namespace {

/// How many milliseconds a killed process is waited for: it ends within a few, unless it hangs in
/// the kernel. It leaves no zombie, as its launcher ignores SIGCHLD.
constexpr int EndLimit = 100;

} // namespace

std::unique_ptr<SmbWorker> SmbWorker::Start(SmbLauncher& launcher) {
    auto memory = SmbMemory::Make();
    std::array<int, 2> ends{};
    if (!memory ||
        socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
        return nullptr;
    // The process waits in blocking calls; only the program's end of the socket is non-blocking.
    fcntl(ends[1], F_SETFL, 0);
    std::unique_ptr<SmbWorker> worker(new SmbWorker(ends[0], std::move(memory)));
    const bool isLaunched = launcher.Launch(ends[1], worker->memory_->Descriptor());
    close(ends[1]);
    return isLaunched ? std::move(worker) : nullptr;
}

SmbWorker::~SmbWorker() {
    End();
}

void SmbWorker::End() {
    Wipe(unsent_);
    if (socket_ >= 0)
        close(socket_); // ends a process that hasn't said hello yet
    socket_ = -1;
    if (process_ < 0)
        return;
    syscall(SYS_pidfd_send_signal, process_, SIGKILL, nullptr, 0);
    pollfd ending = {.fd = process_, .events = POLLIN, .revents = 0};
    while (poll(&ending, 1, EndLimit) < 0 && errno == EINTR) {
    }
    close(process_);
    process_ = -1;
}

int SmbWorker::Fail(int status) {
    End();
    return status;
}

bool SmbWorker::IsAlive() {
    if (process_ < 0)
        return false;
    pollfd waiting = {.fd = socket_, .events = POLLIN, .revents = 0};
    // Without a request nothing may come: anything there is means the end of the process, or
    // garbage.
    return poll(&waiting, 1, 0) == 0;
}

/// Takes what the process sends first: its number and its pidfd.
bool SmbWorker::Meet(Waiting& waiting) {
    std::array<pollfd, 1> descriptors{{{.fd = socket_, .events = POLLIN, .revents = 0}}};
    if (waiting.ForDescriptors(descriptors) != 0)
        return false;
    LaunchAnswer answer{};
    const std::vector<int> received = ReceiveDescriptors(socket_, answer, 1);
    if (received.empty())
        return false;
    process_ = received.front();
    std::memcpy(&number_, answer.data(), sizeof number_);
    return true;
}

bool SmbWorker::Greet(Time limit, const std::stop_token& stop) {
    Waiting waiting(limit, stop);
    if (!Meet(waiting)) {
        End();
        return false;
    }
    unsent_ = Frames::Framed(EncodeQuestion(SmbHello()));
    SmbAnswer answer;
    if (Receive(answer, waiting) != 0)
        return false;
    const auto* hello = std::get_if<SmbHello>(&answer);
    if (hello && hello->version == SmbHello::Version)
        return true;
    Fail(EPROTO);
    return false;
}

int SmbWorker::Request(const SmbRequest& request, Time limit, const Part& part,
                       const std::stop_token& stop, const Check& check) {
    QByteArray payload = EncodeQuestion(request);
    unsent_ = Frames::Framed(payload); // was empty: what has been answered had been sent
    Wipe(payload);
    Waiting waiting(limit, stop, check);
    for (;;) {
        SmbAnswer answer;
        if (const int status = Receive(answer, waiting); status != 0)
            return status;
        waiting.Restart(limit);
        if (const auto* end = std::get_if<SmbEnd>(&answer))
            return end->status < 0 ? Fail(EPROTO) : end->status;
        if (const auto* fetched = std::get_if<SmbFetched>(&answer))
            answer =
                SmbData{QByteArray::fromRawData(memory_->Data() + fetched->begin, fetched->length)};
        if (!Give(answer, part))
            return Fail(EPROTO);
    }
}

/// Gives a part of an answer to `part`. If that raises something, ends the process: the rest of the
/// answer would be taken for the next one.
bool SmbWorker::Give(SmbAnswer& answer, const Part& part) {
    try {
        return part(answer);
    } catch (...) {
        End();
        throw;
    }
}

/// Takes the next message. Ends the process if none comes.
int SmbWorker::Receive(SmbAnswer& answer, Waiting& waiting) {
    if (process_ < 0)
        return ECONNABORTED;
    for (;;) {
        if (const auto payload = frames_.Take()) {
            std::optional<SmbAnswer> message = DecodeAnswer(*payload);
            if (!message)
                return Fail(EPROTO);
            answer = std::move(*message);
            return 0;
        }
        if (frames_.IsBroken())
            return Fail(EPROTO);
        std::array<pollfd, 1> descriptors{{{.fd = socket_, .events = POLLIN, .revents = 0}}};
        if (!unsent_.isEmpty())
            descriptors[0].events |= POLLOUT;
        if (const int status = waiting.ForDescriptors(descriptors); status != 0)
            return Fail(status);
        if ((descriptors[0].revents & POLLOUT) != 0 && Write() != 0)
            return Fail(ECONNABORTED);
        if ((descriptors[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0 && Read() != 0)
            return Fail(ECONNABORTED);
    }
}

int SmbWorker::Write() {
    const ssize_t count =
        send(socket_, unsent_.constData(), static_cast<std::size_t>(unsent_.size()), MSG_NOSIGNAL);
    if (count > 0) {
        explicit_bzero(unsent_.data(), static_cast<std::size_t>(count)); // may be a password
        unsent_.remove(0, count);
    }
    return count < 0 && errno != EAGAIN && errno != EINTR ? errno : 0;
}

int SmbWorker::Read() {
    std::array<char, 65536> buffer; // NOLINT: recv fills it
    const ssize_t count = recv(socket_, buffer.data(), buffer.size(), 0);
    if (count > 0)
        frames_.Append(QByteArrayView(buffer.data(), count));
    if (count == 0)
        return ECONNABORTED;
    return count < 0 && errno != EAGAIN && errno != EINTR ? errno : 0;
}

} // namespace netrove
