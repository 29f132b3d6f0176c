#include "downloads/copier/PartialFile.h"

#include "runtime/RunTimeError.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace netrove {
namespace {

/// Bytes of the target's name in the partial's: with the rest it stays below what is allowed.
constexpr qsizetype MaxNameBytes = 180;
constexpr qsizetype HashDigits = 16;

QByteArray Hash(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().left(HashDigits);
}

/// What every partial copy for this name begins with, and no other.
QByteArray PrefixOf(const QByteArray& name) {
    if (name.size() <= MaxNameBytes)
        return '.' + name + '.';
    qsizetype size = MaxNameBytes;
    while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0U) == 0x80U)
        --size;
    return '.' + name.left(size) + '.' + Hash(name) + '.';
}

ErrorNumber ErrorOfErrno(int number) {
    switch (number) {
    case ENOENT:
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: // more than this file system holds in one file
        return ErrorNumber::DiskFull;
    case EMFILE:
    case ENFILE:
        return ErrorNumber::TooManyFiles;
    case EIO:
        return ErrorNumber::DeviceIOError;
    default:
        return ErrorNumber::PathFileAccessError;
    }
}

[[noreturn]] void RaiseErrno() {
    throw RunTimeError(ErrorOfErrno(errno));
}

timespec TimeOf(qint64 milliseconds) {
    const qint64 rest = (milliseconds % 1000 + 1000) % 1000;
    return {.tv_sec = (milliseconds - rest) / 1000, .tv_nsec = rest * 1'000'000};
}

int OpenPartial(const QByteArray& path) {
    return open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
}

} // namespace

PartialFile::PartialFile(const QString& target, const QByteArray& identity)
    : target_(QFile::encodeName(target)) {
    const qsizetype name = target_.lastIndexOf('/') + 1;
    folder_ = target_.left(name);
    prefix_ = PrefixOf(target_.sliced(name));
    path_ = folder_ + prefix_ + Hash(identity) + Suffix.data();
    struct stat status {};
    if (stat(target_.constData(), &status) == 0 && S_ISDIR(status.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    file_ = OpenPartial(path_);
    if (file_ < 0)
        RaiseErrno();
    const bool isOurs = Lock();
    // One that has just been finished or removed has no name any more.
    if (!isOurs || fstat(file_, &status) != 0 || !S_ISREG(status.st_mode) || status.st_nlink == 0) {
        close(file_);
        throw RunTimeError(ErrorNumber::FileAlreadyOpen);
    }
    length_ = status.st_size;
}

PartialFile::~PartialFile() {
    if (file_ < 0)
        return;
    // Gives back the room that was reserved.
    if (length_ == 0 || ftruncate(file_, length_) != 0)
        unlink(path_.constData());
    close(file_);
}

/// File systems without locks have no two programs at the same file.
bool PartialFile::Lock() const {
    return flock(file_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void PartialFile::Truncate(qint64 length) {
    if (ftruncate(file_, length) != 0)
        RaiseErrno();
    length_ = length;
}

void PartialFile::Append(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t count =
            pwrite(file_, bytes.data(), static_cast<std::size_t>(bytes.size()), length_);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            RaiseErrno();
        length_ += count;
        bytes = bytes.sliced(count);
    }
}

void PartialFile::Reserve(qint64 length) {
    if (length <= length_)
        return;
    int result = 0;
    do {
        result = fallocate(file_, FALLOC_FL_KEEP_SIZE, length_, length - length_);
    } while (result != 0 && errno == EINTR);
    if (result == 0)
        return;
    if (errno != EOPNOTSUPP)
        RaiseErrno();
    if (Room() < length - length_)
        throw RunTimeError(ErrorNumber::DiskFull);
}

/// Bytes that the program may still write to the disk.
qint64 PartialFile::Room() const {
    struct statvfs status {};
    if (fstatvfs(file_, &status) != 0)
        RaiseErrno();
    // More than any disk has doesn't fit into the number.
    const auto room = static_cast<long double>(status.f_bavail) * status.f_frsize;
    return room < 9e18L ? static_cast<qint64>(room) : qint64{9'000'000'000'000'000'000};
}

void PartialFile::Finish(qint64 modified) {
    const std::array<timespec, 2> times{timespec{.tv_sec = 0, .tv_nsec = UTIME_OMIT},
                                        TimeOf(modified)};
    // Not every file system holds every time; the content is right all the same.
    static_cast<void>(futimens(file_, times.data()));
    if (rename(path_.constData(), target_.constData()) != 0)
        RaiseErrno();
    close(file_);
    file_ = -1;
    RemoveOthers();
}

void PartialFile::Discard() {
    unlink(path_.constData());
    close(file_);
    file_ = -1;
}

/// Those that nobody is writing.
void PartialFile::RemoveOthers() const {
    namespace fs = std::filesystem;
    const std::string prefix = prefix_.toStdString();
    const std::string suffix(Suffix.data());
    std::error_code error;
    for (fs::directory_iterator at(folder_.toStdString(), error), end; !error && at != end;
         at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (name.size() != prefix.size() + HashDigits + suffix.size() ||
            !name.starts_with(prefix) || !name.ends_with(suffix))
            continue;
        const int other = open(at->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
        if (other < 0)
            continue;
        if (flock(other, LOCK_EX | LOCK_NB) == 0)
            unlink(at->path().c_str());
        close(other);
    }
}

} // namespace netrove
