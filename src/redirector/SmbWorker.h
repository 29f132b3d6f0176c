#pragma once

#include "smb/Frames.h"
#include "smb/SmbMemory.h"
#include "smb/SmbMessages.h"

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

#include <sys/types.h>

namespace netrove {

class SmbLauncher;
class Waiting;

/// One helper process, which speaks SMB for the program over a socket. Its calls can't be
/// interrupted: it is ended instead.
class SmbWorker {
public:
    using Time = std::chrono::milliseconds;
    /// Takes one part of an answer; false where it can't be one of this request. What was fetched
    /// comes as SmbData, whose bytes are only there during the call.
    using Part = std::function<bool(SmbAnswer& part)>;
    /// Asked now and then while nothing comes: 0, or an errno to give up with.
    using Check = std::function<int()>;

    /// Has a process started; null if that fails. It isn't known yet whether it speaks.
    [[nodiscard]] static std::unique_ptr<SmbWorker> Start(SmbLauncher& launcher);

    SmbWorker(const SmbWorker&) = delete;
    SmbWorker& operator=(const SmbWorker&) = delete;
    ~SmbWorker(); ///< ends the process

    /// Waits for the hello of the process: the first call. False as for Request.
    [[nodiscard]] bool Greet(Time limit, const std::stop_token& stop);

    /// Sends a request, gives each part of the answer to `part`, then the status of its end: 0 or
    /// an errno. Calls WhileWaiting() meanwhile. Where the process has died, sends garbage or
    /// nothing for longer than `limit`, or the wait is given up, it is ended; the status is then
    /// ECONNABORTED, EPROTO, ETIMEDOUT or ECANCELED, or that of `check`, and the worker of no
    /// further use. So it is where `part` raises something, which is passed on.
    [[nodiscard]] int Request(const SmbRequest& request, Time limit, const Part& part,
                              const std::stop_token& stop = {}, const Check& check = {});

    /// Whether the process still waits for requests, as far as can be told without asking.
    [[nodiscard]] bool IsAlive();
    [[nodiscard]] pid_t ProcessId() const { return number_; }

private:
    SmbWorker(int socket, std::unique_ptr<SmbMemory> memory)
        : socket_(socket), memory_(std::move(memory)) {}

    [[nodiscard]] bool Meet(Waiting& waiting);
    [[nodiscard]] int Receive(SmbAnswer& answer, Waiting& waiting);
    [[nodiscard]] bool Give(SmbAnswer& answer, const Part& part);
    [[nodiscard]] int Write();
    [[nodiscard]] int Read();
    int Fail(int status);
    void End();

    int process_ = -1; ///< a pidfd, as it is the launcher's child; -1 before its hello
    pid_t number_ = -1;
    int socket_; ///< -1 once it has ended
    std::unique_ptr<SmbMemory> memory_;
    QByteArray unsent_;
    Frames frames_;
};

} // namespace netrove
