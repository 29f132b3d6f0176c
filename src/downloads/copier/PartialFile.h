#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace netrove {

/// The beginning of a copy, in a hidden file beside its target until it is whole. Its name tells
/// what it is a copy of, so that a later copy of the same goes on where it stopped, and one of
/// something else doesn't. While the object lives, no other copy, of any program, can take the
/// file.
///
/// Operations raise a RunTimeError: PathNotFound where there is no such folder, PathFileAccessError
/// where nothing can be written in it, DiskFull, FileAlreadyOpen while another copies the same.
class PartialFile {
public:
    /// The end of the name of every partial copy.
    static constexpr QLatin1String Suffix{".netrove-part"};

    /// Opens what is there, or makes it. `target` is a full path; `identity` tells one source, in
    /// one state, from another.
    PartialFile(const QString& target, const QByteArray& identity);
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile(); ///< leaves the file where it holds anything

    /// Bytes that are there.
    [[nodiscard]] qint64 Length() const { return length_; }
    void Truncate(qint64 length);
    void Append(QByteArrayView bytes);

    /// Takes the room on the disk for so many bytes in all, where the file system can do that;
    /// elsewhere looks whether there is enough.
    void Reserve(qint64 length);

    /// Gives the file its time (milliseconds since 1970 UTC) and the name of the target, in place
    /// of what has it. Partial copies of other sources for this target are removed.
    void Finish(qint64 modified);

    /// Removes the file.
    void Discard();

private:
    [[nodiscard]] bool Lock() const;
    [[nodiscard]] qint64 Room() const;
    void RemoveOthers() const;

    QByteArray folder_; ///< with its closing separator
    QByteArray prefix_; ///< of the names of all partial copies for this target
    QByteArray target_;
    QByteArray path_;
    int file_ = -1;
    qint64 length_ = 0;
};

} // namespace netrove
