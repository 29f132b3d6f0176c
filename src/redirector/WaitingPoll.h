#pragma once

#include "redirector/WaitingPace.h"

#include <chrono>
#include <functional>
#include <span>

#include <poll.h>

namespace netrove {

/// Waits for descriptors in small steps and calls WhileWaiting() between them, so that the window
/// goes on painting.
class WaitingPoll {
public:
    using Clock = std::chrono::steady_clock;

    /// Asked in each step: 0, or an errno to end the wait with as there is no sense in it.
    using Check = std::function<int()>;

    explicit WaitingPoll(std::chrono::milliseconds limit, Check check = {})
        : end_(Clock::now() + limit), check_(std::move(check)) {}

    /// From now on there is the limit again.
    void Restart(std::chrono::milliseconds limit) { end_ = Clock::now() + limit; }

    /// 0 where one of the descriptors is ready, ETIMEDOUT where the limit has passed since the
    /// object was made, ECANCELED where WhileWaiting() gives up, or what the check says.
    [[nodiscard]] int Wait(std::span<pollfd> descriptors);

private:
    Clock::time_point end_;
    Check check_;
    WaitingPace pace_;
};

} // namespace netrove
