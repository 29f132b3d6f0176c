#pragma once

#include "redirector/SmbConnections.h"
#include "redirector/SmbWorker.h"

#include <chrono>
#include <functional>
#include <stop_token>

namespace netrove {

/// One request put to its server, with the right that was taken for it. What it finds out about the
/// server on the way is noted in `connections`. All that it is given must outlive it.
class SmbExchange {
public:
    /// Called once it is known that the server is there.
    using Reached = std::function<void()>;

    SmbExchange(SmbConnections& connections, SmbConnections::Right& right,
                const SmbRequest& request, const SmbWorker::Part& part, std::stop_token stop)
        : connections_(connections)
        , right_(right)
        , request_(request)
        , part_(part)
        , stop_(std::move(stop)) {}

    /// Returns 0 or an errno, as SmbPool::Run. Blocks, and calls WhileWaiting(). `reached` is
    /// called for the first request to a server only, before it is sent.
    [[nodiscard]] int Run(const Reached& reached);

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] int RunFirst(const Reached& reached);
    [[nodiscard]] int RunEarly();
    [[nodiscard]] int RunFurther();
    [[nodiscard]] int RunElseOverAnother();
    [[nodiscard]] int OverAnother(int status);
    [[nodiscard]] bool HasRoomAgain();
    [[nodiscard]] int TryAgain();

    [[nodiscard]] int Reach();
    [[nodiscard]] int LookUp(std::vector<QString>& addresses);

    [[nodiscard]] int RunOn(SmbConnections::Right& right, const SmbWorker::Part& part);
    void NoteEnd(const SmbConnections::Right& right, int status, bool isWarm, Clock::duration time);
    [[nodiscard]] int CheckSilent(const QString& server, Clock::time_point since);

    SmbConnections& connections_;
    SmbConnections::Right& right_;
    const SmbRequest& request_;
    const SmbWorker::Part& part_;
    const std::stop_token stop_;
    bool isAnswered_ = false; ///< part of an answer has come: it isn't asked for again
};

} // namespace netrove
