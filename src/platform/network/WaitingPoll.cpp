#include "platform/network/WaitingPoll.h"

#include "runtime/Yield.h"

namespace netrove {

bool WaitingPoll::Wait(std::span<pollfd> descriptors) {
    for (;;) {
        const int ready =
            poll(descriptors.data(), descriptors.size(), static_cast<int>(Step.count()));
        const auto now = Clock::now();
        if (now >= nextPass_) {
            WhileWaiting();
            nextPass_ = Clock::now() + Step;
        }
        if (ready > 0)
            return true;
        if (now >= end_)
            return false;
    }
}

} // namespace netrove
