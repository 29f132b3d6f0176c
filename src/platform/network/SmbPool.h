#pragma once

#include "platform/network/Logons.h"
#include "platform/network/SmbLimits.h"
#include "platform/network/SmbWorker.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <memory>
#include <vector>

namespace netrove {

/// The helper processes of the program. Each serves one server at a time and is kept for it while
/// there is work; none is started before the first request. The destructor ends all of them.
class SmbPool {
public:
    /// The helper that belongs to this program: beside its executable, else in ../libexec/netrove.
    [[nodiscard]] static QString DefaultHelper();

    /// Without `logons` all requests are sent as they are.
    explicit SmbPool(QString helper = DefaultHelper(), const SmbLimits& limits = {},
                     std::shared_ptr<Logons> logons = nullptr)
        : helper_(std::move(helper)), limits_(limits), logons_(std::move(logons)) {}

    /// Puts a request to the server that it names. Gives 0 or an errno: the server's, or one that
    /// says why it can't be reached; ECANCELED where the wait was given up, which says nothing of
    /// the server. Blocks, and calls WhileWaiting().
    ///
    /// A server that doesn't take connections, or takes them and doesn't speak SMB, costs one
    /// short limit and then nothing for a while, which is longer each time that it is tried in
    /// vain right afterwards; one that stops answering costs two.
    ///
    /// The request is made with the logon of its computer. One that the server has refused isn't
    /// tried again: EACCES.
    [[nodiscard]] int Run(const SmbRequest& request, const SmbWorker::Part& part);

    /// The processes that wait for work.
    [[nodiscard]] std::vector<pid_t> IdleProcesses() const;

private:
    using Clock = std::chrono::steady_clock;

    struct Idle {
        QString server; ///< empty for one that hasn't spoken to any
        Clock::time_point since;
        std::unique_ptr<SmbWorker> worker;
    };
    struct Dead {
        int status;
        Clock::time_point until;
        SmbLimits::Time span; ///< grows each time that it is found dead right after its end
    };

    [[nodiscard]] int Send(const SmbRequest& request, const SmbWorker::Part& part);
    [[nodiscard]] int RunOn(std::unique_ptr<SmbWorker> worker, const QString& server,
                            const SmbRequest& request, const SmbWorker::Part& part);
    [[nodiscard]] SmbLimits::Time LimitOf(SmbRequest::Kind kind) const;
    [[nodiscard]] int Reach(SmbWorker& worker, const SmbRequest& request) const;
    [[nodiscard]] std::unique_ptr<SmbWorker> TakeIdle(const QString& server);
    [[nodiscard]] std::unique_ptr<SmbWorker> NewWorker() const;
    void Bury(const QString& server, int status);
    void Keep(const QString& server, std::unique_ptr<SmbWorker> worker);
    void DropOld();

    QString helper_;
    SmbLimits limits_;
    std::shared_ptr<Logons> logons_;
    std::vector<Idle> idle_;       ///< the longest idle first
    QHash<QString, Dead> dead_;    ///< also those that may be tried again since a little while
    QHash<QString, int> timeouts_; ///< in a row, of servers whose last request had one
};

} // namespace netrove
