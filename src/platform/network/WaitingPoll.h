#pragma once

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

    /// True when one of the descriptors is ready, false when the limit has passed since the
    /// object was made.
    [[nodiscard]] bool Wait(std::span<pollfd> descriptors);

private:
    Clock::time_point end_;
    Clock::time_point nextPass_ = Clock::now() + Step;

    static constexpr std::chrono::milliseconds Step{20};
};

} // namespace netrove
