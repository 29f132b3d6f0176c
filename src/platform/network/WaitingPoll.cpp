#include "platform/network/WaitingPoll.h"

#include "runtime/Yield.h"

#include <cerrno>

namespace netrove {

WaitingPoll::End WaitingPoll::Wait(std::span<pollfd> descriptors) {
    for (;;) {
        const int ready =
            poll(descriptors.data(), descriptors.size(), static_cast<int>(Step.count()));
        const auto now = Clock::now();
        if (now >= nextPass_) {
            if (!WhileWaiting())
                return End::Abandoned;
            nextPass_ = Clock::now() + Step;
        }
        if (ready > 0)
            return End::Ready;
        if (now >= end_)
            return End::TimeIsUp;
    }
}

int WaitingPoll::StatusOf(End end) {
    switch (end) {
    case End::Ready:
        return 0;
    case End::TimeIsUp:
        return ETIMEDOUT;
    case End::Abandoned:
        return ECANCELED;
    }
    return EPROTO;
}

} // namespace netrove
