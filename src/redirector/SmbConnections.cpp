#include "redirector/SmbConnections.h"

#include <QHash>

#include <cerrno>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// A helper that was at work so recently isn't ended for a request that can wait: it is likely to
/// be needed again soon.
constexpr auto Recent = 500ms;

} // namespace

void SmbConnections::Right::EndConnection() {
    if (worker) {
        worker.reset();
        hasRoom = true;
    }
}

void SmbConnections::GiveBack::operator()(Right* right) const {
    const std::unique_ptr<Right> ended(right);
    const std::scoped_lock lock(connections->mutex_);
    connections->changed_.notify_all();
    if (ended->kind != Kind::None)
        connections->Keep(*ended);
}

/// Takes back what is left of a turn: its helper waits for work from now on, if it still lives.
void SmbConnections::Keep(Right& right) {
    if (right.worker && right.worker->IsAlive()) {
        idle_.push_back({.server = std::move(right.server),
                         .share = std::move(right.share),
                         .since = Clock::now(),
                         .worker = std::move(right.worker)});
        return;
    }
    if (right.hasRoom || right.worker)
        --helpers_;
    if (!right.server.isEmpty())
        servers_.NoteClosed(right.server);
}

SmbConnections::Turn SmbConnections::Make(Right right) {
    return {new Right(std::move(right)), GiveBack{this}};
}

SmbConnections::Turn SmbConnections::Await(const SmbRequest& request, const std::stop_token& stop) {
    const QString server = SmbServers::NameOf(request);
    Lock lock(mutex_);
    DropOld();
    servers_.ForgetOld();
    ++servers_[server].urgent;
    Waiting waiting(stop);
    Turn turn;
    while (!(turn = Take(request, 1, Urgency::GoesFirst)) && waiting.ForNotice(changed_, lock)) {
    }
    --servers_[server].urgent;
    return turn;
}

SmbConnections::Turn SmbConnections::TryTake(const SmbRequest& request, std::size_t waiting) {
    const std::scoped_lock lock(mutex_);
    return Take(request, waiting, Urgency::MayWait);
}

SmbConnections::Turn SmbConnections::TryTakeEarly(const SmbRequest& request) {
    const QString name = SmbServers::NameOf(request);
    const std::scoped_lock lock(mutex_);
    if (servers_.DeadStatus(name) != 0 || !servers_.TakesEarly(name))
        return {};
    return TakeFurther(name, Kind::Early, Urgency::MayWait);
}

SmbConnections::Turn SmbConnections::AwaitOther(const SmbRequest& request,
                                                const std::stop_token& stop) {
    const QString name = SmbServers::NameOf(request);
    Lock lock(mutex_);
    ++servers_[name].doubtful;
    changed_.notify_all();
    Waiting waiting(stop);
    Turn turn;
    while (servers_.DeadStatus(name) == 0 && servers_[name].open > servers_[name].doubtful) {
        turn = TakeReady(request, Urgency::GoesFirst);
        if (turn || !waiting.ForNotice(changed_, lock))
            break;
    }
    --servers_[name].doubtful;
    return turn;
}

SmbConnections::Turn SmbConnections::Take(const SmbRequest& request, std::size_t waiting,
                                          Urgency urgency) {
    const QString name = SmbServers::NameOf(request);
    if (const int status = servers_.DeadStatus(name); status != 0)
        return Make({.urgency = urgency, .server = name, .status = status});
    if (urgency == Urgency::MayWait && servers_[name].urgent > 0)
        return {};
    if (auto ready = TakeReady(request, urgency))
        return ready;
    SmbServers::Server& server = servers_[name];
    if (server.open == 0) {
        ++server.open;
        return Make({.kind = Kind::First, .urgency = urgency, .server = name});
    }
    if (!server.isProven || !servers_.TakesMore(name, waiting))
        return {};
    return TakeFurther(name, Kind::Further, urgency);
}

SmbConnections::Turn SmbConnections::TakeReady(const SmbRequest& request, Urgency urgency) {
    auto idle = TakeIdle(SmbServers::NameOf(request), request.share);
    if (!idle)
        return {};
    return Make({.kind = Kind::Ready,
                 .urgency = urgency,
                 .server = std::move(idle->server),
                 .share = std::move(idle->share),
                 .worker = std::move(idle->worker)});
}

SmbConnections::Turn SmbConnections::TakeFurther(const QString& server, Kind kind,
                                                 Urgency urgency) {
    if (!MakeRoom(urgency))
        return {};
    ++servers_[server].open;
    return Make({.kind = kind, .urgency = urgency, .server = server, .hasRoom = true});
}

bool SmbConnections::AwaitChange(Waiting& waiting) {
    Lock lock(mutex_);
    return waiting.ForNotice(changed_, lock);
}

