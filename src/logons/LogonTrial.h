#pragma once

#include "redirector/RemotePlace.h"

#include <functional>
#include <memory>
#include <thread>

namespace netrove {

/// Finds out, in a thread, whether a computer accepts a logon.
class LogonTrial {
public:
    using Done = std::function<void(LogonResult result)>;

    LogonTrial() = default;
    LogonTrial(const LogonTrial&) = delete;
    LogonTrial& operator=(const LogonTrial&) = delete;
    ~LogonTrial() { Cancel(); }

    /// Begins a trial, breaking off one that is running. `done` is called on the trial's thread,
    /// unless the trial is broken off.
    void Begin(std::shared_ptr<const RemotePlace> place, const StoredLogon& logon, Done done);
    /// Breaks off the trial, waiting for its end for some hundredths of a second at most.
    void Cancel();

private:
    std::jthread thread_;
};

} // namespace netrove
