#pragma once

#include "redirector/DeadServers.h"
#include "redirector/SmbLimits.h"
#include "smb/SmbMessages.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace netrove {

/// What is known of each server: whether it is dead, how many connections it has and takes, how
/// long its answers take. Servers are named by a text. Used under its owner's lock; what is known
/// of dead servers may be shared with others.
class SmbServers {
public:
    using Clock = std::chrono::steady_clock;
    using Time = SmbLimits::Time;

    struct Server {
        bool isProven = false;       ///< it has answered over a connection that is kept
        std::size_t open = 0;        ///< connections, including those that are being made
        std::size_t refusedAt = 0;   ///< this many connections are one too many; 0: not known
        Clock::time_point refused;   ///< when that was seen
        int urgent = 0;              ///< calls that wait for a connection and go first
        std::size_t doubtful = 0;    ///< new connections whose first request waits for another one
        double answer = 0;           ///< milliseconds that a folder takes now; 0: not known
        bool hasFailedEarly = false; ///< an early connection couldn't be made
        Clock::duration greeting = {};                ///< time of its first answer, with connecting
        int timeouts = 0;                             ///< requests in a row without an answer
        std::vector<QString> addresses = {};          ///< where it has been reached
        Clock::time_point lastSign = {};              ///< when it said something
        std::optional<Clock::time_point> probed = {}; ///< when the running probe began
    };

    SmbServers(const SmbLimits& limits, std::shared_ptr<DeadServers> dead,
               std::function<Clock::time_point()> now = &Clock::now)
        : limits_(limits), dead_(std::move(dead)), now_(std::move(now)) {}

    /// The name of the server that a request goes to.
    [[nodiscard]] static QString NameOf(const SmbRequest& request);

    [[nodiscard]] Server& operator[](const QString& name) { return servers_[name]; }

    /// The errno that a dead server's requests get at once; 0 for one that may be tried.
    [[nodiscard]] int DeadStatus(const QString& name) const { return dead_->Status(name); }

    /// A walk begins: nothing is known of dead servers.
    void BeginWalk();
    void EndWalk() { dead_->EndWalk(); }

    /// Notes that a server can't be reached. A connection that was refused may be tried again at
    /// once, outside of walks: that costs nothing.
    void Bury(const QString& name, int status);

    /// Notes how a request over a connection has ended. A server that leaves several requests
    /// without an answer is dead, too; only those where `isLong` count, which had a long limit.
    void Note(const QString& name, int status, bool isLong);

    /// Notes that a server has said something.
    void NoteSign(const QString& name) { servers_[name].lastSign = now_(); }

    /// Whether a request that has waited for an answer since `since` should find out if the server
    /// is still there: only where all of its connections are silent, and one request at a time.
    /// True begins the probe.
    [[nodiscard]] bool BeginProbe(const QString& name, Clock::time_point since);

    /// Notes what came of the probe, an errno: a server that says nothing to it is dead.
    void EndProbe(const QString& name, int status);

    /// Whether the server may get one more connection while so many requests wait for it. The
    /// connection must cost less time than it saves.
    [[nodiscard]] bool TakesMore(const QString& name, std::size_t waiting);

    /// Whether the server may get one more connection before it is known how much there is to ask:
    /// a bet on a distant one, while its first folder is listed.
    [[nodiscard]] bool TakesEarly(const QString& name);

    /// Notes that the server hasn't taken the connection that was opened last.
    void NoteRefused(const QString& name);

    /// Notes that a connection has been closed or couldn't be made.
    void NoteClosed(const QString& name);

    void NoteAnswerTime(const QString& name, Clock::duration time);

    /// Notes how long a new connection and its first folder took together: from that the time of
    /// other folders is guessed.
    void NoteFirstTime(const QString& name, Clock::duration time);

    void ForgetOld();

private:
    SmbLimits limits_;
    std::shared_ptr<DeadServers> dead_;
    std::function<Clock::time_point()> now_;
    QHash<QString, Server> servers_;
};

} // namespace netrove
