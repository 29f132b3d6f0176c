#include "smb/helper/LibraryAnswers.h"

#include "runtime/FileAttribute.h"

#include <algorithm>
#include <cerrno>

namespace netrove {
namespace {

/// The library gives the attributes of a single file as permissions: a file that may be written
/// isn't read-only, and the three execute bits stand for archive, system and hidden.
quint32 AttributesOfMode(mode_t mode) {
    quint32 attributes = 0;
    if (S_ISDIR(mode))
        return FileAttribute::Directory;
    if ((mode & S_IWUSR) == 0)
        attributes |= FileAttribute::ReadOnly;
    if ((mode & S_IXUSR) != 0)
        attributes |= FileAttribute::Archive;
    if ((mode & S_IXGRP) != 0)
        attributes |= FileAttribute::System;
    if ((mode & S_IXOTH) != 0)
        attributes |= FileAttribute::Hidden;
    return attributes;
}

} // namespace

int LibraryFailure() {
    return errno == 0 ? EIO : errno;
}

qint64 Milliseconds(const timespec& time) {
    return qint64{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

/// Unsigned arithmetic, which may overflow: a server may tell any time, even nonsense.
qint64 Nanoseconds(const timespec& time) {
    return static_cast<qint64>(static_cast<quint64>(time.tv_sec) * 1'000'000'000 +
                               static_cast<quint64>(time.tv_nsec));
}

SmbEntries EntryOf(const struct stat& file) {
    return {{.name = {},
             .attributes = AttributesOfMode(file.st_mode),
             .length = std::max<qint64>(file.st_size, 0),
             .modified = Milliseconds(file.st_mtim)}};
}

} // namespace netrove
