#include "downloads/copier/CopyDisk.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

/// For file systems that can't rename without replacing. A hard link never replaces anything.
int RenameByLink(const char* from, const char* to) {
    if (link(from, to) == 0)
        return unlink(from);
    struct stat status {};
    if (errno == EEXIST || lstat(to, &status) == 0) {
        errno = EEXIST;
        return -1;
    }
    return rename(from, to);
}

/// Where the file system doesn't support flushing, there is nothing more to be done: that counts as
/// success.
int DoneOrUnknown(int result) {
    return result != 0 && (errno == EINVAL || errno == ENOSYS || errno == EROFS) ? 0 : result;
}

} // namespace

ssize_t CopyDisk::Write(int file, QByteArrayView bytes, qint64 offset) {
    return pwrite(file, bytes.data(), static_cast<std::size_t>(bytes.size()), offset);
}

int CopyDisk::Truncate(int file, qint64 length) {
    return ftruncate(file, length);
}

int CopyDisk::Flush(int file) {
    return DoneOrUnknown(fdatasync(file));
}

int CopyDisk::FlushFolder(const QByteArray& path) {
    const int folder = open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return -1;
    const int result = DoneOrUnknown(fsync(folder));
    close(folder);
    return result;
}

int CopyDisk::Rename(const QByteArray& from, const QByteArray& to, bool mayReplace) {
    if (mayReplace)
        return rename(from.constData(), to.constData());
    const int result =
        renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE);
    return result == 0 || (errno != EINVAL && errno != ENOSYS)
               ? result
               : RenameByLink(from.constData(), to.constData());
}

int CopyDisk::Remove(const QByteArray& path) {
    return unlink(path.constData());
}

CopyDisk& CopyDisk::System() {
    static CopyDisk disk;
    return disk;
}

} // namespace netrove
