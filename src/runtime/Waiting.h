#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <stop_token>

#include <poll.h>

namespace netrove {

/// One wait, in small steps between which WhileWaiting() is called, so that the window goes on
/// painting. It is given up when WhileWaiting() or the stop token says so.
class Waiting {
public:
    using Clock = std::chrono::steady_clock;
    using Time = std::chrono::milliseconds;
    /// Called in each step: returns 0, or an errno to end a wait that has become pointless.
    using Check = std::function<int()>;

    /// Without a time limit.
    explicit Waiting(std::stop_token stop = {}) : stop_(std::move(stop)) {}
    explicit Waiting(Time limit, std::stop_token stop = {}, Check check = {})
        : end_(Clock::now() + limit), check_(std::move(check)), stop_(std::move(stop)) {}

    /// The time limit counts from now on.
    void Restart(Time limit) { end_ = Clock::now() + limit; }

    /// Waits until one of the descriptors is ready: returns 0 then, ETIMEDOUT if the limit has
    /// passed, ECANCELED if the wait is given up, or what the check returned.
    [[nodiscard]] int ForDescriptors(std::span<pollfd> descriptors);

    /// Waits for a notice, one step at most. False where the wait is given up. The lock is released
    /// meanwhile.
    [[nodiscard]] bool ForNotice(std::condition_variable& notice,
                                 std::unique_lock<std::mutex>& lock);

    /// Lets the limit pass. False where the wait is given up.
    [[nodiscard]] bool ForTime();

private:
    /// How often a wait calls WhileWaiting().
    static constexpr Time Step{20};

    [[nodiscard]] bool GoesOn();

    std::optional<Clock::time_point> end_;
    Check check_;
    std::stop_token stop_;
    Clock::time_point nextStep_ = Clock::now() + Step;
};

} // namespace netrove
