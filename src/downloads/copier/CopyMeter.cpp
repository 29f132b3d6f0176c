#include "downloads/copier/CopyMeter.h"

#include <algorithm>

namespace netrove {
namespace {

using namespace std::chrono_literals;

constexpr auto SampleInterval = 100ms;
/// A rate over a shorter time would jump.
constexpr auto ShortestSpan = 100ms;

} // namespace

void CopyMeter::Begin(qint64 copied, qint64 length, Clock::time_point now) {
    const std::scoped_lock lock(mutex_);
    copied_ = copied;
    length_ = length;
    samples_ = {{.time = now, .copied = copied}};
}

void CopyMeter::Add(qint64 bytes, Clock::time_point now) {
    const std::scoped_lock lock(mutex_);
    copied_ += bytes;
    if (now - samples_.back().time < SampleInterval)
        return;
    samples_.push_back({.time = now, .copied = copied_});
    while (samples_.size() > 2 && now - samples_[1].time >= Window)
        samples_.pop_front();
}

CopyProgress CopyMeter::Progress(Clock::time_point now) const {
    const std::scoped_lock lock(mutex_);
    CopyProgress progress{.copied = copied_, .length = length_};
    if (samples_.empty())
        return progress;
    Sample first = samples_.front();
    for (const Sample& sample : samples_) {
        if (now - sample.time >= Window)
            first = sample;
    }
    const auto span = std::clamp<Clock::duration>(now - first.time, ShortestSpan, Window);
    progress.bytesPerSecond = (copied_ - first.copied) * 1000 /
                              std::chrono::duration_cast<std::chrono::milliseconds>(span).count();
    return progress;
}

} // namespace netrove
