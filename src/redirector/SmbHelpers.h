#pragma once

#include "redirector/SmbLimits.h"
#include "redirector/SmbServers.h"
#include "redirector/SmbWorker.h"

#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace netrove {

/// The helper processes of a pool: how many there are, and which of them wait for work. These keep
/// their connections; one that is closed here is noted in `servers`. Used under its owner's lock.
class SmbHelpers {
public:
    using Clock = std::chrono::steady_clock;

    enum class Urgency { MayWait, GoesFirst };

    /// One without work.
    struct Idle {
        QString server; ///< empty for one that hasn't spoken to any
        QString share;  ///< what it was asked for last; another one costs a new connection
        Clock::time_point since = {};
        std::unique_ptr<SmbWorker> worker;
    };

    SmbHelpers(const SmbLimits& limits, SmbServers& servers) : limits_(limits), servers_(servers) {}

    /// Counts one more, for which one without work may have to go. False where there are too many.
    [[nodiscard]] bool MakeRoom(Urgency urgency);

    /// Notes that one that was counted has ended or hasn't come about.
    void NoteEnded() { --count_; }

    /// Takes note of one that waits for work from now on.
    void Keep(Idle helper);

    /// One for a server that waits for work, still counted: that used last is the warmest, and one
    /// at the same share needs no new connection.
    [[nodiscard]] std::optional<Idle> Take(const QString& server, const QString& share);

    /// All that wait with a connection to a server, no longer counted: they end with the result.
    [[nodiscard]] std::vector<Idle> TakeAll(const QString& server);

    /// Ends those that have been without work for long.
    void DropOld();

    /// Ends those that nobody needs so soon again.
    void KeepFew();

    /// Those that wait for work.
    [[nodiscard]] std::vector<pid_t> Processes() const;

private:
    void Drop(std::vector<Idle>::iterator helper);

    const SmbLimits limits_;
    SmbServers& servers_;
    std::vector<Idle> idle_; ///< the longest idle first
    std::size_t count_ = 0;  ///< with those that are being started
};

} // namespace netrove
