#pragma once

#include "redirector/RemotePlace.h"

#include <functional>
#include <memory>
#include <thread>

namespace netrove {

/// Finds out in a thread whether a computer lets a logon in.
class LogonTrial {
public:
    using Done = std::function<void(LogonResult result)>;

    LogonTrial() = default;
    LogonTrial(const LogonTrial&) = delete;
    LogonTrial& operator=(const LogonTrial&) = delete;
    ~LogonTrial() { Cancel(); }

    /// Breaks off what runs. `done` is called on the trial's thread, unless it is broken off.
    void Begin(std::shared_ptr<const RemotePlace> place, const StoredLogon& logon, Done done);
    /// Waits some hundredths of a second at most.
    void Cancel();

private:
    std::jthread thread_;
};

} // namespace netrove
