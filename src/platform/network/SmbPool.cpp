#include "platform/network/SmbPool.h"

#include "platform/network/LogonUse.h"
#include "platform/network/SmbProbe.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <arpa/inet.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// A helper that has just worked isn't ended for somebody who can wait: it has more to do soon.
constexpr auto Recent = 500ms;

bool IsNumeric(const QString& host) {
    in6_addr address = {};
    const QByteArray text = host.toUtf8();
    return inet_pton(AF_INET, text.constData(), &address) == 1 ||
           inet_pton(AF_INET6, text.constData(), &address) == 1;
}

/// Whether a status says that the server has let somebody in and answered.
bool IsAnswer(int status) {
    switch (status) {
    case 0:
    case ENOENT:
    case ENOTDIR:
    case EACCES:
    case EPERM:
        return true;
    default:
        return false;
    }
}

/// Whether a failure over a new connection may be one of the connection: the server takes no more
/// of them. Who says nothing at all is no such server.
bool MayBeRefused(int status) {
    return status != 0 && status != ENOENT && status != ENOTDIR && status != ECANCELED &&
           status != ETIMEDOUT;
}

} // namespace

SmbPool::Turn& SmbPool::Turn::operator=(Turn&& other) noexcept {
    std::swap(pool_, other.pool_);
    std::swap(kind_, other.kind_);
    std::swap(urgency_, other.urgency_);
    std::swap(server_, other.server_);
    std::swap(share_, other.share_);
    std::swap(status_, other.status_);
    std::swap(hasHelper_, other.hasHelper_);
    std::swap(worker_, other.worker_);
    return *this;
}

SmbPool::Turn::~Turn() {
    if (pool_)
        pool_->GiveBack(*this);
}

QString SmbPool::ServerName(const SmbRequest& request) {
    return request.host.toLower() + QLatin1Char(':') + QString::number(request.port);
}

QString SmbPool::DefaultHelper() {
    const QString name = QStringLiteral("netrove-smb");
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    const QString beside = folder + name;
    return QFileInfo(beside).isExecutable() ? beside
                                            : folder + QLatin1String("../libexec/netrove/") + name;
}

int SmbPool::Run(const SmbRequest& request, const SmbWorker::Part& part, const Reached& reached) {
    auto turn = AwaitTurn(request);
    return turn ? Run(std::move(*turn), request, part, reached) : ECANCELED;
}

int SmbPool::Run(Turn turn, const SmbRequest& request, const SmbWorker::Part& part,
                 const Reached& reached) {
    if (turn.kind_ == Turn::Kind::None || !logons_)
        return Send(turn, request, part, reached);
    SmbRequest asked = request;
    LogonUse use(logons_.get(), asked);
    return use.Status() != 0 ? use.Status() : use.End(Send(turn, asked, part, reached));
}

int SmbPool::Send(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part,
                  const Reached& reached) {
    // It may have died since the turn was given.
    if (const int status = DeadStatus(turn.server_); status != 0)
        return status;
    switch (turn.kind_) {
    case Turn::Kind::None:
        return turn.status_;
    case Turn::Kind::First:
        return RunFirst(turn, request, part, reached);
    case Turn::Kind::Early:
        return RunEarly(turn, request, part);
    case Turn::Kind::Further:
        return RunFurther(turn, request, part);
    case Turn::Kind::Ready:
        return RunOn(turn, request, part);
    }
    return EINVAL;
}

std::optional<SmbPool::Turn> SmbPool::TryTakeTurn(const SmbRequest& request, std::size_t waiting) {
    const std::scoped_lock lock(mutex_);
    return TakeTurn(request, waiting, Urgency::MayWait);
}

std::optional<SmbPool::Turn> SmbPool::AwaitTurn(const SmbRequest& request) {
    const QString server = ServerName(request);
    std::unique_lock lock(mutex_);
    DropOld();
    ++servers_[server].urgent;
    WaitingPace pace;
    std::optional<Turn> turn;
    while (!(turn = TakeTurn(request, 1, Urgency::GoesFirst)) && AwaitChange(lock, pace)) {
    }
    --servers_[server].urgent;
    return turn;
}

/// False where the wait is to be given up.
bool SmbPool::AwaitChange(std::unique_lock<std::mutex>& lock, WaitingPace& pace) {
    changed_.wait_until(lock, pace.Next());
    lock.unlock();
    const bool goesOn = pace.Pass();
    lock.lock();
    return goesOn;
}

