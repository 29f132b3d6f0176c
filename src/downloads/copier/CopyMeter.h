#pragma once

#include "downloads/copier/CopyQ.h"

#include <chrono>
#include <deque>
#include <mutex>

namespace netrove {

/// Measures one copy: the copying thread reports to it, and any thread may ask it.
class CopyMeter {
public:
    using Clock = std::chrono::steady_clock;

    /// The time over which the rate is measured.
    static constexpr std::chrono::seconds Window{3};

    /// `copied` bytes of the file's `length` are there already.
    void Begin(qint64 copied, qint64 length, Clock::time_point now);
    void Add(qint64 bytes, Clock::time_point now);

    [[nodiscard]] CopyProgress Progress(Clock::time_point now) const;

private:
    struct Sample {
        Clock::time_point time;
        qint64 copied;
    };

    mutable std::mutex mutex_;
    std::deque<Sample> samples_; ///< those in the window, and the last one before it
    qint64 copied_ = 0;
    qint64 length_ = 0;
};

} // namespace netrove
