#pragma once

#include "discovery/LocalLink.h"

#include <chrono>
#include <span>
#include <vector>

#include <poll.h>

namespace netrove {

/// One way of asking a LAN for its computers. No call waits for anything.
class Inquiry {
public:
    using Clock = std::chrono::steady_clock;

    Inquiry() = default;
    Inquiry(const Inquiry&) = delete;
    Inquiry& operator=(const Inquiry&) = delete;
    virtual ~Inquiry() = default;

    /// Gets ready to ask over these links; the first Turn() sends. False if that isn't possible.
    [[nodiscard]] virtual bool Begin(std::span<const LocalLink> links) = 0;

    /// Adds the descriptors that this inquiry waits for.
    virtual void Await(std::vector<pollfd>& descriptors) const = 0;
    /// When it needs a Turn() at the latest, even if none of them is ready.
    [[nodiscard]] virtual Clock::time_point NextTurn() const = 0;

    /// Takes what has come, and sends what is due.
    virtual void Turn(Clock::time_point now) = 0;
};

} // namespace netrove
