#include "platform/network/SmbErrors.h"

#include <cerrno>

namespace netrove {

ErrorNumber ErrorOfSmbStatus(int status, SmbAction action) {
    const bool isRead = action == SmbAction::Read;
    switch (status) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:      // a file on the way to the folder
    case ENODEV:       // no such share
    case ENAMETOOLONG: // nothing can be there
    case ELOOP:
        return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case ETXTBSY: // opened by others, who don't share it
        return ErrorNumber::PermissionDenied;
    case EISDIR:
        return isRead ? ErrorNumber::PathFileAccessError : ErrorNumber::FileNotFound;
    case EMFILE:
    case ENFILE:
        return ErrorNumber::TooManyFiles;
    case ENOMEM:
        return ErrorNumber::OutOfMemory;
    case EIO:
    case EINVAL:
        return isRead ? ErrorNumber::DeviceIOError : ErrorNumber::PathNotFound;
    default: // the server can't be reached, or the helper has failed
        return ErrorNumber::PathNotFound;
    }
}

} // namespace netrove
