#pragma once

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <mutex>

namespace netrove {

/// The servers that can't be reached. Servers are named by a text. May be used by several threads
/// at once, and shared by several owners of connections.
///
/// A dead server stays dead for the rest of a walk, and is tried again by the next one. Outside of
/// walks it stays dead for a little while, so that one action of the user runs into only one time
/// limit.
class DeadServers {
public:
    using Clock = std::chrono::steady_clock;

    explicit DeadServers(std::function<Clock::time_point()> now = &Clock::now)
        : now_(std::move(now)) {}

    /// The errno that a dead server's requests get at once; 0 for one that may be tried.
    [[nodiscard]] int Status(const QString& name) const;

    /// Notes that a server can't be reached. Outside of walks that holds for `span`.
    void Bury(const QString& name, int status, std::chrono::milliseconds span);
    /// Notes that a server answers.
    void Revive(const QString& name);

    /// A walk begins: nothing is known of dead servers.
    void BeginWalk();
    void EndWalk();

private:
    struct Dead {
        int status;
        Clock::time_point until; ///< outside of walks
    };

    std::function<Clock::time_point()> now_;
    mutable std::mutex mutex_;
    QHash<QString, Dead> dead_;
    bool isWalking_ = false;
};

} // namespace netrove
