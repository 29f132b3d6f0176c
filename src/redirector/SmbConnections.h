#pragma once

#include "redirector/SmbLauncher.h"
#include "redirector/SmbLimits.h"
#include "redirector/SmbServers.h"
#include "redirector/SmbWorker.h"
#include "runtime/Waiting.h"

#include <QString>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <vector>

#include <sys/types.h>

namespace netrove {

/// The connections to servers, each with a helper process: how many there are, which of them wait
/// for work, and who may put a request to which server when. All of it, with what is known of the
/// servers, is behind one lock. Functions that wait call WhileWaiting() meanwhile, and give up when
/// their stop token says so. May be used by several threads at once; must outlive the turns.
class SmbConnections {
public:
    using Clock = std::chrono::steady_clock;

    enum class Urgency { MayWait, GoesFirst };

    /// The right to put one request to a server now.
    struct Right {
        enum class Kind {
            None,    ///< the server is dead
            First,   ///< to reach the server and prove that it answers
            Early,   ///< to open one more connection before anybody needs it
            Further, ///< to open one more connection
            Ready,   ///< to use a connection that is open
        };

        Kind kind = Kind::None;
        Urgency urgency = Urgency::MayWait;
        QString server;       ///< empty where no server has been reached
        QString share = {};   ///< which the connection is at
        int status = 0;       ///< the errno that a dead server's request fails with
        bool hasRoom = false; ///< a helper is counted for it
        std::unique_ptr<SmbWorker> worker = {}; ///< null before StartHelper

        /// Whether its connection is open and at this share.
        [[nodiscard]] bool IsWarm(const QString& other) const {
            return kind == Kind::Ready && share == other;
        }
        /// Ends its helper instead of keeping it: it has no connection that others could use.
        void EndConnection();
    };

    /// Gives a right back, and its helper, which then serves the next request.
    struct GiveBack {
        SmbConnections* connections = nullptr;
        void operator()(Right* right) const;
    };

    /// Null where no right could be had.
    using Turn = std::unique_ptr<Right, GiveBack>;

    /// Access to the servers, under the lock for as long as this object exists. No function of
    /// SmbConnections may be called meanwhile.
    class HeldServers {
    public:
        HeldServers(std::mutex& mutex, SmbServers& servers) : lock_(mutex), servers_(servers) {}
        [[nodiscard]] SmbServers* operator->() const { return &servers_; }
        [[nodiscard]] SmbServers& operator*() const { return servers_; }

    private:
        std::unique_lock<std::mutex> lock_;
        SmbServers& servers_;
    };

    /// `dead` is shared with others: what they know of dead servers, and learn from here.
    SmbConnections(QString helper, const SmbLimits& limits, std::shared_ptr<DeadServers> dead)
        : launcher_(std::move(helper)), limits_(limits), servers_(limits, std::move(dead)) {}

    [[nodiscard]] const SmbLimits& Limits() const { return limits_; }
    [[nodiscard]] HeldServers Servers() { return {mutex_, servers_}; }

    /// Waits for a turn for a request, ahead of those that only try for one; null where the wait
    /// is given up.
    [[nodiscard]] Turn Await(const SmbRequest& request, const std::stop_token& stop);
    /// A turn for a request if it can be had at once; `waiting` as in SmbPool::TryTakeTurn.
    [[nodiscard]] Turn TryTake(const SmbRequest& request, std::size_t waiting);
    /// A turn to open one more connection before anybody needs it.
    [[nodiscard]] Turn TryTakeEarly(const SmbRequest& request);
    /// A turn over a connection that is open already, in place of a new one that was refused. Null
    /// where the wait is given up, the server is dead, or all of its connections are new ones that
    /// were refused.
    [[nodiscard]] Turn AwaitOther(const SmbRequest& request, const std::stop_token& stop);
    /// Waits until a turn has been given back, but only for a little while. False where the wait is
    /// to be given up.
    [[nodiscard]] bool AwaitChange(Waiting& waiting);

    /// Gets ready to start a helper fast. Doesn't wait.
    void PrepareHelpers() { launcher_.Prepare(); }
    /// Gives a turn a helper that has spoken to no server. Returns 0, ECHILD if none can be
    /// started, or ECANCELED where the wait is given up.
    [[nodiscard]] int StartHelper(Right& right, const std::stop_token& stop);

    /// The turn's server couldn't be reached. A helper that has only looked up the server's name
    /// can serve any other server.
    void GiveUp(Right& right, int status);
    /// Notes what came of a probe. Returns 0 where the server is there, and ECANCELED where the
    /// probe was given up; else closes the server's idle connections and returns the errno that its
    /// requests fail with.
    [[nodiscard]] int EndProbe(const QString& server, int status);

    void BeginWalk();
    /// A walk has ended: ends the helpers that won't be needed again soon.
    void EndWalk();
    /// The processes that wait for work.
    [[nodiscard]] std::vector<pid_t> IdleProcesses() const;

private:
    using Lock = std::unique_lock<std::mutex>;
    using Kind = Right::Kind;

    /// A helper without work, with its connection.
    struct Idle {
        QString server; ///< empty for a helper that hasn't spoken to any
        QString share;  ///< the one it was asked for last; another one costs a new connection
        Clock::time_point since;
        std::unique_ptr<SmbWorker> worker;
    };
    using Idles = std::vector<Idle>;

    // All of these are called under the lock.
    [[nodiscard]] Turn Make(Right right);
    [[nodiscard]] Turn Take(const SmbRequest& request, std::size_t waiting, Urgency urgency);
    [[nodiscard]] Turn TakeReady(const SmbRequest& request, Urgency urgency);
    [[nodiscard]] Turn TakeFurther(const QString& server, Kind kind, Urgency urgency);
    void Keep(Right& right);

    [[nodiscard]] bool MakeRoom(Urgency urgency);
    [[nodiscard]] std::optional<Idle> TakeIdle(const QString& server, const QString& share);
    [[nodiscard]] Idles TakeAllIdle(const QString& server);
    void Drop(Idles::iterator idle);
    void DropOld();
    void KeepFew();

    [[nodiscard]] int AwaitHelper(Right& right, const std::stop_token& stop);

    SmbLauncher launcher_;
    const SmbLimits limits_;
    mutable std::mutex mutex_;
    std::condition_variable changed_; ///< a turn has been given back
    SmbServers servers_;
    Idles idle_;              ///< the longest idle first
    std::size_t helpers_ = 0; ///< all of them, including those that are being started
};

} // namespace netrove
