#pragma once

#include "redirector/SmbTurns.h"
#include "redirector/SmbWorker.h"

#include <chrono>
#include <functional>

namespace netrove {

/// One request put to its server, with the turn that was taken for it. What it finds out of the
/// server on the way is told to `turns`. All that it is given outlives it.
class SmbExchange {
public:
    /// Called once it is known that the server is there.
    using Reached = std::function<void()>;

    SmbExchange(SmbTurns& turns, SmbTurn& turn, const SmbRequest& request,
                const SmbWorker::Part& part)
        : turns_(turns), turn_(turn), request_(request), part_(part) {}

    /// Gives 0 or an errno, as SmbPool::Run. Blocks, and calls WhileWaiting(). `reached` is for the
    /// first request to a server, before it is sent.
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

    [[nodiscard]] int RunOn(SmbTurn& turn, const SmbWorker::Part& part);
    void NoteEnd(const SmbTurn& turn, int status, bool isWarm, Clock::duration time);
    [[nodiscard]] int CheckSilent(const QString& server, Clock::time_point since);

    SmbTurns& turns_;
    SmbTurn& turn_;
    const SmbRequest& request_;
    const SmbWorker::Part& part_;
    bool isAnswered_ = false; ///< part of an answer has come, which isn't asked for twice
};

} // namespace netrove
