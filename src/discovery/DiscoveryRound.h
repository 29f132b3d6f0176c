#pragma once

#include "discovery/Answer.h"
#include "discovery/Inquiry.h"

#include <memory>
#include <vector>

namespace netrove {

/// One round of all ways of asking, side by side.
class DiscoveryRound {
public:
    /// Gives each answer to `take`.
    explicit DiscoveryRound(const TakeAnswer& take);

    /// Asks, and takes answers during `window`. Returns earlier when the descriptor `stop` becomes
    /// readable, or if there is no link to ask over.
    void Run(std::chrono::milliseconds window, int stop);

private:
    std::vector<std::unique_ptr<Inquiry>> inquiries_;
};

} // namespace netrove
