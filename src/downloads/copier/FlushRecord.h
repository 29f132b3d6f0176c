#pragma once

#include "downloads/copier/CopyDisk.h"

#include <QByteArray>

namespace netrove {

/// How much of a partial copy is known to be on the disk, in a small file beside it. A power loss
/// may take what was written after that, and leave a file of the right length with holes.
///
/// The record may be lost itself: then nothing is known. It never tells more than there is, as it
/// is taken away, and that is flushed, before anything is written that it doesn't speak of.
class FlushRecord {
public:
    /// The end of the name of every record.
    static constexpr QLatin1String Suffix{".netrove-flushed"};

    /// `folder` has its closing separator.
    FlushRecord(CopyDisk& disk, QByteArray folder, QByteArray path)
        : disk_(disk), folder_(std::move(folder)), path_(std::move(path)) {}

    /// Bytes from the beginning on; 0 where nothing is known.
    [[nodiscard]] qint64 Read() const;

    /// Where it can't be written, less is known.
    void Write(qint64 length) const;

    /// False where it is there and can't be taken away for good.
    [[nodiscard]] bool Clear() const;

    /// The file that it is about has gone.
    void Remove() const { static_cast<void>(disk_.Remove(path_)); }

private:
    CopyDisk& disk_;
    QByteArray folder_;
    QByteArray path_;
};

} // namespace netrove
