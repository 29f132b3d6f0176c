#pragma once

#include "redirector/CopySource.h"
#include "redirector/StoredLogon.h"

#include <QString>

#include <memory>
#include <stop_token>

namespace netrove {

class OwnConnections;

/// What came of the trial of a logon.
enum class LogonResult {
    LetIn,
    Refused,     ///< a wrong password, or a user whom the computer doesn't know
    HidesShares, ///< it lets the user in, but doesn't tell its shares
    Unreachable,
    GivenUp, ///< as the stop token said
};

/// A computer, a share or a file that any thread may ask over connections of its own, so that what
/// takes long doesn't hold up the walk of the network. Calls block; the stop token ends them.
class RemotePlace {
public:
    RemotePlace() = default;
    RemotePlace(const RemotePlace&) = delete;
    RemotePlace& operator=(const RemotePlace&) = delete;
    virtual ~RemotePlace() = default;

    /// The place as a file; `stop` ends the calls of that file, too. Asks nobody yet; the
    /// connections and the place must outlive the file.
    [[nodiscard]] virtual std::unique_ptr<CopySource>
    OpenFile(OwnConnections& connections, const std::stop_token& stop) const = 0;

    /// Why the computer doesn't tell its shares, or the share its files: a sentence for the user.
    /// Empty where it does, and where the wait was given up.
    [[nodiscard]] virtual QString Trouble(OwnConnections& connections,
                                          const std::stop_token& stop) const = 0;

    /// Asks the computer for its shares with a logon, over one connection, and takes note of
    /// whether it was refused.
    [[nodiscard]] virtual LogonResult TryLogon(const StoredLogon& logon,
                                               const std::stop_token& stop) const = 0;
};

} // namespace netrove
