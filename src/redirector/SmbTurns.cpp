#include "redirector/SmbTurns.h"

#include <cerrno>

namespace netrove {

std::optional<SmbTurn> SmbTurns::Await(const SmbRequest& request) {
    const QString server = SmbServers::NameOf(request);
    Lock lock(mutex_);
    helpers_.DropOld();
    servers_.ForgetOld();
    ++servers_[server].urgent;
    WaitingPace pace;
    std::optional<SmbTurn> turn;
    while (!(turn = Take(request, 1, Urgency::GoesFirst)) && AwaitChange(lock, pace)) {
    }
    --servers_[server].urgent;
    return turn;
}

std::optional<SmbTurn> SmbTurns::TryTake(const SmbRequest& request, std::size_t waiting) {
    const std::scoped_lock lock(mutex_);
    return Take(request, waiting, Urgency::MayWait);
}

std::optional<SmbTurn> SmbTurns::TryTakeEarly(const SmbRequest& request) {
    const QString name = SmbServers::NameOf(request);
    const std::scoped_lock lock(mutex_);
    if (servers_.DeadStatus(name) != 0 || !servers_.TakesEarly(name) ||
        !helpers_.MakeRoom(Urgency::MayWait))
        return std::nullopt;
    SmbTurn turn = FurtherTurn(name, Urgency::MayWait);
    turn.kind_ = SmbTurn::Kind::Early;
    return turn;
}

std::optional<SmbTurn> SmbTurns::AwaitOther(const SmbRequest& request) {
    const QString name = SmbServers::NameOf(request);
    Lock lock(mutex_);
    ++servers_[name].doubtful;
    changed_.notify_all();
    WaitingPace pace;
    std::optional<SmbTurn> turn;
    while (servers_.DeadStatus(name) == 0 && servers_[name].open > servers_[name].doubtful) {
        turn = TakeReady(request, Urgency::GoesFirst);
        if (turn || !AwaitChange(lock, pace))
            break;
    }
    --servers_[name].doubtful;
    return turn;
}

std::optional<SmbTurn> SmbTurns::Take(const SmbRequest& request, std::size_t waiting,
                                      Urgency urgency) {
    const QString name = SmbServers::NameOf(request);
    if (const int status = servers_.DeadStatus(name); status != 0) {
        SmbTurn turn(*this, SmbTurn::Kind::None, urgency, name);
        turn.status_ = status;
        return turn;
    }
    if (urgency == Urgency::MayWait && servers_[name].urgent > 0)
        return std::nullopt;
    if (auto ready = TakeReady(request, urgency))
        return ready;
    SmbServers::Server& server = servers_[name];
    if (server.open == 0) {
        ++server.open;
        return SmbTurn(*this, SmbTurn::Kind::First, urgency, name);
    }
    if (!server.isProven || !servers_.TakesMore(name, waiting) || !helpers_.MakeRoom(urgency))
        return std::nullopt;
    return FurtherTurn(name, urgency);
}

std::optional<SmbTurn> SmbTurns::TakeReady(const SmbRequest& request, Urgency urgency) {
    auto idle = helpers_.Take(SmbServers::NameOf(request), request.share);
    if (!idle)
        return std::nullopt;
    SmbTurn turn(*this, SmbTurn::Kind::Ready, urgency, std::move(idle->server));
    turn.share_ = std::move(idle->share);
    turn.worker_ = std::move(idle->worker);
    return turn;
}

/// Room for its helper has been made.
SmbTurn SmbTurns::FurtherTurn(const QString& server, Urgency urgency) {
    ++servers_[server].open;
    SmbTurn turn(*this, SmbTurn::Kind::Further, urgency, server);
    turn.hasRoom_ = true;
    return turn;
}

bool SmbTurns::AwaitChange(WaitingPace& pace) {
    Lock lock(mutex_);
    return AwaitChange(lock, pace);
}

bool SmbTurns::AwaitChange(Lock& lock, WaitingPace& pace) {
    changed_.wait_until(lock, pace.Next());
    lock.unlock();
    const bool goesOn = pace.Pass();
    lock.lock();
    return goesOn;
}

int SmbTurns::StartHelper(SmbTurn& turn) {
    if (const int status = AwaitHelper(turn); status != 0 || turn.worker_)
        return status;
    auto worker = SmbWorker::Start(launcher_);
    if (!worker || !worker->Greet(limits_.start))
        return ECHILD;
    turn.worker_ = std::move(worker);
    return 0;
}

/// Either a helper that is there or room for a new one.
int SmbTurns::AwaitHelper(SmbTurn& turn) {
    if (turn.hasRoom_)
        return 0;
    Lock lock(mutex_);
    WaitingPace pace;
    std::optional<SmbHelpers::Idle> idle;
    while (!(idle = helpers_.Take(QString(), QString())) && !helpers_.MakeRoom(turn.urgency_)) {
        if (!AwaitChange(lock, pace))
            return ECANCELED;
    }
    if (idle)
        turn.worker_ = std::move(idle->worker);
    else
        turn.hasRoom_ = true;
    return 0;
}

void SmbTurns::GiveUp(SmbTurn& turn, int status) {
    const std::scoped_lock lock(mutex_);
    if (status != ECANCELED && status != ECHILD)
        servers_.Bury(turn.server_, status);
    servers_.NoteClosed(turn.server_);
    turn.server_.clear();
    changed_.notify_all();
}

void SmbTurns::GiveBack(SmbTurn& turn) {
    const std::scoped_lock lock(mutex_);
    changed_.notify_all();
    if (turn.kind_ == SmbTurn::Kind::None)
        return;
    if (turn.worker_ && turn.worker_->IsAlive()) {
        helpers_.Keep(
            {.server = turn.server_, .share = turn.share_, .worker = std::move(turn.worker_)});
        return;
    }
    if (turn.hasRoom_ || turn.worker_)
        helpers_.NoteEnded();
    if (!turn.server_.isEmpty())
        servers_.NoteClosed(turn.server_);
}

int SmbTurns::EndProbe(const QString& server, int status) {
    std::vector<SmbHelpers::Idle> closed; // ended without the lock
    const std::scoped_lock lock(mutex_);
    servers_.EndProbe(server, status);
    if (const int dead = servers_.DeadStatus(server); dead != 0) {
        closed = helpers_.TakeAll(server);
        changed_.notify_all();
        return dead;
    }
    return status == ECANCELED ? status : 0;
}

void SmbTurns::BeginWalk() {
    const std::scoped_lock lock(mutex_);
    servers_.BeginWalk();
}

void SmbTurns::EndWalk() {
    const std::scoped_lock lock(mutex_);
    servers_.EndWalk();
    helpers_.KeepFew();
}

std::vector<pid_t> SmbTurns::IdleProcesses() const {
    const std::scoped_lock lock(mutex_);
    return helpers_.Processes();
}

} // namespace netrove