int SmbConnections::StartHelper(Right& right, const std::stop_token& stop) {
    if (const int status = AwaitHelper(right, stop); status != 0 || right.worker)
        return status;
    auto worker = SmbWorker::Start(launcher_);
    if (!worker || !worker->Greet(limits_.start, stop))
        return ECHILD;
    right.worker = std::move(worker);
    return 0;
}

/// Waits for an idle helper or for room for a new one.
int SmbConnections::AwaitHelper(Right& right, const std::stop_token& stop) {
    if (right.hasRoom)
        return 0;
    Lock lock(mutex_);
    Waiting waiting(stop);
    std::optional<Idle> idle;
    while (!(idle = TakeIdle(QString(), QString())) && !MakeRoom(right.urgency)) {
        if (!waiting.ForNotice(changed_, lock))
            return ECANCELED;
    }
    if (idle)
        right.worker = std::move(idle->worker);
    else
        right.hasRoom = true;
    return 0;
}

void SmbConnections::GiveUp(Right& right, int status) {
    const std::scoped_lock lock(mutex_);
    if (status != ECANCELED && status != ECHILD)
        servers_.Bury(right.server, status);
    servers_.NoteClosed(right.server);
    right.server.clear();
    changed_.notify_all();
}

int SmbConnections::EndProbe(const QString& server, int status) {
    Idles closed; // declared first, so that they end after the lock
    const std::scoped_lock lock(mutex_);
    servers_.EndProbe(server, status);
    if (const int dead = servers_.DeadStatus(server); dead != 0) {
        closed = TakeAllIdle(server);
        changed_.notify_all();
        return dead;
    }
    return status == ECANCELED ? status : 0;
}

void SmbConnections::BeginWalk() {
    const std::scoped_lock lock(mutex_);
    servers_.BeginWalk();
}

void SmbConnections::EndWalk() {
    const std::scoped_lock lock(mutex_);
    servers_.EndWalk();
    KeepFew();
}

std::vector<pid_t> SmbConnections::IdleProcesses() const {
    const std::scoped_lock lock(mutex_);
    std::vector<pid_t> processes;
    for (const Idle& one : idle_)
        processes.push_back(one.worker->ProcessId());
    return processes;
}

/// Counts one more helper, and ends an idle one for it if need be. False if there are too many.
bool SmbConnections::MakeRoom(Urgency urgency) {
    if (helpers_ >= limits_.maxHelpers && !idle_.empty() &&
        (urgency == Urgency::GoesFirst || Clock::now() - idle_.front().since > Recent))
        Drop(idle_.begin());
    const std::size_t most = limits_.maxHelpers + (urgency == Urgency::GoesFirst ? 1 : 0);
    if (helpers_ >= most)
        return false;
    ++helpers_;
    return true;
}

/// Takes an idle helper for a server out, which stays counted. One at the same share needs no new
/// connection, and of equal ones that used last is the most likely to be open still.
std::optional<SmbConnections::Idle> SmbConnections::TakeIdle(const QString& server,
                                                             const QString& share) {
    for (;;) {
        auto best = idle_.end();
        for (auto one = idle_.begin(); one != idle_.end(); ++one) {
            if (one->server == server &&
                (best == idle_.end() || one->share == share || best->share != share))
                best = one;
        }
        if (best == idle_.end())
            return std::nullopt;
        if (!best->worker->IsAlive()) {
            Drop(best);
            continue;
        }
        Idle taken = std::move(*best);
        idle_.erase(best);
        return taken;
    }
}

/// Takes out all idle helpers with a connection to a server, which are no longer counted. They end
/// with the result.
SmbConnections::Idles SmbConnections::TakeAllIdle(const QString& server) {
    Idles all;
    while (auto idle = TakeIdle(server, QString())) {
        all.push_back(std::move(*idle));
        --helpers_;
        servers_.NoteClosed(server);
    }
    return all;
}

void SmbConnections::Drop(Idles::iterator idle) {
    --helpers_;
    if (!idle->server.isEmpty())
        servers_.NoteClosed(idle->server);
    idle_.erase(idle);
}

/// Ends the helpers that have been without work for too long.
void SmbConnections::DropOld() {
    const auto now = Clock::now();
    while (!idle_.empty() && now - idle_.front().since > limits_.idle)
        Drop(idle_.begin());
}

/// Ends the helpers that won't be needed again soon.
void SmbConnections::KeepFew() {
    QHash<QString, std::size_t> kept;
    for (std::size_t at = idle_.size(); at-- > 0;) {
        const QString& server = idle_[at].server;
        if (!server.isEmpty() && ++kept[server] > limits_.keptPerServer)
            Drop(idle_.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

} // namespace netrove
