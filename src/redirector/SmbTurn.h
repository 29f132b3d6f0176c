#pragma once

#include "redirector/SmbHelpers.h"
#include "redirector/SmbWorker.h"

#include <QString>

#include <memory>

namespace netrove {

class SmbTurns;

/// The right to put one request to a server now. Given back with its end, and the helper with it
/// for whoever comes next.
class SmbTurn {
public:
    using Urgency = SmbHelpers::Urgency;

    enum class Kind {
        None,    ///< the server is dead
        First,   ///< to reach the server and prove that it answers
        Early,   ///< to open one more connection that nobody needs yet
        Further, ///< to open one more connection
        Ready,   ///< over one that is open
    };

    SmbTurn(const SmbTurn&) = delete;
    SmbTurn& operator=(const SmbTurn&) = delete;
    SmbTurn(SmbTurn&& other) noexcept { *this = std::move(other); }
    SmbTurn& operator=(SmbTurn&& other) noexcept;
    ~SmbTurn();

    [[nodiscard]] Kind Which() const { return kind_; }
    [[nodiscard]] const QString& Server() const { return server_; }
    /// What a dead server's request fails with.
    [[nodiscard]] int Status() const { return status_; }

    /// The helper that it has; null before SmbTurns::StartHelper.
    [[nodiscard]] SmbWorker* Worker() const { return worker_.get(); }
    /// Whether its connection is open and at this share.
    [[nodiscard]] bool IsWarm(const QString& share) const {
        return kind_ == Kind::Ready && share_ == share;
    }
    void SetShare(const QString& share) { share_ = share; }

    /// Ends its helper, which isn't kept: it has no connection that others could use.
    void EndConnection();

private:
    friend class SmbTurns;

    SmbTurn(SmbTurns& turns, Kind kind, Urgency urgency, QString server)
        : turns_(&turns), kind_(kind), urgency_(urgency), server_(std::move(server)) {}

    SmbTurns* turns_ = nullptr;
    Kind kind_ = Kind::None;
    Urgency urgency_ = Urgency::MayWait;
    QString server_; ///< empty where it hasn't been reached
    QString share_;
    int status_ = 0;
    bool hasRoom_ = false; ///< a helper is counted for it
    std::unique_ptr<SmbWorker> worker_;
};

} // namespace netrove