std::optional<SmbPool::Turn> SmbPool::TakeTurn(const SmbRequest& request, std::size_t waiting,
                                               Urgency urgency) {
    const QString name = ServerName(request);
    if (const int status = servers_.DeadStatus(name); status != 0) {
        Turn turn(*this, Turn::Kind::None, urgency, name);
        turn.status_ = status;
        return turn;
    }
    if (urgency == Urgency::MayWait && servers_[name].urgent > 0)
        return std::nullopt;
    if (auto idle = TakeIdle(name, request.share))
        return ReadyTurn(std::move(*idle), urgency);
    const SmbServers::Server& server = servers_[name];
    if (server.open == 0) {
        ++servers_[name].open;
        return Turn(*this, Turn::Kind::First, urgency, name);
    }
    if (!server.isProven || !servers_.TakesMore(name, waiting) || !MakeRoom(urgency))
        return std::nullopt;
    return FurtherTurn(name, urgency);
}

/// Room for its helper has been made.
SmbPool::Turn SmbPool::FurtherTurn(const QString& server, Urgency urgency) {
    ++servers_[server].open;
    Turn turn(*this, Turn::Kind::Further, urgency, server);
    turn.hasHelper_ = true;
    return turn;
}

std::optional<SmbPool::Turn> SmbPool::TryTakeEarlyTurn(const SmbRequest& request) {
    if (logons_ && !logons_->IsSafe(request))
        return std::nullopt;
    const QString name = ServerName(request);
    const std::scoped_lock lock(mutex_);
    if (servers_.DeadStatus(name) != 0 || !servers_.TakesEarly(name) || !MakeRoom(Urgency::MayWait))
        return std::nullopt;
    Turn turn = FurtherTurn(name, Urgency::MayWait);
    turn.kind_ = Turn::Kind::Early;
    return turn;
}

SmbPool::Turn SmbPool::ReadyTurn(Idle idle, Urgency urgency) {
    Turn turn(*this, Turn::Kind::Ready, urgency, std::move(idle.server));
    turn.share_ = std::move(idle.share);
    turn.worker_ = std::move(idle.worker);
    return turn;
}

void SmbPool::GiveBack(Turn& turn) {
    const std::scoped_lock lock(mutex_);
    changed_.notify_all();
    if (turn.kind_ == Turn::Kind::None)
        return;
    if (turn.worker_ && turn.worker_->IsAlive()) {
        idle_.push_back({.server = turn.server_,
                         .share = turn.share_,
                         .since = Clock::now(),
                         .worker = std::move(turn.worker_)});
        return;
    }
    if (turn.hasHelper_ || turn.worker_)
        --helpers_;
    if (!turn.server_.isEmpty())
        servers_.NoteClosed(turn.server_);
}

/// Where a server is first reached: it is looked up, its port is tested, and one request shows
/// whether it lets us in, before anybody else comes.
int SmbPool::RunFirst(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part,
                      const Reached& reached) {
    launcher_.Prepare(); // it loads while the port is tested
    int status = Reach(turn, request);
    if (status == 0 && !turn.worker_)
        status = StartWorker(turn);
    if (status != 0) {
        GiveUp(turn, status);
        return status;
    }
    if (reached)
        reached();
    const auto begin = Clock::now();
    status = RunElseOverAnother(turn, request, part);
    if (request.kind == SmbRequest::Kind::ListFolder && IsAnswer(status)) {
        const std::scoped_lock lock(mutex_);
        servers_.NoteFirstTime(turn.server_, Clock::now() - begin);
    }
    return status;
}

/// The server couldn't be reached. A helper that has only looked up the name serves any other.
void SmbPool::GiveUp(Turn& turn, int status) {
    const std::scoped_lock lock(mutex_);
    if (status != ECANCELED && status != ECHILD)
        servers_.Bury(turn.server_, status);
    servers_.NoteClosed(turn.server_);
    turn.server_.clear();
    changed_.notify_all();
}

/// Opens one more connection for those who come later. Where the server doesn't want that, nobody
/// has lost anything.
int SmbPool::RunEarly(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part) {
    int status = StartWorker(turn);
    if (status == 0)
        status = RunOn(turn, request, part);
    if (status == 0)
        return status;
    const std::scoped_lock lock(mutex_);
    servers_[turn.server_].hasFailedEarly = true;
    if (MayBeRefused(status) && !IsAnswer(status))
        servers_.NoteRefused(turn.server_);
    EndConnection(turn);
    return status;
}

int SmbPool::RunFurther(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part) {
    const int status = StartWorker(turn);
    return status == 0 ? RunElseOverAnother(turn, request, part)
                       : OverAnother(turn, request, part, status);
}

/// Over a new connection. Where the server doesn't want that, over another one: also the first may
/// find that early ones have taken all that it gives.
int SmbPool::RunElseOverAnother(Turn& turn, const SmbRequest& request,
                                const SmbWorker::Part& part) {
    bool isAnswered = false;
    const auto noting = [&](SmbAnswer& answer) {
        isAnswered = true;
        return part(answer);
    };
    const int status = RunOn(turn, request, noting);
    return isAnswered || !MayBeRefused(status) ? status : OverAnother(turn, request, part, status);
}

