#include "downloads/copier/LocalCopySource.h"

#include "runtime/RunTimeError.h"

namespace netrove {

CopySourceState LocalCopySource::Inspect() {
    const FileInfo info = files_.Info(path_);
    if ((info.attributes & FileAttribute::Directory) != 0)
        throw RunTimeError(ErrorNumber::PermissionDenied);
    return {.length = info.length, .modified = info.modified.toMSecsSinceEpoch()};
}

void LocalCopySource::Read(qint64 offset, quint32 length, const Sink& sink) {
    sink(files_.Read(path_, offset, length));
}

} // namespace netrove
