#pragma once

#include "smb/Frames.h"
#include "smb/SmbMemory.h"
#include "smb/SmbMessages.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

#include <sys/types.h>

namespace netrove {

class WaitingPoll;

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

    /// Starts the program at that path; null if that fails. It isn't known yet whether it speaks.
    [[nodiscard]] static std::unique_ptr<SmbWorker> Start(const QString& program);

    SmbWorker(const SmbWorker&) = delete;
    SmbWorker& operator=(const SmbWorker&) = delete;
    ~SmbWorker(); ///< ends the process

    /// Waits for the hello of the process. False as for Request.
    [[nodiscard]] bool Greet(Time limit);

    /// Sends a request, gives each part of the answer to `part`, then the status of its end: 0 or
    /// an errno. Calls WhileWaiting() meanwhile. Where the process has died, sends garbage or
    /// nothing for longer than `limit`, or the wait is given up, it is ended; the status is then
    /// ECONNABORTED, EPROTO, ETIMEDOUT or ECANCELED, or that of `check`, and the worker of no
    /// further use.
    [[nodiscard]] int Request(const SmbRequest& request, Time limit, const Part& part,
                              const Check& check = {});

    /// Whether the process still waits for requests, as far as can be told without asking.
    [[nodiscard]] bool IsAlive();
    [[nodiscard]] pid_t ProcessId() const { return process_; }

private:
    SmbWorker(pid_t process, int socket, std::unique_ptr<SmbMemory> memory)
        : process_(process), socket_(socket), memory_(std::move(memory)) {}

    [[nodiscard]] int Receive(SmbAnswer& answer, WaitingPoll& waiting);
    [[nodiscard]] int Write();
    [[nodiscard]] int Read();
    int Fail(int status);
    void End();

    pid_t process_;
    int socket_;
    std::unique_ptr<SmbMemory> memory_;
    QByteArray unsent_;
    Frames frames_;
};

} // namespace netrove
