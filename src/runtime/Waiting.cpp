#include "runtime/Waiting.h"

#include "runtime/Yield.h"

#include <algorithm>
#include <cerrno>
#include <thread>

namespace netrove {
int Waiting::ForDescriptors(std::span<pollfd> descriptors) {
    for (;;) {
        const int ready =
            poll(descriptors.data(), descriptors.size(), static_cast<int>(Step.count()));
        if (!GoesOn())
            return ECANCELED;
        if (ready > 0)
            return 0;
        if (const int status = check_ ? check_() : 0; status != 0)
            return status;
        if (end_ && Clock::now() >= *end_)
            return ETIMEDOUT;
    }
}

bool Waiting::ForNotice(std::condition_variable& notice, std::unique_lock<std::mutex>& lock) {
    notice.wait_until(lock, nextStep_);
    lock.unlock();
    const bool goesOn = GoesOn();
    lock.lock();
    return goesOn;
}

bool Waiting::ForTime() {
    while (GoesOn()) {
        const auto now = Clock::now();
        if (end_ && now >= *end_)
            return true;
        std::this_thread::sleep_until(end_ ? std::min(now + Step, *end_) : now + Step);
    }
    return false;
}

/// Whether the wait goes on. Serves the display if that is due.
bool Waiting::GoesOn() {
    if (stop_.stop_requested())
        return false;
    if (Clock::now() < nextStep_)
        return true;
    const bool goesOn = WhileWaiting();
    nextStep_ = Clock::now() + Step;
    return goesOn;
}

} // namespace netrove
