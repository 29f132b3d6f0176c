#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <sys/types.h>

namespace netrove {

/// The calls by which a copy gets onto a disk, with the results and the errno of the system's
/// calls. A test uses a disk that loses what wasn't flushed.
class CopyDisk {
public:
    CopyDisk() = default;
    CopyDisk(const CopyDisk&) = delete;
    CopyDisk& operator=(const CopyDisk&) = delete;
    virtual ~CopyDisk() = default;

    /// Returns the number of bytes written; fewer than given isn't a failure.
    [[nodiscard]] virtual ssize_t Write(int file, QByteArrayView bytes, qint64 offset);
    [[nodiscard]] virtual int Truncate(int file, qint64 length);
    /// Returns once the content is on the disk.
    [[nodiscard]] virtual int Flush(int file);
    /// Returns once the names in the folder are on the disk.
    [[nodiscard]] virtual int FlushFolder(const QByteArray& path);
    /// Fails with EEXIST if something has the new name, unless that may be replaced.
    [[nodiscard]] virtual int Rename(const QByteArray& from, const QByteArray& to, bool mayReplace);
    [[nodiscard]] virtual int Remove(const QByteArray& path);

    /// The most bytes that are written before they are flushed: what a power loss may cost.
    [[nodiscard]] virtual qint64 MostUnflushed() const { return qint64{64} * 1024 * 1024; }

    /// The real one.
    [[nodiscard]] static CopyDisk& System();
};

} // namespace netrove
