#include "platform/network/SmbErrors.h"

#include "platform/Files.h"
#include "platform/NetworkReport.h"
#include "platform/network/SmbPool.h"

#include <algorithm>
#include <cerrno>

namespace netrove {

QString TroubleOfSmbStatus(int status) {
    switch (status) {
    case EACCES:
    case EPERM:
        return SilentComputer::tr("It refused the logon.");
    case ETIMEDOUT:
        return SilentComputer::tr("It didn't answer in time.");
    case ECONNREFUSED:
        return SilentComputer::tr("It refused the connection: it offers no shares.");
    case EHOSTUNREACH:
    case ENETUNREACH:
        return SilentComputer::tr("There is no way to it.");
    case ENOENT:
        return SilentComputer::tr("Nobody knows its address.");
    case EPROTO:
        return SilentComputer::tr("It doesn't speak SMB 2 or 3.");
    case ECONNRESET:
    case ECONNABORTED:
        return SilentComputer::tr("It broke off the connection.");
    case ECANCELED:
        return SilentComputer::tr("The search was aborted while it was asked.");
    default:
        return SilentComputer::tr("It can't be reached.");
    }
}

ErrorNumber ErrorOfSmbStatus(int status, SmbAction action) {
    switch (status) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case EACCES:
    case EPERM:
    case EBUSY:   // opened by others, who don't share it
    case ETXTBSY: // the same
    case EISDIR:
        return ErrorNumber::PermissionDenied;
    case EIO:
    case EINVAL:
        return action == SmbAction::Read ? ErrorNumber::DeviceIOError : ErrorNumber::PathNotFound;
    default: // no folder, no such share, no way to the server, a helper that failed
        return ErrorNumber::PathNotFound;
    }
}

ErrorNumber ErrorOfSmbRequest(SmbPool& pool, const SmbRequest& request, int status,
                              SmbAction action) {
    if (status != ENOENT)
        return ErrorOfSmbStatus(status, action);
    if (request.path.isEmpty())
        return ErrorNumber::PathNotFound;
    SmbRequest above = request;
    above.kind = SmbRequest::Kind::Stat;
    above.path.truncate(std::max(above.path.lastIndexOf(QLatin1Char('/')), qsizetype{0}));
    bool isFolder = false;
    const auto take = [&](SmbAnswer& part) {
        const auto* some = std::get_if<SmbEntries>(&part);
        isFolder =
            some && !some->empty() && (some->front().attributes & FileAttribute::Directory) != 0;
        return some != nullptr;
    };
    return pool.Run(above, take) == 0 && isFolder ? ErrorNumber::FileNotFound
                                                  : ErrorNumber::PathNotFound;
}

} // namespace netrove
