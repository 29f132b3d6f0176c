#pragma once

#include <chrono>

namespace netrove {

/// When a question that may be lost is to be sent: now, and some times more.
class Repeats {
public:
    using Clock = std::chrono::steady_clock;
    using Time = std::chrono::milliseconds;

    /// `times` in all; between the first two passes `gap`, and `factor` times as long from then on.
    Repeats(int times, Time gap, int factor) : left_(times), gap_(gap), factor_(factor) {}

    /// Whether it is to be sent at this moment; taken as done then.
    [[nodiscard]] bool IsDue(Clock::time_point now) {
        if (left_ == 0 || now < next_)
            return false;
        --left_;
        next_ = now + gap_;
        gap_ *= factor_;
        return true;
    }

    /// The far future once all were sent.
    [[nodiscard]] Clock::time_point Next() const {
        return left_ > 0 ? next_ : Clock::time_point::max();
    }

private:
    int left_;
    Time gap_;
    int factor_;
    Clock::time_point next_ = Clock::time_point::min();
};

} // namespace netrove
