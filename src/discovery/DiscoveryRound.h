#pragma once

#include "discovery/Answer.h"
#include "discovery/Inquiry.h"

#include <memory>
#include <vector>

namespace netrove {

/// All ways of asking, side by side, once.
class DiscoveryRound {
public:
    /// Gives each answer to `take`.
    explicit DiscoveryRound(const TakeAnswer& take);

    /// Asks and takes answers for as long as `window`. Returns earlier when the descriptor `stop`
    /// becomes readable, and when there is no link to ask over.
    void Run(std::chrono::milliseconds window, int stop);

private:
    std::vector<std::unique_ptr<Inquiry>> inquiries_;
};

} // namespace netrove
