#include "downloads/copier/PartialFile.h"

#include "runtime/RunTimeError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace netrove {
namespace {

/// The most bytes of the target's name in the partial's name, which keeps the whole name short
/// enough for file systems.
constexpr qsizetype MaxNameBytes = 180;
constexpr qsizetype HashDigits = 16;

/// The most time of copying that a power loss may cost on a slow line.
constexpr std::chrono::seconds FlushInterval{5};

QByteArray Hash(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().left(HashDigits);
}

/// The beginning of the names of all partial copies for this target name, and of no others.
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
    case EFBIG: // the file is too large for this file system
        return ErrorNumber::DiskFull;
    case EMFILE:
    case ENFILE:
        return ErrorNumber::TooManyFiles;
    case EIO:
        return ErrorNumber::DeviceIOError;
    case EEXIST:
        return ErrorNumber::FileAlreadyExists;
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

/// Whether an open file still has the name by which it was opened. The copy that had it locked
/// until now may have finished or removed it.
bool IsNamed(int file, const QByteArray& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(file, &opened) == 0 && S_ISREG(opened.st_mode) &&
           lstat(path.constData(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

} // namespace

PartialFile::PartialFile(const QString& target, const QByteArray& identity, CopyDisk& disk)
    : disk_(disk)
    , target_(QFile::encodeName(target))
    , folder_(target_.left(target_.lastIndexOf('/') + 1))
    , prefix_(PrefixOf(target_.sliced(folder_.size())))
    , path_(folder_ + prefix_ + Hash(identity))
    , record_(disk, folder_, path_ + FlushRecord::Suffix.data()) {
    path_ += Suffix.data();
    struct stat status {};
    if (stat(target_.constData(), &status) == 0 && S_ISDIR(status.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    Open();
    try {
        TrustFlushed();
    } catch (...) {
        close(file_);
        throw;
    }
}

PartialFile::~PartialFile() {
    if (file_ < 0)
        return;
    if (length_ > flushed_ && !isSpoilt_)
        static_cast<void>(FailureOf([this] { Flush(); }));
    // Gives back the reserved room.
    if (isSpoilt_ || flushed_ == 0 || disk_.Truncate(file_, flushed_) != 0)
        Discard();
    else
        close(file_);
}

void PartialFile::Open() {
    file_ = OpenPartial(path_);
    if (file_ < 0)
        RaiseErrno();
    if (!Lock() || !IsNamed(file_, path_)) {
        close(file_);
        throw RunTimeError(ErrorNumber::FileAlreadyOpen);
    }
}

/// Takes the length from the record. A record that doesn't belong to the file is removed before
/// anything is written, so that the record is right whenever the power fails.
void PartialFile::TrustFlushed() {
    struct stat status {};
    if (fstat(file_, &status) != 0)
        RaiseErrno();
    flushed_ = record_.Read();
    if (flushed_ == 0 || flushed_ > status.st_size) {
        flushed_ = 0;
        if (!record_.Clear())
            throw RunTimeError(ErrorNumber::DeviceIOError);
    }
    length_ = flushed_;
    flushTime_ = std::chrono::steady_clock::now();
}

/// A file system without locks counts as locked: there, no other program is assumed to use the
/// file.
bool PartialFile::Lock() const {
    return flock(file_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void PartialFile::Append(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t count = disk_.Write(file_, bytes, length_);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            RaiseErrno();
        length_ += count;
        bytes = bytes.sliced(count);
    }
    if (length_ - flushed_ >= disk_.MostUnflushed() ||
        std::chrono::steady_clock::now() - flushTime_ >= FlushInterval)
        Flush();
}

void PartialFile::Flush() {
    if (disk_.Flush(file_) != 0) {
        isSpoilt_ = true; // the next flush wouldn't report this failure again
        RaiseErrno();
    }
    flushed_ = length_;
    flushTime_ = std::chrono::steady_clock::now();
    record_.Write(flushed_);
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

/// The number of bytes that the program may still write to the disk.
qint64 PartialFile::Room() const {
    struct statvfs status {};
    if (fstatvfs(file_, &status) != 0)
        RaiseErrno();
    // Computed as a floating-point number: a file system may report more than fits into 64 bits.
    const auto room = static_cast<long double>(status.f_bavail) * status.f_frsize;
    return room < 9e18L ? static_cast<qint64>(room) : qint64{9'000'000'000'000'000'000};
}

void PartialFile::Finish(qint64 modified, bool mayReplace) {
    const std::array<timespec, 2> times{timespec{.tv_sec = 0, .tv_nsec = UTIME_OMIT},
                                        TimeOf(modified)};
    // Not every file system can store every time; the content is right all the same.
    static_cast<void>(futimens(file_, times.data()));
    Flush();
    if (disk_.Rename(path_, target_, mayReplace) != 0)
        RaiseErrno();
    close(file_);
    file_ = -1;
    static_cast<void>(disk_.FlushFolder(folder_));
    record_.Remove();
    RemoveOthers();
}

void PartialFile::Discard() {
    static_cast<void>(disk_.Remove(path_));
    record_.Remove();
    close(file_);
    file_ = -1;
}

/// Removes only those that nobody is writing, and their records.
void PartialFile::RemoveOthers() const {
    for (const QString& name :
         QDir(QFile::decodeName(folder_)).entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        const QByteArray file = QFile::encodeName(name);
        for (const QLatin1String suffix : {Suffix, FlushRecord::Suffix}) {
            if (file.startsWith(prefix_) && file.endsWith(suffix.data()) &&
                file.size() == prefix_.size() + HashDigits + suffix.size())
                RemoveOther(folder_ + file.chopped(suffix.size()));
        }
    }
}

void PartialFile::RemoveOther(const QByteArray& stem) const {
    const QByteArray path = stem + Suffix.data();
    const int other = open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (other < 0 && errno != ENOENT)
        return;
    if (other < 0 || (flock(other, LOCK_EX | LOCK_NB) == 0 && IsNamed(other, path))) {
        static_cast<void>(disk_.Remove(path));
        static_cast<void>(disk_.Remove(stem + FlushRecord::Suffix.data()));
    }
    if (other >= 0)
        close(other);
}

} // namespace netrove
