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
/// painting. It is given up where WhileWaiting() or the stop token says so.
class Waiting {
public:
    using Clock = std::chrono::steady_clock;
    using Time = std::chrono::milliseconds;
    /// Asked in each step: 0, or an errno to end the wait with as there is no sense in it.
    using Check = std::function<int()>;

    /// Without a limit of time.
    explicit Waiting(std::stop_token stop = {}) : stop_(std::move(stop)) {}
    explicit Waiting(Time limit, std::stop_token stop = {}, Check check = {})
        : end_(Clock::now() + limit), check_(std::move(check)), stop_(std::move(stop)) {}

    /// From now on there is the limit again.
    void Restart(Time limit) { end_ = Clock::now() + limit; }

    /// 0 where one of the descriptors is ready, ETIMEDOUT where the limit has passed, ECANCELED
    /// where the wait is given up, or what the check says.
    [[nodiscard]] int ForDescriptors(std::span<pollfd> descriptors);

    /// Waits for a notice, one step at most. False where the wait is given up. The lock is let go
    /// of meanwhile.
    [[nodiscard]] bool ForNotice(std::condition_variable& notice,
                                 std::unique_lock<std::mutex>& lock);

    /// Lets the limit pass. False where the wait is given up.
    [[nodiscard]] bool ForTime();

private:
    /// How long a wait leaves the display alone.
    static constexpr Time Step{20};

    [[nodiscard]] bool GoesOn();

    std::optional<Clock::time_point> end_;
    Check check_;
    std::stop_token stop_;
    Clock::time_point nextStep_ = Clock::now() + Step;
};

} // namespace netrove
