#pragma once

#include "redirector/SmbHelpers.h"
#include "redirector/SmbLauncher.h"
#include "redirector/SmbLimits.h"
#include "redirector/SmbServers.h"
#include "redirector/SmbTurn.h"
#include "redirector/WaitingPace.h"

#include <QString>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <vector>

namespace netrove {

/// Who may put a request to which server when, and over which helper. Keeps what is known of the
/// servers and the helpers under one lock. What waits calls WhileWaiting() meanwhile. May be used
/// by several threads at once; the turns end before it.
class SmbTurns {
public:
    /// The servers for as long as they are held: nobody else comes to them. Nothing else here may
    /// be called meanwhile.
    class HeldServers {
    public:
        HeldServers(std::mutex& mutex, SmbServers& servers) : lock_(mutex), servers_(servers) {}
        [[nodiscard]] SmbServers* operator->() const { return &servers_; }
        [[nodiscard]] SmbServers& operator*() const { return servers_; }

    private:
        std::unique_lock<std::mutex> lock_;
        SmbServers& servers_;
    };

    SmbTurns(QString helper, const SmbLimits& limits)
        : launcher_(std::move(helper)), limits_(limits), servers_(limits) {}

    [[nodiscard]] const SmbLimits& Limits() const { return limits_; }
    [[nodiscard]] HeldServers Servers() { return {mutex_, servers_}; }

    /// A turn for a request that goes before those who only try; none where the wait was given up.
    [[nodiscard]] std::optional<SmbTurn> Await(const SmbRequest& request);
    /// A turn for a request if there can be one at once, while so many wait.
    [[nodiscard]] std::optional<SmbTurn> TryTake(const SmbRequest& request, std::size_t waiting);
    /// A turn to open one more connection that nobody needs yet.
    [[nodiscard]] std::optional<SmbTurn> TryTakeEarly(const SmbRequest& request);
    /// A turn over a connection that is open already, in place of a new one that was refused; none
    /// where all who have one wait for another.
    [[nodiscard]] std::optional<SmbTurn> AwaitOther(const SmbRequest& request);
    /// Waits until a turn has been given back, or a little while. False where the wait is to be
    /// given up.
    [[nodiscard]] bool AwaitChange(WaitingPace& pace);

    /// Makes sure that a helper can be started fast. Doesn't wait.
    void PrepareHelpers() { launcher_.Prepare(); }
    /// Gives a turn a helper that has spoken to nobody. ECHILD if there is none to be had,
    /// ECANCELED where the wait was given up.
    [[nodiscard]] int StartHelper(SmbTurn& turn);

    /// The turn's server couldn't be reached. A helper that has only looked up its name serves any
    /// other.
    void GiveUp(SmbTurn& turn, int status);
    /// Notes what came of a probe. Gives 0 where the server is there; else its connections are
    /// closed.
    [[nodiscard]] int EndProbe(const QString& server, int status);

    void BeginWalk();
    /// Ends helpers that nobody needs so soon again.
    void EndWalk();
    [[nodiscard]] std::vector<pid_t> IdleProcesses() const;

private:
    friend class SmbTurn;

    using Urgency = SmbHelpers::Urgency;
    using Lock = std::unique_lock<std::mutex>;

    /// These are called under the lock.
    [[nodiscard]] std::optional<SmbTurn> Take(const SmbRequest& request, std::size_t waiting,
                                              Urgency urgency);
    [[nodiscard]] std::optional<SmbTurn> TakeReady(const SmbRequest& request, Urgency urgency);
    [[nodiscard]] SmbTurn FurtherTurn(const QString& server, Urgency urgency);
    [[nodiscard]] bool AwaitChange(Lock& lock, WaitingPace& pace);

    [[nodiscard]] int AwaitHelper(SmbTurn& turn);
    void GiveBack(SmbTurn& turn);

    SmbLauncher launcher_;
    const SmbLimits limits_;
    mutable std::mutex mutex_;
    std::condition_variable changed_; ///< a turn has been given back
    SmbServers servers_;
    SmbHelpers helpers_{limits_, servers_};
};

} // namespace netrove
