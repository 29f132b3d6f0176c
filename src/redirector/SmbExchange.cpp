#include "redirector/SmbExchange.h"

#include "redirector/SmbProbe.h"

#include <cerrno>

#include <arpa/inet.h>

namespace netrove {
namespace {

bool IsNumeric(const QString& host) {
    in6_addr address = {};
    const QByteArray text = host.toUtf8();
    return inet_pton(AF_INET, text.constData(), &address) == 1 ||
           inet_pton(AF_INET6, text.constData(), &address) == 1;
}

/// Whether a status says that the server has let the user in and answered.
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

/// Whether a failure over a new connection may mean that the server takes no more connections. A
/// server that says nothing at all isn't one of those.
bool MayBeRefused(int status) {
    return status != 0 && status != ENOENT && status != ENOTDIR && status != ECANCELED &&
           status != ETIMEDOUT;
}

SmbLimits::Time LimitOf(const SmbLimits& limits, SmbRequest::Kind kind) {
    switch (kind) {
    case SmbRequest::Kind::Resolve:
        return limits.lookup;
    case SmbRequest::Kind::ListFolder:
        return limits.listing;
    case SmbRequest::Kind::Workgroup:
        return limits.workgroup;
    case SmbRequest::Kind::ListShares:
    case SmbRequest::Kind::Stat:
    case SmbRequest::Kind::Read:
    case SmbRequest::Kind::Inspect:
    case SmbRequest::Kind::Fetch:
        return limits.request;
    }
    return limits.request;
}

} // namespace

int SmbExchange::Run(const Reached& reached) {
    // The server may have died since the turn was given.
    if (const int status = connections_.Servers()->DeadStatus(right_.server); status != 0)
        return status;
    switch (right_.kind) {
    case SmbConnections::Right::Kind::None:
        return right_.status;
    case SmbConnections::Right::Kind::First:
        return RunFirst(reached);
    case SmbConnections::Right::Kind::Early:
        return RunEarly();
    case SmbConnections::Right::Kind::Further:
        return RunFurther();
    case SmbConnections::Right::Kind::Ready:
        return RunOn(right_, part_);
    }
    return EINVAL;
}

/// Reaches a server for the first time: it is looked up, its port is tested, and one request shows
/// whether it lets us in, before there are others.
int SmbExchange::RunFirst(const Reached& reached) {
    connections_.PrepareHelpers(); // it loads while the port is tested
    int status = Reach();
    if (status == 0 && !right_.worker)
        status = connections_.StartHelper(right_, stop_);
    if (status != 0) {
        connections_.GiveUp(right_, status);
        return status;
    }
    if (reached)
        reached();
    const auto begin = Clock::now();
    status = RunElseOverAnother();
    if (request_.kind == SmbRequest::Kind::ListFolder && IsAnswer(status))
        connections_.Servers()->NoteFirstTime(right_.server, Clock::now() - begin);
    return status;
}

/// Opens one more connection for later requests. If the server refuses it, nothing is lost.
int SmbExchange::RunEarly() {
    int status = connections_.StartHelper(right_, stop_);
    if (status == 0)
        status = RunOn(right_, part_);
    if (status == 0)
        return status;
    const auto servers = connections_.Servers();
    (*servers)[right_.server].hasFailedEarly = true;
    if (MayBeRefused(status) && !IsAnswer(status))
        servers->NoteRefused(right_.server);
    right_.EndConnection();
    return status;
}

int SmbExchange::RunFurther() {
    const int status = connections_.StartHelper(right_, stop_);
    return status == 0 ? RunElseOverAnother() : OverAnother(status);
}

/// Runs the request over the new connection, or over another one if the server refuses the new one.
/// Even the first request may find that early connections have taken all that the server allows.
int SmbExchange::RunElseOverAnother() {
    const int status = RunOn(right_, part_);
    return isAnswered_ || !MayBeRefused(status) ? status : OverAnother(status);
}

int SmbExchange::OverAnother(int status) {
    auto other = connections_.AwaitOther(request_, stop_);
    if (!other)
        return right_.worker && HasRoomAgain() ? TryAgain() : status;
    const int again = RunOn(*other, part_);
    if (again == status || again == ECANCELED)
        return again;
    const auto servers = connections_.Servers();
    servers->NoteRefused(right_.server);
    right_.EndConnection();
    return again;
}

/// Whether the connections that were in the way may have been closed meanwhile. Called when no
/// other connection can be had.
bool SmbExchange::HasRoomAgain() {
    const auto servers = connections_.Servers();
    const bool hadOthers = right_.kind == SmbConnections::Right::Kind::Further ||
                           (*servers)[right_.server].hasFailedEarly;
    return hadOthers && servers->DeadStatus(right_.server) == 0;
}

/// Tries the new connection again: the server may need a moment to notice that others were closed.
int SmbExchange::TryAgain() {
    constexpr int tries = 10;
    Waiting waiting(stop_);
    int status = RunOn(right_, part_);
    for (int more = 1; more < tries && !isAnswered_ && MayBeRefused(status); ++more) {
        if (!connections_.AwaitChange(waiting))
            return ECANCELED;
        status = RunOn(right_, part_);
    }
    return status;
}

/// Looks the server up and tests its port before the library is let at it.
int SmbExchange::Reach() {
    std::vector<QString> addresses;
    if (IsNumeric(request_.host))
        addresses.push_back(request_.host);
    else if (const int status = LookUp(addresses); status != 0)
        return status;
    const auto begin = Clock::now();
    const int status = SmbProbe(connections_.Limits()).Run(addresses, request_.port, stop_);
    const auto servers = connections_.Servers();
    SmbServers::Server& server = (*servers)[right_.server];
    server.greeting = Clock::now() - begin;
    server.addresses = std::move(addresses);
    return status;
}

/// Has a helper look up the name: that can take long, and can't be interrupted.
int SmbExchange::LookUp(std::vector<QString>& addresses) {
    if (const int status = connections_.StartHelper(right_, stop_); status != 0)
        return status;
    SmbRequest lookup = request_;
    lookup.kind = SmbRequest::Kind::Resolve;
    lookup.logon.reset();
    return right_.worker->Request(
        lookup, connections_.Limits().lookup,
        [&](SmbAnswer& part) {
            const auto* found = std::get_if<SmbAddresses>(&part);
            if (!found)
                return false;
            for (const SmbAddress& address : *found)
                addresses.push_back(address.text);
            return true;
        },
        stop_);
}

int SmbExchange::RunOn(SmbConnections::Right& right, const SmbWorker::Part& part) {
    const bool isWarm = right.IsWarm(request_.share);
    const auto begin = Clock::now();
    const auto noting = [&](SmbAnswer& answer) {
        isAnswered_ = true;
        connections_.Servers()->NoteSign(right.server);
        return part(answer);
    };
    const auto check = [&] { return CheckSilent(right.server, begin); };
    const int status = right.worker->Request(
        request_, LimitOf(connections_.Limits(), request_.kind), noting, stop_, check);
    right.share = request_.share;
    NoteEnd(right, status, isWarm, Clock::now() - begin);
    return status;
}

void SmbExchange::NoteEnd(const SmbConnections::Right& right, int status, bool isWarm,
                          Clock::duration time) {
    // The limit for a workgroup is too short to tell how long the server takes for its files.
    const bool isLong = request_.kind != SmbRequest::Kind::Workgroup;
    const auto servers = connections_.Servers();
    servers->Note(right.server, status, isLong);
    if (!IsAnswer(status))
        return;
    servers->NoteSign(right.server);
    (*servers)[right.server].isProven = true;
    if (isWarm && request_.kind == SmbRequest::Kind::ListFolder)
        servers->NoteAnswerTime(right.server, time);
}

/// Called again and again by each request, which has waited since `since`: returns 0 while its
/// server is there. The first request that finds the server silent tests it for all.
int SmbExchange::CheckSilent(const QString& server, Clock::time_point since) {
    std::vector<QString> addresses;
    {
        const auto servers = connections_.Servers();
        if (const int status = servers->DeadStatus(server); status != 0)
            return status;
        if (!servers->BeginProbe(server, since))
            return 0;
        addresses = (*servers)[server].addresses;
    }
    return connections_.EndProbe(
        server, SmbProbe(connections_.Limits()).Run(addresses, request_.port, stop_));
}

} // namespace netrove
