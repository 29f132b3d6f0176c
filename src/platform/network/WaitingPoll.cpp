#include "platform/network/WaitingPoll.h"

#include <cerrno>

namespace netrove {

WaitingPoll::End WaitingPoll::Wait(std::span<pollfd> descriptors) {
    for (;;) {
        const int ready = poll(descriptors.data(), descriptors.size(),
                               static_cast<int>(WaitingPace::Step.count()));
        if (!pace_.Pass())
            return End::Abandoned;
        if (ready > 0)
            return End::Ready;
        if (Clock::now() >= end_)
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
