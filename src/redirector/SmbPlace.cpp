#include "redirector/SmbPlace.h"

#include "redirector/OwnConnections.h"
#include "redirector/SmbCopySource.h"
#include "redirector/SmbErrors.h"
#include "redirector/SmbLists.h"
#include "redirector/SmbPool.h"

#include <cerrno>

namespace netrove {
namespace {

/// Bytes of a list that are read at most: a share whose list is longer does answer.
constexpr qint64 MostBytes = 40'000'000;

LogonResult ResultOf(int status) {
    switch (status) {
    case 0:
        return LogonResult::LetIn;
    case SmbEnd::LogonRefused:
        return LogonResult::Refused;
    case EACCES:
        return LogonResult::HidesShares;
    case ECANCELED:
        return LogonResult::GivenUp;
    default:
        return LogonResult::Unreachable;
    }
}

} // namespace

std::unique_ptr<CopySource> SmbPlace::OpenFile(OwnConnections& connections,
                                               const std::stop_token& stop) const {
    return std::make_unique<SmbCopySource>(connections.Pool(settings_),
                                           Request(SmbRequest::Kind::Inspect), stop);
}

QString SmbPlace::Trouble(OwnConnections& connections, const std::stop_token& stop) const {
    SmbPool& pool = connections.Pool(settings_);
    const auto run = [&](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool.Run(asked, part, stop);
    };
    const bool isShare = !request_.share.isEmpty();
    const SmbList list =
        FetchList(Request(isShare ? SmbRequest::Kind::ListFolder : SmbRequest::Kind::ListShares),
                  run, connections.Arriving(), MostBytes);
    if (list.IsThere() || list.status == ENOBUFS)
        return {};
    return isShare ? TroubleOfShare(list.status) : TroubleOfComputer(list.status);
}

LogonResult SmbPlace::TryLogon(const StoredLogon& logon, const std::stop_token& stop) const {
    SmbPool pool(settings_->helper, settings_->limits);
    SmbRequest request = Request(SmbRequest::Kind::ListShares);
    request.logon = LogonOf(logon);
    const auto take = [](SmbAnswer& part) { return std::holds_alternative<SmbShares>(part); };
    const int status = pool.Run(request, take, stop);
    if (status != ECANCELED && settings_->logons)
        static_cast<void>(settings_->logons->Note(request, status));
    return ResultOf(status);
}

SmbRequest SmbPlace::Request(SmbRequest::Kind kind) const {
    SmbRequest request = request_;
    request.kind = kind;
    return request;
}

} // namespace netrove
