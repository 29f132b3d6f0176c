#include "redirector/WaitingPoll.h"

#include <cerrno>

namespace netrove {

int WaitingPoll::Wait(std::span<pollfd> descriptors) {
    for (;;) {
        const int ready = poll(descriptors.data(), descriptors.size(),
                               static_cast<int>(WaitingPace::Step.count()));
        if (!pace_.Pass())
            return ECANCELED;
        if (ready > 0)
            return 0;
        if (const int status = check_ ? check_() : 0; status != 0)
            return status;
        if (Clock::now() >= end_)
            return ETIMEDOUT;
    }
}

} // namespace netrove
