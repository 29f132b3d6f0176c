#pragma once

#include "downloads/copier/CopyDisk.h"
#include "downloads/copier/FlushRecord.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <chrono>

namespace netrove {

/// The beginning of a copy, in a hidden file beside its target until it is whole. Its name tells
/// what it is a copy of, so that a later copy of the same goes on where it stopped, and one of
/// something else doesn't. While the object lives, no other copy, of any program, can take the
/// file. A power loss costs what was written last: a later copy goes on from what is known to be on
/// the disk.
///
/// Operations raise a RunTimeError: PathNotFound where there is no such folder, PathFileAccessError
/// where nothing can be written in it, DiskFull, FileAlreadyOpen while another copies the same.
class PartialFile {
public:
    /// The end of the name of every partial copy.
    static constexpr QLatin1String Suffix{".netrove-part"};

    /// Opens what is there, or makes it. `target` is a full path; `identity` tells one source, in
    /// one state, from another.
    PartialFile(const QString& target, const QByteArray& identity,
                CopyDisk& disk = CopyDisk::System());
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile(); ///< leaves the file where it holds anything that is known to be on the disk

    /// Bytes that are there: at first, those that are known to be on the disk.
    [[nodiscard]] qint64 Length() const { return length_; }
    void Append(QByteArrayView bytes);

    /// Takes the room on the disk for so many bytes in all, where the file system can do that;
    /// elsewhere looks whether there is enough.
    void Reserve(qint64 length);

    /// Gives the file its time (milliseconds since 1970 UTC) and the name of the target, in place
    /// of what has it if that may be replaced: all of it is on the disk then. Partial copies of
    /// other sources for this target are removed. Raises FileAlreadyExists, and stays, where there
    /// is a target that may not be replaced.
    void Finish(qint64 modified, bool mayReplace);

    /// Removes the file.
    void Discard();

private:
    void Open();
    [[nodiscard]] bool Lock() const;
    void TrustFlushed();
    void Flush();
    [[nodiscard]] qint64 Room() const;
    void RemoveOthers() const;
    void RemoveOther(const QByteArray& stem) const;

    CopyDisk& disk_;
    QByteArray target_;
    QByteArray folder_; ///< with its closing separator
    QByteArray prefix_; ///< of the names of all partial copies for this target
    QByteArray path_;   ///< without its suffix
    FlushRecord record_;
    int file_ = -1;
    qint64 length_ = 0;
    qint64 flushed_ = 0;    ///< bytes that are on the disk
    bool isSpoilt_ = false; ///< the disk has lost some of it
    std::chrono::steady_clock::time_point flushTime_;
};

} // namespace netrove
