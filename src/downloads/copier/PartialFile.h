#pragma once

#include "downloads/copier/CopyDisk.h"
#include "downloads/copier/FlushRecord.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <chrono>

namespace netrove {

/// The beginning of a copy, in a hidden file beside its target until it is complete. The file's
/// name tells what it is a copy of, so that only a later copy of the same source goes on where it
/// stopped. While the object lives, no other copy, by this or another running program, can take the
/// file. A power loss costs what was written last: a later copy goes on after the part that is
/// known to be on the disk.
///
/// Operations raise a RunTimeError: PathNotFound if there is no such folder, PathFileAccessError if
/// nothing can be written in it, DiskFull, FileAlreadyOpen while another copy of the same source
/// runs.
class PartialFile {
public:
    /// The end of the name of every partial copy.
    static constexpr QLatin1String Suffix{".netrove-part"};

    /// Opens the file if it exists, or makes it. `target` is a full path; `identity` tells one
    /// source, in one state, from another.
    PartialFile(const QString& target, const QByteArray& identity,
                CopyDisk& disk = CopyDisk::System());
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile(); ///< keeps what is known to be on the disk

    /// The number of bytes in the file; at first, of those known to be on the disk.
    [[nodiscard]] qint64 Length() const { return length_; }
    void Append(QByteArrayView bytes);

    /// Reserves room on the disk for this many bytes in all, if the file system can do that;
    /// otherwise checks whether there is enough.
    void Reserve(qint64 length);

    /// Gives the file its time (milliseconds since 1970 UTC) and the name of the target, replacing
    /// any file of that name if that is allowed. The whole file is on the disk then. Removes
    /// partial copies of other sources for this target. If there is a target that may not be
    /// replaced, raises FileAlreadyExists and keeps the partial file.
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
    bool isSpoilt_ = false; ///< the disk has lost some of the file
    std::chrono::steady_clock::time_point flushTime_;
};

} // namespace netrove
