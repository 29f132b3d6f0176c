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

/// One helper process, which speaks SMB for the program and is told what to do over a socket. What
/// it does can't be interrupted: it is ended instead.
class SmbWorker {
public:
    using Time = std::chrono::milliseconds;
    /// Takes one part of an answer; false where it can't belong to this request. What was fetched
    /// comes as SmbData, whose bytes are valid only during the call.
    using Part = std::function<bool(SmbAnswer& part)>;
    /// Called now and then while nothing comes: returns 0, or an errno to give up with.
    using Check = std::function<int()>;

    /// Has a process started; null if that fails. Greet() tells whether it works.
    [[nodiscard]] static std::unique_ptr<SmbWorker> Start(SmbLauncher& launcher);

    SmbWorker(const SmbWorker&) = delete;
    SmbWorker& operator=(const SmbWorker&) = delete;
    ~SmbWorker(); ///< ends the process

    /// Waits for the hello of the process. Must be the first call. False if the process fails to
    /// say it in time or the wait is given up: it is ended then, as in Request.
    [[nodiscard]] bool Greet(Time limit, const std::stop_token& stop);

    /// Sends a request, gives each part of the answer to `part` and returns the status at its end:
    /// 0 or an errno. Calls WhileWaiting() meanwhile. If the process has died, sends garbage, or
    /// sends nothing for longer than `limit`, or if the wait is given up, the process is ended. The
    /// status is then ECONNABORTED, EPROTO, ETIMEDOUT or ECANCELED, or that of `check`, and the
    /// worker is of no further use. If `part` raises something, the process is ended, too, and the
    /// exception is passed on.
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

    int process_ = -1; ///< a pidfd, as the process is the launcher's child; -1 before its hello
    pid_t number_ = -1;
    int socket_; ///< -1 once the process has ended
    std::unique_ptr<SmbMemory> memory_;
    QByteArray unsent_;
    Frames frames_;
};

} // namespace netrove
