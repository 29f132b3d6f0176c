#pragma once

#include "redirector/Logons.h"
#include "redirector/SmbConnections.h"
#include "redirector/SmbExchange.h"
#include "redirector/SmbLimits.h"
#include "redirector/SmbWorker.h"

#include <QString>

#include <memory>
#include <stop_token>
#include <vector>

namespace netrove {

/// The helper processes of the program, one for each connection. Each serves one server at a time
/// and is kept for it while there is work; none is started before the first request. The destructor
/// ends all of them. May be used by several threads at once.
///
/// The first connection to a server is proven alone: others are opened only when a request over it
/// has been answered, or with an early turn. If the server then refuses one more, the request goes
/// over the others, and their number is remembered.
class SmbPool {
public:
    /// The helper that belongs to this program: beside its executable, else in ../libexec/netrove.
    [[nodiscard]] static QString DefaultHelper();

    /// Without `logons` all requests are sent as they are. What is known of dead servers may be
    /// shared with other pools.
    explicit SmbPool(QString helper = DefaultHelper(), const SmbLimits& limits = {},
                     std::shared_ptr<Logons> logons = nullptr,
                     std::shared_ptr<DeadServers> dead = std::make_shared<DeadServers>())
        : logons_(std::move(logons)), connections_(std::move(helper), limits, std::move(dead)) {}

    using Reached = SmbExchange::Reached;
    using Turn = SmbConnections::Turn;

    /// Puts a request to the server that it names. Returns 0 or an errno: the server's, or one that
    /// says why it can't be reached; ECANCELED where the wait was given up, by WhileWaiting() or
    /// `stop`, which says nothing about the server. Blocks, and calls WhileWaiting(). Goes before
    /// requests that only try for a turn.
    ///
    /// A server that doesn't take connections, or takes them and doesn't speak SMB, costs one
    /// short time limit and then nothing for the rest of the search, or for a little while outside
    /// of one. So does one that falls silent, for all requests that are under way to it together;
    /// one that is still there and doesn't answer costs two limits.
    ///
    /// The request is made with the logon of its computer. A logon that the server has refused
    /// isn't tried again: EACCES.
    /// If this is the first request to the server, `reached` is called once it is known that the
    /// server is there, before the request is sent.
    [[nodiscard]] int Run(const SmbRequest& request, const SmbWorker::Part& part,
                          const std::stop_token& stop = {}, const Reached& reached = {});

    /// The same with a turn that was taken for the request.
    [[nodiscard]] int Run(Turn turn, const SmbRequest& request, const SmbWorker::Part& part,
                          const std::stop_token& stop = {}, const Reached& reached = {});

    /// A turn for a request if it can be had at once. `waiting` is the number of requests that wait
    /// for the server, with this one: it decides whether a further connection pays.
    [[nodiscard]] Turn TryTakeTurn(const SmbRequest& request, std::size_t waiting) {
        return connections_.TryTake(request, waiting);
    }

    /// A turn to open one more connection while the first request to a distant server is under way;
    /// none where a logon isn't known to be good yet.
    [[nodiscard]] Turn TryTakeEarlyTurn(const SmbRequest& request);

    /// A search begins: computers that were dead are tried again, and then stay dead until its end.
    void BeginWalk() { connections_.BeginWalk(); }
    /// The search has ended: ends the helpers that won't be needed again soon.
    void EndWalk() { connections_.EndWalk(); }

    /// The processes that wait for work.
    [[nodiscard]] std::vector<pid_t> IdleProcesses() const { return connections_.IdleProcesses(); }

private:
    const std::shared_ptr<Logons> logons_;
    SmbConnections connections_;
};

} // namespace netrove
