#include "platform/LocalFiles.h"

#include "platform/TextEncoding.h"
#include "runtime/RunTimeError.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

/// The earliest and the latest date that a file gets: the years 1 to 9999.
constexpr qint64 EarliestSecond = -62'135'596'800;
constexpr qint64 LatestSecond = 253'402'300'799;

/// How long a listing that is in use may be given again.
constexpr std::chrono::seconds LongestSharing{1};

class LocalFind : public FileFind {
public:
    explicit LocalFind(std::shared_ptr<const LocalListing> listing)
        : listing_(std::move(listing)) {}

    bool FindNext(FindData& data) override {
        if (next_ == listing_->Count())
            return false;
        listing_->Get(next_++, data);
        return true;
    }

private:
    std::shared_ptr<const LocalListing> listing_;
    std::size_t next_ = 0;
};

class FileDescriptor {
public:
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() {
        if (number_ >= 0)
            close(number_);
    }
    [[nodiscard]] int Number() const { return number_; }

private:
    int number_;
};

bool Exists(const QByteArray& path) {
    struct stat status {};
    return lstat(path.constData(), &status) == 0;
}

/// The bytes of a path as written; empty for a text that can't be a path.
QByteArray BytesOf(const QString& path) {
    return path.isValidUtf16() && !path.contains(QChar(u'\0')) ? path.toUtf8() : QByteArray();
}

/// Raises the failure that errno stands for, for a file that couldn't be reached.
[[noreturn]] void RaiseErrno(const QByteArray& path) {
    if (errno == EACCES || errno == EPERM)
        throw RunTimeError(ErrorNumber::PermissionDenied);
    const bool folderExists = Exists(path.left(std::max(path.lastIndexOf('/'), qsizetype{1})));
    throw RunTimeError(folderExists && errno != ENOTDIR ? ErrorNumber::FileNotFound
                                                        : ErrorNumber::PathNotFound);
}

struct stat StatusOf(const QByteArray& path) {
    struct stat status {};
    if (stat(path.constData(), &status) != 0)
        RaiseErrno(path);
    return status;
}

QDateTime ModifiedOf(const struct stat& status) {
    const qint64 second = std::clamp<qint64>(status.st_mtim.tv_sec, EarliestSecond, LatestSecond);
    return QDateTime::fromMSecsSinceEpoch(second * 1000 + status.st_mtim.tv_nsec / 1'000'000);
}

quint32 AttributesOf(const QByteArray& path, const struct stat& status) {
    quint32 attributes = 0;
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((status.st_mode & anyWrite) == 0 ||
        faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) != 0)
        attributes |= FileAttribute::ReadOnly;
    if (path.sliced(path.lastIndexOf('/') + 1).startsWith('.'))
        attributes |= FileAttribute::Hidden;
    if (S_ISDIR(status.st_mode))
        attributes |= FileAttribute::Directory;
    else if (S_ISREG(status.st_mode))
        attributes |= FileAttribute::Archive;
    return attributes;
}

} // namespace

std::unique_ptr<FileFind> LocalFiles::FindFirst(const QString& searchPath, FindData& first) {
    constexpr QStringView all = u"/*.*";
    if (!searchPath.endsWith(all))
        return nullptr;
    // The top of the file system keeps its separator.
    return List(searchPath.left(std::max(searchPath.size() - all.size(), qsizetype{1})), first);
}

std::unique_ptr<FileFind> LocalFiles::List(const QString& folder, FindData& first,
                                           qsizetype walked) {
    auto listing = Listing(folder, walked);
    if (!listing)
        return nullptr;
    auto find = std::make_unique<LocalFind>(std::move(listing));
    return find->FindNext(first) ? std::move(find) : nullptr;
}

std::shared_ptr<const LocalListing> LocalFiles::Listing(const QString& folder, qsizetype walked) {
    const auto now = std::chrono::steady_clock::now();
    if (folder == lastFolder_ && now - lastRead_ <= LongestSharing) {
        if (auto listing = lastListing_.lock())
            return listing;
    }
    // Tries the path as written first: to look it up first would double the cost.
    auto listing = LocalListing::Read(BytesOf(folder), walked);
    if (!listing && errno == ENOENT)
        listing = LocalListing::Read(LookUp(folder), walked);
    lastFolder_ = folder;
    lastListing_ = listing;
    lastRead_ = now;
    return listing;
}

bool LocalFiles::CanEnter(const QString& path) {
    const QByteArray bytes = Existing(path);
    struct stat status {};
    return stat(bytes.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           faccessat(AT_FDCWD, bytes.constData(), X_OK, AT_EACCESS) == 0;
}

FileInfo LocalFiles::Info(const QString& path) {
    const QByteArray bytes = Existing(path);
    const struct stat status = StatusOf(bytes);
    return {.attributes = AttributesOf(bytes, status),
            .length = S_ISREG(status.st_mode) ? status.st_size : 0,
            .modified = ModifiedOf(status)};
}

QByteArray LocalFiles::Read(const QString& path, qint64 offset, qint64 length) {
    const QByteArray bytes = Existing(path);
    const struct stat status = StatusOf(bytes);
    // Opening a device or a pipe could do anything.
    if (!S_ISREG(status.st_mode))
        throw RunTimeError(ErrorNumber::PermissionDenied);
    const FileDescriptor file(open(bytes.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Number() < 0)
        RaiseErrno(bytes);
    const qint64 left = std::max<qint64>(status.st_size - std::max<qint64>(offset, 0), 0);
    QByteArray content(std::clamp<qint64>(length, 0, left), Qt::Uninitialized);
    qint64 got = 0;
    while (got < content.size()) {
        const ssize_t piece = pread(file.Number(), content.data() + got,
                                    static_cast<std::size_t>(content.size() - got), offset + got);
        if (piece < 0 && errno == EINTR)
            continue;
        if (piece < 0)
            throw RunTimeError(ErrorNumber::PermissionDenied);
        if (piece == 0)
            break;
        got += piece;
    }
    content.truncate(got);
    return content;
}

std::optional<QString> LocalFiles::LocalPath(const QString& path) {
    const QByteArray bytes = Existing(path);
    // Only a path in UTF-8 can be handed on as a text.
    return Exists(bytes) ? FromUtf8(bytes) : std::nullopt;
}

/// The path as it is on disk; the path as written if there is no such file.
QByteArray LocalFiles::Existing(const QString& path) const {
    QByteArray bytes = BytesOf(path);
    if (Exists(bytes) || errno != ENOENT)
        return bytes;
    const QByteArray found = LookUp(path);
    return found.isEmpty() ? bytes : found;
}

/// Goes down the path; for each element that doesn't exist as written it takes the entry that was
/// given out as that text. Empty if there is none.
QByteArray LocalFiles::LookUp(const QString& path) const {
    QByteArray reached = path.startsWith(u'/') ? "/" : "./";
    for (const QString& element : path.split(u'/', Qt::SkipEmptyParts)) {
        QByteArray name = BytesOf(element);
        if (name.isEmpty() || !Exists(reached + name)) {
            const auto listing = LocalListing::Read(reached);
            name = listing ? listing->EntryBytes(element, nameCase_ == NameCase::Ignored)
                           : QByteArray();
        }
        if (name.isEmpty())
            return {};
        reached += name + '/';
    }
    if (reached.size() > 1)
        reached.chop(1);
    return reached;
}

} // namespace netrove