int SmbPool::OverAnother(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part,
                         int status) {
    auto other = AwaitOther(request);
    if (!other)
        return HasRoomAgain(turn) ? TryAgain(turn, request, part) : status;
    const int again = RunOn(*other, request, part);
    if (again == status || again == ECANCELED)
        return again;
    const std::scoped_lock lock(mutex_);
    servers_.NoteRefused(turn.server_);
    EndConnection(turn);
    return again;
}

/// Whether others were in the way that have all gone meanwhile.
bool SmbPool::HasRoomAgain(const Turn& turn) {
    const std::scoped_lock lock(mutex_);
    const bool hadOthers =
        turn.kind_ == Turn::Kind::Further || servers_[turn.server_].hasFailedEarly;
    return hadOthers && servers_.DeadStatus(turn.server_) == 0;
}

/// The server may need a moment to notice that connections have been closed.
int SmbPool::TryAgain(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part) {
    constexpr int tries = 3;
    WaitingPace pace;
    int status = RunOn(turn, request, part);
    for (int more = 1; more < tries && MayBeRefused(status); ++more) {
        std::unique_lock lock(mutex_);
        if (!AwaitChange(lock, pace))
            return ECANCELED;
        lock.unlock();
        status = RunOn(turn, request, part);
    }
    return status;
}

/// Its helper isn't kept: it has no connection that others could use.
void SmbPool::EndConnection(Turn& turn) {
    if (turn.worker_) {
        turn.worker_.reset();
        turn.hasHelper_ = true;
    }
}

/// A turn over a connection that is open already; none where all who have one wait for another.
std::optional<SmbPool::Turn> SmbPool::AwaitOther(const SmbRequest& request) {
    const QString name = ServerName(request);
    std::unique_lock lock(mutex_);
    ++servers_[name].doubtful;
    changed_.notify_all();
    WaitingPace pace;
    std::optional<Turn> turn;
    while (servers_.DeadStatus(name) == 0 && servers_[name].open > servers_[name].doubtful) {
        if (auto idle = TakeIdle(name, request.share)) {
            turn = ReadyTurn(std::move(*idle), Urgency::GoesFirst);
            break;
        }
        if (!AwaitChange(lock, pace))
            break;
    }
    --servers_[name].doubtful;
    return turn;
}

int SmbPool::RunOn(Turn& turn, const SmbRequest& request, const SmbWorker::Part& part) {
    const bool isWarm = turn.kind_ == Turn::Kind::Ready && turn.share_ == request.share;
    const auto begin = Clock::now();
    const auto noting = [&](SmbAnswer& answer) {
        NoteSign(turn.server_);
        return part(answer);
    };
    const auto check = [&] { return CheckSilent(turn.server_, request.port, begin); };
    const int status = turn.worker_->Request(request, LimitOf(request.kind), noting, check);
    turn.share_ = request.share;
    const std::scoped_lock lock(mutex_);
    // So short a limit says nothing of how long the server takes for its files.
    const bool isLong = request.kind != SmbRequest::Kind::Workgroup;
    servers_.Note(turn.server_, status, isLong);
    if (IsAnswer(status)) {
        servers_.NoteSign(turn.server_);
        servers_[turn.server_].isProven = true;
    }
    if (isWarm && request.kind == SmbRequest::Kind::ListFolder && IsAnswer(status))
        servers_.NoteAnswerTime(turn.server_, Clock::now() - begin);
    return status;
}

void SmbPool::NoteSign(const QString& name) {
    const std::scoped_lock lock(mutex_);
    servers_.NoteSign(name);
}

int SmbPool::DeadStatus(const QString& name) {
    const std::scoped_lock lock(mutex_);
    return servers_.DeadStatus(name);
}

/// Asked by each request that has waited since then, all the time: 0 while its server is there. The
/// first that finds it silent tests it for all.
int SmbPool::CheckSilent(const QString& name, quint16 port, Clock::time_point since) {
    std::vector<QString> addresses;
    {
        const std::scoped_lock lock(mutex_);
        if (const int status = servers_.DeadStatus(name); status != 0)
            return status;
        if (!servers_.BeginProbe(name, since))
            return 0;
        addresses = servers_[name].addresses;
    }
    return EndProbe(name, SmbProbe(limits_).Run(addresses, port));
}

