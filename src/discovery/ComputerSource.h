#pragma once

#include "discovery/FoundComputer.h"

#include <vector>

namespace netrove {

/// Finds the computers of the LAN while its user waits for something else.
class ComputerSource {
public:
    ComputerSource() = default;
    ComputerSource(const ComputerSource&) = delete;
    ComputerSource& operator=(const ComputerSource&) = delete;
    virtual ~ComputerSource() = default;

    /// Begins a round of questions and returns at once; joins a round that is running. What was
    /// found earlier stays until the round has ended.
    virtual void Start() = 0;

    /// Whether a round is running.
    [[nodiscard]] virtual bool IsRunning() const = 0;

    /// The computers found so far, one for each name, in the order of their names.
    [[nodiscard]] virtual std::vector<FoundComputer> Found() const = 0;

    /// A descriptor that becomes readable when something new was found and when a round has ended;
    /// Found() makes it unreadable again. It may only be waited for, and by one waiter at a time.
    [[nodiscard]] virtual int Descriptor() const = 0;
};

} // namespace netrove
