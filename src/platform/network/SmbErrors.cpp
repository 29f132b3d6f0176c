#include "platform/network/SmbErrors.h"

#include <cerrno>

namespace netrove {

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
    default: // a file in the place of a folder, no such share, no way to the server, a failed helper
        return ErrorNumber::PathNotFound;
    }
}

} // namespace netrove