/// The connections to a server that has died are closed.
int SmbPool::EndProbe(const QString& name, int status) {
    std::vector<Idle> closed; // ended without the lock
    const std::scoped_lock lock(mutex_);
    servers_.EndProbe(name, status);
    if (const int dead = servers_.DeadStatus(name); dead != 0) {
        while (auto idle = TakeIdle(name, QString())) {
            closed.push_back(std::move(*idle));
            --helpers_;
            servers_.NoteClosed(name);
        }
        changed_.notify_all();
        return dead;
    }
    return status == ECANCELED ? status : 0;
}

SmbLimits::Time SmbPool::LimitOf(SmbRequest::Kind kind) const {
    switch (kind) {
    case SmbRequest::Kind::Resolve:
        return limits_.lookup;
    case SmbRequest::Kind::ListFolder:
        return limits_.listing;
    case SmbRequest::Kind::Workgroup:
        return limits_.workgroup;
    case SmbRequest::Kind::ListShares:
    case SmbRequest::Kind::Stat:
    case SmbRequest::Kind::Read:
    case SmbRequest::Kind::Inspect:
    case SmbRequest::Kind::Fetch:
        return limits_.request;
    }
    return limits_.request;
}

/// Takes a helper that has spoken to nobody or starts one. Gives ECHILD if there is none to be had.
int SmbPool::StartWorker(Turn& turn) {
    if (!turn.hasHelper_) {
        std::unique_lock lock(mutex_);
        WaitingPace pace;
        std::optional<Idle> idle;
        while (!(idle = TakeIdle(QString(), QString())) && !MakeRoom(turn.urgency_)) {
            if (!AwaitChange(lock, pace))
                return ECANCELED;
        }
        if (idle) {
            turn.worker_ = std::move(idle->worker);
            return 0;
        }
        turn.hasHelper_ = true;
    }
    auto worker = SmbWorker::Start(launcher_);
    if (!worker || !worker->Greet(limits_.start))
        return ECHILD;
    turn.worker_ = std::move(worker);
    return 0;
}

/// Tests the port before the library gets the server. A helper looks up the name: that can take
/// long, and can't be interrupted.
int SmbPool::Reach(Turn& turn, const SmbRequest& request) {
    std::vector<QString> addresses;
    if (IsNumeric(request.host)) {
        addresses.push_back(request.host);
    } else {
        if (const int status = StartWorker(turn); status != 0)
            return status;
        SmbRequest lookup = request;
        lookup.kind = SmbRequest::Kind::Resolve;
        lookup.logon.reset();
        const int status = turn.worker_->Request(lookup, limits_.lookup, [&](SmbAnswer& part) {
            const auto* found = std::get_if<SmbAddresses>(&part);
            if (!found)
                return false;
            for (const SmbAddress& address : *found)
                addresses.push_back(address.text);
            return true;
        });
        if (status != 0)
            return status;
    }
    const auto begin = Clock::now();
    const int status = SmbProbe(limits_).Run(addresses, request.port);
    const std::scoped_lock lock(mutex_);
    servers_[turn.server_].greeting = Clock::now() - begin;
    servers_[turn.server_].addresses = std::move(addresses);
    return status;
}

/// The one used last is the warmest, and one at the same share needs no new connection.
std::optional<SmbPool::Idle> SmbPool::TakeIdle(const QString& server, const QString& share) {
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

/// Counts one more helper, for which one without work may have to go.
bool SmbPool::MakeRoom(Urgency urgency) {
    if (helpers_ >= limits_.maxHelpers && !idle_.empty() &&
        (urgency == Urgency::GoesFirst || Clock::now() - idle_.front().since > Recent))
        Drop(idle_.begin());
    const std::size_t most = limits_.maxHelpers + (urgency == Urgency::GoesFirst ? 1 : 0);
    if (helpers_ >= most)
        return false;
    ++helpers_;
    return true;
}

void SmbPool::Drop(std::vector<Idle>::iterator idle) {
    --helpers_;
    if (!idle->server.isEmpty())
        servers_.NoteClosed(idle->server);
    idle_.erase(idle);
}

void SmbPool::DropOld() {
    const auto now = Clock::now();
    while (!idle_.empty() && now - idle_.front().since > limits_.idle)
        Drop(idle_.begin());
    servers_.ForgetOld();
}

void SmbPool::KeepFew() {
    const std::scoped_lock lock(mutex_);
    QHash<QString, std::size_t> kept;
    for (std::size_t at = idle_.size(); at-- > 0;) {
        const QString& server = idle_[at].server;
        if (!server.isEmpty() && ++kept[server] > limits_.keptPerServer)
            Drop(idle_.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

std::vector<pid_t> SmbPool::IdleProcesses() const {
    const std::scoped_lock lock(mutex_);
    std::vector<pid_t> processes;
    for (const Idle& one : idle_)
        processes.push_back(one.worker->ProcessId());
    return processes;
}

} // namespace netrove
