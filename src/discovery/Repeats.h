#pragma once

#include <chrono>

namespace netrove {

/// When to send a question that may get lost: now, and several times more.
class Repeats {
public:
    using Clock = std::chrono::steady_clock;
    using Time = std::chrono::milliseconds;

    /// `times` in all. `gap` passes between the first two; each later gap is `factor` times as long
    /// as the one before.
    Repeats(int times, Time gap, int factor) : left_(times), gap_(gap), factor_(factor) {}

    /// Whether the question is to be sent now; if so, it counts as sent.
    [[nodiscard]] bool IsDue(Clock::time_point now) {
        if (left_ == 0 || now < next_)
            return false;
        --left_;
        next_ = now + gap_;
        gap_ *= factor_;
        return true;
    }

    /// When it is to be sent next; the far future once all have been sent.
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
