#pragma once

#include "runtime/Yield.h"

#include <chrono>

namespace netrove {

/// Calls WhileWaiting() now and then during a wait, so that the window goes on painting.
class WaitingPace {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds Step{20};

    /// When the next call is due.
    [[nodiscard]] Clock::time_point Next() const { return next_; }

    /// Calls it if it is due. False where the wait is to be given up.
    [[nodiscard]] bool Pass() {
        if (Clock::now() < next_)
            return true;
        const bool goesOn = WhileWaiting();
        next_ = Clock::now() + Step;
        return goesOn;
    }

private:
    Clock::time_point next_ = Clock::now() + Step;
};

} // namespace netrove
