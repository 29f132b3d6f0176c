#pragma once

#include "downloads/copier/CopyDisk.h"

#include <QByteArray>

namespace netrove {

/// Keeps, in a small file beside a partial copy, how much of the copy is known to be on the disk. A
/// power loss may destroy what was written after that, and leave a file of the right length with
/// holes.
///
/// The record itself may be lost: then nothing is known. It never claims more than is on the disk:
/// a record that doesn't belong to the file is removed, and the removal flushed, before anything is
/// written.
class FlushRecord {
public:
    /// The end of the name of every record.
    static constexpr QLatin1String Suffix{".netrove-flushed"};

    /// `folder` has its closing separator.
    FlushRecord(CopyDisk& disk, QByteArray folder, QByteArray path)
        : disk_(disk), folder_(std::move(folder)), path_(std::move(path)) {}

    /// The number of bytes, from the file's beginning, that are on the disk; 0 if nothing is known.
    [[nodiscard]] qint64 Read() const;

    /// If the record can't be written, less is known later.
    void Write(qint64 length) const;

    /// False if the record exists and can't be removed for good.
    [[nodiscard]] bool Clear() const;

    /// To be called when the partial copy is gone.
    void Remove() const { static_cast<void>(disk_.Remove(path_)); }

private:
    CopyDisk& disk_;
    QByteArray folder_;
    QByteArray path_;
};

} // namespace netrove
