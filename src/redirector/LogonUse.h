#pragma once

#include "redirector/Logons.h"

#include <stop_token>

namespace netrove {

/// The logon of one request, from its beginning to its end. While a computer hasn't accepted a
/// logon yet, only one request at a time goes there with it: many wrong ones at once lock an
/// account.
class LogonUse {
public:
    /// Fills in the request's logon; `logons` may be null. Blocks while the keyring is read and
    /// while another request tries the logon, and calls WhileWaiting(). `request` outlives this.
    LogonUse(Logons* logons, SmbRequest& request, std::stop_token stop);
    LogonUse(const LogonUse&) = delete;
    LogonUse& operator=(const LogonUse&) = delete;
    ~LogonUse();

    /// If it isn't 0, the request must not be sent, and fails with this errno: EACCES for a logon
    /// that was refused, ECANCELED where the wait was given up.
    [[nodiscard]] int Status() const { return status_; }

    /// Call it with the status that the request ended with; it returns the one to go on with.
    [[nodiscard]] int End(int status);

private:
    [[nodiscard]] int TakeTurn();
    [[nodiscard]] bool Pause() const;

    Logons* logons_; ///< null where there is nothing (more) to report
    SmbRequest& request_;
    const std::stop_token stop_;
    int status_ = 0; ///< what Status() returns
};

} // namespace netrove
