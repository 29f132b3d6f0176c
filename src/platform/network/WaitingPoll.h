#pragma once

#include "platform/network/WaitingPace.h"

#include <chrono>
#include <span>

#include <poll.h>

namespace netrove {

/// Waits for descriptors in small steps and calls WhileWaiting() between them, so that the window
/// goes on painting.
class WaitingPoll {
public:
    using Clock = std::chrono::steady_clock;

    explicit WaitingPoll(std::chrono::milliseconds limit) : end_(Clock::now() + limit) {}

    enum class End {
        Ready,     ///< one of the descriptors is
        TimeIsUp,  ///< the limit has passed since the object was made
        Abandoned, ///< WhileWaiting() says so
    };

    /// From now on there is the limit again.
    void Restart(std::chrono::milliseconds limit) { end_ = Clock::now() + limit; }

    [[nodiscard]] End Wait(std::span<pollfd> descriptors);

    /// The errno that a wait without a ready descriptor stands for.
    [[nodiscard]] static int StatusOf(End end);

private:
    Clock::time_point end_;
    WaitingPace pace_;
};

} // namespace netrove
