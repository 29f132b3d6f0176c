#include "platform/network/SmbWorker.h"

#include "platform/Secret.h"
#include "platform/network/WaitingPoll.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace netrove {
namespace {

/// Starts a program that has nothing but an end of the socket, the memory and the program's
/// standard error.
pid_t Spawn(const QByteArray& program, int descriptor, int memory) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, descriptor, SmbHelperDescriptor);
    posix_spawn_file_actions_adddup2(&actions, memory, SmbMemoryDescriptor);
    QByteArray name = program;
    const std::array<char*, 2> arguments{name.data(), nullptr};
    pid_t process = -1;
    const int result =
        posix_spawn(&process, program.constData(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return result == 0 ? process : -1;
}

/// A process that was killed ends within a few milliseconds, unless it hangs in the kernel.
constexpr int ReapLimit = 100;

void AwaitEnd(pid_t process) {
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Takes the status of a process that was killed. For one that hangs, a thread waits.
void Reap(pid_t process) {
    const auto handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    pollfd ended = {.fd = handle, .events = POLLIN, .revents = 0};
    const bool hasEnded = handle >= 0 && poll(&ended, 1, ReapLimit) > 0;
    if (handle >= 0)
        close(handle);
    if (hasEnded) {
        AwaitEnd(process);
        return;
    }
    try {
        std::thread(AwaitEnd, process).detach();
    } catch (const std::system_error&) { // NOLINT: it is left to the program's end
    }
}

} // namespace

std::unique_ptr<SmbWorker> SmbWorker::Start(const QString& program) {
    auto memory = SmbMemory::Make();
    std::array<int, 2> ends{};
    if (!memory ||
        socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
        return nullptr;
    // The process waits by blocking; only the program's end doesn't.
    fcntl(ends[1], F_SETFL, 0);
    const pid_t process = Spawn(QFile::encodeName(program), ends[1], memory->Descriptor());
    close(ends[1]);
    if (process < 0) {
        close(ends[0]);
        return nullptr;
    }
    return std::unique_ptr<SmbWorker>(new SmbWorker(process, ends[0], std::move(memory)));
}

SmbWorker::~SmbWorker() {
    End();
}

void SmbWorker::End() {
    Wipe(unsent_);
    if (process_ < 0)
        return;
    close(socket_);
    kill(process_, SIGKILL);
    Reap(process_);
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
    // Nothing can come without a request: what there is means the end of the process, or garbage.
    return poll(&waiting, 1, 0) == 0;
}

bool SmbWorker::Greet(Time limit) {
    unsent_ = Frames::Framed(EncodeQuestion(SmbHello()));
    SmbAnswer answer;
    WaitingPoll waiting(limit);
    if (Receive(answer, waiting) != 0)
        return false;
    const auto* hello = std::get_if<SmbHello>(&answer);
    if (hello && hello->version == SmbHello::Version)
        return true;
    Fail(EPROTO);
    return false;
}

int SmbWorker::Request(const SmbRequest& request, Time limit, const Part& part,
                       const Check& check) {
    QByteArray payload = EncodeQuestion(request);
    unsent_ = Frames::Framed(payload); // what was asked before is answered, and so it is sent
    Wipe(payload);
    WaitingPoll waiting(limit, check);
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
        if (!part(answer))
            return Fail(EPROTO);
    }
}

/// The next message. Ends the process if there is none.
int SmbWorker::Receive(SmbAnswer& answer, WaitingPoll& waiting) {
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
        if (const int status = waiting.Wait(descriptors); status != 0)
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
