#include "redirector/SmbErrors.h"

#include "platform/Files.h"
#include "platform/NetworkReport.h"
#include "redirector/SmbPool.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace netrove {

QString TroubleOfComputer(int status) {
    switch (status) {
    case EACCES:
    case EPERM:
        return NotSearched::tr("It refused the logon.");
    case ETIMEDOUT:
        return NotSearched::tr("It didn't answer in time.");
    case ECONNREFUSED:
        return NotSearched::tr("It refused the connection: it offers no shares.");
    case EHOSTUNREACH:
    case ENETUNREACH:
        return NotSearched::tr("There is no way to it.");
    case ENOENT:
        return NotSearched::tr("Nobody knows its address.");
    case EPROTO:
        return NotSearched::tr("It doesn't speak SMB 2 or 3.");
    case ECONNRESET:
    case ECONNABORTED:
    case ENOTCONN:
    case EPIPE:
        return NotSearched::tr("It broke off the connection.");
    case ECANCELED:
        return {};
    default:
        return NotSearched::tr("It can't be reached.");
    }
}

QString TroubleOfShare(int status) {
    switch (status) {
    case EACCES:
    case EPERM:
        return NotSearched::tr("It isn't open to this user.");
    case ENOENT:
    case ENODEV:
    case ENOTDIR:
        return NotSearched::tr("It isn't there any more.");
    default:
        return TroubleOfComputer(status);
    }
}

QString TroubleOfFolder(int status) {
    constexpr std::array failures{ETIMEDOUT,    ECONNREFUSED, EHOSTUNREACH, ENETUNREACH, EPROTO,
                                  ECONNABORTED, ECONNRESET,   ENOTCONN,     EPIPE};
    return std::ranges::find(failures, status) == failures.end() ? QString()
                                                                 : TroubleOfComputer(status);
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
    default: // not a folder, no such share, no way to the server, a helper that failed
        return ErrorNumber::PathNotFound;
    }
}

ErrorNumber ErrorOfSmbRequest(SmbPool& pool, const SmbRequest& request, int status,
                              SmbAction action, const std::stop_token& stop) {
    if (status != ENOENT)
        return ErrorOfSmbStatus(status, action);
    if (request.path.isEmpty())
        return ErrorNumber::PathNotFound;
    SmbRequest above = request;
    above.kind = SmbRequest::Kind::Stat;
    above.path.truncate(std::max(above.path.lastIndexOf(u'/'), qsizetype{0}));
    bool isFolder = false;
    const auto take = [&](SmbAnswer& part) {
        const auto* some = std::get_if<SmbEntries>(&part);
        isFolder =
            some && !some->empty() && (some->front().attributes & FileAttribute::Directory) != 0;
        return some != nullptr;
    };
    return pool.Run(above, take, stop) == 0 && isFolder ? ErrorNumber::FileNotFound
                                                        : ErrorNumber::PathNotFound;
}

} // namespace netrove
