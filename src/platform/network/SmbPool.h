#pragma once

#include "platform/network/Logons.h"
#include "platform/network/SmbLauncher.h"
#include "platform/network/SmbLimits.h"
#include "platform/network/SmbServers.h"
#include "platform/network/SmbWorker.h"
#include "platform/network/WaitingPace.h"

#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace netrove {

/// The helper processes of the program, one a connection. Each serves one server at a time and is
/// kept for it while there is work; none is started before the first request. The destructor ends
/// all of them. May be used by several threads at once.
///
/// The first connection to a server is proven alone: others are opened only when a request over it
/// has been answered, or by who takes an early turn. Where the server then refuses one more, the
/// request goes over the others, and their number is remembered.
class SmbPool {
public:
    /// The helper that belongs to this program: beside its executable, else in ../libexec/netrove.
    [[nodiscard]] static QString DefaultHelper();

    /// Without `logons` all requests are sent as they are.
    explicit SmbPool(QString helper = DefaultHelper(), const SmbLimits& limits = {},
                     std::shared_ptr<Logons> logons = nullptr)
        : launcher_(std::move(helper))
        , limits_(limits)
        , logons_(std::move(logons))
        , servers_(limits) {}

    /// A name for the server that a request goes to.
    [[nodiscard]] static QString ServerName(const SmbRequest& request);

    using Reached = std::function<void()>;

    /// The right to put one request to a server now. Given back with its end.
    class Turn;

    /// Puts a request to the server that it names. Gives 0 or an errno: the server's, or one that
    /// says why it can't be reached; ECANCELED where the wait was given up, which says nothing of
    /// the server. Blocks, and calls WhileWaiting(). Goes before those who only try for a turn.
    ///
    /// A server that doesn't take connections, or takes them and doesn't speak SMB, costs one
    /// short limit and then nothing for a while, which is longer each time that it is tried in
    /// vain right afterwards. So does one that falls silent, together with all requests that are
    /// under way to it; one that is still there and doesn't answer costs two limits.
    ///
    /// The request is made with the logon of its computer. One that the server has refused isn't
    /// tried again: EACCES.
    /// `reached` is called once it is known that the server is there, before the request is sent,
    /// where this is the first one to it.
    [[nodiscard]] int Run(const SmbRequest& request, const SmbWorker::Part& part,
                          const Reached& reached = {});

    /// The same with a turn that was taken for the request.
    [[nodiscard]] int Run(Turn turn, const SmbRequest& request, const SmbWorker::Part& part,
                          const Reached& reached = {});

    /// A turn for a request if there can be one at once. So many requests wait for the server,
    /// with this one: that decides whether a further connection pays.
    [[nodiscard]] std::optional<Turn> TryTakeTurn(const SmbRequest& request, std::size_t waiting);

    /// A turn to open one more connection while the first request to a distant server is under way;
    /// none where a logon isn't known to be good yet.
    [[nodiscard]] std::optional<Turn> TryTakeEarlyTurn(const SmbRequest& request);

    /// Ends helpers that nobody needs so soon again, as a search has ended.
    void KeepFew();

    /// The processes that wait for work.
    [[nodiscard]] std::vector<pid_t> IdleProcesses() const;

private:
    using Clock = std::chrono::steady_clock;

    struct Idle {
        QString server; ///< empty for one that hasn't spoken to any
        QString share;  ///< what it was asked for last; another one costs a new connection
        Clock::time_point since;
        std::unique_ptr<SmbWorker> worker;
    };

    enum class Urgency { MayWait, GoesFirst };

    /// These are called under the lock.
    [[nodiscard]] std::optional<Turn> TakeTurn(const SmbRequest& request, std::size_t waiting,
                                               Urgency urgency);
    [[nodiscard]] Turn ReadyTurn(Idle idle, Urgency urgency);
    [[nodiscard]] Turn FurtherTurn(const QString& server, Urgency urgency);
    [[nodiscard]] std::optional<Idle> TakeIdle(const QString& server, const QString& share);
    [[nodiscard]] bool MakeRoom(Urgency urgency);
    void Drop(std::vector<Idle>::iterator idle);
    void DropOld();

    [[nodiscard]] int Send(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part,
                           const Reached& reached);
    [[nodiscard]] int RunFirst(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part,
                               const Reached& reached);
    [[nodiscard]] int RunEarly(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part);
    [[nodiscard]] int RunFurther(Turn& turn, const SmbRequest& request,
                                 const SmbWorker::Part& part);
    [[nodiscard]] int RunElseOverAnother(Turn& turn, const SmbRequest& request,
                                         const SmbWorker::Part& part);
    [[nodiscard]] int OverAnother(Turn& turn, const SmbRequest& request,
                                  const SmbWorker::Part& part, int status);
    [[nodiscard]] bool HasRoomAgain(const Turn& turn);
    [[nodiscard]] int TryAgain(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part);
    static void EndConnection(Turn& turn);
    [[nodiscard]] int RunOn(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part);
    [[nodiscard]] int Reach(Turn& turn, const SmbRequest& request);
    [[nodiscard]] int StartWorker(Turn& turn);
    void NoteSign(const QString& name);
    [[nodiscard]] int DeadStatus(const QString& name);
    [[nodiscard]] int CheckSilent(const QString& name, quint16 port, Clock::time_point since);
    [[nodiscard]] int EndProbe(const QString& name, int status);
    [[nodiscard]] SmbLimits::Time LimitOf(SmbRequest::Kind kind) const;
    [[nodiscard]] std::optional<Turn> AwaitOther(const SmbRequest& request);
    [[nodiscard]] std::optional<Turn> AwaitTurn(const SmbRequest& request);
    [[nodiscard]] bool AwaitChange(std::unique_lock<std::mutex>& lock, WaitingPace& pace);
    void GiveUp(Turn& turn, int status);
    void GiveBack(Turn& turn);

    SmbLauncher launcher_;
    const SmbLimits limits_;
    const std::shared_ptr<Logons> logons_;
    mutable std::mutex mutex_;
    std::condition_variable changed_; ///< a turn has been given back
    SmbServers servers_;
    std::vector<Idle> idle_;  ///< the longest idle first
    std::size_t helpers_ = 0; ///< processes, with those that are being started
};

class SmbPool::Turn {
public:
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    Turn(Turn&& other) noexcept { *this = std::move(other); }
    Turn& operator=(Turn&& other) noexcept;
    ~Turn();

private:
    friend class SmbPool;

    enum class Kind {
        None,    ///< the server is dead
        First,   ///< to reach the server and prove that it answers
        Early,   ///< to open one more connection that nobody needs yet
        Further, ///< to open one more connection
        Ready,   ///< over one that is open
    };

    Turn(SmbPool& pool, Kind kind, Urgency urgency, QString server)
        : pool_(&pool), kind_(kind), urgency_(urgency), server_(std::move(server)) {}

    SmbPool* pool_ = nullptr;
    Kind kind_ = Kind::None;
    Urgency urgency_ = Urgency::MayWait;
    QString server_;
    QString share_;
    int status_ = 0;         ///< of Kind::None
    bool hasHelper_ = false; ///< one is counted for it
    std::unique_ptr<SmbWorker> worker_;
};

} // namespace netrove
