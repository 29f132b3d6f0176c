#pragma once

#include "redirector/SmbLimits.h"
#include "smb/SmbMessages.h"

#include <QString>

#include <atomic>
#include <functional>
#include <thread>

namespace netrove {

/// Finds out whether a computer lets a logon in: asks it for its shares, over one connection, in a
/// thread.
class LogonTrial {
public:
    /// `status` is 0 or the errno that the question failed with, as a helper gives it.
    using Done = std::function<void(int status)>;

    LogonTrial(QString helper, const SmbLimits& limits)
        : helper_(std::move(helper)), limits_(limits) {}
    LogonTrial(const LogonTrial&) = delete;
    LogonTrial& operator=(const LogonTrial&) = delete;
    ~LogonTrial() { Cancel(); }

    /// Breaks off what runs. `done` is called on the trial's thread, unless it is broken off.
    void Begin(const SmbRequest& request, Done done);
    /// Waits some hundredths of a second at most.
    void Cancel();

private:
    void Ask(const SmbRequest& request, const Done& done) const;

    QString helper_;
    SmbLimits limits_;
    std::atomic<bool> isCancelled_ = false;
    std::thread thread_;
};

} // namespace netrove
