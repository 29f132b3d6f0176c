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

/// Requests in a row that a server may leave without an answer. One may be a folder that is too
/// big for the limit.
constexpr int MaxTimeouts = 2;

/// A dead computer is left alone for so many spans of SmbLimits::deadFor at most. A list of files
/// on many dead computers would be nothing but waiting if each were tried all the time.
constexpr int MaxDeadSpans = 16;

QString ServerKey(const SmbRequest& request) {
    return request.host.toLower() + QLatin1Char(':') + QString::number(request.port);
}

bool IsNumeric(const QString& host) {
    in6_addr address = {};
    const QByteArray text = host.toUtf8();
    return inet_pton(AF_INET, text.constData(), &address) == 1 ||
           inet_pton(AF_INET6, text.constData(), &address) == 1;
}

} // namespace

QString SmbPool::DefaultHelper() {
    const QString name = QStringLiteral("netrove-smb");
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    const QString beside = folder + name;
    return QFileInfo(beside).isExecutable() ? beside
                                            : folder + QLatin1String("../libexec/netrove/") + name;
}

int SmbPool::Run(const SmbRequest& request, const SmbWorker::Part& part) {
    if (!logons_)
        return Send(request, part);
    SmbRequest asked = request;
    LogonUse use(logons_.get(), asked);
    return use.Status() != 0 ? use.Status() : use.End(Send(asked, part));
}

int SmbPool::Send(const SmbRequest& request, const SmbWorker::Part& part) {
    DropOld();
    const QString server = ServerKey(request);
    if (const auto dead = dead_.constFind(server);
        dead != dead_.cend() && Clock::now() <= dead->until)
        return dead->status;
    if (auto worker = TakeIdle(server))
        return RunOn(std::move(worker), server, request, part);

    auto worker = TakeIdle(QString());
    if (!worker)
        worker = NewWorker();
    if (!worker)
        return ECHILD;
    if (const int status = Reach(*worker, request); status != 0) {
        if (status != ECANCELED)
            Bury(server, status);
        Keep(QString(), std::move(worker));
        return status;
    }
    return RunOn(std::move(worker), server, request, part);
}

int SmbPool::RunOn(std::unique_ptr<SmbWorker> worker, const QString& server,
                   const SmbRequest& request, const SmbWorker::Part& part) {
    const int status = worker->Request(request, LimitOf(request.kind), part);
    Keep(server, std::move(worker));
    if (status == 0)
        dead_.remove(server);
    if (status != ETIMEDOUT)
        timeouts_.remove(server);
    // So short a limit says nothing of how long the server takes for its files.
    else if (request.kind != SmbRequest::Kind::Workgroup && ++timeouts_[server] == MaxTimeouts)
        Bury(server, status);
    return status;
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

void SmbPool::Bury(const QString& server, int status) {
    timeouts_.remove(server);
    const auto before = dead_.constFind(server);
    const SmbLimits::Time span = before == dead_.cend()
                                     ? limits_.deadFor
                                     : std::min(2 * before->span, MaxDeadSpans * limits_.deadFor);
    dead_.insert(server, {.status = status, .until = Clock::now() + span, .span = span});
}

std::unique_ptr<SmbWorker> SmbPool::NewWorker() const {
    auto worker = SmbWorker::Start(helper_);
    return worker && worker->Greet(limits_.start) ? std::move(worker) : nullptr;
}

/// Tests the port before the library gets the server. The worker looks up the name: that can take
/// long, and can't be interrupted.
int SmbPool::Reach(SmbWorker& worker, const SmbRequest& request) const {
    std::vector<QString> addresses;
    if (IsNumeric(request.host)) {
        addresses.push_back(request.host);
    } else {
        SmbRequest lookup = request;
        lookup.kind = SmbRequest::Kind::Resolve;
        lookup.logon.reset();
        const int status = worker.Request(lookup, limits_.lookup, [&](SmbAnswer& part) {
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
    return SmbProbe(limits_).Run(addresses, request.port);
}

std::unique_ptr<SmbWorker> SmbPool::TakeIdle(const QString& server) {
    // The one used last is the warmest.
    while (true) {
        const auto found = std::find_if(idle_.rbegin(), idle_.rend(),
                                        [&](const Idle& one) { return one.server == server; });
        if (found == idle_.rend())
            return nullptr;
        auto worker = std::move(found->worker);
        idle_.erase(std::next(found).base());
        if (worker->IsAlive())
            return worker;
    }
}

void SmbPool::Keep(const QString& server, std::unique_ptr<SmbWorker> worker) {
    if (!worker->IsAlive())
        return;
    const auto isOfServer = [&](const Idle& one) { return one.server == server; };
    const auto ofServer = std::count_if(idle_.begin(), idle_.end(), isOfServer);
    if (static_cast<std::size_t>(ofServer) >= limits_.maxIdlePerServer)
        idle_.erase(std::find_if(idle_.begin(), idle_.end(), isOfServer));
    else if (idle_.size() >= limits_.maxIdle)
        idle_.erase(idle_.begin());
    idle_.push_back({.server = server, .since = Clock::now(), .worker = std::move(worker)});
}

void SmbPool::DropOld() {
    const auto now = Clock::now();
    std::erase_if(idle_, [&](const Idle& one) { return now - one.since > limits_.idle; });
    dead_.removeIf([&](const auto& one) { return now > one->until + limits_.deadFor; });
}

std::vector<pid_t> SmbPool::IdleProcesses() const {
    std::vector<pid_t> processes;
    for (const Idle& one : idle_)
        processes.push_back(one.worker->ProcessId());
    return processes;
}

} // namespace netrove
