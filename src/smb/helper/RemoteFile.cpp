#include "smb/helper/RemoteFile.h"

#include "smb/helper/LibraryAnswers.h"

#include <libsmbclient.h>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>

namespace netrove {
namespace {

/// Bytes of a fetched file that the library is asked for at a time.
constexpr quint32 PieceBytes = 4 * 1024 * 1024;

} // namespace

int RemoteFile::Inspect(const QByteArray& url, const Part& part) {
    if (const int status = Open(url); status != 0)
        return status;
    struct stat file = {};
    errno = 0;
    if (smbc_fstat(file_, &file) < 0) {
        const int status = LibraryFailure();
        Close();
        return status;
    }
    part(EntryOf(file));
    return 0;
}

int RemoteFile::Open(const QByteArray& url) {
    if (file_ >= 0 && url_ == url)
        return 0;
    Close();
    errno = 0;
    file_ = smbc_open(url.constData(), O_RDONLY, 0);
    url_ = url;
    return file_ < 0 ? LibraryFailure() : 0;
}

void RemoteFile::Close() {
    if (file_ >= 0)
        smbc_close(file_);
    file_ = -1;
}

int RemoteFile::Read(const SmbRequest& request, const QByteArray& url, const Part& part) {
    if (const int status = Open(url); status != 0)
        return status;
    const int status = ReadPieces(request, part);
    if (status != 0)
        Close();
    return status;
}

int RemoteFile::ReadPieces(const SmbRequest& request, const Part& part) {
    errno = 0;
    if (smbc_lseek(file_, request.offset, SEEK_SET) < 0)
        return LibraryFailure();
    for (qint64 left = request.length; left > 0;) {
        SmbData data{QByteArray(std::min<qint64>(left, SmbData::MaxBytes), Qt::Uninitialized)};
        errno = 0;
        const ssize_t count =
            smbc_read(file_, data.bytes.data(), static_cast<std::size_t>(data.bytes.size()));
        if (count < 0)
            return LibraryFailure();
        if (count == 0)
            return 0;
        data.bytes.truncate(count);
        left -= count;
        if (!part(data))
            return ECANCELED;
    }
    return 0;
}

int RemoteFile::Fetch(const SmbRequest& request, const QByteArray& url, const Part& part) {
    if (!memory_)
        memory_ = SmbMemory::Open(SmbMemoryDescriptor);
    if (!memory_)
        return ENOMEM;
    if (const int status = Open(url); status != 0)
        return status;
    const int status = FetchPieces(request, part);
    if (status != 0)
        Close();
    return status;
}

/// In pieces, so that the program can store one while the next is read.
int RemoteFile::FetchPieces(const SmbRequest& request, const Part& part) {
    errno = 0;
    if (smbc_lseek(file_, request.offset, SEEK_SET) < 0)
        return LibraryFailure();
    for (quint32 at = 0; at < request.length;) {
        errno = 0;
        const ssize_t count =
            smbc_read(file_, memory_->Data() + at, std::min(request.length - at, PieceBytes));
        if (count < 0)
            return LibraryFailure();
        if (count == 0)
            return 0;
        const auto length = static_cast<quint32>(count);
        if (!part(SmbFetched{.begin = at, .length = length}))
            return ECANCELED;
        at += length;
    }
    return 0;
}

} // namespace netrove
